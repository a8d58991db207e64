#include "startup/sub_main.h"

#include "services/format.h"
#include "services/ini_file.h"
#include "startup/frmmdi.h"
#include "startup/settings.h"

namespace pgbp {
namespace {

void ReadHandOverRecord(Run& run)
{
    const DataFile file = HandOverFile(run);
    if (!FileExists(file.path))
        return;
    const bool found = ReadHandOver(OpenFile(file), run);
    if (found && run.GlClient.empty())
        run.GlClient = run.host.programFolder.string();
}

/// The return form that the suite noted for this assessee-year.
void ReadReturnForm(Run& run)
{
    const clsIniFile file{run.host.programFolder / "QelCtrl.ini"};
    if (FileExists(file.File))
        run.GlITR = Val(file.GetValue("ITR", run.Glcode));
}

void OpenDataFiles(Run& run)
{
    const std::filesystem::path server = run.GlServer;
    const std::filesystem::path client = run.GlClient;
    std::vector<DataFile> files;
    std::vector<Connection*> connections;
    const auto add = [&](Connection& connection, const char* name) {
        files.push_back({server / (std::string(name) + ".mdb"), server / (std::string(name) + ".dsn")});
        connections.push_back(&connection);
    };
    if (!run.IsSqlStore) {
        add(run.company, "company");
        add(run.balance, "balance");
    }
    files.push_back({client / "data" / "qeltemp.mdb", client / "qeltemp.dsn", false});
    connections.push_back(&run.qeltemp);
    add(run.tax, "tax");
    add(run.misc, "misc");
    add(run.export1, "export1");
    add(run.export2, "export2");

    const auto opened = OpenFiles(files);
    for (std::size_t i = 0; i < opened.size(); ++i)
        *connections[i] = opened[i];
}

void OpenRights(Run& run)
{
    const Recordset user = run.company.Query("select * from {user1} where code = ?", run.Gluser);
    const Value category = user.Empty() ? Value(1) : user.First()["category"];
    run.rights = run.company.Query("select * from {user_comp} where code = ? and company = 1", category);
}

} // namespace

DataFile HandOverFile(const Run& run) { return {run.GlDrive / "VornTemp.mdb", run.host.programFolder / "Temp.dsn"}; }

bool SubMain(Run& run, std::string& why)
{
    ReadSettings(run);
    const auto driveFile = run.host.programFolder / "Drive.txt";
    if (FileExists(driveFile))
        run.GlDrive = FirstLine(driveFile);
    if (run.IsSqlStore && !OpenServerConnections(run, why))
        return false;
    ReadHandOverRecord(run);
    run.helpFile = (run.host.programFolder / "vorn.hlp").string();
    ReadReturnForm(run);
    OpenDataFiles(run);
    OpenRights(run);
    run.GLrep.clear(); // from here on the summary's marker: its first display refreshes the remuneration
    run.screens.Show("frmmdi");
    return true;
}

} // namespace pgbp
