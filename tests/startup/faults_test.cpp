// What a run does where its files refuse: told once an action, logged, and never a loss.
#include "controls/buttons.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <chrono>

namespace pgbp {
namespace {

/// Writes to the company file when it becomes active, and again from the handler that showed it.
class Writing : public Screen {
  public:
    explicit Writing(pgbp::Run& itsRun) : Screen(itsRun, "writing", "Writing") {}
    void Activate() override { Write(); }
    void Write() const
    {
        Transaction transaction({run.company});
        run.company.Insert("business", {{"code", "D'Souza"}, {"sno", 1}});
        transaction.Commit();
    }
};

class Faults : public testing::Test, public EmptyPractice {
  protected:
    std::string Log() const { return folder.Read("client/pgbp-errors.log"); }
};

TEST_F(Faults, ALockedFileCostsOneWaitAndOneBoxAnAction)
{
    Start();
    run->screens.Register("writing", [](pgbp::Run& its) { return std::make_unique<Writing>(its); });
    Screen& summary = *run->screens.OnDisplay();
    const Connection other = Company();
    const auto begin = std::chrono::steady_clock::now();
    {
        const Transaction lock({other});
        summary.Do([&] {
            run->screens.Show("writing");
            static_cast<Writing*>(run->screens.OnDisplay())->Write();
        });
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(8));
    const Message told = boxes.Take();
    EXPECT_EQ(told.title, "Vorn");
    EXPECT_EQ(told.text, "The changes could not be saved: another program is using the file \"" +
                             (folder.path() / "server/company.mdb").string() +
                             "\".\n\nNothing is lost. Wait a moment, then try again.");
    EXPECT_NE(Log().find("2023-07-15 10:30:00  The changes could not be saved: another program"), std::string::npos);
    EXPECT_NE(Log().find("Statement: begin immediate"), Log().rfind("Statement: begin immediate")) << "each is logged";

    OpenFile({folder.path() / "server/company.mdb", {}}).Execute("drop table {business}");
    run->screens.OnDisplay()->Do([&] { static_cast<Writing*>(run->screens.OnDisplay())->Write(); });
    EXPECT_NE(boxes.Take().text.find("company.mdb"), std::string::npos) << "the next action tells its own";
    EXPECT_NE(Log().find("insert into main.[business]"), std::string::npos) << Log();
    EXPECT_EQ(Log().find("Souza"), std::string::npos) << "no values: " << Log();
}

TEST_F(Faults, TheLogStaysSmallAndFollowsNoLink)
{
    Start();
    const StoreError fault(Cause::Unknown, Attempt::Read, {"company.mdb"}, std::string(1000, 'x'));
    for (int i = 0; i < 600; ++i)
        run->Log(fault);
    const auto log = folder.path() / "client/pgbp-errors.log";
    EXPECT_LT(std::filesystem::file_size(log) + std::filesystem::file_size(log.string() + ".1"), 600u * 1024);
    EXPECT_GT(std::filesystem::file_size(log.string() + ".1"), 200u * 1024);
    remove(log);
    create_symlink(folder.path() / "client/other", log);
    run->Log(fault);
    EXPECT_FALSE(exists(folder.path() / "client/other"));
}

TEST_F(Faults, WhatFailsAtTheStartIsLogged)
{
    WriteHandOver(File("handover/VornTemp.mdb"), handOver);
    folder.Write("server/tax.mdb", "no data file");
    EXPECT_THROW(StartWithFilesAsTheyAre(), StoreError);
    EXPECT_NE(Log().find("tax.mdb\" is no data file of this program"), std::string::npos) << Log();
}

} // namespace
} // namespace pgbp
