#include "audit_report/tables.h"
#include "desktop/dialogs.h"
#include "desktop/theme.h"
#include "services/ini_file.h"
#include "services/options.h"
#include "startup/hand_over.h"
#include "store/files.h"

#include <QApplication>
#include <QDir>

#include <cstdlib>
#include <iostream>

namespace {

namespace fs = std::filesystem;
using namespace pgbp;

constexpr const char* kUsage =
    R"(Reads the depreciation schedule of an audit report (Form 3CD) for the annexure of the module

  Audit3CDReader.exe [--program-folder FOLDER] [FILE]

The module starts it without a word; it then asks for the file. FILE is the report in the XML of the income-tax
department's utility, or in the JSON of the portal. Its tables go into data/TempXML.mdb of the client folder that the
hand-over record of the program folder names. That folder is FOLDER, else the one that this program is started from.
)";

/// The folder in which the program was found, not the one that a link to it leads to.
fs::path FolderOf(const char* program)
{
    const fs::path started = program;
    return started.has_parent_path() ? started.parent_path() : fs::read_symlink("/proc/self/exe").parent_path();
}

fs::path ClientFolder(const fs::path& programFolder)
{
    const fs::path drive = FirstLine(programFolder / "Drive.txt");
    HandOver record;
    if (!ReadHandOver(OpenFile({drive / "VornTemp.mdb", programFolder / "Temp.dsn"}), record))
        throw Fault("The hand-over file in " + drive.string() + " holds no record. The module starts this program.");
    return record.GlClient.empty() ? programFolder : fs::path(record.GlClient);
}

/// Gives what the preparer has to look after himself.
std::vector<std::string> TakeOver(const fs::path& report, const fs::path& tablesFile)
{
    const ReportTables tables = TablesOf(ReadReport(ReportFileContent(report.string())));
    WriteTables(tablesFile, tables);
    return tables.warnings;
}

std::string Joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

bool HasDisplay()
{
    const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    return (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")) && qgetenv("QT_QPA_PLATFORM") != "offscreen";
}

/// Asks for the report and takes it over; a cancelled dialog leaves no tables.
int AskAndTakeOver(int argc, char** argv, const fs::path& tablesFile)
{
    if (!HasDisplay())
        throw Fault("There is no display to ask for the audit report on; a file behind the program's name is read.");
    QApplication application(argc, argv);
    ApplyTheme(application);
    WindowMessageBoxes boxes("Form 3CD");
    QDir::setCurrent(QDir::homePath()); // where the dialog begins to look
    try {
        const auto report =
            WindowFileDialogs().AskOpen("Audit report (Form 3CD)", "Audit report (*.xml *.json);;All files (*)");
        const auto warnings = report ? TakeOver(*report, tablesFile) : std::vector<std::string>();
        if (!warnings.empty())
            boxes.Show({Joined(warnings), "", Icon::Exclamation});
        return 0;
    } catch (const std::exception& error) { // who pressed the button sees no standard error
        boxes.Show({PreparersWords(error), "", Icon::Critical});
        throw;
    }
}

int ReadAuditReport(int argc, char** argv)
{
    std::vector<std::string> words(argv + 1, argv + argc);
    const fs::path programFolder = TakeOption(words, "--program-folder").value_or(FolderOf(argv[0]).string());
    if (words.size() > 1 || (!words.empty() && words.front().starts_with('-'))) {
        std::cout << kUsage;
        return words.front() == "--help" ? 0 : 1;
    }
    const fs::path tablesFile = fs::absolute(ClientFolder(programFolder) / "data" / "TempXML.mdb");
    RemoveTables(tablesFile);
    if (words.empty())
        return AskAndTakeOver(argc, argv, tablesFile);
    std::cerr << Joined(TakeOver(words.front(), tablesFile));
    return 0;
}

} // namespace

int main(int argc, char** argv)
try {
    return ReadAuditReport(argc, argv);
} catch (const std::exception& error) {
    std::cerr << "Audit3CDReader: " << PreparersWords(error) << '\n';
    if (const std::string technical = TechnicalWords(error); !technical.empty())
        std::cerr << technical << '\n';
    return 1;
}
