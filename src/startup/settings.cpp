#include "startup/settings.h"

#include "services/ini_file.h"
#include "services/text.h"
#include "store/server.h"

#include <array>
#include <optional>
#include <span>
#include <unistd.h>
#include <vector>

namespace pgbp {
namespace {

std::string ComputerName()
{
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return name.data();
}

/// What a file's login may mean: the suite writes a password as it is, quotes included; a person may have put it in
/// quotes to keep its blanks.
std::vector<ServerLogin> LoginsOf(ServerLogin login, const clsIniFile& file, const char* section, const char* password)
{
    login.password = Trim(file.GetWritten(section, password));
    std::vector<ServerLogin> logins{login};
    login.password = Trim(file.GetValue(section, password));
    if (login.password != logins.front().password)
        logins.push_back(login);
    return logins;
}

std::vector<ServerLogin> ReadServerLogins(const Run& run)
{
    const clsIniFile file{run.host.programFolder / "VornServer.ini"};
    if (!FileExists(file.File)) {
        file.WriteValue("Server", "ServerNM", ComputerName());
        file.WriteValue("Login", "LogName", "sa");
        file.WriteValue("Login", "LogPwd", "");
    }
    return LoginsOf(
        {file.GetValue("Server", "ServerNM"), Trim(file.GetValue("Login", "LogName")), "", run.UseNativeClient}, file,
        "Login", "LogPwd");
}

/// Where the accounts product's server is.
std::vector<ServerLogin> ReadOVLogins(const Run& run)
{
    const auto serverFile = run.host.programFolder / "Server.ini";
    const clsIniFile file{run.host.programFolder / "OVServer.ini"};
    if (!FileExists(file.File)) {
        file.WriteValue("OV3", "SERVER", FileExists(serverFile) ? FirstLine(serverFile) : ComputerName());
        file.WriteValue("OV3", "USER", "SA");
        file.WriteValue("OV3", "PASS", "");
    }
    return LoginsOf({file.GetValue("OV3", "SERVER"), Trim(file.GetValue("OV3", "USER")), "", run.UseNativeClient}, file,
                    "OV3", "PASS");
}

/// Opens the database with the first login that the server takes; `why` then tells what it said to the last one.
std::optional<Connection> Open(std::span<const ServerLogin> logins, std::string_view database, std::string& why)
{
    std::optional<Connection> opened;
    for (const ServerLogin& login : logins)
        if (!opened)
            opened = OpenServerConnection(login, database, why);
    return opened;
}

} // namespace

void ReadSettings(Run& run)
{
    const clsIniFile file{run.host.programFolder / "Settings.ini"};
    if (!FileExists(file.File))
        file.WriteValue("DBTYPE", "DB", "MDB");
    run.UseNativeClient = file.GetValue("Qel", "SQLTYPE") == "1";
    run.IsSqlStore = Upper(file.GetValue("DBTYPE", "DB")) == "SQL";
}

bool OpenServerConnections(Run& run, std::string& why)
{
    const std::vector<ServerLogin> logins = ReadServerLogins(run);
    const auto open = [&](Connection& connection, std::string_view database) {
        auto opened = Open(logins, database, why);
        if (opened)
            connection = std::move(*opened);
        return opened.has_value();
    };
    return open(run.company, "Qel_VornCompany") && open(run.balance, "Qel_VornBalance");
}

void CheckOVServer(Run& run)
{
    std::string unused;
    run.OVServerAlive = Open(ReadOVLogins(run), "Qel_OV", unused).has_value();
}

} // namespace pgbp
