#pragma once

#include "startup/run.h"

#include <span>
#include <vector>

namespace pgbp {

/// Number of a line of the summary, as `GlBusinessKind` holds it.
enum BusinessKind {
    kNormal = 1,
    kSpeculation = 2,
    kPresumptive44AD = 3,
    kTransport44AE = 4,
    kRetail44AF = 5,
    kFirmIncome = 6,
    kAopShare = 7,
    kSpecified = 8,
    kProfession44ADA = 12
};

/// What tells a kind of business from the others.
struct KindOfBusiness {
    BusinessKind kind;
    std::string_view type;   ///< of its rows in `business`
    bool isDeemed = false;   ///< the income is deemed by the receipts; a profession's can be less
    bool refusesPay = false; ///< allows its partners no interest and no remuneration, from 2017
    bool isShort = false;    ///< computed without depreciation, partners and other adjustments
};

const KindOfBusiness& Kind(BusinessKind kind);

/// `type` of a kind's rows in `business`.
std::string_view TypeOf(BusinessKind kind);

/// Writes these columns of a stored line of business. False when another user deleted the line meanwhile.
bool UpdateLine(const Run& run, double sno, std::span<const Field> fields, const Transaction& proof);

/// Adds a line of business under a new number, which it gives.
double AddLine(const Run& run, std::vector<Field> fields, const Transaction& proof);

/// Deletes the schedule cells whose line of business is gone.
void DeleteOrphanCells(const Run& run);

} // namespace pgbp
