#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// Number of characters (code points) of a UTF-8 text.
int CharacterCount(std::string_view text);

/// Byte at which the n-th character begins; the size of the text when it has fewer.
std::size_t ByteOfCharacter(std::string_view text, int character);

/// One character as UTF-8.
std::string Utf8(char32_t character);

/// The characters of a UTF-8 text; a byte that is no UTF-8 becomes U+FFFD.
std::u32string Characters(std::string_view text);

} // namespace pgbp
