#include "law/partner_shares.h"

namespace pgbp {
namespace {

double Sum(const std::vector<PaidPartner>& partners, double PaidPartner::*amount)
{
    double sum = 0;
    for (const PaidPartner& partner : partners)
        sum += partner.*amount;
    return sum;
}

/// A part of the whole in the proportion of what was paid.
double Part(double paid, double sum, double whole) { return sum == 0 || whole <= 0 ? 0 : paid / sum * whole; }

} // namespace

std::vector<PartnerShare> SharesOf(const std::vector<PaidPartner>& partners, const FirmDeductions& firm)
{
    const double interests = Sum(partners, &PaidPartner::allowableInterest);
    const double remunerations = Sum(partners, &PaidPartner::remuneration);
    std::vector<PartnerShare> shares;
    for (const PaidPartner& paid : partners) {
        PartnerShare& share = shares.emplace_back(PartnerShare{paid});
        share.deductedInterest = Part(paid.allowableInterest, interests, firm.interest);
        share.deductedRemuneration = Part(paid.remuneration, remunerations, firm.remuneration);
        share.profit = firm.income * paid.ratio / 100;
    }
    return shares;
}

} // namespace pgbp
