#pragma once

#include "trial_balance/table.h"

namespace pgbp::trial {

/// Parts a text into rows and cells. A cell may stand in double quotes, in which separators and line ends are its own
/// and two quotes are one; a quote elsewhere in a cell is a letter. Blanks in front of a cell stay, since they tell the
/// rank of an account, unless they stand before a quote. Throws TrialBalanceError for too many cells.
Table ParseDelimited(std::string_view text, char separator);

} // namespace pgbp::trial
