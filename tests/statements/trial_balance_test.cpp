#include "statements/served_totals.h"
#include "statements/statement_under_test.h"
#include "statements/trial_balance_lines.h"
#include "support/failing_store.h"

#include <gmock/gmock.h>

#include <fstream>
#include <set>

using namespace pgbp;
using namespace pgbp::test;
using testing::AnyOf;
using testing::HasSubstr;
using trial::Side;

namespace {

bool IsBalance(const TemplateFile& file) { return file.name.find("PL") == std::string::npos; }

/// The lines of a template that accounts can be put into.
std::vector<AccountLine> LinesOf(const TemplateFile& file)
{
    std::vector<StatementRow> rows;
    for (const TemplateRow& row : file.rows)
        rows.push_back(ToStatementRow(row));
    const StatementLines lines(rows,
                               file.name.starts_with("BS_") ? std::span<const std::string_view>() : RulesOf(file));
    return AccountLines(rows, lines, IsBalance(file) ? StatementKind::BalanceSheet : StatementKind::ProfitAndLoss,
                        [&](std::size_t line) { return IsEntry(file.rows[line - 1]); });
}

bool IsWithin(int slno, std::initializer_list<std::pair<int, int>> ranges)
{
    return std::ranges::any_of(ranges,
                               [slno](const auto& range) { return slno >= range.first && slno <= range.second; });
}

/// The halves of the printed forms: sales, stock at the end, income and what is brought forward; funds, loans,
/// liabilities, provisions, and what is taken off an asset.
Side SideAsPrinted(int slno)
{
    if (IsWithin(slno, {{523, 523}, {7083, 7083}, {268, 272}, {1161, 1167}, {2084, 2087}, {7163, 7187}, {8037, 8040}}))
        return Side::None;
    const bool isCredit =
        IsWithin(slno, {{167, 186}, {501, 517}, {1150, 1154}, {8018, 8019}, {8036, 8036}, {259, 259}}) ||
        IsWithin(slno, {{7001, 7043}, {7153, 7153}}) ||
        IsWithin(slno, {{2002, 2023}, {2027, 2027}, {2065, 2075}, {2088, 2088}, {2101, 2121}, {2125, 2129}}) ||
        IsWithin(slno, {{7501, 7601}, {7606, 7607}, {7612, 7613}, {7617, 7617}, {7621, 7622}, {7627, 7627}});
    return isCredit ? Side::Credit : Side::Debit;
}

/// A statement of the return of 2023 on display, and files that are chosen.
class TrialBalanceTest : public StatementTest {
  public:
    StatementScreen& Import(StatementScreen& screen, const std::string& list)
    {
        folder.Write("list.csv", "Particulars;Balance\n" + list);
        files.chosen = folder.path() / "list.csv";
        screen.Click(screen.CmdTrial);
        return screen;
    }
    static Control& Of(StatementScreen& screen, const char* name) { return *screen.Find(name); }
    static void Fill(StatementScreen& screen) { screen.Click(static_cast<cmd&>(Of(screen, "CmdTrialFill"))); }
    std::string Details(int slno)
    {
        std::string texts;
        for (const Row row :
             Balance().Query("select name9, name8 from {qelgeneral} where [Type] = 'SNEWPL' and amt1 = ?", slno))
            texts += row.At(0).Text() + ' ' + row.At(1).Text() + ';';
        return texts;
    }
};

} // namespace

TEST(TrialBalanceLines, EachLineOfEachFormHasTheSideOfItsHalfAndALabelOfItsOwn)
{
    for (const TemplateFile& file : TemplateFiles()) {
        SCOPED_TRACE(file.name);
        std::set<std::string> labels;
        for (const AccountLine& line : LinesOf(file)) {
            EXPECT_EQ(line.form.side, SideAsPrinted(line.form.slno)) << line.form.slno << ' ' << line.label;
            EXPECT_TRUE(labels.insert(line.label).second) << line.label;
        }
    }
}

TEST(TrialBalanceLines, ProposalsStandInTheRightHalfOfEachForm)
{
    constexpr int kNone = 0, kElsewhere = -1;
    const struct {
        const char* form;
        trial::Account account;
        int slno;
    } cases[] = {
        {"PL_3_2019", {.name = "Rent", .balance = 5}, 202},
        {"PL_3_2019", {.name = "Rent", .balance = -5}, 175},
        {"PL_3_2019", {.name = "Interest on bank loan", .balance = 5}, 548},
        {"PL_5_2019", {.name = "Interest on bank loan", .balance = 5}, 553},
        {"PL_4", {.name = "Interest on bank loan", .balance = 5}, 253},
        {"PL_3_2019", {.name = "Bank interest", .balance = -5}, 178},
        {"PL_5_2019", {.name = "Partners' salary", .balance = 5}, 549},
        {"PL_3_2019", {.name = "Electricity", .balance = 5}, 201},
        {"PL_3_2019", {.name = "Electricity", .group = "Direct Expenses", .balance = 5}, 8031},
        {"PL_3_2019", {.name = "Cotton, 5%", .group = "Purchase Accounts", .balance = 5}, 189},
        {"PL_3_2019", {.name = "Cotton, 5%", .group = "Sales Accounts", .balance = -5}, 501},
        {"PL_4", {.name = "Sales", .balance = -5}, 167},
        {"INDASPL", {.name = "Sales", .balance = -5}, 7003},
        {"INDASPL", {.name = "Opening stock", .balance = 5}, 7047},
        {"PL_3_2019", {.name = "Sales return", .balance = 5}, kNone},
        {"PL_3_2019", {.name = "Sales", .balance = 5}, kNone}, // a debit is no income
        {"PL_3_2019", {.name = "Bad debts", .balance = 5}, kNone},
        {"PL_3_2019", {.name = "Mahesh", .balance = 5}, kNone},
        {"PL_3_2019", {.name = "Mahesh", .group = "Sundry Debtors", .balance = 5}, kElsewhere},
        {"PL_3_2019", {.name = "Royal Travels", .group = "Sundry Creditors", .balance = -5}, kElsewhere},
        {"PL_3_2019", {.name = "Salary payable", .balance = -5}, kElsewhere},
        {"PL_3_2019", {.name = "Rent deposit", .balance = 5}, kElsewhere},
        {"PL_3_2019", {.name = "Office furniture", .balance = 5}, kElsewhere},
        {"PL_3_2019", {.name = "TDS on rent", .balance = -5}, kElsewhere},
        {"PL_3_2019", {.name = "Professional tax", .balance = 5}, 245},
        {"PL_3_2019", {.name = "Kitchen gardening", .group = "Indirect Expenses", .balance = 5}, 538},
        {"BS_4", {.name = "Cash", .balance = 5}, 2052},
        {"BS_4", {.name = "HDFC Bank", .balance = 5}, 2053},
        {"BS_4", {.name = "HDFC Bank OD", .balance = -5}, 2014},
        {"BS_4", {.name = "Mahesh", .group = "Sundry Debtors", .balance = 5}, 2050},
        {"BS_6", {.name = "Mahesh", .group = "Sundry Debtors", .balance = 5}, 2123},
        {"BS_5", {.name = "Capital - Verma", .balance = -5}, 2002},
        {"BS_4", {.name = "Accumulated depreciation", .balance = -5}, 2027},
        {"BS_4", {.name = "Loan from R. Mehra", .balance = -5}, 2020},
        {"BS_4", {.name = "Input CGST", .balance = 5}, 2060},
        {"BS_4", {.name = "Rent", .balance = 5}, kElsewhere},
        {"INDAS", {.name = "Machinery", .balance = 5}, 7605},
    };
    for (const auto& [form, account, slno] : cases) {
        const TemplateFile& file = TemplateNamed(form);
        const auto own = IsBalance(file) ? trial::Statement::BalanceSheet : trial::Statement::ProfitAndLoss;
        std::vector<trial::FormLine> lines;
        for (const AccountLine& line : LinesOf(file))
            lines.push_back(line.form);
        const trial::Proposal proposal = trial::Proposer(own, lines).For(account);
        const bool isElsewhere = proposal.statement != trial::Statement::Unknown && proposal.statement != own;
        EXPECT_EQ(isElsewhere ? kElsewhere : proposal.slno.value_or(kNone), slno) << form << ' ' << account.name;
    }
}

TEST_F(TrialBalanceTest, AccountsReplaceTheirEarlierEntriesWhereverTheseStand)
{
    PutForm("PL_3_2019");
    Line("1");
    Note("SNEWPL", {{"amt1", 202}, {"amt2", kSno}, {"name9", "Landlord's half"}, {"name8", "100"}});
    Note("SNEWPL", {{"amt1", 202}, {"amt2", kSno}, {"name9", "Godown rent"}, {"name8", "40"}});
    Note("SNEWPL", {{"amt1", 247}, {"amt2", kSno}, {"name9", "Advertisement"}, {"name8", "9"}});
    Cell("NEWPL", 202, "140");
    Cell("NEWPL", 247, "9");
    StatementScreen& screen = OpenStatement(4, "PNL", kSno);
    Key(screen, 96, "77"); // salaries, without details
    boxes.answers = {Answer::Yes};
    Import(screen, "Rent, Landlord's half;250.50 Dr\nLANDLORD'S  HALF rent;1.50 Dr\nLandlord's half;300.49 Dr\n"
                   "Advertisement;60 Dr\nSalaries;500.5 Dr\nCash;0\nSales;1112.99 Cr\n");
    // the landlord's half alone has no words that tell
    screen.Do([&] { static_cast<Grid&>(Of(screen, "MshTrial")).EnterCell(3, 5); });
    TypeText(screen, "19 rents");
    Fill(screen);
    EXPECT_TRUE(boxes.shown.empty()) << "debits and credits agree, and each account has its line";
    EXPECT_EQ(Amount(screen, 92), "593") << "40 + 251 + 2 + 300, each account in whole rupees";
    EXPECT_EQ(Amount(screen, 120), "60") << "where it belongs";
    EXPECT_EQ(Amount(screen, 155), "") << "the audit fee it stood under";
    EXPECT_EQ(Amount(screen, 96), "501");
    EXPECT_THAT(screen.notice.get(), HasSubstr("before that gave way: 1."));
    screen.Press(Key::Undo);
    EXPECT_EQ(Amount(screen, 92) + ' ' + Amount(screen, 155) + ' ' + Amount(screen, 96), "140 9 77");
    Import(screen, "Landlord's half;300 Dr\nSales;300 Cr\n");
    Fill(screen);
    screen.Click(screen.CmdSave);
    EXPECT_EQ(Details(202), "Godown rent 40;Landlord's half 300;");
    EXPECT_EQ(Details(247), "Advertisement 9;");
}

TEST_F(TrialBalanceTest, WhatIsLeftOutIsNamedBeforeAndNothingIsFilledWithoutAYes)
{
    PutForm("PL_3_2019");
    StatementScreen& screen = OpenStatement();
    boxes.answers = {Answer::No};
    Import(screen, "Mahesh;100 Dr\nSuresh;50 Cr\nRent;500 Dr\nSales;600 Cr\n");
    Fill(screen);
    const Message question = boxes.Take();
    EXPECT_EQ(question.text, "2 accounts have no line and will not be in the statement:\nMahesh, Suresh.\n"
                             "Debits and credits do not agree. Difference : 50.00 Cr.\nFill the lines all the same ?");
    EXPECT_EQ(question.byDefault, Answer::No);
    EXPECT_EQ(Amount(screen, 92), "");
    boxes.answers = {Answer::Yes};
    Fill(screen);
    EXPECT_EQ(Amount(screen, 92), "500");
    EXPECT_EQ(Amount(screen, 29), "600");
}

TEST_F(TrialBalanceTest, ALineInThePreparersWordsTakesWhatTheyName)
{
    PutForm("PL_3_2019");
    StatementScreen& screen = OpenStatement();
    screen.Do([&] { screen.MSH.EnterCell(157, kDescription); });
    TypeText(screen, "Packing material");
    Import(screen, "Packing material;60 Dr\nPostage;40 Dr\nTools, small;5 Dr\nSales;105 Cr\n");
    auto& grid = static_cast<Grid&>(Of(screen, "MshTrial"));
    EXPECT_EQ(grid.Cell(2, 5), "46ii Other expenses") << "the next one, which has no words yet";
    screen.Do([&] { grid.EnterCell(1, 5); });
    TypeText(screen, "pack");
    Fill(screen);
    EXPECT_EQ(Amount(screen, 157), "60");
    EXPECT_EQ(screen.MSH.Cell(157, kDescription), "Packing material");
    EXPECT_EQ(screen.MSH.Cell(158, kDescription), "Postage");
}

TEST_F(TrialBalanceTest, ALineThatTakesNoAccountsCannotBeChosen)
{
    PutForm("PL_3_2019");
    StatementScreen& screen = OpenStatement();
    Import(screen, "Mahesh;100 Dr\nSales;100 Cr\n");
    auto& grid = static_cast<Grid&>(Of(screen, "MshTrial"));
    for (const char* line : {"Gross profit transferred", "22xiia", "PAN is not available", "64ia"}) {
        screen.notice = "";
        screen.Do([&] { grid.EnterCell(1, 5); });
        TypeText(screen, line);
        screen.Press(Key::Enter);
        EXPECT_EQ(grid.Cell(1, 5), "") << line;
        EXPECT_EQ(screen.notice.get(), std::string("No line has \"") + line + "\".");
    }
    screen.Do([&] { grid.EnterCell(2, 5); });
    screen.Press(Key::Delete);
    screen.Press(Key::Enter);
    EXPECT_EQ(grid.Cell(2, 5), "") << "an emptied cell is no line";
}

TEST_F(TrialBalanceTest, SignsTellTheSidesAndCanBeTurned)
{
    PutForm("PL_3_2019");
    StatementScreen& screen = OpenStatement();
    Import(screen, "Rent;-500\nSalary;-100\nSales;600\n");
    auto& grid = static_cast<Grid&>(Of(screen, "MshTrial"));
    auto& turn = static_cast<CheckBox&>(Of(screen, "ChkTrialMinus"));
    EXPECT_TRUE(turn.visible && turn.value);
    EXPECT_EQ(grid.Cell(1, 3), "500.00") << "a debit";
    EXPECT_EQ(grid.Cell(1, 5), "19 Rents");
    screen.Click(turn);
    EXPECT_EQ(grid.Cell(1, 4), "500.00") << "a credit";
    EXPECT_EQ(grid.Cell(1, 5), "14i Other income: Rent");
}

TEST_F(TrialBalanceTest, TheListOfASecondShopKeepsTheChoicesOfTheFirst)
{
    PutForm("PL_3_2019");
    for (const char* list : {"Rent;500 Dr\nSales;500 Cr\n", "Salary;70 Dr\nSales;70 Cr\n"}) {
        StatementScreen& screen = OpenStatement();
        Import(screen, list);
        Fill(screen);
        screen.Click(screen.CmdSave);
    }
    EXPECT_EQ(Balance().Scalar("select count(*) from {qelgeneral} where [Type] = 'TBNEWPL'").Number(), 3);
}

TEST_F(TrialBalanceTest, ARefusedSaveStoresNoChoiceAndTheNextOneStoresAll)
{
    PutForm("PL_3_2019");
    StatementScreen& screen = OpenStatement();
    Import(screen, "Rent;500 Dr\nSales;500 Cr\n");
    Fill(screen);
    const auto stored = [&] {
        return Balance().Scalar("select count(*) from {qelgeneral} where [Type] = 'TBNEWPL'").Number();
    };
    Refusal refusal{.write = 30};
    LetFail(*run, refusal);
    screen.Click(screen.CmdSave);
    EXPECT_NE(boxes.Take().text.find("refused"), std::string::npos);
    EXPECT_EQ(stored(), 0);
    refusal.write = 0;
    screen.Click(screen.CmdSave);
    EXPECT_EQ(stored(), 2);
}

TEST_F(TrialBalanceTest, AFileThatIsNoListLeavesTheStatementAsItIs)
{
    PutForm("PL_3_2019");
    StatementScreen& screen = OpenStatement();
    Key(screen, 29, "5");
    files.chosen.reset();
    screen.Click(screen.CmdTrial);
    EXPECT_TRUE(boxes.shown.empty()) << "a cancelled dialog";
    folder.Write("list.csv", "hello");
    files.chosen = folder.path() / "list.csv";
    screen.Click(screen.CmdTrial);
    EXPECT_THAT(boxes.Take().text, HasSubstr("list.csv: No heading tells the columns."));
    EXPECT_FALSE(Of(screen, "FraTrial").visible);
    EXPECT_EQ(Amount(screen, 29), "5");
    Year(2023, "01");
    Start().GLlock = 1;
    EXPECT_FALSE(OpenStatement().CmdTrial.enabled);
}
