#pragma once

#include "services/tax_numbers.h"

#include <string>

namespace pgbp {

/// Another PAN of the same kind of assessee for each serial: the digits and the first three letters count on.
std::string PanOfCopy(std::string pan, int serial);

} // namespace pgbp
