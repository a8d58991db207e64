#pragma once

#include "suite/practice.h"

#include <map>
#include <string>
#include <string_view>

namespace pgbp {

struct Assessee {
    std::string name;
    std::string pan;
    std::string status;
    std::map<std::string, std::string> further; ///< other columns of `assessee`, "city_o" ...
};

/// Adds an assessee and gives his number. Throws std::runtime_error with what is wrong: an empty name, a PAN or a
/// status that cannot be, a PAN that another assessee has, a column that does not exist.
double AddAssessee(const Practice& practice, const Assessee& assessee);

/// Adds an assessment year and gives its code; `itr` is the number of the return form, 0 for the one that the status
/// asks for. The settings of the preceding year go on, but no lock. Throws std::runtime_error when the client or the
/// year is unknown or he has the year already.
std::string AddYear(const Practice& practice, double client, std::string_view year, double itr = 0);

/// Adds an assessee together with his first assessment year, both or neither, and gives its code.
std::string AddClient(const Practice& practice, const Assessee& assessee, std::string_view year, double itr = 0);

} // namespace pgbp
