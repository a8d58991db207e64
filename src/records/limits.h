#pragma once

#include "startup/run.h"

#include <optional>
#include <string_view>

namespace pgbp {

/// The commission limit: the last "LIC" row dated up to the end of the previous year, 31 March of the assessment year;
/// 0 when there is none. Rupees.
double CommissionLimit(const Run& run);

/// The limit of this type that counts in the run's year: the one with the latest first year not after it. Rupees; a
/// number of vehicles for "L_VEH".
std::optional<double> YearLimit(const Run& run, std::string_view type);

/// Adds the presumptive limits of assessment year 2017-18 where an older tax file misses them.
void PlantLimits2017(const Run& run);

/// Adds the presumptive limits of assessment year 2024-25, for receipts that are hardly in cash, where an older tax
/// file misses them, and puts a limit of a profession right that was once written as that of a business.
void PlantLimits2024(const Run& run);

/// Adds the income per vehicle and month of section 44AE from assessment year 2015-16 where an older tax file misses
/// it.
void PlantVehicleLimits2015(const Run& run);

} // namespace pgbp
