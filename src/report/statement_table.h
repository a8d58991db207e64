#pragma once

#include "report/document.h"
#include "startup/run.h"

namespace pgbp::report {

/// The lines of a statement on display that have an amount, under the headings that lead to them, with their details.
Table StatementTable(Screen& screen);

} // namespace pgbp::report
