#pragma once

#include "suite/assessee_years.h"
#include "suite/finding.h"

#include <functional>
#include <span>
#include <string_view>

namespace pgbp::check {

using Found = std::function<void(Finding)>;

/// Rows of `company` and `balance` that name no assessee-year at all, and assessee-years of no assessee.
void FindRowsWithoutCode(const Practice& practice, const Found& found);

/// Rows whose codes stand behind `from` and not behind the last of these assessee-years, which are all that there are
/// between, and that are of none of them. With `isRest` also those behind the last.
void FindRowsOfNobody(const Practice& practice, std::string_view from, std::span<const AssesseeYear> years, bool isRest,
                      const Found& found);

} // namespace pgbp::check
