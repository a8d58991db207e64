#include "annexure/annexure_row.h"

#include "services/format.h"

#include <algorithm>

namespace pgbp {
namespace {

/// Sets the depreciation of both halves. Whether the first half falls short is seen before it is cut to 0.
void SetHalves(AnnexureRow& row)
{
    row.depreciation1 = row.depreciation2 = 0;
    if (row.isEmpty.value_or(false))
        return;
    const double base1 = row.opening + row.purchases1 - row.sales1;
    const double base2 = row.purchases2 - row.sales2;
    const double atFullRate = RoundedRupees(base1 * row.rate / 100);
    const bool fallsShort = atFullRate < 0 && row.purchases2 > 0;
    const double atHalfRate = RoundedRupees((fallsShort ? base1 + base2 : base2) * row.rate / 200);
    row.depreciation1 = std::max(0.0, atFullRate);
    row.depreciation2 = std::max(0.0, atHalfRate);
}

double SumOfParts(const AnnexureRow& row)
{
    return ShownRupees(row.depreciation1 + row.depreciation2 + row.additional1 + row.additional2);
}

} // namespace

void CalcEntry(AnnexureEntry& entry)
{
    AnnexureRow& row = entry.row;
    row.sales = ShownRupees(row.sales1 + row.sales2);
    entry.totalPurchases = ShownRupees(row.purchases1 + row.purchases2);
    entry.total = ShownRupees(row.opening + entry.totalPurchases - row.sales);
    SetHalves(row);
    CalcEntryFromParts(entry);
    row.closing = row.isEmpty.value_or(false) ? 0 : std::max(0.0, row.closing);
}

void CalcEntryFromParts(AnnexureEntry& entry)
{
    entry.row.depreciation = SumOfParts(entry.row);
    CalcEntryFromTotal(entry);
}

void CalcEntryFromTotal(AnnexureEntry& entry)
{
    AnnexureRow& row = entry.row;
    row.netDepreciation = ShownRupees(row.depreciation - row.disallowed);
    row.closing = ShownRupees(entry.total - row.depreciation);
}

void RecalculateAnnexure(std::span<AnnexureRow> rows)
{
    for (AnnexureRow& row : rows) {
        SetHalves(row);
        row.disallowed = 0;
        row.depreciation = row.netDepreciation = SumOfParts(row);
        row.closing =
            std::max(0.0, ShownRupees(row.opening + row.purchases1 + row.purchases2 - row.sales - row.depreciation));
    }
}

double TotalDepreciation(std::span<const AnnexureRow> rows)
{
    double total = 0;
    for (const AnnexureRow& row : rows)
        total += row.depreciation;
    return ShownRupees(total);
}

} // namespace pgbp
