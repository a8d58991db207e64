#pragma once

#include "startup/run.h"

namespace pgbp {

/// Reads `Settings.ini`: sets `UseNativeClient` and `IsSqlStore`. Makes the file with the file store chosen where it is
/// missing; a folder that can only be read does without it.
void ReadSettings(Run& run);

/// Reads `VornServer.ini` (made with its defaults where it is missing) and opens `company`, then `balance` on the
/// server. False when either cannot be opened; `why` then tells it, and the log holds the engine's words.
bool OpenServerConnections(Run& run, std::string& why);

/// Tries the database server of the accounts product: sets `OVServerAlive`. The server is this computer, unless the
/// first line of `Server.ini` names another one or `OVServer.ini` does, which is made with its defaults where it is
/// missing. No message is shown in any case.
void CheckOVServer(Run& run);

/// Opens that server's database as CheckOVServer tries it. Throws StoreError.
Connection OpenOVServer(const Run& run);

} // namespace pgbp
