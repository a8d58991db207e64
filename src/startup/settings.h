#pragma once

#include "startup/run.h"

namespace pgbp {

/// Reads `Settings.ini`: sets `UseNativeClient` and `IsSqlStore`. Makes the file with the file store chosen where it is
/// missing.
void ReadSettings(Run& run);

/// Reads `VornServer.ini` (made with its defaults where it is missing) and opens `company`, then `balance` on the
/// server. False when either cannot be opened; `why` then holds the engine's words.
bool OpenServerConnections(Run& run, std::string& why);

} // namespace pgbp
