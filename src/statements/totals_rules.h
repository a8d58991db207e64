#pragma once

#include "statements/statement_form.h"

#include <span>
#include <string_view>

namespace pgbp {

/// The generations of the totals: each lays the computed lines out in its own way.
enum class TotalsOperation { Cal_Total, Cal_Total_1, Cal_Total_2, Cal_Total_3, Cal_Total_4, Cal_Total_5, Cal_Total_6 };

/// The operation that recomputes the statement of this form.
TotalsOperation OperationFor(const StatementForm& form);

/// The rules of an operation, in parts that forms share; none for a form number that has no rules.
std::span<const std::string_view> TotalsRules(TotalsOperation operation, const StatementForm& form);

} // namespace pgbp
