#include "store/server.h"

#include "services/text.h"
#include "store/deadline_engine.h"
#include "store/odbc_engine.h"

namespace pgbp {
namespace {

constexpr std::string_view kNativeProvider = "Provider=SQLNCLI10;";
constexpr std::string_view kNativeDriver = "Driver={SQL Server Native Client 10.0};";

/// A value that would end or open a part of the connection string goes into braces.
std::string Part(std::string_view value)
{
    if (!value.starts_with('{') && value.find(';') == std::string_view::npos)
        return std::string(value);
    return '{' + Replace(value, "}", "}}") + '}';
}

} // namespace

std::string ServerConnectionString(const ServerLogin& login, std::string_view database)
{
    const std::string client = login.useNativeClient ? std::string(kNativeProvider) : "Driver={SQL Server};";
    const std::string app = login.useNativeClient ? "" : "app=Microsoft Data Access Components;";
    return client + "server=" + login.server + ";" + app + "database=" + std::string(database) +
           ";uid=" + Part(Trim(login.user)) + ";pwd=" + Part(Trim(login.password));
}

std::optional<Connection> OpenServerConnection(const ServerLogin& login, std::string_view database, std::string& why)
{
    if (login.server.empty()) {
        why = "No database server is named.";
        return std::nullopt;
    }
    try {
        // The native client is named as an OLE DB provider; the driver manager knows it by its driver's name.
        const std::string text = Replace(ServerConnectionString(login, database), kNativeProvider, kNativeDriver);
        return Connection(WithDeadline([text] { return OpenOdbcEngine(text, ServerDialect); }), "");
    } catch (const StoreError& error) {
        why = error.what();
        return std::nullopt;
    }
}

} // namespace pgbp
