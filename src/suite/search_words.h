#pragma once

#include "suite/assessee_years.h"

namespace pgbp {

/// What of an assessee-year can be searched for: code, name, PAN, kind and year, in capitals.
std::string SearchedWords(const AssesseeYear& assesseeYear);

/// The words of a search, in capitals.
std::vector<std::string> WordsOf(std::string_view text);

/// True when each of the words wanted stands somewhere in `words`; no word at all matches everything.
bool HoldsAll(std::string_view words, const std::vector<std::string>& wanted);

} // namespace pgbp
