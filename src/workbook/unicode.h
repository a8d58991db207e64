#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pgbp::xls {

/// Nothing for bytes that are not UTF-8.
std::optional<std::u16string> Utf16FromUtf8(std::string_view text);

/// A half of a surrogate pair without the other becomes U+FFFD.
std::string Utf8FromUtf16(std::u16string_view text);

} // namespace pgbp::xls
