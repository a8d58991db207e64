#include "trial_balance/accounts.h"
#include "trial_balance/delimited_text.h"
#include "workbook/workbook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pgbp::trial {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::ThrowsMessage;

TrialBalance Read(const std::string& text) { return AccountsOf(TablesOf(text)); }

TEST(TrialBalanceAccounts, SeparatorsSidesAndSignsGiveTheSameBalances)
{
    const std::vector<Account> expected = {{.name = "Rent, shop", .balance = 125000},
                                           {.name = "Sales", .balance = -125000}};
    const struct {
        const char* text;
        bool bySigns;
    } lists[] = {
        {"Particulars,Debit,Credit\n\"Rent, "
         "shop\",\"1,25,000.00\",\nSales,,\"1,25,000.00\"\nTotal,\"1,25,000.00\",\"1,25,000.00\"\n",
         false},
        {"Particulars;Balance\nRent, shop;1,25,000 Dr\nSales;1,25,000 Cr\n", false},
        {"Particulars\tBalance\tDr/Cr\nRent, shop\t125000\tD\nSales\t125000\tC\nGrand Total:\t0\t\n", false},
        {"Particulars;Balance;;\nRent, shop;125000;Dr\nSales;125000;Cr\n;\n", false},
        {"Particulars;Amount\nRent, shop;125000\nSales;-1,25,000.00\n", true},
        {"Particulars;Debit;Credit\nRent, "
         "shop;;(1,25,000)\nSales;-125000\nParticulars;Debit;Credit\n;-125000;-125000\n",
         false},
    };
    for (const auto& [text, bySigns] : lists) {
        const TrialBalance read = Read(text);
        EXPECT_EQ(read.accounts, expected) << text;
        EXPECT_EQ(read.bySigns, bySigns) << text;
        EXPECT_EQ(read.doubt, "") << text;
        EXPECT_EQ(read.Debits(), 125000);
        EXPECT_EQ(read.Credits(), 125000);
    }
}

TEST(TrialBalanceAccounts, SumsOfGroupsAreNoAccounts)
{
    const TrialBalance read = Read("Particulars,Debit,Credit\n"
                                   "Current Assets,900,\n"
                                   "  Sundry Debtors,700,\n"
                                   "    Mahesh,300,\n"
                                   "    Suresh,400,\n"
                                   "  Cash,200,\n"
                                   "Income,,\n"
                                   "  Sales,,900\n"
                                   "Suspense,,\n"
                                   "Total,900,900\n");
    EXPECT_THAT(read.accounts,
                ElementsAre(Account{.name = "Mahesh", .group = "Sundry Debtors", .balance = 300},
                            Account{.name = "Suresh", .group = "Sundry Debtors", .balance = 400},
                            Account{.name = "Cash", .group = "Current Assets", .balance = 200},
                            Account{.name = "Sales", .group = "Income", .balance = -900}, Account{.name = "Suspense"}));
    EXPECT_EQ(read.doubt, "");
    // without blanks in front a group looks like an account and counts twice: the list's own total shows it
    EXPECT_THAT(
        Read("Particulars,Debit,Credit\nDebtors,700,\nMahesh,300,\nSuresh,400,\nSales,,700\nTotal,700,700\n").doubt,
        HasSubstr("700.00 Dr and 700.00 Cr, its accounts come to 1,400.00 Dr"));
    // an account that stands above deeper ones by chance keeps its balance
    EXPECT_EQ(Read("Particulars,Debit,Credit\nRent,5,\n Fees,7,\nSales,,12\n").Debits(), 12);
}

TEST(TrialBalanceAccounts, ATotalIsTheWordAlone)
{
    const TrialBalance read =
        Read("Account,Debit,Credit\nTotal Traders,5,\nNet,3,\nSub-Total,8,\nGrand Total (Rs.),8,\n");
    ASSERT_EQ(read.accounts.size(), 2U);
    EXPECT_EQ(read.accounts[1].name, "Net");
}

TEST(TrialBalanceAccounts, OpeningBalancesStandApart)
{
    const TrialBalance read = Read("Account,Group,Opening Balance,Closing Balance\nCash,Cash-in-hand,10 Dr,25 Dr\n");
    EXPECT_TRUE(read.hasOpening);
    EXPECT_THAT(read.accounts,
                ElementsAre(Account{.name = "Cash", .group = "Cash-in-hand", .balance = 25, .opening = 10}));
}

TEST(TrialBalanceAccounts, AListThatCannotBeReadIsRefusedWithItsRow)
{
    const std::pair<const char*, const char*> lists[] = {
        {"Title\nParticulars,Debit,Credit\nRent,12.5.3,\n", "Row 3 (Rent): \"12.5.3\" is no amount."},
        {"Particulars,Debit,Credit\nRent,5,\n,7,\nSales,,12\n", "Row 3: There is an amount, but no account."},
        {"Particulars,Debit,Credit\nRent,5,\n\"Sales,,5\n", "A quotation mark in row 3 is never closed."},
        {"Rent,5\nSales,7\n", "No heading tells the columns."},
        {"", "No heading tells the columns."},
    };
    for (const auto& [text, message] : lists)
        EXPECT_THAT([&] { Read(text); }, ThrowsMessage<TrialBalanceError>(HasSubstr(message))) << text;
}

TEST(TrialBalanceAccounts, AWorkbookIsReadFromTheSheetThatHasTheList)
{
    xls::Sheet notes{.name = "Notes"};
    notes.cells[{0, 0}].value = "Sent on 5 June";
    xls::Sheet list{.name = "TB"};
    const xls::Value rows[][3] = {{"Particulars", "Debit", "Credit"}, {"Rent", 1250.5, {}}, {"Sales", {}, 1250.5}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            list.cells[{row + 2, column + 1}].value = rows[row][column];
    EXPECT_THAT(Read(xls::WriteXls({{notes, list}})).accounts,
                ElementsAre(Account{.name = "Rent", .balance = 1250.5}, Account{.name = "Sales", .balance = -1250.5}));
}

TEST(TrialBalanceAccounts, ALongNameEndsInDotsAndLineEndsAreBlanks)
{
    const TrialBalance read = Read("Account;Balance\n" + std::string(300, 'a') + ";5 Dr\n\"two\nlines\";5 Cr\n");
    EXPECT_EQ(read.accounts[0].name, std::string(197, 'a') + "...");
    EXPECT_EQ(read.accounts[1].name, "two lines");
}

} // namespace
} // namespace pgbp::trial
