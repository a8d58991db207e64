#pragma once

#include "statements/amount_cell.h"
#include "statements/totals_rules.h"

#include <optional>
#include <span>
#include <string>

namespace pgbp {

/// The figure behind "Net Profit :" as the end of the operation leaves it; nothing where it leaves the label alone.
/// `amounts` as in StatementTotals::Run, all lines of the grid. `netProfitLine`: the line that the form prints the net
/// profit on, shown where the operation's place is another one; 0 where the form has none.
std::optional<std::string> NetProfitText(TotalsOperation operation, const StatementForm& form, bool booksNotKept,
                                         std::span<const AmountCell> amounts, std::size_t netProfitLine = 0);

} // namespace pgbp
