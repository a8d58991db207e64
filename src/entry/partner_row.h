#pragma once

#include "store/connection.h"

#include <string>
#include <vector>

namespace pgbp {

/// One partner or member while he is entered; a working row of `temp`. Amounts in rupees.
struct PartnerRow {
    std::string name{};
    double interest = 0;
    double remuneration = 0;
    double ratio = 0; ///< of the profit, percent
    double allowableInterest = 0;
    double interestRate = 0; ///< percent
    std::string pan{};
    std::string status{};
    std::string address{};
    std::string city{};
    std::string state{};
    std::string pin{};
    std::string identity{}; ///< DIN or Aadhaar number
    bool left = false;      ///< was no partner on the last day of the year

    bool operator==(const PartnerRow&) const = default;
};

/// The row as `temp` keeps it.
std::vector<Field> ToWork(const PartnerRow& partner);
PartnerRow FromWork(const Row& row);

/// The rows of `temp1` that a partner becomes: one of interest, one of remuneration, each only where there is such an
/// amount; one of remuneration where there is neither. Without `code`.
std::vector<std::vector<Field>> ToDetails(const PartnerRow& partner);

/// The partner of a detail row, which holds one of the two amounts.
PartnerRow FromDetail(const Row& row);

/// The partners of the detail rows of remuneration and those of interest, one row for each name. Two partners of one
/// name keep their own amounts.
std::vector<PartnerRow> MergePartners(const Recordset& remunerations, const Recordset& interests);

/// The ratios of those who have not left, percent.
double SumOfRatios(const std::vector<PartnerRow>& partners);
/// They are the whole profit. They count as the decimal numbers they are: a double's last digits do not, a paisa does.
bool RatiosAddUp(const std::vector<PartnerRow>& partners);

} // namespace pgbp
