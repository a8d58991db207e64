#include "annexure/annexure_row.h"

#include "services/format.h"

#include <algorithm>

namespace pgbp {
namespace {

/// Sets the depreciation of both halves. Whether the first half falls short is seen before it is cut to 0.
void SetHalves(AnnexureRow& row, const AnnexureEdition& edition)
{
    row.depreciation1 = row.depreciation2 = 0;
    if (row.isEmpty.value_or(false))
        return;
    const double base1 = row.opening + row.purchases1 - row.sales1;
    const double base2 = row.purchases2 - row.sales2;
    const double atFullRate = RoundedRupees(base1 * row.rate / 100);
    const bool fallsShort = edition.carriesShortfall && atFullRate < 0 && row.purchases2 > 0;
    const double atHalfRate = RoundedRupees((fallsShort ? base1 + base2 : base2) * row.rate / 200);
    row.depreciation1 = std::max(0.0, atFullRate);
    row.depreciation2 = std::max(0.0, atHalfRate);
}

double SumOfParts(const AnnexureRow& row, const AnnexureEdition& edition)
{
    return ShownAmount(row.depreciation1 + row.depreciation2 + row.additional1 + row.additional2, edition);
}

void SetTotals(AnnexureEntry& entry, const AnnexureEdition& edition)
{
    const AnnexureRow& row = entry.row;
    entry.totalPurchases = ShownAmount(row.purchases1 + row.purchases2, edition);
    entry.total = ShownAmount(row.opening + entry.totalPurchases - row.sales, edition);
}

/// The sales are taken from what depreciates at the full rate.
double DepreciationWithoutHalves(const AnnexureEntry& entry)
{
    const double half = entry.row.purchases2;
    const double rate = entry.row.rate;
    const double depreciation =
        entry.total > half ? (entry.total - half) * rate / 100 + half * rate / 200 : entry.total * rate / 200;
    return std::max(0.0, depreciation);
}

} // namespace

double ShownAmount(double amount, const AnnexureEdition& edition)
{
    return edition.places == 0 || IsExactWhole(amount) ? ShownRupees(amount) : Val(Amount(amount));
}

void CalcEntry(AnnexureEntry& entry, const AnnexureEdition& edition)
{
    AnnexureRow& row = entry.row;
    if (!edition.hasHalves) {
        SetTotals(entry, edition);
        row.depreciation = ShownAmount(DepreciationWithoutHalves(entry), edition);
        return CalcEntryFromTotal(entry, edition);
    }
    row.sales = ShownAmount(row.sales1 + row.sales2, edition);
    SetTotals(entry, edition);
    SetHalves(row, edition);
    CalcEntryFromParts(entry, edition);
    row.closing = row.isEmpty.value_or(false) ? 0 : std::max(0.0, row.closing);
}

void CalcEntryFromParts(AnnexureEntry& entry, const AnnexureEdition& edition)
{
    entry.row.depreciation = SumOfParts(entry.row, edition);
    CalcEntryFromTotal(entry, edition);
}

void CalcEntryFromTotal(AnnexureEntry& entry, const AnnexureEdition& edition)
{
    AnnexureRow& row = entry.row;
    row.netDepreciation = ShownAmount(row.depreciation - row.disallowed, edition);
    row.closing = ShownAmount(entry.total - row.depreciation, edition);
}

void RecalculateAnnexure(std::span<AnnexureRow> rows, const AnnexureEdition& edition)
{
    for (AnnexureRow& row : rows) {
        SetHalves(row, edition);
        row.disallowed = 0;
        row.depreciation = row.netDepreciation = SumOfParts(row, edition);
        const double total = row.opening + row.purchases1 + row.purchases2 - row.sales;
        row.closing = std::max(0.0, ShownAmount(total - row.depreciation, edition));
    }
}

double TotalDepreciation(std::span<const AnnexureRow> rows, const AnnexureEdition& edition)
{
    double total = 0;
    for (const AnnexureRow& row : rows)
        total += row.depreciation;
    return ShownAmount(total, edition);
}

} // namespace pgbp
