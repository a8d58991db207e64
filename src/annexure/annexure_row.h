#pragma once

#include "annexure/annexure_edition.h"
#include "services/dates.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pgbp {

/// One asset or block of assets of the depreciation annexure. Amounts are rupees with the places of the edition.
struct AnnexureRow {
    std::string name{};
    std::string group{};
    double rate = 0; ///< percent a year, two places
    double opening = 0;
    double purchases1 = 0; ///< put to use in the first half of the previous year
    double purchases2 = 0; ///< in the second half
    double sales1 = 0;     ///< out of the opening value and the purchases of the first half
    double sales2 = 0;     ///< out of the purchases of the second half
    double sales = 0;
    double depreciation1 = 0; ///< at the full rate
    double depreciation2 = 0; ///< at half the rate
    double additional1 = 0;
    double additional2 = 0;
    double depreciation = 0; ///< of both halves and the additional ones
    double disallowed = 0;   ///< section 38(2)
    double netDepreciation = 0;
    double closing = 0;
    double expenses = 0; ///< on the transfer of an empty block
    /// The block is empty, or its closing value nil, at the end of the year. Not said for a row that was taken over.
    std::optional<bool> isEmpty{};
    std::optional<DateTime> dateOfSale{};
    double minor = 0; ///< number of the child whose income is clubbed; 0 for the assessee

    bool operator==(const AnnexureRow&) const = default;
};

/// A row while it is entered, with the two figures that only the entry area shows.
struct AnnexureEntry {
    AnnexureRow row{};
    double totalPurchases = 0;
    double total = 0; ///< before depreciation
};

/// Recomputes the entry after a rate, an amount or the mark of an empty block has changed: section 32 by halves of the
/// year. What the first half lacks is taken from the second; no depreciation is below 0. The old annexure has the sales
/// taken from what depreciates at the full rate, and rounds nothing but what it shows.
void CalcEntry(AnnexureEntry& entry, const AnnexureEdition& edition = kAnnexure);

/// After a depreciation or an additional depreciation was overtyped: total, net depreciation and closing value.
void CalcEntryFromParts(AnnexureEntry& entry, const AnnexureEdition& edition = kAnnexure);

/// After the total depreciation or the part disallowed u/s 38(2) was overtyped: net depreciation and closing value.
void CalcEntryFromTotal(AnnexureEntry& entry, const AnnexureEdition& edition = kAnnexure);

/// Depreciation of every row anew from its amounts; what was overtyped is lost. An empty block's row has no
/// depreciation but keeps its closing value.
void RecalculateAnnexure(std::span<AnnexureRow> rows, const AnnexureEdition& edition = kAnnexure);

/// Sum of the rows' depreciation.
double TotalDepreciation(std::span<const AnnexureRow> rows, const AnnexureEdition& edition = kAnnexure);

/// What a field or a cell of the edition that holds the amount gives back.
double ShownAmount(double amount, const AnnexureEdition& edition);

} // namespace pgbp
