#pragma once

#include "services/fault.h"

#include <string_view>

namespace pgbp {

/// The cause behind the embedded engine's extended result code, with the error number of the file call that failed.
Cause EmbeddedCause(int extendedCode, int systemError);

/// The cause behind what a database driver answers: its SQLSTATE, and the number of the engine or server behind it.
Cause OdbcCause(std::string_view state, int native, Attempt attempt);

} // namespace pgbp
