#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pgbp::trial {

/// The words of a text in small letters, in order; whatever is no ASCII letter or digit parts them, letters of other
/// scripts belong to a word.
std::vector<std::string> WordsOf(std::string_view text);

bool HasWord(const std::vector<std::string>& words, std::string_view word);

/// By what an account is known again: capitals, single blanks, and blanks in place of the apostrophes that a stored
/// statement does not keep.
std::string KeyOf(std::string_view accountName);

} // namespace pgbp::trial
