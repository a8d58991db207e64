#pragma once

#include "workbook/workbook.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace pgbp::xls {

struct Calculated {
    std::string tokens; ///< as the format holds them
    Value result;       ///< never empty
};

/// The formulas of the sheet with their results. A text that an operator meets counts as the number it is, and as
/// #VALUE! where it is none; SUM passes over texts and truth values in cells; the first error of the operands is the
/// result. Throws WorkbookError for a formula that is not understood and for formulas that need their own result.
std::map<Position, Calculated> Calculate(const Sheet& sheet);

/// The text of a formula from its tokens; none for a formula that is not understood.
std::optional<std::string> DecodeFormula(std::string_view tokens);

} // namespace pgbp::xls
