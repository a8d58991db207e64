#pragma once

#include <string>
#include <vector>

namespace pgbp {

/// What a firm paid to one of its partners, rupees.
struct PaidPartner {
    std::string name{};
    double ratio = 0; ///< of the profit, percent
    double interest = 0;
    double allowableInterest = 0; ///< of it, within the rate of section 40(b)(iv)
    double remuneration = 0;
};

/// What the firm's return deducts for all partners together, and its income behind that, rupees.
struct FirmDeductions {
    double interest = 0;
    double remuneration = 0;
    double income = 0;
};

/// What of it counts in the partner's return. What the firm may not deduct is no income of his (section 28(v), its
/// proviso); his share of the profit is exempt (section 10(2A)).
struct PartnerShare : PaidPartner {
    double deductedInterest = 0;     ///< his part of the deduction, as the allowable interests are
    double deductedRemuneration = 0; ///< his part of the deduction, as the remunerations are
    double profit = 0;               ///< his share of the firm's income
};

/// The shares of the partners, in their order. Where nothing was paid nothing is deducted.
std::vector<PartnerShare> SharesOf(const std::vector<PaidPartner>& partners, const FirmDeductions& firm);

} // namespace pgbp
