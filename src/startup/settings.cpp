#include "startup/settings.h"

#include "services/ini_file.h"
#include "services/text.h"
#include "store/server.h"

#include <array>
#include <unistd.h>

namespace pgbp {
namespace {

std::string ComputerName()
{
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return name.data();
}

ServerLogin ReadServerLogin(const Run& run)
{
    const clsIniFile file{run.host.programFolder / "VornServer.ini"};
    if (!FileExists(file.File)) {
        file.WriteValue("Server", "ServerNM", ComputerName());
        file.WriteValue("Login", "LogName", "sa");
        file.WriteValue("Login", "LogPwd", "");
    }
    return {file.GetValue("Server", "ServerNM"), Trim(file.GetValue("Login", "LogName")),
            Trim(file.GetValue("Login", "LogPwd")), run.UseNativeClient};
}

/// Where the accounts product's server is.
ServerLogin ReadOVLogin(const Run& run)
{
    const auto serverFile = run.host.programFolder / "Server.ini";
    const clsIniFile file{run.host.programFolder / "OVServer.ini"};
    if (!FileExists(file.File)) {
        file.WriteValue("OV3", "SERVER", FileExists(serverFile) ? FirstLine(serverFile) : ComputerName());
        file.WriteValue("OV3", "USER", "SA");
        file.WriteValue("OV3", "PASS", "");
    }
    return {file.GetValue("OV3", "SERVER"), Trim(file.GetValue("OV3", "USER")), Trim(file.GetValue("OV3", "PASS")),
            run.UseNativeClient};
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
    const ServerLogin login = ReadServerLogin(run);
    const auto open = [&](Connection& connection, std::string_view database) {
        auto opened = OpenServerConnection(login, database, why);
        if (opened)
            connection = std::move(*opened);
        return opened.has_value();
    };
    return open(run.company, "Qel_VornCompany") && open(run.balance, "Qel_VornBalance");
}

void CheckOVServer(Run& run)
{
    std::string unused;
    run.OVServerAlive = OpenServerConnection(ReadOVLogin(run), "Qel_OV", unused).has_value();
}

} // namespace pgbp
