#include "report/decisions.h"

#include "computation/frmbusinesscal.h"
#include "income/frmbusiness.h"
#include "law/presumptive_income.h"
#include "law/remuneration_limit.h"
#include "records/keys.h"
#include "records/limits.h"
#include "records/lines.h"
#include "services/amount_text.h"
#include "services/format.h"

#include <limits>

namespace pgbp::report {
namespace {

std::string Grouped(double rupees) { return GroupedAmount(Rupees(rupees)); }

struct PresumptiveLine {
    std::string_view control;
    BusinessKind kind;
};
constexpr PresumptiveLine kPresumptiveLines[] = {
    {"lbl3", kPresumptive44AD}, {"LblADA", kProfession44ADA}, {"lbl4", kTransport44AE}, {"lbl5", kRetail44AF}};

std::string WhichProfitCounts(const Run& run, BusinessKind kind)
{
    const Recordset sums = QueryOfMinor(
        run, "select sum(net) as [total], sum(net44) as [deemed] from {business} where code = ? and [Type] = ?",
        {run.Glcode, TypeOf(kind)});
    const double actual = sums.First().At(0).Number();
    const double deemed = sums.First().At(1).Number();
    if (actual == 0)
        return "deemed profit";
    return PresumptiveIncome(actual, deemed) == deemed ? "deemed profit, not below the books' " + Grouped(actual)
                                                       : "profit by the books, above the deemed " + Grouped(deemed);
}

std::vector<CommissionRate> RatesOf(const Run& run, bool isCapped)
{
    std::vector<CommissionRate> rates;
    for (const auto row : run.tax.Query("select [type], Rate, Max from {misc}"))
        rates.push_back(
            {row.At(0).Text(), row.At(1).Number(), isCapped ? row.At(2).Number() : std::numeric_limits<double>::max()});
    return rates;
}

std::string FloorInWords(const LineRules& rules)
{
    return rules.DeemsByReceipts() ? "8 % in cash, 6 % through a bank"
                                   : Rupees(RateOf(rules.Section(), rules.year)) + " %";
}

} // namespace

std::string RemarkOnRemuneration(const frmbusiness& summary)
{
    const double deducted = Val(summary.partners.txtlesspart2);
    const double limit = RemunerationLimit(summary.partners.BookProfit(), summary.run.Year(), summary.run.Glstatus);
    const double paid = RoundOff(summary.partners.PaidRemuneration(), 0);
    if (deducted == limit && limit < paid)
        return "limited to Max, paid " + Grouped(paid);
    if (deducted == paid && paid <= limit)
        return "as paid, Max " + Grouped(limit);
    return "as entered, Max " + Grouped(limit);
}

std::string RemarkOnSummary(const frmbusiness& summary, std::string_view control)
{
    if (control == summary.partners.txtlesspart2.name())
        return RemarkOnRemuneration(summary);
    for (const PresumptiveLine& line : kPresumptiveLines)
        if (line.control == control)
            return WhichProfitCounts(summary.run, line.kind);
    return {};
}

std::string RemarkOnCommission(const frmbusiness& summary)
{
    Commissions entered{};
    double all = 0;
    for (std::size_t i = 0; i < entered.size(); ++i)
        all += entered[i] = Val(summary.commission.lines[i].field);
    const auto capped = RatesOf(summary.run, true);
    constexpr double kNoLimit = std::numeric_limits<double>::max();
    if (all > summary.LicLimit && AdHocDeduction(entered, capped, kNoLimit) != 0)
        return "none above a commission of " + Grouped(summary.LicLimit);
    if (AdHocDeduction(entered, RatesOf(summary.run, false), summary.LicLimit) >
        AdHocDeduction(entered, capped, summary.LicLimit))
        return "limited to Max";
    return {};
}

std::string RemarkOnDeemedProfit(const frmbusinesscal& line)
{
    const LineRules rules = RulesOf(line.run);
    const DeemingSection section = rules.Section();
    const Receipts receipts = line.presumptive.Entered();
    const double deemed = Val(line.presumptive.Lbl44AD);
    const double floor = DeemedFloor(section, rules.year, receipts);
    if (section == DeemingSection::k44AE)
        return "a month: heavy vehicle " + Grouped(YearLimit(line.run, "H_VEH").value_or(0)) + ", light vehicle " +
               Grouped(YearLimit(line.run, "O_VEH").value_or(0));
    const std::string rate = FloorInWords(rules);
    const std::string words = "floor " + rate + ": " + Grouped(floor);
    if (deemed == floor)
        return words;
    if (deemed > floor)
        return "above the " + words;
    return IsBelowFloor(section, rules.year, receipts, deemed) ? "below the " + words
                                                               : "below the " + words + ", allowed up to 1,60,000";
}

Table WorkingOfLimit(double bookProfit, const Run& run)
{
    const RemunerationWorking working = WorkRemunerationLimit(bookProfit, run.Year(), run.Glstatus);
    Table table{.title = "Maximum remuneration of the partners, section 40(b)(v)",
                .columns = {{"Part of the book profit"},
                            {"Rupees", GridColumnKind::Amount},
                            {"Percent", GridColumnKind::Rate},
                            {"Remuneration", GridColumnKind::Amount}}};
    for (const RemunerationSlab& slab : working.slabs)
        table.rows.push_back({.cells = {table.rows.empty() ? "First" : "Next", Amount(slab.profit),
                                        Rupees(slab.percent), Amount(slab.remuneration)}});
    Row limit{.look = RowLook::Final,
              .cells = {"Maximum", Amount(bookProfit), "", Amount(working.limit)},
              .remark = working.atLeast != 0 ? "not less than " + Grouped(working.atLeast) : ""};
    table.rows.push_back(std::move(limit));
    for (const std::size_t column : {1u, 3u})
        FindSums(table, column, std::vector<int>(table.rows.size(), 1));
    return table;
}

} // namespace pgbp::report
