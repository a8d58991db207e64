#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// What a line of arithmetic comes to.
struct SumResult {
    std::string text;  ///< the amount, rounded half away from zero to the places asked for; empty when there is none
    std::string error; ///< why there is none; both are empty for a line without anything in it
};

/// Works out "1200+18%", "3*450", "(12,50,000-50000)/12": the four operations in their usual order, brackets, unary
/// minus and plus, grouping commas, blanks anywhere between. A percentage that is added or taken off is one of what
/// stands before it, so 1200+18% is 1416; any other is a hundredth, so 1200*18% is 216.
SumResult WorkOut(std::string_view line, int places);

} // namespace pgbp
