#include "law/goods_carriages.h"

#include <algorithm>

namespace pgbp {
namespace {

// Finance Act 2018, from assessment year 2019-20.
constexpr double kHeavyFrom = 12; ///< tons; heavier than this
constexpr double kPerMonth = 7500;
constexpr double kPerTonAndMonth = 1000;

} // namespace

double CarriageIncome(double tons, double months)
{
    return tons <= kHeavyFrom ? months * kPerMonth : tons * months * kPerTonAndMonth;
}

double HeavyVehicleMonth(int year, double statutory, double claimed)
{
    return year < kVehicleIncomeCanBeHigher ? statutory : std::max(statutory, claimed);
}

} // namespace pgbp
