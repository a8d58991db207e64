// The whole way of the older link: the module saves, hands over, starts a process and waits, and shows what is stored
// then; whatever becomes of the process.
#include "services/text.h"
#include "statements/statement_screen.h"
#include "suite/assessee_years.h"
#include "suite/hand_over_row.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace pgbp;

namespace {

namespace fs = std::filesystem;

constexpr int kOpeningWork = 4; // lines of the form
constexpr int kPurchases = 51;
constexpr int kFreight = 89;

/// The demonstration practice, and the statement of a new line of its linked firm.
class LinkProcess : public testing::Test {
  protected:
    LinkProcess()
    {
        fs::copy(Made(), root, fs::copy_options::recursive);
        folder.Write("practice/Drive.txt", (root / "handover").string());
        Company().Execute("update {misc_items} set linking = ? where [Type] = 'OVPATH'", (root / "accounts").string());
        const Practice practice(root);
        WriteHandOverFile(practice, PrepareHandOver(practice, FindAssesseeYear(practice, "1026r2023-24")));
        Sibling("exit 0");
    }

    static const fs::path& Made()
    {
        static const TemporaryFolder made;
        static const fs::path practice = [] {
            CreatePractice(made.path() / "practice", PGBP_DATA);
            return made.path() / "practice";
        }();
        return practice;
    }

    Connection Company() const { return OpenFile({.path = root / "server/company.mdb", .dsn = {}}); }
    Connection Balance() const { return OpenFile({.path = root / "server/balance.mdb", .dsn = {}}); }

    /// What runs in place of the sibling program.
    void Sibling(const std::string& script) const
    {
        folder.Write("practice/OVVORNLink.exe", "#!/bin/sh\n" + script + '\n');
        fs::permissions(root / "OVVORNLink.exe", fs::perms::owner_all);
    }
    void RealSibling() const
    {
        Sibling("exec " PGBP_BOOKS_LINK " --program-folder \"" + root.string() + "\"");
        fs::remove(root / "OVVORNLink.exe");
        fs::create_symlink(PGBP_BOOKS_LINK, root / "OVVORNLink.exe");
    }

    StatementScreen& Open(double sno = 0)
    {
        if (!run) {
            run = std::make_unique<pgbp::Run>(
                Host{.boxes = boxes, .files = files, .processes = processes, .programFolder = root});
            RegisterScreens(*run);
            std::string why;
            EXPECT_TRUE(SubMain(*run, why)) << why;
        }
        run->GLrep = "PNL";
        run->GlBusinessKind = kNormal;
        run->screens.Show(screens::FrmbspnlPGBP, {.sno = sno, .descr1 = "Shop"});
        auto& screen = static_cast<StatementScreen&>(*run->screens.OnDisplay());
        if (screen.FraBooks.visible)
            screen.Click(screen.CmdBackFra);
        return screen;
    }
    static void Key(StatementScreen& screen, int row, const std::string& text)
    {
        screen.Do([&] { screen.MSH.EnterCell(row, kAmount); });
        TypeText(screen, text);
    }
    std::string Stored(int slno) const
    {
        return Balance()
            .Scalar("select name8 from {qelgeneral} where code = '1026r2023-24' and [Type] = 'NEWPL' and amt1 = ?",
                    slno)
            .Text();
    }
    std::vector<std::string> Told()
    {
        std::vector<std::string> texts;
        for (const Message& message : boxes.shown)
            texts.push_back(message.text);
        boxes.shown.clear();
        return texts;
    }

    TemporaryFolder folder;
    const fs::path root = folder.path() / "practice";
    TestBoxes boxes;
    TestFiles files;
    SystemProcesses processes;
    std::unique_ptr<pgbp::Run> run;
};

using Texts = std::vector<std::string>;
const Texts kImported = {"Data Imported Successfully..."};
const Texts kGaveUp = {"OVVORNLink.exe ended before it was done.\nThe statement shows what is stored."};

} // namespace

TEST_F(LinkProcess, SiblingSeesTheLineThatWasJustSavedAndTheSettings)
{
    Sibling("cp \"$(dirname \"$0\")/OVVorn.ini\" \"$(dirname \"$0\")/seen.ini\"");
    StatementScreen& screen = Open();
    Key(screen, kPurchases, "5000");
    screen.Click(screen.link.CmdOldOV);
    EXPECT_EQ(Told(), kImported);
    const double sno = Company().Scalar("select SNO from {business} where code = '1026r2023-24'").Number();
    EXPECT_GT(sno, 0);
    HandOver record;
    ASSERT_TRUE(ReadHandOver(OpenFile({.path = root / "handover/VornOV.mdb", .dsn = {}}), record));
    EXPECT_EQ(record.SpInc, sno);
    EXPECT_EQ(record.GLrep + '|' + record.Glstatus + '|' + record.Glcode, "PL||1026r2023-24");
    EXPECT_EQ(folder.Read("practice/seen.ini"),
              "[OV]\nOVCODE=MEHTA24\nRTYPE=PL\nOVPATH=" + (root / "accounts").string() +
                  "\nOVSTATUS=05\n[VORN]\nVORNOV=" + (root / "handover").string() +
                  "\nPATH=" + (root / "server").string() + "\n");
}

TEST_F(LinkProcess, WhateverBecomesOfTheSiblingWhatWasSavedStays)
{
    const struct {
        const char* name;
        const char* script;
        const Texts& told;
    } cases[] = {
        {"writes nothing", "exit 0", kImported},
        {"gives up", "exit 3", kGaveUp},
        {"is killed", "kill -9 $$", kGaveUp},
        {"takes its time", "sleep 2", kImported},
    };
    StatementScreen& screen = Open();
    int amount = 5000;
    for (const auto& one : cases) {
        Sibling(one.script);
        const std::string text = std::to_string(++amount);
        Key(screen, kPurchases, text);
        screen.Click(screen.link.CmdOldOV);
        EXPECT_EQ(Told(), one.told) << one.name;
        EXPECT_EQ(Stored(189), text) << one.name;
        EXPECT_EQ(Replace(screen.MSH.Cell(kPurchases, kAmount), ",", ""), text) << one.name;
        EXPECT_EQ(screen.notice.get(), "No figure has changed") << one.name;
    }
    fs::remove(root / "OVVORNLink.exe");
    Key(screen, kPurchases, "6000");
    screen.Click(screen.link.CmdOldOV);
    EXPECT_NE(Told().at(0).find("OVVORNLink.exe could not be started"), std::string::npos);
    EXPECT_EQ(Stored(189), "6000");
    EXPECT_EQ(Company().Scalar("select count(*) from {business} where code = '1026r2023-24'").Number(), 1)
        << "all imports are of the one line";
}

TEST_F(LinkProcess, LinesThatBooksLeadToAreTheBooksAlone)
{
    RealSibling();
    StatementScreen& screen = Open();
    Key(screen, kOpeningWork, "300");
    Key(screen, kFreight, "77");
    screen.Click(screen.link.CmdOldOV);
    EXPECT_EQ(Told(), kImported);
    EXPECT_EQ(Stored(8002), "300") << "the books know of no factory";
    EXPECT_EQ(Stored(199), "") << "their freight comes to nothing";
    EXPECT_EQ(Stored(255), "404700"); // 405000 - 300
    EXPECT_EQ(Stored(538) + ' ' + Stored(512), "27300 7000");
}

TEST_F(LinkProcess, SiblingThatCanNotReadOrWriteLeavesTheStatement)
{
    RealSibling();
    StatementScreen& screen = Open();
    Key(screen, kPurchases, "5000");
    const fs::path books = root / "accounts/balancesheet.mdb";
    OpenFile({.path = books, .dsn = {}}).Execute("delete from {accounts}");
    OpenFile({.path = books, .dsn = {}}).Execute("delete from {accgroup}");
    screen.Click(screen.link.CmdOldOV);
    EXPECT_EQ(Told(), kGaveUp) << "empty books are no statement";
    EXPECT_EQ(Stored(189), "5000");
    fs::remove(books);
    screen.Click(screen.link.CmdOldOV);
    EXPECT_EQ(Told(), kGaveUp);
    EXPECT_EQ(Stored(189), "5000");
}

TEST_F(LinkProcess, RefusedSaveImportsIntoTheLineAsItIsStored)
{
    RealSibling();
    StatementScreen& screen = Open();
    Key(screen, kOpeningWork, "300");
    screen.Click(screen.CmdSave);
    const double sno = Company().Scalar("select SNO from {business} where code = '1026r2023-24'").Number();
    StatementScreen& again = Open(sno);
    again.Do([&] { again.ChkBooks.Click(); });
    Key(again, kOpeningWork, "999");
    again.Click(again.link.CmdOldOV);
    EXPECT_TRUE(again.FrNoBoo.visible) << "nothing is furnished of the no-books case";
    EXPECT_EQ(Told(), kImported);
    EXPECT_EQ(Stored(8002), "300") << "what the save refused is not stored";
    EXPECT_EQ(Stored(189), "3150000");
    EXPECT_EQ(again.MSH.Cell(kOpeningWork, kAmount), "300");
    again.Click(again.Cdfd);
    again.Press(Key::Undo);
    EXPECT_EQ(again.MSH.Cell(kOpeningWork, kAmount), "999") << "what was typed comes back";
}

TEST_F(LinkProcess, NewLineWhoseSaveIsRefusedIsNotImported)
{
    fs::remove(root / "OVVORNLink.exe");
    Sibling("touch \"$(dirname \"$0\")/started\"");
    StatementScreen& screen = Open();
    screen.Do([&] { screen.ChkBooks.Click(); });
    screen.Click(screen.link.CmdOldOV);
    EXPECT_TRUE(screen.FrNoBoo.visible);
    EXPECT_FALSE(fs::exists(root / "started")) << "there is no line that could take the figures";
    EXPECT_TRUE(Told().empty());
}

TEST_F(LinkProcess, ServerThatDoesNotAnswerLeavesTheOlderLinkAndIsAskedOnce)
{
    Company().Insert("setup", {{"code", "*****"}, {"newov", true}});
    folder.Write("practice/OVServer.ini", "[OV3]\nSERVER=127.0.0.1\nUSER=SA\nPASS=\n");
    folder.Write("practice/VORNLink.exe", "");
    const AccountsLink& link = Open().link;
    EXPECT_EQ(run->OVServerAlive, false);
    EXPECT_TRUE(link.CmdOldOV.visible);
    EXPECT_FALSE(link.CmdImp.visible || link.CmdLink.visible);
    fs::remove(root / "OVServer.ini");
    run->screens.OnDisplay()->Close();
    Open();
    EXPECT_FALSE(fs::exists(root / "OVServer.ini")) << "which each question makes anew";
}

TEST_F(LinkProcess, LockedYearTakesNoImport)
{
    const Practice practice(root);
    HandOver record = PrepareHandOver(practice, FindAssesseeYear(practice, "1026r2023-24"));
    record.GLlock = 1;
    WriteHandOverFile(practice, record);
    StatementScreen& screen = Open();
    EXPECT_TRUE(screen.link.CmdOldOV.visible);
    EXPECT_FALSE(screen.link.CmdOldOV.enabled);
}
