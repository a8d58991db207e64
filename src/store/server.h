#pragma once

#include "store/connection.h"

#include <string>

namespace pgbp {

/// Where the database server is and who asks.
struct ServerLogin {
    std::string server;
    std::string user;
    std::string password;
    bool useNativeClient = false;
    std::string settings = "VornServer.ini"; ///< the file that says so; named where the server refuses
};

/// The server connection string: the native client's, or the ODBC driver's.
std::string ServerConnectionString(const ServerLogin& login, std::string_view database);

/// Opens a database of the server. Throws StoreError when the server name is empty or the connection cannot be made.
Connection OpenServerConnection(const ServerLogin& login, std::string_view database);

} // namespace pgbp
