// The process dies at any moment of a write: every time all of it is in the files or nothing, and the next start works.

#include "income/summary_under_test.h"

#include "records/lines.h"
#include "services/format.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace pgbp;

namespace {

constexpr int kRounds = 100; // of each kind
constexpr const char* kCode = "A0001r2023-24";

/// Runs `work` over and over in a process of its own and kills that process at a random moment.
void KillDuring(const std::function<void()>& work, std::mt19937& random)
{
    const pid_t child = fork();
    if (child == 0) {
        try {
            while (true)
                work();
        } catch (...) {
            _exit(1);
        }
    }
    std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 60000));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer failed by itself";
}

long Count(const Connection& connection, const std::string& table)
{
    return static_cast<long>(connection.Scalar("select count(*) from {" + table + "} where code = ?", kCode).Number());
}

} // namespace

TEST(Killed, WhileTheHeadOfIncomeIsWritten)
{
    std::mt19937 random(11);
    SummaryUnderTest practice;
    practice.Begin(2023, "01");
    practice.run->screens.End();
    practice.run.reset();
    int seen = 0;
    for (int round = 0; round < kRounds; ++round) {
        KillDuring(
            [&, figure = 0]() mutable {
                if (!practice.run)
                    practice.Begin(2023, "01");
                auto& form = static_cast<frmbusiness&>(*practice.run->screens.Find("frmbusiness"));
                form.lbl1.Set(Amount(++figure));
                form.lbltotal.Set(form.lbl1.text());
                form.lbllast.Set(form.lbl1.text());
                form.StoreHeadOfIncome();
            },
            random);
        frmbusiness& form = practice.Begin(2023, "01"); // the next start works
        const Recordset heads = practice.run->balance.Query(
            "select amt1, amt9, amt14 from {qelgeneral} where code = ? and [Type] = 'BUSI'", kCode);
        ASSERT_LE(heads.Size(), 1U);
        ASSERT_TRUE(heads.Size() == 1 || seen == 0) << "the row of the last completed write is gone";
        if (heads.Size() == 1) {
            ++seen;
            ASSERT_EQ(heads.First().At(0).Number(), heads.First().At(1).Number());
            ASSERT_EQ(heads.First().At(0).Number(), heads.First().At(2).Number());
        }
        ASSERT_EQ(form.lbltotal.text(), "0.00");
        practice.run.reset();
    }
    EXPECT_GT(seen, kRounds / 2) << "most writers were killed before they wrote anything: the test shows nothing";
}

TEST(Killed, WhileALineIsDeleted)
{
    std::mt19937 random(13);
    SummaryUnderTest practice;
    practice.Begin(2023, "01");
    practice.run.reset();
    int planted = 0;
    int gone = 0;
    for (int round = 0; round < kRounds; ++round) {
        KillDuring(
            [&] {
                if (!practice.run)
                    practice.Begin(2023, "01");
                const pgbp::Run& run = *practice.run;
                {
                    Transaction transaction({run.company, run.balance});
                    run.company.Delete("from {business} where code = ?", kCode);
                    for (int i = 0; i < 20; ++i)
                        run.company.Insert("business1", {{"code", kCode}, {"Type", "511"}, {"SNO", 5}});
                    run.company.Insert("business", {{"code", kCode}, {"Type", "1"}, {"SNO", 5}});
                    for (int i = 0; i < 20; ++i)
                        run.balance.Insert("qelgeneral", {{"code", kCode}, {"Type", "NEWPL"}, {"amt2", 5}});
                    transaction.Commit();
                }
                DeleteLine(run, kNormal, 5);
            },
            random);
        practice.Begin(2023, "01");
        const long lines = Count(practice.run->company, "business");
        const long details = Count(practice.run->company, "business1");
        const long cells = Count(practice.run->balance, "qelgeneral");
        ASSERT_TRUE(lines == 0 || lines == 1);
        ASSERT_EQ(details, 20 * lines);
        ASSERT_EQ(cells, 20 * lines);
        (lines == 1 ? planted : gone) += 1;
        DeleteLine(*practice.run, kNormal, 5);
        practice.run.reset();
    }
    EXPECT_GT(planted, 0);
    EXPECT_GT(gone, 0);
}

TEST(TwoProcesses, TheSecondWriterWaitsAndSucceeds)
{
    SummaryUnderTest practice;
    practice.Begin(2023, "01");
    practice.run.reset();
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const Connection balance = practice.Balance();
        Transaction transaction({balance});
        balance.Insert("qelgeneral", {{"code", "B0002r2023-24"}, {"Type", "BUSI"}});
        const auto written = write(ready[1], "x", 1);
        std::this_thread::sleep_for(std::chrono::milliseconds(400));
        transaction.Commit();
        _exit(written == 1 ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    frmbusiness& form = practice.Begin(2023, "01");
    form.Click(form.CmdBack);
    int status = 0;
    waitpid(other, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(practice.boxes.shown.empty());
    EXPECT_EQ(practice.Balance().Query("select * from {qelgeneral} where [Type] = 'BUSI'").Size(), 2U);
}
