#pragma once

#include "suite/practice.h"

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
    std::optional<double> headOfIncome; ///< nothing until the module has written it, or where it was not read
    double writtenFor = 0;              ///< the minor whose run wrote the head of income; 0: the assessee's own run did
};

/// The assessment year so many years after this one, before it where `years` is below 0: "2023-24".
std::string YearAfter(std::string_view year, int years);

/// All assessee-years by client, oldest year first, without their heads of income (ReadHeads): those of a large
/// practice are read as they are looked at.
std::vector<AssesseeYear> AssesseeYears(const Practice& practice);

/// The first so many assessee-years behind this code, in the order of their codes, without their heads of income.
std::vector<AssesseeYear> AssesseeYearsBehind(const Practice& practice, std::string_view code, int count);

/// With its head of income. Throws std::runtime_error when the practice has no such code.
AssesseeYear FindAssesseeYear(const Practice& practice, std::string_view code);

/// Code of the same client in the year before; empty when he has none.
std::string PrecedingCode(const Practice& practice, const AssesseeYear& assesseeYear);

/// Numbers of the minors whose income is clubbed in this assessee-year, in ascending order.
std::vector<double> MinorsOf(const Practice& practice, std::string_view code);

/// The assessment years that an assessee can have, in ascending order; never empty. Throws std::runtime_error when
/// the practice has none.
std::vector<std::string> AssessmentYears(const Practice& practice);

} // namespace pgbp
