#pragma once

#include "services/dates.h"

#include <exception>
#include <filesystem>

namespace pgbp {

/// Adds the technical words of an error to the folder's log, where it has any. The file is kept small: when it is full
/// it becomes "pgbp-errors.log.1", in the place of the one before. Never fails: a log that can not be written is the
/// least of the preparer's troubles.
void LogError(const std::filesystem::path& folder, const DateTime& when, const std::exception& error);

} // namespace pgbp
