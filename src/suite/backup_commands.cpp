#include "suite/backup_commands.h"

#include "services/error_log.h"
#include "suite/backup.h"
#include "suite/practice.h"

#include <iomanip>
#include <ostream>
#include <sstream>
#include <stdexcept>

namespace pgbp {
namespace {

constexpr std::string_view kIfDue = "if-due";

std::string Contents(const BackupRecord& record)
{
    constexpr double kMegabyte = 1e6;
    double bytes = 0;
    for (const BackupFile& file : record.files)
        bytes += static_cast<double>(file.size);
    std::ostringstream text;
    text << record.files.size() << " files, " << std::fixed << std::setprecision(1) << bytes / kMegabyte << " MB";
    for (const std::string& each : record.without)
        text << "\nNOT in it: " << each << '.';
    return text.str();
}

} // namespace

void BackupCommand(Suite& suite, std::span<const std::string> words)
{
    if (!words.empty() && words[0] != kIfDue)
        throw std::runtime_error("\"" + words[0] + "\": a backup is made, or with \"if-due\" only where one is due.");
    try {
        if (!words.empty() && !IsBackupDue(suite.programFolder, Now()))
            return;
        const Backup made = MakeBackup(suite.programFolder, Now());
        suite.out << "The backup " << made.Name() << " is made and checked: it lies in "
                  << made.folder.parent_path().string() << ", " << Contents(made.record) << '\n';
    } catch (const std::exception& failure) { // who made it at the end of a day has gone
        LogError(PracticeFolders{suite.programFolder}.Client(), Now(), failure);
        throw;
    }
}

void BackupsCommand(Suite& suite, std::span<const std::string>)
{
    const auto made = Backups(suite.programFolder);
    if (made.empty())
        suite.out << "There is no backup of this practice in " << BackupFolder(suite.programFolder).string() << ".\n";
    for (const Backup& each : made)
        suite.out << each.folder.string() << "   made " << each.record.moment << "   " << Contents(each.record) << '\n';
}

void RestoreCommand(Suite& suite, std::span<const std::string> words)
{
    const std::filesystem::path told = words[0];
    const auto backup = std::filesystem::exists(told) ? told : BackupFolder(suite.programFolder) / told;
    RestoreBackup(backup, words[1]);
    LinkStandIns(words[1], suite.standIns);
    suite.out << "The practice of the backup " << backup.filename().string() << " stands in " << words[1]
              << ". \"pgbp-suite --program-folder " << words[1] << "\" opens it.\n";
}

} // namespace pgbp
