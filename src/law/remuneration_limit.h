#pragma once

#include <string_view>

namespace pgbp {

/// Most that a firm may deduct as remuneration of its working partners, in whole rupees: section 40(b)(v) of the
/// Income-tax Act on the book profit of Explanation 3. `year` is the assessment year. Statuses other than "05"
/// and "06" give 0.
double RemunerationLimit(double bookProfit, int year, std::string_view status);

} // namespace pgbp
