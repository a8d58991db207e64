#pragma once

#include "store/connection.h"

#include <optional>
#include <string>

namespace pgbp {

/// Where the database server is and who asks.
struct ServerLogin {
    std::string server;
    std::string user;
    std::string password;
    bool useNativeClient = false;
};

/// The server connection string: the native client's, or the ODBC driver's.
std::string ServerConnectionString(const ServerLogin& login, std::string_view database);

/// Opens a database of the server; nothing when the server name is empty or the connection cannot be made, with the
/// engine's words in `why`.
std::optional<Connection> OpenServerConnection(const ServerLogin& login, std::string_view database, std::string& why);

} // namespace pgbp
