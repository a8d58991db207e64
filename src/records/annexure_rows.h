#pragma once

#include "startup/run.h"

#include <optional>

namespace pgbp {

// The depreciation annexure of a line of business while the line is open: working rows with the number of the unsaved
// line stand for the stored ones, until the line is saved.

/// Copies the annexure of a line to working rows, in place of those that there were.
void CopyAnnexureToWork(const Run& run, double sno);

/// Makes the working rows the annexure of the line. Inside a transaction of the caller.
void StoreWorkAnnexure(const Run& run, double sno);

/// Deletes the working rows, if there are any.
void DropWorkAnnexure(const Run& run);

/// Depreciation of the rows with this number, rupees; nothing when there are none.
std::optional<double> AnnexureDepreciation(const Run& run, double sno);

} // namespace pgbp
