#include "store/server.h"

#include "services/text.h"
#include "store/deadline_engine.h"
#include "store/odbc_engine.h"

namespace pgbp {
namespace {

constexpr std::string_view kOdbcDriver = "Driver={SQL Server};";
constexpr std::string_view kNativeProvider = "Provider=SQLNCLI10;";
constexpr std::string_view kNativeDriver = "Driver={SQL Server Native Client 10.0};";

std::string ConnectionString(std::string_view client, const ServerLogin& login, std::string_view database)
{
    const std::string app = login.useNativeClient ? "" : "app=Microsoft Data Access Components;";
    return std::string(client) + "server=" + ConnectionPart(login.server) + ";" + app +
           "database=" + ConnectionPart(database) + ";uid=" + ConnectionPart(Trim(login.user)) +
           ";pwd=" + ConnectionPart(Trim(login.password));
}

} // namespace

std::string ServerConnectionString(const ServerLogin& login, std::string_view database)
{
    return ConnectionString(login.useNativeClient ? kNativeProvider : kOdbcDriver, login, database);
}

Connection OpenServerConnection(const ServerLogin& login, std::string_view database)
{
    const FaultPlace place{login.server, login.settings};
    if (login.server.empty())
        throw StoreError("No database server is named.\n\nWrite its name into " + login.settings + ", then try again.");
    try {
        // The native client is named as an OLE DB provider; the driver manager knows it by its driver's name.
        const std::string text = ConnectionString(login.useNativeClient ? kNativeDriver : kOdbcDriver, login, database);
        return {WithDeadline([text] { return OpenOdbcEngine(text, ServerDialect); }), "", place};
    } catch (const EngineError& error) {
        throw StoreError(error.cause(), Attempt::Open, place, error.what());
    }
}

} // namespace pgbp
