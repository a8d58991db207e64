#include "statements/gnumeric.h"
#include "statements/no_books.h"
#include "statements/statement_under_test.h"
#include "statements/template_store.h"
#include "support/failing_store.h"

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

using namespace pgbp;
using namespace pgbp::test;

namespace {

/// A form as lines_as_printed.txt holds it.
struct PrintedForm {
    std::string name;
    double glITR = 0;
    std::vector<int> years{};
    std::vector<std::pair<int, std::string>> lines{};
};

std::vector<PrintedForm> PrintedForms()
{
    std::vector<PrintedForm> forms;
    std::ifstream in(PGBP_TESTS "/statements/lines_as_printed.txt");
    for (std::string text; std::getline(in, text);) {
        if (text.starts_with('#'))
            continue;
        std::istringstream parts(text);
        const auto next = [&](std::string& part) {
            return static_cast<bool>(std::getline(parts >> std::ws, part, ';'));
        };
        std::string part;
        PrintedForm& form = forms.emplace_back();
        next(form.name);
        next(part);
        form.glITR = std::stod(part);
        next(part);
        std::istringstream years(part);
        for (int year = 0; years >> year;)
            form.years.push_back(year);
        while (next(part))
            form.lines.emplace_back(std::stoi(part), part.substr(part.find('=') + 1));
    }
    return forms;
}

/// 100000 receipts, 30000 rents, 4000 depreciation: the profit reaches its line, the label, and the line of business.
void CheckProfit(StatementTest& its, StatementScreen& screen, const PrintedForm& form)
{
    for (const auto& [line, rupees] : {std::pair(1, "100000"), {2, "30000"}, {3, "4000"}})
        its.Key(screen, form.lines[static_cast<std::size_t>(line)].first, rupees);
    EXPECT_EQ(its.Amount(screen, form.lines[4].first), "66,000");
    EXPECT_EQ(screen.LblTot1.text(), form.glITR == 6 && its.run->Year() > 2012 ? "66000" : "66,000");
    screen.Click(screen.CmdSave);
    for (const auto& [column, rupees] : {std::pair("PNL", "70000"), {"dep1", "4000"}, {"NET", "66000"}})
        EXPECT_EQ(its.Stored(std::string("select ") + column + " from {business}"), rupees) << column;
    EXPECT_EQ(its.run->GlITR, form.glITR) << "the number of the return is given back";
}

/// A figure in a line of the balance sheet, or of the account under Ind AS, reaches a total and the labels.
void CheckTotals(StatementTest& its, StatementScreen& screen, const std::string& form)
{
    struct Case {
        int keyed, total;
        const char* labels;
    };
    const std::map<std::string, Case> cases = {
        {"INDASPL", {146, 149, "Net Profit 5,000"}},
        {"INDAS", {4, 85, "Assets 5,000 Equity and Liabilities 0 Diff. : 5,000"}},
    };
    const auto found = cases.find(form);
    if (found == cases.end()) // the rules of the account run over the lines of a balance sheet of the return
        return;
    its.Key(screen, found->second.keyed, "5000");
    EXPECT_EQ(its.Amount(screen, found->second.total), "5,000");
    std::string labels;
    for (const Label* label :
         {&screen.lblTot1c, &screen.LblTot1, &screen.lblTot2c, &screen.LblTot2, &screen.lblTot3c, &screen.lblTot3})
        if (label->visible)
            labels += (labels.empty() ? "" : " ") + label->text();
    EXPECT_EQ(labels, found->second.labels);
}

} // namespace

TEST_F(StatementTest, EachFormOfEachYearHasItsLinesAndItsTotals)
{
    for (const PrintedForm& form : PrintedForms()) {
        PutForm(form.name);
        isIndAs = form.name.starts_with("IND");
        const bool isAccount = form.name.find("PL") != std::string::npos;
        for (const int year : form.years) {
            SCOPED_TRACE(form.name + ' ' + std::to_string(year));
            run.reset();
            Company().Execute("delete from {business}");
            Year(year, "01");
            StatementScreen& screen = OpenStatement(form.glITR, isAccount ? "PNL" : "NEWBS");
            EXPECT_EQ(screen.caption.get(), isAccount ? "PROFIT AND LOSS ACCOUNT" : "BALANCE SHEET");
            ASSERT_EQ(screen.MSH.Rows(), form.lines.back().first);
            for (const auto& [row, text] : form.lines) {
                const std::string printed = screen.MSH.Cell(row, kSerial) + ' ' + screen.MSH.Cell(row, kDescription);
                EXPECT_TRUE(printed.starts_with(text)) << printed;
            }
            if (isAccount && !isIndAs)
                CheckProfit(*this, screen, form);
            else
                CheckTotals(*this, screen, form.name);
        }
    }
}

TEST_F(StatementTest, AColumnIsPastedWholeOrNotAtAllAndTakenBackWhole)
{
    PutForm("PL_3_2019");
    struct Case {
        const char* clipboard;
        int row;
        const char* message;
        std::vector<std::pair<int, std::string>> amounts;
    };
    const Case cases[] = {
        // over the total in 5 and the heading in 12; a blank line leaves its own alone
        {"1,25,000\n 40 \n\n-3\n5\n6\n7\n8\n",
         3,
         "",
         {{3, "1,25,000"}, {4, "40"}, {6, "77"}, {7, "-3"}, {9, "5"}, {13, "8"}}},
        {"1\n2.50\n3", 3, "2.50", {{3, ""}, {4, ""}}},
        {"1\nwages\n3", 3, "wages", {{3, ""}, {4, ""}}},
        {"1\n2\n3\n4\n5", 179, "more figures than open lines", {{179, ""}, {181, ""}}}, // 179 and 181 alone are open
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.clipboard);
        StatementScreen& screen = OpenStatement();
        Key(screen, 6, "77");
        screen.Do([&] { screen.MSH.EnterCell(c.row, kAmount); });
        screen.Do([&] { screen.TxtNum.Paste(c.clipboard); });
        if (*c.message) {
            EXPECT_NE(boxes.Take().text.find(c.message), std::string::npos);
        }
        for (const auto& [row, amount] : c.amounts)
            EXPECT_EQ(Amount(screen, row), amount) << row;
        screen.Press(Key::Undo);
        EXPECT_EQ(Amount(screen, 3), "");
        EXPECT_EQ(Amount(screen, 6), *c.message ? "" : "77") << "the paste is one step, the figure before it another";
        boxes.answers = {Answer::Yes};
        screen.Click(screen.CmdBack);
        boxes.shown.clear();
    }
}

TEST_F(StatementTest, ARefusedSaveKeepsWhatWasKeyedAndStoresItOnceInTheEnd)
{
    PutForm("PL_3_2019");
    for (const bool afterCommit : {false, true})
        for (Refusal refusal{.afterCommit = afterCommit};; refusal.writes = 0) {
            ++refusal.write;
            SCOPED_TRACE(refusal.write);
            run.reset();
            Company().Execute("delete from {business}");
            Balance().Execute("delete from {qelgeneral}");
            StatementScreen& screen = OpenStatement();
            Key(screen, 29, "999"); // nines alone would be left without a question
            screen.Click(screen.CmdMulEntry);
            Type(screen, screen.details.TxtDescr, "Retail");
            Type(screen, screen.details.TxtAmt, "999");
            screen.Click(screen.details.CmdClose);
            LetFail(*run, refusal);
            screen.Click(screen.CmdSave);
            const bool isRefused = run->screens.OnDisplay() == &screen;
            if (isRefused) {
                EXPECT_NE(boxes.Take().text.find("refused"), std::string::npos);
                EXPECT_EQ(Amount(screen, 29), "999");
                EXPECT_EQ(screen.MSH.Cell(29, kDetail), "Filled");
                boxes.answers = {Answer::No};
                screen.Click(screen.CmdBack);
                EXPECT_EQ(boxes.Take().buttons, Buttons::YesNo);
                refusal.writes = 0;
                refusal.write += 1000;
                screen.Click(screen.CmdSave);
                refusal.write -= 1000;
            }
            EXPECT_EQ(Stored("select count(*) from {business}"), "1");
            const auto count = [&](const char* type) {
                return Balance().Scalar("select count(*) from {qelgeneral} where [Type] = ?", type).Number();
            };
            EXPECT_EQ(count("NEWPL"), 1 + 33) << "the line keyed and the computed ones outside the no-books case";
            EXPECT_EQ(count("SNEWPL"), 1);
            if (!isRefused)
                break;
        }
}

TEST_F(StatementTest, DebtorsAreListedFrom2019)
{
    for (const auto& [year, form] : {std::pair{2018, "PL_5_2018a"}, {2019, "PL_5_2019"}}) {
        Year(year, "05");
        PutForm(form);
        Start();
        StatementScreen& screen = OpenStatement(5);
        int row = 1;
        while (screen.MSH.Cell(row, kSlno) != "540")
            ++row;
        screen.Do([&] { screen.MSH.EnterCell(row, kAmount); });
        EXPECT_EQ(screen.TxtNum.visible, year == 2018) << "before, its amount was keyed as any other";
    }
}

TEST_F(StatementTest, AnOlderTemplateIsRepairedBeforeItIsShown)
{
    PutForm("PL_3_2019");
    Tax().Execute("update {taxaudit} set blocked = ? where slno = ?", true, kBadDebtsWithoutPan);
    const auto line = static_cast<int>(TemplateNamed("PL_3_2019").Line(kBadDebtsWithoutPan));
    EXPECT_EQ(OpenStatement().MSH.Cell(line, kType), "NUM");
}

TEST_F(StatementTest, EveryLineOfABusinessWithoutBooksIsMandatory)
{
    for (int missing = 0; missing < 4; ++missing) {
        std::vector<StatementRow> rows(5, StatementRow(kStatementColumns)); // the heading 268, then 269 to 272
        for (int i = 0; i < 5; ++i)
            rows[static_cast<std::size_t>(i)][kSlno] = std::to_string(268 + i);
        StatementLines lines(rows, {});
        for (std::size_t line = 2; line <= 5; ++line)
            lines.SetAmount(line, "5");
        EXPECT_FALSE(MissingNoBooksLine(lines));
        const auto line = static_cast<std::size_t>(missing) + 2;
        lines.SetAmount(line, "0");
        EXPECT_EQ(MissingNoBooksLine(lines), line);
    }
}

TEST_F(StatementTest, ASheetChangedInAnotherProgramComesBackAndIsSaved)
{
    Year(2023, "05");
    PutForm("PL_5_2019");
    StatementScreen& screen = OpenStatement(5);
    Key(screen, 29, "5000");
    const auto ours = folder.path() / "ours.xls", theirs = folder.path() / "theirs.xls";
    files.chosen = ours;
    screen.Click(screen.cmdexport);
    EXPECT_EQ(screen.notice.get(), "Exported to " + ours.string());
    if (!ChangedByGnumeric(ours, theirs, "--set C4=1000 --set C30=8000"))
        GTEST_SKIP() << "Gnumeric is not installed";
    files.chosen = theirs;
    screen.Click(screen.cmdImport);
    EXPECT_EQ(boxes.Take().text, "Process Completed");
    EXPECT_EQ(Amount(screen, 29), "8,000");
    EXPECT_EQ(screen.LblTot1.text(), "7,000") << "sales without the opening stock";
    folder.Write("theirs.xls", "no workbook");
    screen.Click(screen.cmdImport);
    EXPECT_EQ(boxes.Take().icon, Icon::Critical);
    screen.Click(screen.CmdSave);
    EXPECT_EQ(Balance().Scalar("select name8 from {qelgeneral} where [Type] = 'NEWPL' and amt1 = 501").Text(), "8000");
    EXPECT_EQ(Company().Scalar("select NET from {business}").Number(), 7000);
}

TEST_F(StatementTest, ALockedYearIsShownAndNothingCanBeKeyed)
{
    PutForm("PL_3_2019");
    Line("1");
    Cell("NEWPL", 501, "5000");
    handOver.GlPrCode = "";
    Start().GLlock = 1;
    StatementScreen& screen = OpenStatement(4, "PNL", kSno);
    EXPECT_EQ(Amount(screen, 29), "5,000");
    EXPECT_EQ(Amount(screen, 175), "5,000");
    EXPECT_FALSE(screen.ChkPr.visible) << "there is no previous year";
    for (const Control* change : std::initializer_list<const Control*>{
             &screen.CmdSave, &screen.CmdDel, &screen.cmdImport, &screen.CmdNew3, &screen.ChkBooks})
        EXPECT_FALSE(change->enabled) << change->name();
    Key(screen, 29, "7");
    screen.Do([&] { screen.MSH.ClickCell(29, kDetail); });
    screen.Do([&] { screen.MSH.Paste("1\n2"); });
    EXPECT_FALSE(screen.TxtNum.visible || screen.details.Frame1.visible);
    EXPECT_EQ(Amount(screen, 29), "5,000");
    screen.Click(screen.CmdBack);
    EXPECT_NE(run->screens.OnDisplay(), &screen);
    EXPECT_TRUE(boxes.shown.empty());
}
