#include "trial_balance/delimited_text.h"
#include "trial_balance/heading.h"

#include <gtest/gtest.h>

namespace pgbp::trial {
namespace {

std::optional<Heading> HeadingOf(const std::string& text) { return FindHeading(ParseDelimited(text, ',')); }

TEST(TrialBalanceHeading, TellsTheColumnsAndTheMomentOfTheirFigures)
{
    const struct {
        const char* text;
        Heading heading;
    } lists[] = {
        {"Particulars,Debit,Credit\nRent,5,\n", {.firstRow = 1, .name = 0, .closing = {.debit = 1, .credit = 2}}},
        {"Verma Traders\nTrial Balance\n1-Apr-2022 to 31-Mar-2023\n\nA/c Name,Dr.,Cr.\nRent,5,\n",
         {.firstRow = 5, .name = 0, .closing = {.debit = 1, .credit = 2}}},
        {"Sr. No.,Account Code,Account Name,Group Name,Balance,Dr/Cr\n1,R1,Rent,Expenses,5,Dr\n",
         {.firstRow = 1, .name = 2, .group = 3, .closing = {.balance = 4, .side = 5}}},
        {"Ledger,Opening Balance,Closing Balance\nRent,1,5\n",
         {.firstRow = 1, .name = 0, .closing = {.balance = 2}, .opening = {.balance = 1}}},
        {"Ledger,Closing Balance,Dr/Cr,Opening Balance,Dr/Cr\nRent,5,Dr,1,Dr\n",
         {.firstRow = 1, .name = 0, .closing = {.balance = 1, .side = 2}, .opening = {.balance = 3, .side = 4}}},
        // two rows, the upper one told once for both columns
        {"Particulars,Opening Balance,,Transactions,,Closing "
         "Balance,\n,Debit,Credit,Debit,Credit,Debit,Credit\nRent,,,,,5,\n",
         {.firstRow = 2, .name = 0, .closing = {.debit = 5, .credit = 6}, .opening = {.debit = 1, .credit = 2}}},
        // titles beside the heading
        {"Particulars,Verma Accounts,\n,1-Apr-22 to 31-Mar-23,\n,Closing Balance,\n,Debit,Credit\nRent,5,\n",
         {.firstRow = 4, .name = 0, .closing = {.debit = 1, .credit = 2}}},
        // the debits and credits of the period are none of its end
        {"Account,Opening,Debit,Credit,Closing\nRent,0,5,0,5\n",
         {.firstRow = 1, .name = 0, .closing = {.balance = 4}, .opening = {.balance = 1}}},
        {"Account,Debit,Credit,Balance\nRent,5,0,5\n", {.firstRow = 1, .name = 0, .closing = {.balance = 3}}},
        {"Account,Balance as on 1-4-2022,Balance as on 31-3-2023\nRent,1,5\n",
         {.firstRow = 1, .name = 0, .closing = {.balance = 2}, .opening = {.balance = 1}}},
        {"Account,Previous Year,Current Year\nRent,1,5\n",
         {.firstRow = 1, .name = 0, .closing = {.balance = 2}, .opening = {.balance = 1}}},
        // numbers in a column of accounts are no names
        {"Account,Description,Amount (Dr/Cr)\n4001,Rent,5 Dr\n", {.firstRow = 1, .name = 1, .closing = {.balance = 2}}},
    };
    for (const auto& [text, heading] : lists)
        EXPECT_EQ(HeadingOf(text), heading) << text;
}

TEST(TrialBalanceHeading, IsNoneWhereClosingFiguresAreUncertain)
{
    for (const char* text : {"Rent,5,\nSales,,7\n", "Particulars,Group\nRent,Expenses\n",
                             "Account,Opening Balance,Debit,Credit\nRent,0,5,0\n", // of the end, or of the period?
                             "Account,Debit,Credit,Debit,Credit\nRent,1,,5,\n", "Account,Balance,Balance\nRent,1,5\n"})
        EXPECT_FALSE(HeadingOf(text)) << text;
}

} // namespace
} // namespace pgbp::trial
