#pragma once

#include "statements/statement_lines.h"

#include <optional>

namespace pgbp {

// The "No Account Case": an assessee who keeps no regular books furnishes a few figures in place of the whole account.

/// A line of the case, of a business or of a profession.
bool IsNoBooksLine(int slno);

/// The first mandatory line whose amount is not above 0: gross receipts, gross profit, expenses and net profit all have
/// to be furnished.
std::optional<std::size_t> MissingNoBooksLine(const StatementLines& lines);

/// From 2023 the department accepts no loss of a normal business without books.
bool RefusesLossWithoutBooks(int year, int slno, int businessKind);

/// A normal business whose gross profit is above its gross receipts, from 2023.
bool ProfitExceedsReceipts(const StatementLines& lines, int year, int businessKind);

} // namespace pgbp
