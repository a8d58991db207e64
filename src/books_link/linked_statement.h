#pragma once

#include "startup/run.h"

#include <map>

namespace pgbp {

/// Stores the profit and loss account of a line of business: these amounts, rupees by the line's lasting number, in the
/// lines that books lead to, what stands in the others, and the totals, all or nothing. Throws Fault where the line is
/// not stored, the amounts are none, or the form has no line for one of them; nothing is changed then.
void StoreLinkedStatement(const Run& run, double line, const std::map<int, double>& amounts);

/// Notes which client of the accounts product the assessee is: the one with his PAN. Throws Fault where there is none.
void StoreLink(const Run& run, const Connection& books);

} // namespace pgbp
