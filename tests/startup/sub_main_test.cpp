#include "module/module.h"
#include "startup/sub_main.h"

#include "services/ini_file.h"
#include "startup/settings.h"
#include "store/server.h"
#include "support/at_once.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(SubMain, ReadsTheHandOverAndShowsTheSummary)
{
    EmptyPractice practice;
    practice.folder.Write("QelCtrl.ini", "[ITR]\nA0001r2023-24=5\n");
    practice.Company().Insert("assessee1", {{"code", "A0001r2023-24"}, {"comp_name", "Asha Traders"}});
    practice.handOver.GLrep = "ASDF";
    pgbp::Run& run = practice.Start();
    EXPECT_TRUE(practice.opened);
    EXPECT_EQ(run.GlITR, 5);
    EXPECT_EQ(run.Year(), 2023);
    EXPECT_EQ(run.screens.OnDisplay()->name(), "frmbusiness");
    EXPECT_EQ(run.screens.Find("frmmdi")->caption.get(), "Vorn - Asha Traders - 2023-24");
    EXPECT_EQ(practice.folder.Read("Settings.ini"), "[DBTYPE]\nDB=MDB\n") << "made where it was missing";
}

TEST(SubMain, TellsASecondRunOnTheAssesseeYear)
{
    EmptyPractice practice;
    practice.Start();
    const auto first = std::move(practice.run);
    EXPECT_EQ(first->screens.OnDisplay()->notice.get(), "");
    practice.Start();
    EXPECT_EQ(practice.run->screens.OnDisplay()->notice.get(),
              "This assessee-year is open in another window too: what is saved last stays.");
    practice.run.reset();
    practice.handOver.Glcode = "A0001r2024-25";
    practice.Start();
    EXPECT_EQ(practice.run->screens.OnDisplay()->notice.get(), "") << "another year is another matter";
}

TEST(SubMain, TakesTheProgramFolderForAMissingClientFolder)
{
    EmptyPractice practice;
    practice.handOver.GlClient = "";
    std::filesystem::rename(practice.folder.path() / "client/data", practice.folder.path() / "data");
    EXPECT_EQ(practice.Start().GlClient, practice.folder.path().string());
}

TEST(SubMain, TouchesNoFileWhenAnotherOneIsMissing)
{
    EmptyPractice practice;
    practice.Company().Execute("pragma user_version = 0");
    std::filesystem::remove(practice.folder.path() / "server/export2.mdb");
    EXPECT_THROW(practice.Start(), StoreError);
    EXPECT_FALSE(std::filesystem::exists(practice.folder.path() / "server/company.mdb.v0.bak"));
}

TEST(SubMain, ChecksForIndASByYearAndStatus)
{
    struct {
        const char* year;
        const char* status;
        const char* answer;
        bool done;
    } const rows[] = {
        {"2023-24", "12", "Yes", true},  {"2023-24", "13", "Yes", true},  {"2024-25", "15", "Yes", true},
        {"2023-24", "12", "yes", false}, {"2023-24", "12", "No", false},  {"2023-24", "12", nullptr, false},
        {"2022-23", "12", "Yes", false}, {"2023-24", "01", "Yes", false},
    };
    for (const auto& row : rows) {
        EmptyPractice practice;
        practice.Company().Insert(
            "misc_items",
            {{"code", "A0001r2023-24"}, {"Type", "FRMCHK"}, {"add1", row.answer ? Value(row.answer) : Value()}});
        practice.handOver.Glyear = row.year;
        practice.handOver.Glstatus = row.status;
        EXPECT_EQ(practice.Start().FormCheckDone, row.done) << row.year << ' ' << row.status;
    }
}

TEST(SubMain, NamesTheDataFileThatIsMissingOrDamagedAndCreatesNothing)
{
    struct {
        const char* file;
        const char* content; // none: the file is taken away
    } const rows[] = {
        {"server/company.mdb", nullptr},    {"server/balance.mdb", ""},
        {"server/tax.mdb", "no data file"}, {"client/data/qeltemp.mdb", nullptr},
        {"server/export2.mdb", nullptr},    {"handover/VornTemp.mdb", "SQLite format 3"},
    };
    for (const auto& row : rows) {
        EmptyPractice practice;
        WriteHandOver(practice.File("handover/VornTemp.mdb"), practice.handOver);
        if (row.content)
            practice.folder.Write(row.file, row.content);
        else
            std::filesystem::remove(practice.folder.path() / row.file);
        try {
            practice.StartWithFilesAsTheyAre();
            ADD_FAILURE() << row.file;
        } catch (const StoreError& error) {
            const auto name = std::filesystem::path(row.file).filename().string();
            EXPECT_NE(std::string(error.what()).find(name), std::string::npos) << error.what();
        }
        EXPECT_EQ(std::filesystem::exists(practice.folder.path() / row.file), row.content != nullptr);
        EXPECT_TRUE(practice.boxes.shown.empty());
    }
}

TEST(SubMain, GoesOnWithEmptyValuesWithoutAHandOver)
{
    EmptyPractice practice;
    const auto complaint = [](EmptyPractice& of) -> std::string {
        try {
            of.StartWithFilesAsTheyAre();
        } catch (const StoreError& error) {
            return error.what();
        }
        return "";
    };
    EmptyPractice withoutRows;
    for (EmptyPractice* each : {&practice, &withoutRows}) {
        if (each == &practice)
            std::filesystem::remove(practice.folder.path() / "handover/VornTemp.mdb");
        const std::string words = complaint(*each);
        EXPECT_NE(words.find("VornTemp.mdb is missing or holds no record. Start the module from the suite"),
                  std::string::npos)
            << words;
        EXPECT_EQ(each->run->Glcode, "");
    }
}

TEST(SubMain, ManyFirstStartsAtOnceAllSucceed)
{
    for (int round = 0; round < 8; ++round) {
        EmptyPractice practice;
        WriteHandOver(practice.File("handover/VornTemp.mdb"), practice.handOver);
        practice.Company().Execute("pragma user_version = 0");
        practice.Tax().Execute("pragma user_version = 0");
        const auto start = [&] {
            practice.StartWithFilesAsTheyAre();
            CheckOVServer(*practice.run);
        };
        EXPECT_EQ(FailuresAtOnce(12, start), std::vector<std::string>());
        EXPECT_EQ(practice.folder.Read("Settings.ini"), "[DBTYPE]\nDB=MDB\n");
        EXPECT_TRUE(practice.folder.Read("OVServer.ini").ends_with("\nUSER=SA\nPASS=\n"));
        for (const auto& entry : std::filesystem::recursive_directory_iterator(practice.folder.path()))
            EXPECT_NE(entry.path().extension(), ".new") << entry.path();
    }
}

TEST(Settings, ThatHoldAPasswordAreMadeForTheirOwnerAlone)
{
    EmptyPractice practice;
    CheckOVServer(practice.Start());
    practice.folder.Write("Settings.ini", "[DBTYPE]\nDB=SQL\n");
    practice.StartWithFilesAsTheyAre();
    EXPECT_FALSE(practice.opened) << "there is no server here";
    for (const char* name : {"VornServer.ini", "OVServer.ini"})
        EXPECT_EQ(status(practice.folder.path() / name).permissions(),
                  std::filesystem::perms::owner_read | std::filesystem::perms::owner_write)
            << name;
}

TEST(Settings, ChooseTheStore)
{
    struct {
        const char* content;
        bool server;
        bool native;
    } const rows[] = {
        {"[DBTYPE]\nDB=sql\n", true, false},
        {"[DBTYPE]\nDB=SQL\n[Qel]\nSQLTYPE=1\n", true, true},
        {"[DBTYPE]\nDB=MDB\n[Qel]\nSQLTYPE=1\n", false, true},
        {"[DBTYPE]\nDB=SQL Server\n", false, false},
        {"[Qel]\nSQLTYPE=01\n", false, false},
        {"\xFF\xFE\x00garbage[[[=", false, false},
    };
    for (const auto& row : rows) {
        EmptyPractice practice;
        practice.folder.Write("Settings.ini", row.content);
        pgbp::Run run({practice.boxes, practice.files, practice.processes, practice.folder.path()});
        ReadSettings(run);
        EXPECT_EQ(run.IsSqlStore, row.server) << row.content;
        EXPECT_EQ(run.UseNativeClient, row.native) << row.content;
        EXPECT_EQ(practice.folder.Read("Settings.ini"), row.content);
    }
}

TEST(Settings, NoteWhereTheAccountsProductIs)
{
    EmptyPractice practice;
    pgbp::Run& run = practice.Start();
    practice.folder.Write("Server.ini", "127.0.0.1\r\nsecond line\r\n");
    CheckOVServer(run); // nothing listens there
    EXPECT_EQ(run.OVServerAlive, false);
    EXPECT_EQ(practice.folder.Read("OVServer.ini"), "[OV3]\nSERVER=127.0.0.1\nUSER=SA\nPASS=\n");
    EXPECT_TRUE(practice.boxes.shown.empty());
}

TEST(Settings, EndTheRunSilentlyWithoutTheServer)
{
    EmptyPractice practice;
    practice.folder.Write("Settings.ini", "[DBTYPE]\nDB=SQL\n");
    practice.folder.Write("VornServer.ini", "[Server]\nServerNM=\n");
    practice.Start();
    EXPECT_FALSE(practice.opened);
    EXPECT_FALSE(practice.why.empty());
    EXPECT_TRUE(practice.boxes.shown.empty());

    std::filesystem::remove(practice.folder.path() / "VornServer.ini");
    practice.StartWithFilesAsTheyAre();
    EXPECT_NE(practice.folder.Read("VornServer.ini").find("LogName=sa\nLogPwd=\n"), std::string::npos);
}

TEST(ProgramFolder, IsTheOneToldElseTheOneChosenElseTheProgramsOwn)
{
    std::vector<std::string> words{"script", "--program-folder", "/told"};
    std::vector<std::string> none;
    setenv("PGBP_PROGRAM_FOLDER", "/chosen", 1);
    EXPECT_EQ(TakeProgramFolder(words), "/told");
    EXPECT_EQ(TakeProgramFolder(none), "/chosen");
    setenv("PGBP_PROGRAM_FOLDER", "", 1); // would mean the working folder
    EXPECT_EQ(TakeProgramFolder(none), std::filesystem::read_symlink("/proc/self/exe").parent_path());
    unsetenv("PGBP_PROGRAM_FOLDER");
}

TEST(ServerLogins, APasswordInQuotesIsReadAsTheSuiteWritesItAndAsAPersonDoes)
{
    const auto login = TestServer();
    if (!login)
        GTEST_SKIP() << kNoServer;
    EmptyPractice practice;
    const auto opens = [&](const std::string& password) {
        practice.folder.Write("VornServer.ini", "[Server]\nServerNM=" + login->server +
                                                    "\n[Login]\nLogName=preparer\nLogPwd=" + password + '\n');
        pgbp::Run run({practice.boxes, practice.files, practice.processes, practice.folder.path()});
        std::string why;
        return OpenServerConnections(run, why);
    };
    EXPECT_TRUE(opens(R"("Pa;ss{wo}rd=1}")"));
    EXPECT_TRUE(opens(R"(""Pa;ss{wo}rd=1}"")"));
    EXPECT_FALSE(opens("Pa;ss{wo}rd=1}"));
}
