#pragma once

#include "report/document.h"
#include "workbook/workbook.h"

namespace pgbp::report {

/// The document as a workbook: a sheet for each section, its sums live.
xls::Workbook WorkbookOf(const Document& document);

} // namespace pgbp::report
