#pragma once

#include <string>
#include <string_view>

namespace pgbp {

/// True for the shape of a PAN: five capital letters, four digits, a capital letter.
bool IsPan(std::string_view text);

/// Another PAN of the same kind of assessee for each serial: the digits and the first three letters count on.
std::string PanOfCopy(std::string pan, int serial);

} // namespace pgbp
