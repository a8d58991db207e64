#pragma once

#include "startup/run.h"

#include <string>
#include <vector>

namespace pgbp {

// Numbers that stand in place of the `sno` of a line of business.
inline constexpr int kUnsavedLine = 90000;        ///< annexure rows of a line that has not been saved yet
inline constexpr int kFirmCells = 9999999;        ///< schedule cells of the firm screen (their `amt2`)
inline constexpr int kCommissionCells = 99999999; ///< schedule cells of the commission frame (their `amt2`)

/// Rows of `company` for this run's assessee: `sql` ends in a condition, to which a minor's run adds its own
/// " and minor = ..."; the assessee's own run sees the children's rows too.
Recordset QueryOfMinor(const Run& run, std::string sql, std::vector<Value> values, std::string_view behind = "");

/// The value of a new row's `Minor`: Null in the assessee's own run.
Value MinorOfRun(const Run& run);

/// The next free `sno` of the file: unique over all assessees, and never the number of the unsaved line. Within the
/// transaction that stores its row: no other program gets the number meanwhile.
double NextSno(const Run& run, const Transaction& proof);

} // namespace pgbp
