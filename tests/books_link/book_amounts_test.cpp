#include "books_link/book_amounts.h"
#include "store/files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(BookAmounts, EachAccountGoesToTheLineOfTheNearestGroup)
{
    const TemporaryFolder folder;
    CreateEmbeddedFile(folder.path() / "balancesheet.mdb", "balancesheet");
    const Connection books = OpenFile({.path = folder.path() / "balancesheet.mdb", .dsn = {}});
    const auto account = [&](const char* relative, double balance, const char* code = "B") {
        books.Insert("accounts", {{"code", code}, {"a_relative", relative}, {"a_balance", balance}});
    };
    account(R"(Expenditure\Staff\Bonus\Diwali)", 7);
    account(R"(Expenditure\Staff\Wages)", 100);
    account(R"(expenditure\staff)", 20);
    account(R"(Expenditure\Staffing agency)", 5); // no part of the staff
    account(R"(Expenditure\Debit Appropriations\Partners)", 1000);
    account(R"(Income\Credit Appropriations)", 1000);
    account(R"(Income\Interest)", 40);
    account(R"(Income\Interest\Refund)", -40);
    account(R"(Income\Scrap)", 3);
    account(R"(Assets\Cash)", 9);
    account(R"(Income\Sales)", 800);
    account(R"(Income\Sales)", 1, "of another client");
    books.Insert("accgroup", {{"code", "B"}, {"g_relative", R"(Income\Sales\Counter)"}, {"Amount", 50}});
    EXPECT_EQ(ReadBookAmounts(books, "B"),
              (std::map<int, double>{
                  {207, 7}, {206, 120}, {kOtherExpenses, 5}, {kOtherIncome, 3}, {501, 850}})); // interest comes to 0
    EXPECT_TRUE(ReadBookAmounts(books, "nobody").empty());
}
