#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Summary, AddsTheDisplayedTextsOfAllLines)
{
    EmptyPractice practice;
    practice.Line("1", {{"NET", 1000.004}});
    practice.Line("1", {{"NET", 500}, {"Minor", 2}}); // a child's line counts in the assessee's run
    practice.Line("2", {{"NET", -200.5}});
    practice.Line("8", {{"NET", 10}});
    practice.Line("3", {{"NET", 100000}, {"net44", 80000}});
    practice.Line("A", {{"NET", -5000}, {"net44", 60000}});
    practice.Line("4", {{"NET", 5000}}); // no deemed income: the line does not show
    practice.Line("6", {{"NET", 300}});
    practice.Line("7", {{"NET", 40}});
    practice.Line("9", {{"NET", 7}, {"Minor", 3}});
    practice.Line("0", {{"loss", -100000}});
    practice.Detail("LIC", {{"amt1", 10}, {"amt2", 20}, {"amt3", nullptr}, {"amt4", 30}});
    practice.Detail("UTI", {{"amt1", 5}});
    practice.Detail("ZADHOC", {{"amt1", 15}});
    auto& form = practice.Begin(2023, "01");
    EXPECT_EQ(form.lbl1.text(), "1500.00");
    EXPECT_EQ(form.lbl2.text(), "-200.50");
    EXPECT_EQ(form.LblSp.text(), "10.00");
    EXPECT_EQ(form.lbl3.text(), "100000.00");
    EXPECT_EQ(form.LblADA.text(), "60000.00");
    EXPECT_EQ(form.lbl4.text(), "0.00");
    EXPECT_EQ(form.lbllic.text(), "50.00");
    EXPECT_EQ(form.Label27.text(), "7.00");
    EXPECT_EQ(form.lbltotal.text(), "161706.50");
    EXPECT_EQ(form.lblloss.text(), "-100000.00");
    EXPECT_EQ(form.lbllast.text(), "61706.50");
    EXPECT_FALSE(form.lblinc.visible);
}

TEST(Summary, OfAMinorSumsTheChildsRowsAlone)
{
    EmptyPractice practice;
    practice.Line("1", {{"NET", 1000}});
    practice.Line("1", {{"NET", 250}, {"Minor", 2}});
    practice.Line("9", {{"NET", 7}});
    practice.Line("0", {{"loss", -500}});
    practice.Detail("LIC", {{"amt1", 10}, {"Minor", 2}});
    practice.handOver.GLminor = 2;
    auto& form = practice.Begin(2023, "01");
    EXPECT_EQ(form.lbl1.text(), "250.00");
    EXPECT_EQ(form.Label27.text(), "7.00") << "never restricted";
    EXPECT_EQ(form.lbllic.text(), "0.00");
    EXPECT_EQ(form.lblloss.text(), "0.00");
    EXPECT_EQ(form.lbllast.text(), "257.00");
}

TEST(Summary, KeepsTheTextOfALineThatLostItsLastRow)
{
    EmptyPractice practice;
    practice.Line("1", {{"NET", 1000}});
    practice.Line("6", {{"NET", 300}});
    auto& form = practice.Begin(2023, "01");
    practice.run->company.Delete("from {business}");
    form.Do([&] { form.Activate(); });
    EXPECT_EQ(form.lbl1.text(), "1000.00");
    EXPECT_EQ(form.Txt6.text(), "0.00") << "set to 0.00 first";
}

TEST(Summary, DeletesRetailLinesFrom2011)
{
    for (const int year : {2010, 2011}) {
        EmptyPractice practice;
        practice.Year(year, "01");
        practice.Line("5", {{"NET", 0}, {"net44", 900}});
        practice.Company().Insert("business", {{"code", "B0002r2011-12"}, {"Type", "5"}});
        auto& form = practice.Begin();
        EXPECT_EQ(form.lbl5.text(), year == 2010 ? "900.00" : "0.00");
        EXPECT_EQ(practice.Company().Query("select * from {business}").Size(), year == 2010 ? 2U : 1U);
        EXPECT_EQ(form.Label3.text(), year == 2010 ? "Construction Business u/s 44AD :" : "Elegible business u/s 44AD");
    }
}

TEST(Summary, CountsAFirmsHiddenLines)
{
    EmptyPractice practice;
    practice.Line("6", {{"NET", 300}});
    auto& form = practice.Begin(2023, "06");
    EXPECT_FALSE(form.Txt6.visible);
    EXPECT_TRUE(form.lblna1.Shown());
    EXPECT_EQ(form.lbltotal.text(), "300.00");
}

TEST(Summary, NotesWhetherThereIsAnyBusiness)
{
    struct {
        const char* what;
        const char* before;
        bool line;
        bool share;
        const char* after;
    } const rows[] = {
        {"nothing", "1", false, false, "0"},
        {"a line", "0", true, false, "1"},
        {"a share", "0", false, true, "1"},
        {"as it was", "1", true, true, "1"},
    };
    for (const auto& row : rows) {
        EmptyPractice practice;
        const Connection company = practice.Company();
        company.Insert("misc_items", {{"code", "A0001r2023-24"}, {"Type", "Fast2018"}, {"name3", row.before}});
        company.Insert("misc_items", {{"code", "B0002r2023-24"}, {"Type", "Fast2018"}, {"name3", "other"}});
        if (row.line)
            practice.Line("0", {});
        if (row.share)
            company.Insert("misc_items", {{"code", "A0001r2023-24"}, {"Type", "SAOP"}});
        practice.Begin(2023, "01");
        const auto flag = [&](const char* code) {
            return company.Scalar("select name3 from {misc_items} where [Type] = 'Fast2018' and code = ?", code).Text();
        };
        EXPECT_EQ(flag("A0001r2023-24"), row.after) << row.what;
        EXPECT_EQ(flag("B0002r2023-24"), "other") << row.what;
    }
}

// By hand: 1000000 + 200000 + 30000 + 4000 + 500 + 60 + 7 + 0.80 and 9000000 of the audit report; less 1111 and 22222;
// less the loss of 11234.80.
TEST(Summary, WritesEachLineToItsColumnOfTheHeadOfIncome)
{
    EmptyPractice practice;
    practice.Year(2010, "05");
    practice.Line("1", {{"NET", 1000000}});
    practice.Line("2", {{"NET", 200000}});
    practice.Line("3", {{"NET", 3}, {"net44", 30000}});
    practice.Line("4", {{"NET", 4000}, {"net44", 44}});
    practice.Line("5", {{"net44", 500}});
    practice.Line("6", {{"NET", 60}});
    practice.Line("7", {{"NET", 7}});
    practice.Line("9", {{"NET", 9000000}});
    practice.Line("0", {{"loss", -11234.8}});
    practice.Detail("LIC", {{"amt1", 0.05}, {"amt2", 0.1}, {"amt3", 0.25}, {"amt4", 0.4}});
    practice.Detail("LESSINTT", {{"amt1", 1111}});
    practice.Detail("LESSREMU", {{"amt1", 22222}});
    practice.Note("BUSI", {{"amt1", -1}});
    practice.Note("NEW", {{"amt1", -1}});
    auto& form = practice.Begin();
    form.Click(form.CmdBack);
    EXPECT_TRUE(practice.run->screens.Ended());
    const Recordset heads = practice.Balance().Query("select * from {qelgeneral} order by [Type]");
    ASSERT_EQ(heads.Size(), 2U) << "the old head is replaced, another row stays";
    const double columns[] = {1000000, 200000,     30000, 4000,  500,        60,       7,
                              0.8,     10234567.8, 1111,  22222, 10211234.8, -11234.8, 10200000};
    for (int i = 0; i < 14; ++i)
        EXPECT_EQ(heads[0]["amt" + std::to_string(i + 1)].Number(), columns[i]) << "amt" << i + 1;
}

TEST(Summary, ShowsThePrecedingYearBeside)
{
    EmptyPractice practice;
    std::vector<Field> head{{"code", practice.handOver.GlPrCode}, {"Type", "BUSI"}};
    std::vector<std::string> names;
    for (int i = 1; i <= 14; ++i)
        names.push_back("amt" + std::to_string(i));
    for (int i = 0; i < 14; ++i)
        head.push_back({names[i], i + 1});
    practice.Balance().Insert("qelgeneral", head);
    practice.handOver.GlLarge = true;
    auto& form = practice.Begin(2010, "06");
    int column = 0;
    for (const Label* line : {&form.lbl1P, &form.lbl2P, &form.lbl3P, &form.lbl4P, &form.lbl5P, &form.txt6P, &form.txt7P,
                              &form.lbllicP, &form.lbltotalP, &form.partners.txtlesspart1P,
                              &form.partners.txtlesspart2P, &form.lblincP, &form.lbllossP, &form.lbllastP}) {
        EXPECT_EQ(line->text(), std::to_string(++column) + ".00") << line->name();
        EXPECT_TRUE(line->Shown()) << line->name();
    }
    EXPECT_TRUE(form.cmdReport.Shown());

    EmptyPractice narrow;
    EXPECT_FALSE(narrow.Begin(2023, "06").lbl1P.Shown());
}

TEST(Summary, PlantsTheLimitsFrom2017)
{
    for (const int year : {2016, 2017}) {
        EmptyPractice practice;
        practice.Begin(year, "01");
        EXPECT_EQ(practice.Tax().Query("select * from {system} where [From] = 2017").Empty(), year == 2016);
    }
}

TEST(Summary, NamesWhatThePrecedingTotalHoldsBesideItsColumns)
{
    struct {
        double normal, retail, total;
        int year;
        const char* beside;
    } const rows[] = {
        {1000, 0, 2432000, 2023, "of which 35AD and others 2431000.00"},
        {1000, 0, 900.5, 2023, "of which 35AD and others -99.50"},
        {1000, 400, 1400, 2023, "of which 35AD and others 400.00"}, // section 44AF has no column any more
        {1000, 400, 1500, 2010, "of which audit adjustment 100.00"},
        {0.1, 0.2, 0.3, 2010, ""},
    };
    for (const auto& row : rows) {
        EmptyPractice practice;
        practice.Balance().Insert("qelgeneral", {{"code", "A0001r2022-23"},
                                                 {"Type", "BUSI"},
                                                 {"amt1", row.normal},
                                                 {"amt5", row.retail},
                                                 {"amt9", row.total}});
        practice.handOver.GlLarge = true;
        auto& form = practice.Begin(row.year, "01");
        EXPECT_EQ(form.lblothersP.Shown() ? form.lblothers.text() + ' ' + form.lblothersP.text() : "", row.beside);
    }
}

TEST(Summary, KeepsTheOldHeadWhenTheStoreFailsAndLetsThePreparerGo)
{
    EmptyPractice practice;
    practice.Note("BUSI", {{"amt1", -1}});
    auto& form = practice.Begin(2023, "06");
    practice.Balance().Execute(
        "create trigger fail before insert on qelgeneral begin select raise(abort, 'full'); end");
    practice.boxes.answers = {Answer::No, Answer::Yes};
    form.Click(form.CmdBack);
    EXPECT_FALSE(practice.run->screens.Ended()) << "what was typed stays on the screen";
    const Message asked = practice.boxes.Take();
    EXPECT_EQ(asked.icon, Icon::Critical);
    EXPECT_EQ(asked.byDefault, Answer::No);
    form.PressCross();
    EXPECT_TRUE(practice.run->screens.Ended()) << practice.boxes.Take().text;
    EXPECT_EQ(practice.HeadOfIncome("amt1"), -1);
}

TEST(Summary, TakesTheCodeWithoutBlanks)
{
    EmptyPractice practice;
    practice.Line("1", {{"NET", 1000}});
    practice.handOver.Glcode = " A0001r2023-24 ";
    practice.handOver.Glstatus = "01";
    practice.Start();
    EXPECT_EQ(practice.Summary().lbl1.text(), "1000.00");
}

TEST(Summary, ReportsOnThePrecedingYear)
{
    EmptyPractice practice;
    practice.handOver.GlLarge = true;
    auto& form = practice.Begin(2023, "06");
    practice.processes.whileRunning = [&] {
        HandOver seen;
        ReadHandOver(practice.File("handover/VornTemp.mdb"), seen);
        EXPECT_EQ(seen.Glcode, "A0001r2022-23");
        EXPECT_EQ(seen.Glyear, "2022-23");
        EXPECT_EQ(seen.GLrep, "PGBP");
    };
    form.Click(form.cmdReport);
    EXPECT_EQ(practice.processes.started, std::vector<std::string>{"VornRep.exe"});
    EXPECT_EQ(practice.run->Glcode, "A0001r2023-24");
    EXPECT_EQ(practice.run->Glyear, "2023-24");
    EXPECT_EQ(practice.run->GLrep, "PGBP") << "the next recompute refreshes the remuneration";
}

TEST(Summary, ReportsOnTheYearAtHandByControlPInALockedYearToo)
{
    for (const int lock : {0, 1}) {
        EmptyPractice practice;
        practice.handOver.GLlock = lock;
        auto& form = practice.Begin(2023, "06");
        practice.processes.whileRunning = [&] {
            HandOver seen;
            ReadHandOver(practice.File("handover/VornTemp.mdb"), seen);
            EXPECT_EQ(seen.Glcode, "A0001r2023-24");
            EXPECT_EQ(seen.Glyear, "2023-24");
            EXPECT_EQ(seen.GLrep, "PGBP");
        };
        form.Press(Key::Print);
        EXPECT_EQ(practice.processes.started, std::vector<std::string>{"VornRep.exe"}) << lock;
    }
}
