#pragma once

#include "records/lines.h"

namespace pgbp {

/// Deletes a line of business with everything that hangs on it, all or nothing, and leaves the way back in
/// `run.deletion`. Speculation and specified lines have only their list rows and schedule cells; of the other kinds,
/// rows that belong to no single line go for the whole assessee. The interest or the remuneration that the summary
/// deducts goes along with the last partners.
void DeleteLine(Run& run, BusinessKind kind, double sno);

} // namespace pgbp
