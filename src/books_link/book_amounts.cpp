#include "books_link/book_amounts.h"

#include "services/text.h"

#include <algorithm>
#include <iterator>

namespace pgbp {
namespace {

constexpr int kNoLine = 0;

/// A group of accounts, with all groups below it, and its line.
struct GroupLine {
    std::string_view group;
    int slno;
};

/// The first group that an account lies in counts: groups stand before those that hold them.
constexpr GroupLine kGroupLines[] = {
    {R"(Income\Credit Appropriations)", kNoLine},
    {R"(Income\Sales)", 501},
    {R"(Income\Services)", 502},
    {R"(Income\Professional Receipts)", 1150},
    {R"(Income\Closing Stock)", 517},
    {R"(Income\Rent)", 175},
    {R"(Income\Commission)", 176},
    {R"(Income\Dividend)", 177},
    {R"(Income\Interest)", 178},
    {R"(Income\Profit on Sale of Assets)", 179},
    {"Income", kOtherIncome},
    {R"(Expenditure\Debit Appropriations)", kNoLine},
    {R"(Expenditure\Opening Stock)", 521},
    {R"(Expenditure\Purchases)", 189},
    {R"(Expenditure\Direct Expenses\Carriage Inward)", 8030},
    {R"(Expenditure\Direct Expenses\Power and Fuel)", 8031},
    {R"(Expenditure\Direct Expenses)", 8032},
    {R"(Expenditure\Freight Outward)", 199},
    {R"(Expenditure\Stores and Spares)", 200},
    {R"(Expenditure\Power and Fuel)", 201},
    {R"(Expenditure\Rent)", 202},
    {R"(Expenditure\Repairs\Building)", 203},
    {R"(Expenditure\Repairs)", 204},
    {R"(Expenditure\Staff\Bonus)", 207},
    {R"(Expenditure\Staff\Provident Fund)", 212},
    {R"(Expenditure\Staff\Welfare)", 223},
    {R"(Expenditure\Staff)", 206},
    {R"(Expenditure\Insurance)", 221},
    {R"(Expenditure\Sales Promotion)", 227},
    {R"(Expenditure\Advertisement)", 228},
    {R"(Expenditure\Commission)", 526},
    {R"(Expenditure\Professional Fees)", 533},
    {R"(Expenditure\Travelling)", 535},
    {R"(Expenditure\Conveyance)", 232},
    {R"(Expenditure\Telephone)", 233},
    {R"(Expenditure\Donation)", 239},
    {R"(Expenditure\Rates and Taxes)", 245},
    {R"(Expenditure\Audit Fee)", 247},
    {R"(Expenditure\Partners\Remuneration)", 549},
    {R"(Expenditure\Partners\Interest)", 552},
    {R"(Expenditure\Bad Debts)", 545},
    {R"(Expenditure\Interest)", 553},
    {R"(Expenditure\Depreciation)", 254},
    {"Expenditure", kOtherExpenses},
};

/// The group itself or one below it.
bool LiesIn(std::string_view relative, std::string_view group)
{
    return relative.size() >= group.size() && EqualsIgnoringCase(relative.substr(0, group.size()), group) &&
           (relative.size() == group.size() || relative[group.size()] == '\\');
}

int LineOf(std::string_view relative)
{
    const auto found =
        std::ranges::find_if(kGroupLines, [&](const GroupLine& each) { return LiesIn(relative, each.group); });
    return found == std::end(kGroupLines) ? kNoLine : found->slno;
}

} // namespace

bool IsLineOfBooks(int slno)
{
    return std::ranges::any_of(kGroupLines, [slno](const GroupLine& each) { return each.slno == slno; });
}

std::map<int, double> ReadBookAmounts(const Connection& books, const std::string& code)
{
    std::map<int, double> amounts;
    for (const char* sql : {"select a_relative, a_balance from {accounts} where code = ?",
                            "select g_relative, Amount from {accgroup} where code = ?"})
        for (const Row row : books.Query(sql, code))
            if (const int slno = LineOf(Trim(row.At(0).Text())); slno != kNoLine)
                amounts[slno] += row.At(1).Number();
    std::erase_if(amounts, [](const auto& each) { return each.second == 0; });
    return amounts;
}

} // namespace pgbp
