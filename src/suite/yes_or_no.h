#pragma once

#include <optional>
#include <string_view>

namespace pgbp {

/// What a word of the command line means, in any case: "yes", "true", "1" or "-1", "no", "false" or "0"; nothing for
/// any other.
std::optional<bool> YesOrNo(std::string_view word);

} // namespace pgbp
