#pragma once

#include "suite/practice.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// One assessment year of one assessee, as the list of the practice shows it.
struct AssesseeYear {
    std::string code;
    double client = 0; ///< his number, `company`
    std::string name;
    std::string pan;
    std::string status;                 ///< two digits
    std::string year;                   ///< "2023-24"
    std::optional<double> headOfIncome; ///< nothing until the module has written it
};

/// All assessee-years by client, oldest year first.
std::vector<AssesseeYear> AssesseeYears(const Practice& practice);

/// True when code, name, PAN, status in words or year holds the text, in any case. An empty text matches all.
bool Matches(const AssesseeYear& assesseeYear, std::string_view text);

/// Throws std::runtime_error when the practice has no such code.
AssesseeYear FindAssesseeYear(const Practice& practice, std::string_view code);

/// Code of the same client in the year before; empty when he has none.
std::string PrecedingCode(const Practice& practice, const AssesseeYear& assesseeYear);

/// Numbers of the minors whose income is clubbed in this assessee-year, in ascending order.
std::vector<double> MinorsOf(const Practice& practice, std::string_view code);

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
/// asks for. Throws std::runtime_error when the client or the year is unknown or he has the year already.
std::string AddYear(const Practice& practice, double client, std::string_view year, double itr = 0);

/// The assessment years that an assessee can have, in ascending order; never empty. Throws std::runtime_error when
/// the practice has none.
std::vector<std::string> AssessmentYears(const Practice& practice);

/// The number of the return form of an assessee-year, as the module finds it; 0 when it is not noted.
double ReturnForm(const Practice& practice, std::string_view code);
void SetReturnForm(const Practice& practice, std::string_view code, double itr);

} // namespace pgbp
