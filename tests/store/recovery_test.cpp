// A program that is killed while it writes leaves all of its transaction or nothing in the files.
#include "store/engines_under_test.h"
#include "store/files.h"
#include "support/new_data_files.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

namespace pgbp {
namespace {

std::vector<Connection> Open(const TemporaryFolder& folder)
{
    const DataFile files[] = {{.path = folder.path() / "company.mdb", .dsn = {}},
                              {.path = folder.path() / "balance.mdb", .dsn = {}}};
    return OpenFiles(files);
}

/// Replaces ten rows in each file again and again; every row of one round holds the same number. Each finished round
/// goes as a byte to `told`.
[[noreturn]] void WriteUntilKilled(const TemporaryFolder& folder, double round, int told)
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
        if (write(told, "x", 1) != 1)
            _exit(1);
    }
}

/// The moment of death follows the work, not the machine's speed: within 10 ms of the start of one of the first rounds.
void KillWhileWriting(const TemporaryFolder& folder, double round, std::mt19937& random)
{
    int told[2];
    ASSERT_EQ(pipe(told), 0);
    const pid_t child = fork();
    if (child == 0)
        WriteUntilKilled(folder, round, told[1]);
    char byte = 0;
    for (auto rounds = random() % 3; rounds > 0; --rounds)
        ASSERT_EQ(read(told[0], &byte, 1), 1);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 10000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(told[0]);
    close(told[1]);
}

class JointJournal : public testing::Test {
  protected:
    JointJournal() { OpenNewDataFiles(folder, {"company", "balance"}); }

    std::filesystem::path Leave(std::string_view name, const std::string& lists) const
    {
        std::ofstream(folder.path() / name, std::ios::binary) << lists << '\0';
        return folder.path() / name;
    }

    const TemporaryFolder folder;
    const std::string journal = (folder.path() / "balance.mdb-journal").string();
};

TEST_F(JointJournal, ThatNobodyNeedsGoesAtTheNextStart)
{
    const auto left = Leave("company.mdb-mj1B2C3D9E0", journal);
    const auto empty = Leave("balance.mdb-mj0000009FF", "");
    const auto others = Leave("company.mdb-mj-old.txt", "");
    const auto elsewhere = Leave("other.mdb-mj1B2C3D9E0", journal);
    Open(folder);
    EXPECT_FALSE(exists(left));
    EXPECT_FALSE(exists(empty));
    EXPECT_TRUE(exists(others)) << "of no writer";
    EXPECT_TRUE(exists(elsewhere)) << "of a file that is not open";
}

TEST_F(JointJournal, OfACommitUnderWayStays)
{
    const auto left = Leave("company.mdb-mj1B2C3D9E0", journal);
    {
        const auto writer = Open(folder);
        EXPECT_FALSE(exists(left));
        Leave("company.mdb-mj1B2C3D9E0", journal);
        Transaction commit({writer[1]});
        const auto start = std::chrono::steady_clock::now();
        Open(folder);
        EXPECT_TRUE(exists(left));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << "waits for nobody";
    }
    const TemporaryFolder another;
    const auto far = Leave("company.mdb-mj1B2C3D9E0", (another.path() / "third.mdb-journal").string());
    std::ofstream(another.path() / "third.mdb-journal") << "hot";
    Open(folder);
    EXPECT_TRUE(exists(far)) << "a journal of a file elsewhere still needs it";
    remove(another.path() / "third.mdb-journal");
    std::ofstream(folder.path() / "fourth.mdb-journal") << "hot";
    Open(folder);
    EXPECT_TRUE(exists(far)) << "a journal beside it may name it";
    std::filesystem::remove(folder.path() / "fourth.mdb-journal");
    Open(folder);
    EXPECT_FALSE(exists(far));
}

TEST_F(JointJournal, OfAKilledWriterIsGoneAfterTheNextStart)
{
    std::mt19937 random(std::random_device{}());
    const auto left = [&] {
        return std::ranges::count_if(std::filesystem::directory_iterator(folder.path() / ""), [](const auto& entry) {
            return entry.path().string().find("-mj") != std::string::npos;
        });
    };
    long found = 0;
    for (int kill = 0; kill < 200 && found < 5; ++kill) {
        KillWhileWriting(folder, kill, random);
        found += left();
        Open(folder);
        ASSERT_EQ(left(), 0);
    }
    EXPECT_GT(found, 0) << "no kill left any: the test shows nothing";
}

} // namespace
} // namespace pgbp
