#include "startup/settings.h"

#include "services/ini_file.h"
#include "services/text.h"
#include "store/server.h"

#include <array>
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
    const clsIniFile file{run.host.programFolder / "VornServer.ini",
                          "[Server]\nServerNM=" + ComputerName() + "\n[Login]\nLogName=sa\nLogPwd=\n"};
    file.MakeDefaults(Rights::OwnerAlone); // a password will stand in it
    return LoginsOf({file.GetValue("Server", "ServerNM"), Trim(file.GetValue("Login", "LogName")), "",
                     run.UseNativeClient, file.File.string()},
                    file, "Login", "LogPwd");
}

/// Where the accounts product's server is.
std::vector<ServerLogin> ReadOVLogins(const Run& run)
{
    const auto serverFile = run.host.programFolder / "Server.ini";
    const std::string server = FileExists(serverFile) ? FirstLine(serverFile) : ComputerName();
    const clsIniFile file{run.host.programFolder / "OVServer.ini", "[OV3]\nSERVER=" + server + "\nUSER=SA\nPASS=\n"};
    file.MakeDefaults(Rights::OwnerAlone);
    return LoginsOf({file.GetValue("OV3", "SERVER"), Trim(file.GetValue("OV3", "USER")), "", run.UseNativeClient,
                     file.File.string()},
                    file, "OV3", "PASS");
}

/// Opens the database with the first login that the server takes. Throws what it said to the last one.
Connection Open(std::span<const ServerLogin> logins, std::string_view database)
{
    try {
        return OpenServerConnection(logins.front(), database);
    } catch (const StoreError& error) {
        if (error.cause() != Cause::WrongPassword || logins.size() == 1)
            throw;
        return Open(logins.subspan(1), database);
    }
}

} // namespace

void ReadSettings(Run& run)
{
    const clsIniFile file{run.host.programFolder / "Settings.ini", "[DBTYPE]\nDB=MDB\n"};
    file.MakeDefaults();
    run.UseNativeClient = file.GetValue("Qel", "SQLTYPE") == "1";
    run.IsSqlStore = Upper(file.GetValue("DBTYPE", "DB")) == "SQL";
}

bool OpenServerConnections(Run& run, std::string& why)
{
    try {
        const std::vector<ServerLogin> logins = ReadServerLogins(run);
        run.company = Open(logins, "Qel_VornCompany");
        run.balance = Open(logins, "Qel_VornBalance");
        return true;
    } catch (const StoreError& error) {
        run.Log(error);
        why = error.what();
        return false;
    }
}

Connection OpenOVServer(const Run& run) { return Open(ReadOVLogins(run), "Qel_OV"); }

void CheckOVServer(Run& run)
{
    try {
        OpenOVServer(run);
        run.OVServerAlive = true;
    } catch (const StoreError&) {
        run.OVServerAlive = false;
    }
}

} // namespace pgbp
