#include "income/commission_rules.h"

#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <numeric>

namespace pgbp {
namespace {

constexpr std::string_view kRateOf[] = {"LIC1", "LIC2", "LIC3", "LIC4", "UTI", "SEC", "MF"};
static_assert(std::size(kRateOf) == std::tuple_size_v<Commissions>);

const CommissionRate* Find(const std::vector<CommissionRate>& rates, std::string_view type)
{
    const auto found =
        std::ranges::find_if(rates, [&](const auto& rate) { return EqualsIgnoringCase(Trim(rate.type), type); });
    return found == rates.end() ? nullptr : &*found;
}

} // namespace

double AdHocDeduction(const Commissions& commissions, const std::vector<CommissionRate>& rates, double limit)
{
    const double total = std::accumulate(commissions.begin(), commissions.end(), 0.0);
    if (Val(Amount(total)) > limit) // as the paise stand: a double's last digits are not above a limit
        return 0;
    double deduction = 0;
    for (std::size_t i = 0; i < commissions.size(); ++i) {
        if (i == kCommissionsOfLic)
            if (const CommissionRate* cap = Find(rates, "LIC"); cap && deduction > cap->most)
                deduction = cap->most;
        const CommissionRate* rate = Find(rates, kRateOf[i]);
        if (rate && commissions[i] > 0)
            deduction += commissions[i] * rate->percent / 100;
    }
    return deduction;
}

} // namespace pgbp
