#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// Number of an assessment year "2023-24": 2023. Every year rule compares this number. 0 for an empty text.
int YearNumber(std::string_view glyear);

/// "2023-24" with its full second year: "2023-2024".
std::string LongYearText(std::string_view glyear);

} // namespace pgbp
