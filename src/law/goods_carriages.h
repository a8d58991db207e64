#pragma once

namespace pgbp {

/// Income deemed from one goods carriage u/s 44AE, rupees, from assessment year 2019-20: 7500 a month for a vehicle of
/// at most 12 tons, above that 1000 a ton and month. A part of a month counts as one.
double CarriageIncome(double tons, double months);

/// Income of a month from one heavy goods vehicle, rupees, up to 2018-19: what the law of the year says (`statutory`),
/// from assessment year 2015-16 the income that is claimed to have been earned where that is more.
double HeavyVehicleMonth(int year, double statutory, double claimed);

/// First assessment year in which an income above the statute's can be told for a vehicle.
inline constexpr int kVehicleIncomeCanBeHigher = 2015;

/// Carriages that section 44AE allows at any time in the year.
inline constexpr double kMostCarriages = 10;
inline constexpr double kMonthsOfYear = 12;

} // namespace pgbp
