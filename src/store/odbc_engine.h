#pragma once

#include "store/connection.h"

#include <memory>
#include <string>

namespace pgbp {

/// A session with a database through its ODBC driver. Waits a few seconds for a server at most; a session that is lost
/// later answers each call with StoreError. Throws StoreError with the driver's words.
std::shared_ptr<Engine> OpenOdbcEngine(const std::string& connectionString, const Dialect& dialect);

} // namespace pgbp
