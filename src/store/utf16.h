#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// A UTF-8 text in UTF-16, as the database drivers take it. A byte that is no UTF-8 becomes U+FFFD.
std::u16string ToUtf16(std::string_view text);

/// A UTF-16 text in UTF-8. Half of a pair that stands alone becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);

} // namespace pgbp
