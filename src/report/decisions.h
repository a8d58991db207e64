#pragma once

#include "report/document.h"
#include "startup/run.h"

#include <optional>
#include <string>

namespace pgbp {
class frmbusiness;
class frmbusinesscal;
class Partners;
} // namespace pgbp

namespace pgbp::report {

// What decided a figure, in a word, from the same functions of the law that the screens ask.

/// The remuneration on the summary: limited to the maximum, or to what was paid.
std::string RemarkOnRemuneration(const frmbusiness& summary);

/// A line of the summary by the name of the control that shows it: a presumptive one says which profit counts, the
/// commission what its deduction is limited to.
std::string RemarkOnSummary(const frmbusiness& summary, std::string_view control);

/// The deduction from a commission that is on display.
std::string RemarkOnCommission(const frmbusiness& summary);

/// The deemed profit of a line that is on display: the section's floor, and how the profit stands to it.
std::string RemarkOnDeemedProfit(const frmbusinesscal& line);

/// Goods carriages from 2019.
inline constexpr std::string_view kRemarkOnCarriages = "7,500 a month each, above 12 tons 1,000 a ton and month";

/// The limit of the partners' remuneration on this book profit, slab by slab.
Table WorkingOfLimit(double bookProfit, const Run& run);

} // namespace pgbp::report
