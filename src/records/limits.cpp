#include "records/limits.h"

#include <functional>
#include <initializer_list>

namespace pgbp {
namespace {

struct Limit {
    std::string_view type;
    double rupees;
    int fromYear;
};

bool Has(const Run& run, const Limit& limit)
{
    return !run.tax
                .Query("select * from {system} where [type] = ? and [from] = ? and amount = ?", limit.type,
                       limit.fromYear, limit.rupees)
                .Empty();
}

void Add(const Run& run, std::initializer_list<Limit> limits)
{
    for (const auto& [type, rupees, fromYear] : limits)
        run.tax.Insert("system", {{"Type", type}, {"Amount", rupees}, {"From", fromYear}});
}

/// Changes the file where the question is answered by yes. It is asked again when no other workstation can write.
void Where(const Run& run, const std::function<bool()>& question, const std::function<void()>& change)
{
    if (!question())
        return;
    Transaction transaction({run.tax});
    if (question())
        change();
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

std::optional<double> YearLimit(const Run& run, std::string_view type)
{
    const Value limit = run.tax.Scalar(
        "select amount from {system} where [type] = ? and [from] <= ? order by [from] desc", type, run.Year());
    return limit.IsNull() ? std::nullopt : std::optional(limit.Number());
}

void PlantLimits2017(const Run& run)
{
    constexpr double kTurnover = 20000000;
    Where(
        run, [&] { return run.tax.Query("select * from {system} where [type] = '44AD' and [from] = 2017").Empty(); },
        [&] {
            Add(run, {{"44AD", kTurnover, 2017}, {"44ADA", kTurnover, 2017}, {"44AE", kTurnover, 2017}});
        });
}

void PlantLimits2024(const Run& run)
{
    constexpr double kBusiness = 30000000;
    constexpr double kProfession = 7500000;
    constexpr double kProfessionFrom2017 = 5000000;
    Where(
        run, [&] { return run.tax.Query("select * from {system} where [type] = '44AD' and [from] = 2024").Empty(); },
        [&] {
            Add(run, {{"44AD", kBusiness, 2024}, {"44ADA", kProfession, 2024}});
        });
    Where(
        run,
        [&] {
            return Has(run, {"44ADA", kBusiness, 2024});
        },
        [&] {
            run.tax.Delete("from {system} where [type] = '44ADA'");
            Add(run, {{"44ADA", kProfessionFrom2017, 2017}, {"44ADA", kProfession, 2024}});
        });
}

void PlantVehicleLimits2015(const Run& run)
{
    constexpr double kPerVehicleAndMonth = 7500;
    Where(
        run,
        [&] {
            return run.tax.Query("select * from {system} where [type] = 'H_VEH' and amount = ?", kPerVehicleAndMonth)
                .Empty();
        },
        [&] {
            Add(run, {{"H_VEH", kPerVehicleAndMonth, 2015}, {"O_VEH", kPerVehicleAndMonth, 2015}});
        });
}

} // namespace pgbp
