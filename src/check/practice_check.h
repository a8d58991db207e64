#pragma once

#include "check/rows_of_nobody.h"

#include <span>
#include <string>

namespace pgbp::check {

/// How far a check is, in assessee-years.
using Progress = std::function<void(long done, long all)>;

/// Checks every assessee-year of a practice, in the order of the codes, and looks for rows that belong to nobody. Each
/// finding is told as it is found and nothing is kept. Others can store meanwhile: a batch of assessee-years is seen as
/// it is at one moment. Nothing is stored: a statement that would change a row throws.
void CheckPractice(const Practice& practice, const Found& found, const Progress& progress);

/// Checks these assessee-years alone. Throws std::runtime_error where the practice has none of a code.
void CheckCodes(const Practice& practice, std::span<const std::string> codes, const Found& found);

} // namespace pgbp::check
