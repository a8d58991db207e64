#include "schedules/FrmFirm.h"

#include "support/empty_practice.h"
#include "support/failing_store.h"
#include "support/stored_firm.h"
#include "support/typing.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

constexpr const char* kPan = "ABQPG4821K";

class Firms : public testing::Test {
  protected:
    FrmFirm& Open(bool ofAssociations = false)
    {
        pgbp::Run& run = practice.run ? *practice.run : practice.Start();
        run.screens.Show(screens::FrmFirm, {.isOfAssociations = ofAssociations});
        return dynamic_cast<FrmFirm&>(*run.screens.OnDisplay());
    }
    bool IsOpen() const { return practice.run->screens.Find("FrmFirm") != nullptr; }

    static void Add(FrmFirm& form, const FirmShare& share)
    {
        form.entry.Enter(share);
        form.Click(form.CmdAdd);
    }

    std::string Rows(const Connection& file, const char* sql) const
    {
        std::string lines;
        for (const Row row : file.Query(sql)) {
            for (std::size_t i = 0; i < row.Size(); ++i)
                lines += row.At(i).Text() + (i + 1 < row.Size() ? "|" : "\n");
        }
        return lines;
    }
    std::string Stored() const
    {
        return Rows(practice.Balance(),
                    "select name1, name2, name3, amt1, amt2, amt3, amt4, amt5, amt6, amt7, amt8, Amt10 from "
                    "{qelgeneral} where [Type] = 'FIRM' order by rowid");
    }
    std::string Booked() const
    {
        return Rows(practice.Company(), "select [Type], SNO, name1, NET, Minor from {business} order by rowid") +
               Rows(practice.Company(), "select [Type], SNO, name1, amt1, Minor from {business1} order by rowid") +
               Rows(practice.Company(), "select [Type], name1, name2, amt1 from {misc_items} order by rowid");
    }
    std::string Cells() const
    {
        return Rows(practice.Balance(),
                    "select amt1, name8, name9 from {qelgeneral} where [Type] = 'NEWPL' and amt2 = 9999999");
    }

    EmptyPractice practice;
};

} // namespace

TEST_F(Firms, NetIncomeLeavesTheShareOfProfitOut)
{
    FrmFirm& form = Open();
    EXPECT_EQ(form.MSH.Rows(), 1) << "a blank one";
    practice.Type(form, form.txtname, " D'Souza & Co ");
    practice.Type(form, form.TxtPan, "aaafv5512c");
    practice.Type(form, form.TxtProfit, "1000");
    practice.Type(form, form.TxtRem, "-5");
    EXPECT_EQ(practice.boxes.Take().text, "Remuneration can not be negative...");
    practice.Type(form, form.TxtIntt, "-20.5");
    EXPECT_EQ(practice.boxes.shown.size(), 0U);
    practice.Type(form, form.TxtExps, "30");
    EXPECT_EQ(form.TxtRem.text() + ' ' + form.TxtIntt.text() + ' ' + form.TxtNet.text(), "5 20.5 -4.50");
    form.ChkAudit = true;
    form.Click(form.CmdAdd);
    const std::vector<FirmShare> added{{.name = "D Souza & Co",
                                        .pan = "AAAFV5512C",
                                        .profit = 1000,
                                        .remuneration = 5,
                                        .interest = 20.5,
                                        .expenses = 30,
                                        .net = -4.5,
                                        .audit = true}};
    EXPECT_EQ(form.entry.items(), added);
    EXPECT_EQ(form.focused(), &form.txtname);
    EXPECT_FALSE(form.ChkAudit.value) << "the next firm may not be";
    EXPECT_EQ(form.MSH.Cell(1, 8) + ' ' + form.MSH.Cell(1, 9), "-4.50 1");
    form.MSH.DoubleClick(1);
    EXPECT_EQ(form.MSH.Cell(1, 0), "");
    EXPECT_EQ(form.txtname.text() + ' ' + form.TxtNet.text(), "D Souza & Co -4.50");
    EXPECT_TRUE(form.ChkAudit.value);
}

TEST_F(Firms, SaveBooksOneLineAndTheExemptShares)
{
    practice.Line("1", {{"SNO", 40}, {"NET", 5}});
    practice.Line("6", {{"SNO", 41}});
    practice.Line("7", {{"SNO", 38}});
    practice.Detail("PART", {{"SNO", 41}, {"name1", "old"}});
    practice.Detail("PART", {{"SNO", 33}, {"name1", "left by a save without a line"}});
    practice.Detail("AOP", {{"SNO", 38}, {"name1", "of an association"}});
    practice.Detail("PFIRM", {{"SNO", Value()}, {"amt1", 1}});
    practice.Item("SPRO", {{"name1", "old"}});
    practice.Note("FIRM", {{"name1", "second"}, {"amt1", 30}, {"amt3", 200}, {"amt7", 200}, {"Amt10", 2}});
    practice.Note("FIRM", {{"name1", "first"}, {"name2", "P"}, {"name3", "1"}, {"amt2", 7.5}, {"Amt10", 1}});
    practice.Note("NEWPL", {{"amt1", 184}, {"amt2", 9999999}, {"name8", "old"}});
    FrmFirm& form = Open();
    EXPECT_EQ(form.MSH.Cell(1, 0) + ' ' + form.MSH.Cell(2, 0), "first second");
    EXPECT_TRUE(form.ChkA.value) << "as it was stored";
    EXPECT_FALSE(form.ChkA.Shown()) << "but no more since 2016";
    Add(form, {.name = "", .remuneration = 9});
    Add(form, {.name = "third", .remuneration = 100, .interest = 20.2, .expenses = 30, .balance = 77});
    form.Click(form.CmdSave);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Stored(), "first|P|1|0|7.5|0|0|0|0|0|0|1\nsecond||0|30|0|200|0|0|0|200|200|2\n"
                        "third||0|0|0|100|20.2|30|77|90.2|120.2|3\n");
    EXPECT_EQ(Booked(), "1|40|Main works|5|\n7|38|Main works||\n6|42|Rem./Intt. from Partnership Firm|290.2|\n"
                        "AOP|38|of an association||\nPFIRM|||0|\nPART|42|first|0|\nPART|42|second|200|\n"
                        "PART|42|third|90.2|\nSPRO|first|P|7.5\n");
    EXPECT_EQ(Cells(), "");
    EXPECT_EQ(practice.Summary().notice.get(),
              "Rem./Intt. from Partnership Firm: 4 items, 1 without a name left out, saved, 290.20, 10:30");
}

TEST_F(Firms, NothingBooksNothing)
{
    practice.Line("6", {{"SNO", 41}});
    practice.Detail("PART", {{"SNO", 41}, {"name1", "old"}});
    practice.Note("FIRM", {{"name1", "only"}, {"amt2", 50}, {"amt3", 10}, {"amt5", 10}});
    FrmFirm* form = &Open();
    form->Click(form->CmdSave);
    EXPECT_EQ(Booked(), "PFIRM|||0|\nPART|42|only|0|\nSPRO|only||50\n") << "a share of profit alone has no line";
    form = &Open();
    form->MSH.onDelete(1);
    form->Click(form->CmdSave);
    EXPECT_EQ(Stored(), "");
    EXPECT_EQ(Booked(), "PFIRM|||0|\n");
}

TEST_F(Firms, AccountTakesTheIncomeInUntil2015)
{
    for (const auto& [year, ticked, cells] : {std::tuple{2015, true, 8}, std::tuple{2015, false, 0},
                                              std::tuple{2016, true, 0}, std::tuple{2007, true, 8}}) {
        EmptyPractice its;
        its.Year(year, "01");
        its.handOver.GLminor = 3;
        its.Start().screens.Show(screens::FrmFirm);
        auto& form = dynamic_cast<FrmFirm&>(*its.run->screens.OnDisplay());
        EXPECT_EQ(form.ChkA.Shown(), year < 2016);
        form.ChkA.value = ticked;
        form.entry.Enter({.name = "A", .profit = 1000.4, .remuneration = 200.3});
        form.Click(form.CmdAdd);
        form.Click(form.CmdSave);
        std::string numbers;
        for (const Row row : its.Balance().Query("select amt1, name8, name9 from {qelgeneral} where [Type] = 'NEWPL'"))
            numbers += row.At(0).Text() + '=' + row.At(1).Text() + row.At(2).Text() + ' ';
        EXPECT_EQ(numbers, cells == 0 ? ""
                                      : "184=1201ASdf 185=1201ASdf 187=1201ASdf 252=1201ASdf 255=1201ASdf 258=1201ASdf "
                                        "260=1201ASdf 262=1201ASdf ");
        EXPECT_EQ(its.Stored("select amt1 from {business1} where [Type] = 'PFIRM'"), cells == 0 ? "0" : "1");
        EXPECT_EQ(its.Stored("select Minor from {business} where [Type] = '6'") +
                      its.Stored("select Minor from {business1} where [Type] = 'PART'"),
                  "33");
    }
}

TEST_F(Firms, AssociationsAreKeptTheSameWay)
{
    practice.Line("6", {{"SNO", 3}});
    FrmFirm& form = Open(true);
    EXPECT_EQ(form.caption.get(), "Share from AOP/BOI");
    Add(form, {.name = "Club", .interest = 10});
    form.Click(form.CmdSave);
    EXPECT_EQ(Booked(), "6|3|Main works||\n7|4|Share from AOP/BOI|10|\nPFIRM|||0|\nAOP|4|Club|10|\n");
}

TEST_F(Firms, LastYearGivesNamesAndRatios)
{
    const Connection company = practice.Company();
    for (const char* year : {"2022-23", "2023-24"}) {
        company.Insert("misc", {{"type", "YEAR"}, {"name", year}});
        company.Insert("assessee1", {{"code", std::string("A0001r") + year}, {"company", 1}, {"year", year}});
    }
    FrmFirm& form = Open();
    Add(form, {.name = "keyed"});
    form.Click(form.CmdImpYear);
    EXPECT_EQ(form.MSH.Cell(1, 0), "keyed") << "no firm in the year before";
    EXPECT_TRUE(practice.boxes.shown.empty());
    practice.Note("FIRM", {{"code", "A0001r2022-23"}, {"name1", "B"}, {"amt1", 40}, {"Amt10", 2}});
    practice.Note("FIRM", {{"code", "A0001r2022-23"},
                           {"name1", "A"},
                           {"name2", "PAN"},
                           {"name3", "1"},
                           {"amt1", 60},
                           {"amt2", 5},
                           {"amt3", 6},
                           {"amt7", 6},
                           {"Amt10", 1}});
    form.Click(form.CmdImpYear);
    EXPECT_EQ(practice.boxes.Take().text, "Details Imported...Plesae fill Current yesr figures...");
    EXPECT_EQ(form.entry.items(),
              (std::vector<FirmShare>{{.name = "A", .pan = "PAN", .share = 60}, {.name = "B", .share = 40}}));
}

TEST_F(Firms, FirmsReturnGivesWhatItMayDeduct)
{
    AddClient(practice, "A0001r2023-24", 1, "Gupta", "01", kPan);
    AddFirm(practice, 21, "Zeta", kPan);
    AddFirm(practice, 22, "Alpha", "ZZZZZ9999Z");
    FrmFirm& form = Open();
    form.Click(form.cmdImport);
    ASSERT_EQ(form.lists.DBFirm.Rows(), 1) << "the one that names him";
    form.lists.DBFirm.DoubleClick(1);
    const auto partner = [&](int row) {
        std::string cells;
        for (int column = 0; column < 5; ++column)
            cells += form.lists.DbPart.Cell(row, column) + ' ';
        return cells;
    };
    EXPECT_EQ(partner(1), "Gupta 25.00 40000.00 150000.00 20000.00 ");
    EXPECT_EQ(partner(2), "Verma 75.00 60000.00 50000.00 60000.00 ");
    form.lists.DbPart.DoubleClick(1);
    EXPECT_FALSE(form.lists.Fratemp.visible);
    EXPECT_EQ(form.txtname.text() + ' ' + form.TxtPan.text() + ' ' + form.TxtShare.text(), "Zeta AAAFV5512C 25.00");
    EXPECT_EQ(form.TxtProfit.text() + ' ' + form.TxtNet.text(), "20000.00 190000.00");
    EXPECT_EQ(form.TxtRem.toolTip.get() + ' ' + form.TxtIntt.toolTip.get(), "Paid: 3,00,000.00 Paid: 50,000.00");
    form.Click(form.CmdAdd);
    EXPECT_EQ(form.TxtRem.toolTip.get(), "");
    form.Click(form.ChkAll);
    form.Click(form.cmdImport);
    EXPECT_EQ(form.lists.DBFirm.Cell(1, 0) + ' ' + form.lists.DBFirm.Cell(2, 0), "Alpha Zeta");
}

TEST_F(Firms, ImportTellsWhatIsMissing)
{
    struct {
        const char* what;
        const char* pan;
        const char* firmYear; ///< "": the practice has no firm
        bool showsAll;
        const char* message;
        const char* title;
    } const rows[] = {
        {"no PAN", "", "2023-24", false, "No Partnership firm is found with the assessee as partner...", "Information"},
        {"another year", kPan, "2022-23", false, "No Partnership firm is found with the assessee as partner...",
         "Information"},
        {"no firm", "", "", true, "There is no partnership firm...", "Information"},
        {"none of the year", kPan, "2022-23", true, "No firm are entered for the assessment year - 2023-24",
         "Infoamation"},
        {"none of the year yet", kPan, "2024-25", true, "No firm are entered for the assessment year - 2023-24",
         "Infoamation"},
    };
    for (const auto& row : rows) {
        EmptyPractice its;
        AddClient(its, "A0001r2023-24", 1, "Gupta", "01", row.pan);
        if (*row.firmYear != '\0') {
            const std::string year = its.handOver.Glyear;
            its.handOver.Glyear = row.firmYear;
            AddFirm(its, 21, "Zeta", kPan);
            its.handOver.Glyear = year;
        }
        its.Start().screens.Show(screens::FrmFirm);
        auto& form = dynamic_cast<FrmFirm&>(*its.run->screens.OnDisplay());
        form.ChkAll.value = row.showsAll;
        form.Click(form.cmdImport);
        const Message message = its.boxes.Take();
        EXPECT_EQ(message.text, row.message) << row.what;
        EXPECT_EQ(message.title, std::string("Vorn - ") + row.title) << row.what;
        EXPECT_FALSE(form.lists.Fratemp.visible);
    }
}

TEST_F(Firms, SaveThatFailsStoresNothing)
{
    practice.Line("6", {{"SNO", 41}, {"NET", 3}});
    practice.Note("FIRM", {{"name1", "A"}, {"amt2", 5}, {"amt3", 3}, {"amt7", 3}});
    const std::string before = Stored() + Booked();
    FrmFirm& form = Open();
    Refusal refusal;
    LetFail(*practice.run, refusal);
    int failures = 0;
    while (IsOpen() && ++failures < 30) {
        EXPECT_EQ(Stored() + Booked(), before);
        refusal = {.write = failures};
        form.Click(form.CmdSave);
    }
    EXPECT_EQ(failures, 14) << "begin, six deletes, mark, three rows of the firm, line and commit were refused in turn";
}

TEST_F(Firms, LeavingAsksAndALockedYearCanBeReadAlone)
{
    practice.Year(2015, "01");
    practice.Note("FIRM", {{"name1", "A"}, {"amt3", 3}});
    FrmFirm& form = Open();
    form.ChkA.value = true;
    practice.boxes.answers = {Answer::No, Answer::Yes};
    form.Click(form.CmdBack);
    EXPECT_TRUE(IsOpen());
    form.Press(Key::Escape);
    EXPECT_FALSE(IsOpen());
    practice.run->GLlock = 1;
    FrmFirm& locked = Open();
    EXPECT_FALSE(locked.CmdSave.enabled || locked.CmdAdd.enabled || locked.cmdImport.enabled ||
                 locked.CmdImpYear.enabled || locked.ChkA.enabled || locked.txtname.enabled || locked.ChkAudit.enabled);
    locked.MSH.DoubleClick(1);
    EXPECT_EQ(locked.MSH.Cell(1, 0), "A");
    locked.Press(Key::Escape);
    EXPECT_FALSE(IsOpen());
}

} // namespace pgbp
