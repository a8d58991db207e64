#pragma once

#include "store/connection.h"

#include <memory>
#include <string>
#include <string_view>

namespace pgbp {

/// Gives the dialect by the name that a driver gives the product behind it.
using DialectOf = const Dialect& (*)(std::string_view product);

/// A value as it stands in a connection string: in braces where it would end or open a part of the string.
std::string ConnectionPart(std::string_view value);

/// A session with a database through its ODBC driver. Throws EngineError with the driver's words.
std::shared_ptr<Engine> OpenOdbcEngine(const std::string& connectionString, DialectOf dialectOf);

} // namespace pgbp
