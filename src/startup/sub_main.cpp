#include "startup/sub_main.h"

#include "services/format.h"
#include "services/ini_file.h"
#include "services/text.h"
#include "startup/daily_check.h"
#include "startup/frmmdi.h"
#include "startup/settings.h"

namespace pgbp {
namespace {

constexpr std::chrono::seconds kLongestWaitForCheck(5);

void ReadHandOverRecord(Run& run, const DataFile& file)
{
    if (!FileExists(file.path))
        return;
    const bool found = ReadHandOver(OpenFile(file), run);
    run.Glcode = Trim(run.Glcode); // all tables hold it without blanks around it
    if (found && run.GlClient.empty())
        run.GlClient = run.host.programFolder.string();
}

/// The working file has a session of its own: what is written there must not wait for the files of the practice.
void OpenDataFiles(Run& run, const DataFile& handOver)
{
    if (run.GlServer.empty())
        throw StoreError("The hand-over file " + handOver.path.string() +
                         " is missing or holds no record. Start the module from the suite, which writes it.");
    std::vector<std::pair<std::string, Connection*>> wanted;
    if (!run.IsSqlStore)
        wanted = {{"company", &run.company}, {"balance", &run.balance}};
    wanted.insert(wanted.end(),
                  {{"tax", &run.tax}, {"misc", &run.misc}, {"export1", &run.export1}, {"export2", &run.export2}});
    std::vector<DataFile> files;
    files.reserve(wanted.size());
    for (const auto& [name, connection] : wanted)
        files.push_back(DataFileNamed(run, name));
    const DataFile working = DataFileNamed(run, "qeltemp");
    KindOf(working.path);
    const auto opened = OpenFiles(files);
    for (std::size_t i = 0; i < opened.size(); ++i)
        *wanted[i].second = opened[i];
    run.qeltemp = OpenFile(working);
    run.qeltemp.OwnTables({"temp", "temp1"}); // another run of the same assessee-year must not see what is keyed here
}

/// Damage that was not found in time would be taken over into another figure: a change waits for the check, though not
/// for ever, and a damaged file takes none.
void CheckDataFiles(Run& run)
{
    if (!run.host.checksFiles)
        return;
    std::vector<const Connection*> embedded;
    std::vector<std::filesystem::path> files;
    for (const Connection* file : {&run.company, &run.balance, &run.tax})
        if (file->dialect().name == kEmbeddedDialect.name) {
            embedded.push_back(file);
            files.emplace_back(file->place().name);
        }
    const auto notes = std::filesystem::path(run.GlClient) / "checked.ini";
    run.dailyCheck = std::make_shared<DailyCheck>(files, notes, DayText(run.host.now()));
    for (const Connection* file : embedded)
        file->engine()->beforeChange = [check = run.dailyCheck] {
            if (const auto damage = check->Found(kLongestWaitForCheck))
                throw StoreError(Cause::Damaged, Attempt::Save, {damage->file.string()}, damage->words);
        };
}

/// What can only be read is found here and not at the save of a line that was keyed: the run goes on as a locked one.
/// Without the working file nothing goes on. Gives what the preparer is told.
std::string LockWhatCanOnlyBeRead(Run& run)
{
    run.qeltemp.CheckWritable();
    for (const Connection* file : {&run.company, &run.balance, &run.tax})
        try {
            file->CheckWritable();
        } catch (const StoreError& error) {
            run.Log(error);
            run.readOnly = true;
            run.GLlock = 1;
            return std::filesystem::path(file->place().name).filename().string() +
                   " or its folder can only be read: the year is open as a locked one, nothing is stored.";
        }
    return {};
}

void OpenRights(Run& run)
{
    const Recordset user = run.company.Query("select * from {user1} where code = ?", run.Gluser);
    const Value category = user.Empty() ? Value(1) : user.First()["category"];
    run.rights = run.company.Query("select * from {user_comp} where code = ? and company = 1", category);
}

} // namespace

DataFile HandOverFile(const Run& run, std::string_view name)
{
    return {run.GlDrive / name, run.host.programFolder / "Temp.dsn"};
}

bool OpenPractice(Run& run, std::string_view handOverFile, std::string& why)
{
    ReadSettings(run);
    const auto driveFile = run.host.programFolder / "Drive.txt";
    if (FileExists(driveFile))
        run.GlDrive = FirstLine(driveFile);
    if (run.IsSqlStore && !OpenServerConnections(run, why))
        return false;
    const DataFile handOver = HandOverFile(run, handOverFile);
    ReadHandOverRecord(run, handOver);
    run.GlITR = ReturnFormOf(run.host.programFolder, run.Glcode);
    OpenDataFiles(run, handOver);
    return true;
}

DataFile DataFileNamed(const Run& run, const std::string& name)
{
    const bool isWorkingFile = name == "qeltemp";
    const std::filesystem::path folder = isWorkingFile ? run.GlClient : run.GlServer;
    const auto path = (isWorkingFile ? folder / "data" : folder) / (name + ".mdb");
    return {path, folder / (name + ".dsn"), !isWorkingFile, folder};
}

double ReturnFormOf(const std::filesystem::path& programFolder, const std::string& code)
{
    const clsIniFile file{programFolder / "QelCtrl.ini"};
    return FileExists(file.File) ? Val(file.GetValue("ITR", code)) : 0;
}

bool SubMain(Run& run, std::string& why)
try {
    if (!OpenPractice(run, kHandOverFile, why))
        return false;
    const std::string notice = LockWhatCanOnlyBeRead(run);
    CheckDataFiles(run);
    OpenRights(run);
    run.GLrep.clear(); // from here on the summary's marker: its first display refreshes the remuneration
    run.assesseeYear = NameLock(std::filesystem::path(run.GlServer) / "pgbp.lock", run.Code());
    run.screens.Show(screens::frmmdi);
    if (run.assesseeYear.IsTaken())
        run.screens.OnDisplay()->notice = "This assessee-year is open in another window too: what is saved last stays.";
    if (!notice.empty()) // where nothing is stored the other window does not matter
        run.screens.OnDisplay()->notice = notice;
    return true;
} catch (const std::exception& error) {
    run.Log(error);
    throw;
}

} // namespace pgbp
