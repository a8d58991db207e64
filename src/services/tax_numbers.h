#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// True for the shape of a PAN: five capital letters, four digits, a capital letter.
bool IsPan(std::string_view text);

/// Why the text is no number of a GST registration, "has a wrong check character"; empty for one that may be: fifteen
/// characters, the state in two digits, the PAN, the number of the registration, a letter or digit that is Z so far,
/// and a check character over all of them (modulo 36, as the GST rules of 2017 build it).
std::string FaultOfGstin(std::string_view text);

} // namespace pgbp
