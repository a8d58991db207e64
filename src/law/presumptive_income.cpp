#include "law/presumptive_income.h"

#include "services/format.h"

#include <limits>

namespace pgbp {
namespace {

constexpr double kNone = std::numeric_limits<double>::infinity();

/// What a section asks for from an assessment year on. Rates in percent.
struct Rule {
    DeemingSection section;
    int firstYear = 0;
    double onCash = 0;
    double onBank = 0;
    double onOthers = 0;
    double excusedUpTo = -kNone; ///< deemed profit that may be below the floor
    double cashBelow = kNone;    ///< receipts in cash must be less than this
};

using enum DeemingSection;

constexpr Rule kRules[] = {
    // other receipts stand on a line of their own from 2025-26 and count as those in cash
    {.section = k44AD, .onCash = 8, .onBank = 6, .onOthers = 8},
    // who offers a profit up to the income that is not taxed needs no books
    {.section = k44AD, .firstYear = 2011, .onCash = 8, .onBank = 6, .onOthers = 8, .excusedUpTo = 160000},
    {.section = k44ADA, .onCash = 50, .onBank = 50, .onOthers = 50},
    {.section = k44ADA, .firstYear = 2023, .onCash = 50, .onBank = 50, .onOthers = 50, .cashBelow = 5000000},
    {.section = k44AE},
    {.section = k44AF, .onCash = 5},
};

const Rule& RuleOf(DeemingSection section, int year)
{
    const Rule* last = nullptr;
    for (const Rule& rule : kRules)
        if (rule.section == section && rule.firstYear <= year)
            last = &rule;
    return *last;
}

} // namespace

double ProfitAt(double percent, double receipts) { return Val(Rupees(receipts * percent / 100)); }

double RateOf(DeemingSection section, int year) { return RuleOf(section, year).onCash; }

double DeemedFloor(DeemingSection section, int year, const Receipts& receipts)
{
    const Rule& rule = RuleOf(section, year);
    if (section == k44ADA) // one rate, on the sum
        return ProfitAt(rule.onCash, receipts.Total());
    return ProfitAt(rule.onCash, receipts.cash) + ProfitAt(rule.onBank, receipts.bank) +
           ProfitAt(rule.onOthers, receipts.others);
}

bool IsBelowFloor(DeemingSection section, int year, const Receipts& receipts, double deemed)
{
    return section != k44AE && Val(Rupees(deemed)) < DeemedFloor(section, year, receipts) &&
           deemed > RuleOf(section, year).excusedUpTo;
}

bool ReceiptsAreTooHigh(DeemingSection section, std::optional<double> limit, const Receipts& receipts)
{
    if (!limit)
        return receipts.cash > kReceiptsWithoutLimit;
    return section != k44AE && receipts.cash + receipts.bank > *limit;
}

bool CashIsTooHigh(DeemingSection section, int year, double cash) { return cash >= RuleOf(section, year).cashBelow; }

} // namespace pgbp
