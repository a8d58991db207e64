#pragma once

#include "services/dates.h"
#include "suite/backup_record.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// A backup that counts: it was finished, and all its files are there.
struct Backup {
    std::filesystem::path folder; ///< named by its day and a number, "2026-11-23-1"
    BackupRecord record;

    std::string Name() const { return folder.filename().string(); }
    std::string_view Day() const { return std::string_view(record.moment).substr(0, 10); } ///< "2026-11-23"
};

/// Where the practice keeps its backups: the folder that its Settings.ini names, else "backups" in its own.
std::filesystem::path BackupFolder(const std::filesystem::path& programFolder);

/// Those of this practice, the newest first.
std::vector<Backup> Backups(const std::filesystem::path& programFolder);

/// How many are kept.
inline constexpr std::size_t kKeptBackups = 10;

/// Copies all files of the practice as they stand at one moment, while others work, checks the copies, and only then
/// lets the backup count; older ones than the newest ten are removed behind that. However it ends, the backup is whole
/// or does not count, and what a backup that was killed left behind goes with the next one. Throws Fault; then the
/// earlier ones stand as they are.
Backup MakeBackup(const std::filesystem::path& programFolder, const DateTime& now);

/// Today has none yet, and something was stored since the newest one.
bool IsBackupDue(const std::filesystem::path& programFolder, const DateTime& now);

/// What a preparer should know of the last days' backups; empty when there is nothing to tell: the last one failed, or
/// what was stored before today is in none.
std::string BackupWarning(const std::filesystem::path& programFolder, const DateTime& now);

/// Makes the practice of a backup anew in a folder that is empty or does not exist, whole or not at all. The backup is
/// checked first. Throws Fault or std::runtime_error.
void RestoreBackup(const std::filesystem::path& backup, const std::filesystem::path& newFolder);

} // namespace pgbp
