#pragma once

#include "suite/practice.h"

namespace pgbp {

/// Adds that many assessee-years to the practice, copies of the demonstration clients under new names and numbers, some
/// twenty rows each, in one transaction. Their return forms are not noted, which counts as the individual's. Gives
/// the number of rows added.
long FillPractice(const Practice& practice, const std::filesystem::path& dataFolder, int assesseeYears);

} // namespace pgbp
