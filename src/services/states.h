#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// Two-digit code of a state as the return numbers them (not the codes of the GSTIN); "0" for any other name.
/// Case and blanks around the name do not matter.
std::string StateCode(std::string_view state);

} // namespace pgbp
