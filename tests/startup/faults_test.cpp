// What a run does where its files refuse: told once an action, logged, and never a loss.
#include "controls/buttons.h"
#include "income/frmbusiness.h"
#include "support/empty_practice.h"
#include "support/without_rights.h"

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

constexpr ScreenName<NoOpening> kWritingScreen{"writing"};

class Faults : public testing::Test, public EmptyPractice {
  protected:
    std::string Log() const { return folder.Read("client/pgbp-errors.log"); }
};

TEST_F(Faults, ALockedFileCostsOneWaitAndOneBoxAnAction)
{
    Start();
    run->screens.Register<Writing>(kWritingScreen);
    Screen& summary = *run->screens.OnDisplay();
    const Connection other = Company();
    const auto begin = std::chrono::steady_clock::now();
    {
        const Transaction lock({other});
        summary.Do([&] {
            run->screens.Show(kWritingScreen);
            static_cast<Writing*>(run->screens.OnDisplay())->Write();
        });
    }
    const auto waited = std::chrono::steady_clock::now() - begin;
    EXPECT_GT(waited, std::chrono::seconds(4));
    EXPECT_LT(waited, std::chrono::seconds(8));
    const Message told = boxes.Take();
    EXPECT_EQ(told.title, "Vorn");
    EXPECT_EQ(told.text, "The changes could not be saved: another program is using the file \"" +
                             (folder.path() / "server/company.mdb").string() +
                             "\".\n\nNothing is lost. Wait a moment, then try again.");
    EXPECT_NE(Log().find("2023-07-15 10:30:00  The changes could not be saved: another program"), std::string::npos);
    constexpr const char* lock = "Statement: pragma main.incremental_vacuum";
    EXPECT_NE(Log().find(lock), Log().rfind(lock)) << "each is logged";

    OpenFile({folder.path() / "server/company.mdb", {}}).Execute("drop table {business}");
    run->screens.OnDisplay()->Do([&] { static_cast<Writing*>(run->screens.OnDisplay())->Write(); });
    EXPECT_NE(boxes.Take().text.find("company.mdb"), std::string::npos) << "the next action tells its own";
    EXPECT_NE(Log().find("insert into [business]"), std::string::npos) << Log();
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

/// An assessee-year whose summary writes in each of its ways.
class ReadOnly : public Faults {
  protected:
    ReadOnly()
    {
        handOver.Glstatus = "06";
        handOver.GLrep = "";
        const Connection company = Company();
        const char* code = handOver.Glcode.c_str();
        company.Insert("business", {{"code", code}, {"Type", "1"}, {"sno", 1}, {"net", 500000}});
        company.Insert("business", {{"code", code}, {"Type", "5"}, {"sno", 2}, {"net", 1}, {"net44", 7000}});
        company.Insert("misc_items", {{"code", code}, {"Type", "Fast2018"}, {"name3", "0"}});
        company.Insert("setup", {{"code", code}, {"auto_rem", false}});
        company.Insert("business1", {{"code", code}, {"Type", "PARTREMU"}, {"sno", 1}, {"amt1", 90000}});
        company.Insert("business1", {{"code", code}, {"Type", "PARTINTT"}, {"sno", 1}, {"amt3", 4000}});
        Balance().Insert("qelgeneral", {{"code", code}, {"Type", "NEWPL"}, {"amt1", 255}, {"amt2", 77}});
        WriteHandOver(File("handover/VornTemp.mdb"), handOver);
        LetEverybodyIn(folder.path());
    }
    frmbusiness& Summary() { return static_cast<frmbusiness&>(*run->screens.Find("frmbusiness")); }
    std::string HeadOfIncome()
    {
        return Summary().lbltotal.text() + ' ' + Summary().lblinc.text() + ' ' + Summary().lbllast.text();
    }
};

TEST_F(ReadOnly, ARunOnFilesThatCanOnlyBeReadIsALockedOneAndSaysSo)
{
    const char* const places[] = {"server/company.mdb", "server/balance.mdb", "server/tax.mdb", "server"};
    std::vector<std::string> shown;
    for (const char* place : places) {
        const WithoutRights without(folder.path() / place, kWriting);
        StartWithFilesAsTheyAre();
        EXPECT_TRUE(run->readOnly) << place;
        const std::string notice = Summary().notice.get();
        const std::string file = place == std::string("server") ? "server/company.mdb" : place;
        EXPECT_EQ(notice, std::filesystem::path(file).filename().string() +
                              " or its folder can only be read: the year is open as a locked one, nothing is stored.");
        EXPECT_NE(Log().find((folder.path() / file).string()), std::string::npos) << "in full";
        EXPECT_FALSE(Summary().cmd1.enabled);
        shown.push_back(HeadOfIncome());
        Summary().Click(Summary().CmdBack);
        EXPECT_TRUE(run->screens.Ended()) << place;
        EXPECT_TRUE(boxes.shown.empty()) << place << ": " << boxes.shown.front().text;
    }
    EXPECT_EQ(Balance().Scalar("select count(*) from {qelgeneral} where [Type] = 'BUSI'").Number(), 0);

    StartWithFilesAsTheyAre();
    EXPECT_FALSE(run->readOnly);
    EXPECT_EQ(Summary().notice.get(), "");
    for (const std::string& figures : shown)
        EXPECT_EQ(figures, HeadOfIncome()) << "the same figures as where it can be written";
}

TEST_F(ReadOnly, WithoutTheWorkingFileNothingStarts)
{
    for (const char* place : {"client/data/qeltemp.mdb", "client/data"}) {
        const WithoutRights without(folder.path() / place, kWriting);
        try {
            StartWithFilesAsTheyAre();
            ADD_FAILURE() << place;
        } catch (const StoreError& error) {
            EXPECT_EQ(std::string(error.what()),
                      "The data could not be opened: the file \"" +
                          (folder.path() / "client/data/qeltemp.mdb").string() +
                          "\" can only be read.\n\nNothing was changed. Allow changes to the file and to its folder, "
                          "then try again.");
        }
    }
}

TEST_F(ReadOnly, AProgramFolderThatCanOnlyBeReadStartsWithTheDefaults)
{
    const WithoutRights without(folder.path(), kWriting);
    StartWithFilesAsTheyAre();
    EXPECT_TRUE(opened);
    EXPECT_FALSE(run->readOnly);
    EXPECT_FALSE(run->IsSqlStore);
    EXPECT_FALSE(exists(folder.path() / "Settings.ini"));
}

} // namespace
} // namespace pgbp
