// A data file is held against itself once a day; a damaged one takes no change.
#include "startup/daily_check.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;
using namespace std::chrono_literals;

namespace {

constexpr const char* kCode = "A0001r2023-24";

class DailyChecks : public testing::Test {
  protected:
    DailyChecks()
    {
        practice.checksFiles = true;
        practice.Company().Insert(
            "business", {{"code", kCode}, {"Type", "1"}, {"SNO", 1}, {"name1", "a line"}, {"NET", 123456.25}});
    }

    /// Turns a bit of the line's income, where the table holds it and not its index.
    void TurnABit() const
    {
        std::string bytes = practice.folder.Read("server/company.mdb");
        const auto line = bytes.find("a line");
        const auto income = bytes.find("\x40\xFE\x24\x04", line); // 123456.25 as it is stored
        ASSERT_NE(income, std::string::npos);
        bytes[income + 2] = static_cast<char>(bytes[income + 2] ^ 0x10);
        practice.folder.Write("server/company.mdb", bytes);
    }

    /// The income as the run reads it.
    static double Income(const pgbp::Run& run)
    {
        return run.company.Scalar("select net from {business} where code = ?", kCode).Number();
    }

    EmptyPractice practice;
};

} // namespace

TEST_F(DailyChecks, ADamagedFileIsNamedAndTakesNoChange)
{
    TurnABit();
    pgbp::Run& run = practice.Start();
    const auto damage = run.dailyCheck->Found(10s);
    ASSERT_TRUE(damage);
    EXPECT_EQ(damage->file, practice.folder.path() / "server/company.mdb");
    EXPECT_NE(Income(run), 123456.25) << "the engine itself notices nothing";
    const std::string before = practice.folder.Read("server/company.mdb");
    const auto refused = [&](const std::function<void()>& change) -> std::string {
        try {
            change();
        } catch (const StoreError& error) {
            return error.what();
        }
        return "stored";
    };
    for (const auto& words : {refused([&] { run.company.Execute("update {business} set net = 1"); }),
                              refused([&] { Transaction({run.balance}).Commit(); })}) {
        EXPECT_NE(words.find("company.mdb\" is damaged"), std::string::npos) << words;
    }
    EXPECT_EQ(practice.folder.Read("server/company.mdb"), before);
    practice.Start();
    EXPECT_TRUE(practice.run->dailyCheck->Found(10s)) << "until it is mended";
}

TEST_F(DailyChecks, ThePreparerIsToldOnceAndLeavesWithoutAChange)
{
    TurnABit();
    pgbp::Run& run = practice.Start();
    ASSERT_TRUE(run.dailyCheck->Found(10s));
    const std::string before = practice.folder.Read("server/balance.mdb");
    practice.boxes.shown.clear();
    TellDamage(run);
    TellDamage(run);
    ASSERT_EQ(practice.boxes.shown.size(), 1U);
    EXPECT_NE(practice.boxes.shown[0].text.find("company.mdb\" is damaged"), std::string::npos);
    Screen& summary = *run.screens.OnDisplay();
    EXPECT_NE(summary.notice.get().find("nothing is stored"), std::string::npos);
    EXPECT_FALSE(summary.Find("cmd1")->enabled);
    summary.Close();
    EXPECT_TRUE(run.screens.Ended());
    EXPECT_EQ(practice.folder.Read("server/balance.mdb"), before);
}

TEST_F(DailyChecks, AWholeFileIsCheckedOnceADay)
{
    pgbp::Run& run = practice.Start();
    run.company.Execute("update {business} set net = 123456.25"); // waits for the check
    EXPECT_FALSE(run.dailyCheck->Found(10s));
    const auto notes = practice.folder.Read("client/checked.ini");
    EXPECT_NE(notes.find("company=15-07-2023 " + (practice.folder.path() / "server/company.mdb").string()),
              std::string::npos)
        << notes;
    TurnABit();
    EXPECT_FALSE(practice.Start().dailyCheck->Found(0s)) << "the same day";
    practice.now.day += 1;
    EXPECT_TRUE(practice.Start().dailyCheck->Found(10s));
}
