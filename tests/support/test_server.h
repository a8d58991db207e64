#pragma once

#include "services/ini_file.h"
#include "store/schema.h"
#include "store/server.h"

#include <cstdlib>
#include <optional>

namespace pgbp {

inline constexpr const char* kNoServer =
    "No database server: install mariadb-server and odbc-mariadb, and run through ctest.";

/// The server that the test run has started, its driver made known to this process; nothing when there is none.
inline std::optional<ServerLogin> TestServer()
{
    const char* folder = std::getenv("PGBP_TEST_SERVER");
    const std::string address = folder ? FirstLine(std::filesystem::path(folder) / "address") : "";
    if (address.empty())
        return std::nullopt;
    setenv("ODBCSYSINI", folder, 1);
    return ServerLogin{address, " preparer ", R"("Pa;ss{wo}rd=1}")", false};
}

/// The database with the tables of the file, all of them empty, and their indexes.
inline Connection OpenFreshDatabase(const ServerLogin& login, std::string_view database, std::string_view file)
{
    const Connection connection = OpenServerConnection(login, database);
    for (const Table& table : Tables()) {
        if (table.file != file)
            continue;
        connection.Execute("drop table if exists {" + std::string(table.name) + "}");
        connection.Execute(CreateTableText(table, connection.dialect()));
        for (const std::string& index : IndexTexts(table, connection.dialect()))
            connection.Execute(index);
    }
    return connection;
}

} // namespace pgbp
