#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// Commission of an agent, rupees: first year, renewal, both not told apart and bonus of LIC; then UTI, specified
/// securities, notified mutual funds.
using Commissions = std::array<double, 7>;
inline constexpr std::size_t kCommissionsOfLic = 4;

/// One row of the practice's table of rates.
struct CommissionRate {
    std::string type;
    double percent = 0;
    double most = 0; ///< rupees, of the row that caps what agents of LIC may deduct
};

/// The deduction that agents who keep no accounts may take, in rupees: a percentage of each commission that is above 0,
/// capped for those of LIC together. None at all once all commissions come to more than `limit`. A rate that the table
/// does not have deducts nothing.
double AdHocDeduction(const Commissions& commissions, const std::vector<CommissionRate>& rates, double limit);

/// Condition on the rows of a commission and of its deduction among the detail rows.
inline constexpr std::string_view kIsCommission =
    "([Type] = 'LIC' or [Type] = 'UTI' or [Type] = 'SEC' or [Type] = 'MF' or [Type] = 'ZADHOC')";

} // namespace pgbp
