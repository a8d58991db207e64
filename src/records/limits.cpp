#include "records/limits.h"

#include <initializer_list>

namespace pgbp {
namespace {

struct Limit {
    std::string_view type;
    double rupees;
    int fromYear;
};

void Plant(const Run& run, std::initializer_list<Limit> limits)
{
    Transaction transaction({run.tax});
    for (const auto& [type, rupees, fromYear] : limits)
        run.tax.Insert("system", {{"Type", type}, {"Amount", rupees}, {"From", fromYear}});
    transaction.Commit();
}

} // namespace

double CommissionLimit(const Run& run)
{
    const DateTime lastDay{run.Year(), 3, 31};
    return run.tax
        .Scalar("select amount from {system} where [type] = 'LIC' and [date] <= ? order by [date] desc", lastDay)
        .Number();
}

void PlantLimits2017(const Run& run)
{
    constexpr double kTurnover = 20000000;
    if (run.tax.Query("select * from {system} where [type] = '44AD' and [from] = 2017").Empty())
        Plant(run, {{"44AD", kTurnover, 2017}, {"44ADA", kTurnover, 2017}, {"44AE", kTurnover, 2017}});
}

void PlantVehicleLimits2015(const Run& run)
{
    constexpr double kPerVehicleAndMonth = 7500;
    if (run.tax.Query("select * from {system} where [type] = 'H_VEH' and amount = ?", kPerVehicleAndMonth).Empty())
        Plant(run, {{"H_VEH", kPerVehicleAndMonth, 2015}, {"O_VEH", kPerVehicleAndMonth, 2015}});
}

} // namespace pgbp
