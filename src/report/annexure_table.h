#pragma once

#include "report/document.h"

namespace pgbp {
class AnnexureScreen;
}

namespace pgbp::report {

/// The blocks of an annexure that is on display under their groups, and under each what the columns do not hold.
Table AnnexureTable(const AnnexureScreen& screen);

} // namespace pgbp::report
