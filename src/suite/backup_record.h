#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// A file of a backup.
struct BackupFile {
    std::string name;         ///< its path in the practice
    std::uintmax_t size = 0;  ///< of the copy
    unsigned long sum = 0;    ///< of the copy's bytes
    std::int64_t changed = 0; ///< when the practice's own was written last, before it was copied

    bool operator==(const BackupFile&) const = default;
};

/// What a backup says of itself, in its file "backup.txt".
struct BackupRecord {
    std::string practice; ///< path of the practice it was made of
    std::string moment;   ///< "2026-11-23 18:02:11", on the clock of the computer that made it
    std::vector<BackupFile> files;
    std::vector<std::string> without; ///< what of the practice is not in it, in words
};

void WriteBackupRecord(const std::filesystem::path& backup, const BackupRecord& record);

/// Nothing where the folder holds no whole record, or not all of its files in their sizes: such a backup does not
/// count.
std::optional<BackupRecord> ReadBackupRecord(const std::filesystem::path& backup);

/// The sum by which a changed byte of a file is found.
unsigned long SumOf(const std::filesystem::path& file);

} // namespace pgbp
