#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// Takes an option and its value out of the words of a command line, wherever it stands; nothing when it is not there.
/// Throws std::runtime_error when it has no value, or an empty one.
std::optional<std::string> TakeOption(std::vector<std::string>& words, const std::string& option);

} // namespace pgbp
