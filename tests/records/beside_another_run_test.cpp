// In files a save has all rows to itself; on a server another run may read and write at any moment of it. Two runs on
// one assessee-year share the working rows of the annexure.
#include "records/annexure_rows.h"

#include "records/keys.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <future>

using namespace pgbp;

namespace {

class ServerBesideAnotherRun : public EmptyPractice, public testing::Test {
  protected:
    void SetUp() override
    {
        const auto login = TestServer();
        if (!login)
            GTEST_SKIP() << kNoServer;
        PutOn(*login);
        Company().Insert("assessee1", {{"code", handOver.Glcode}, {"company", 1}});
        Asset("Loom", 500);
        Start();
        OpenPractice(otherRun, kHandOverFile, why);
    }
    double Assets(double sno) const
    {
        return Balance().Scalar("select count(*) from {fassets} where sno = ?", sno).Number();
    }

    pgbp::Run otherRun{{boxes, files, processes, folder.path()}};
    const double kNewLine = 8;
};

TEST_F(ServerBesideAnotherRun, RowsThatAnotherRunOpensWithinASaveStayItsOwn)
{
    WorkAnnexure mine(*run);
    WorkAnnexure theirs(otherRun);
    mine.Open(std::nullopt);
    Transaction transaction({run->company, run->balance});
    ASSERT_TRUE(mine.Claim(transaction));
    theirs.Open(kSno);
    mine.Store(kNewLine, transaction);
    transaction.Commit();
    EXPECT_EQ(Assets(kNewLine), 0) << "taken from the other line";
    EXPECT_EQ(Assets(kUnsavedLine), 1);
    EXPECT_EQ(Assets(kSno), 1);
}

TEST_F(ServerBesideAnotherRun, RowsThatWereClaimedAreTakenFromNobodyBeforeTheSaveIsDone)
{
    WorkAnnexure mine(*run);
    WorkAnnexure theirs(otherRun);
    mine.Open(kSno);
    otherRun.balance.Execute("set session innodb_lock_wait_timeout = 1");
    {
        Transaction transaction({run->company, run->balance});
        ASSERT_TRUE(mine.Claim(transaction));
        EXPECT_THROW(theirs.Open(std::nullopt), StoreError) << "empties them";
        mine.Store(kNewLine, transaction);
        transaction.Commit();
    }
    EXPECT_EQ(Assets(kNewLine), 1);
    EXPECT_EQ(Assets(kUnsavedLine), 0);
}

/// The very first lines of a practice: there is no line yet whose row could be locked.
TEST_F(ServerBesideAnotherRun, TheFirstTwoLinesGetDifferentNumbers)
{
    const auto addLine = [](const pgbp::Run& its) {
        Transaction transaction({its.company});
        const double number = NextSno(its, transaction);
        its.company.Insert("business", {{"code", its.Code()}, {"SNO", number}});
        transaction.Commit();
        return number;
    };
    for (int round = 0; round < 20; ++round) {
        Company().Delete("from {business}");
        auto theirs = std::async(std::launch::async, addLine, std::cref(otherRun));
        const double mine = addLine(*run);
        EXPECT_EQ(mine + theirs.get(), 1 + 2);
    }
}

} // namespace
