#pragma once

#include "statements/amount_cell.h"
#include "statements/totals_rules.h"

#include <optional>
#include <span>
#include <string>

namespace pgbp {

/// The figure behind "Net Profit :" as the end of the operation leaves it; nothing where it leaves the label alone.
/// `amounts` as in StatementTotals::Run, all lines of the grid.
std::optional<std::string> NetProfitText(TotalsOperation operation, const StatementForm& form, bool booksNotKept,
                                         std::span<const AmountCell> amounts);

} // namespace pgbp
