#pragma once

#include "store/connection.h"

#include <map>
#include <string>
#include <string_view>

namespace pgbp {

// The profit and loss account of the return out of the accounts product: each account goes to the line of its group.

/// Lines for what belongs to no line of its own: the preparer describes them.
inline constexpr int kOtherIncome = 512;
inline constexpr int kOtherExpenses = 538;

/// True for the lines that groups of accounts lead to.
bool IsLineOfBooks(int slno);

/// Balances of the client's accounts and groups, rupees by the line's lasting number. What appropriates the profit
/// belongs to no line. Throws StoreError.
std::map<int, double> ReadBookAmounts(const Connection& books, const std::string& code);

} // namespace pgbp
