#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// Without blanks, tabs and line ends at both sides.
std::string Trim(std::string_view text);

/// ASCII letters in upper case; all other bytes as they are.
std::string Upper(std::string_view text);

/// Equal without regard to the case of ASCII letters.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

/// `text` with every `from` replaced by `to`.
std::string Replace(std::string_view text, std::string_view from, std::string_view to);

} // namespace pgbp
