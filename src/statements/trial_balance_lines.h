#pragma once

#include "statements/statement_form.h"
#include "statements/statement_lines.h"
#include "trial_balance/proposal.h"

#include <functional>

namespace pgbp {

/// A line of an open statement that accounts can be put into.
struct AccountLine {
    trial::FormLine form;
    std::string label = {}; ///< as it is chosen: "22i Salaries and wages", "51ii Interest: To others"; told only once
};

/// The lines for which `takes` holds. A line's side is that of the accounts that belong there: in an account of profit
/// and loss a line that raises the profit takes credits and one that lowers it debits, as the rules of its totals say;
/// in a balance sheet the headings say it. A line that neither moves the profit nor stands under such a heading has
/// none: accounts of both sides may belong there.
std::vector<AccountLine> AccountLines(std::span<const StatementRow> rows, const StatementLines& lines,
                                      StatementKind kind, const std::function<bool(std::size_t line)>& takes);

/// The amount of an account in a line, whole rupees: a debit is positive in a line of debits.
double RupeesInLine(const trial::Account& account, trial::Side side);

} // namespace pgbp
