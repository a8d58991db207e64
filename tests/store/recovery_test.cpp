// A program that is killed while it writes leaves all of its transaction or nothing in the files.
#include "store/engines_under_test.h"
#include "store/files.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

namespace pgbp {
namespace {

std::vector<Connection> Open(const TemporaryFolder& folder)
{
    const DataFile files[] = {{.path = folder / "company.mdb", .dsn = {}}, {.path = folder / "balance.mdb", .dsn = {}}};
    return OpenFiles(files);
}

/// Replaces ten rows in each file again and again; every row of one round holds the same number.
[[noreturn]] void WriteUntilKilled(const TemporaryFolder& folder, double round)
{
    const auto files = Open(folder);
    while (true) {
        Transaction transaction({files[0], files[1]});
        files[0].Delete("from {business}");
        files[1].Delete("from {compu}");
        ++round;
        for (int i = 0; i < 10; ++i) {
            files[0].Insert("business", {{"code", "A"}, {"sno", round}});
            files[1].Insert("compu", {{"code", "A"}, {"gross", round}});
        }
        transaction.Commit();
    }
}

void KillWhileWriting(const TemporaryFolder& folder, double round, std::chrono::microseconds after)
{
    const pid_t child = fork();
    if (child == 0)
        WriteUntilKilled(folder, round);
    std::this_thread::sleep_for(after);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(Recovery, AKilledWriterLeavesAllOrNothingInBothFiles)
{
    const TemporaryFolder folder;
    OpenNewFiles(folder, {"company", "balance"});
    std::mt19937 random(std::random_device{}());
    double round = 0;
    for (int kill = 0; kill < 40; ++kill) {
        KillWhileWriting(folder, round, std::chrono::microseconds(5000 + random() % 20000));
        const auto files = Open(folder);
        const Recordset lines =
            files[0].Query("select count(*) as n, min(sno) as low, max(sno) as high from {business}");
        const Recordset incomes =
            files[1].Query("select count(*) as n, min(gross) as low, max(gross) as high from {compu}");
        const Row line = lines.First(), income = incomes.First();
        round = line["high"].Number();
        EXPECT_EQ(line["n"].Number(), round == 0 ? 0 : 10);
        EXPECT_EQ(line["low"].Number(), round);
        for (const char* column : {"n", "low", "high"})
            EXPECT_EQ(line[column].Number(), income[column].Number()) << column;
    }
    EXPECT_GT(round, 0) << "no round was ever finished: the test shows nothing";
}

} // namespace
} // namespace pgbp
