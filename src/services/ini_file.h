#pragma once

#include "services/fresh_file.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// 1 if the file exists, otherwise 0. Never fails.
int FileExists(const std::filesystem::path& path);

/// The first line of a text file without its line end; empty when the file is missing.
std::string FirstLine(const std::filesystem::path& path);

/// One INI file with the semantics of the platform's private profile calls: names of sections and keys are blind to
/// case, the first section and key of a name count, blanks around names and values and one pair of quotes around a
/// value are dropped, lines that begin with a semicolon are comments, and an answer is cut at 4095 bytes.
class clsIniFile {
  public:
    std::filesystem::path File;
    std::string Defaults = {}; ///< content that counts as long as the file is missing

    /// The value, or empty when the section or the key is missing. Throws Fault, as all calls do, for a file that is
    /// there and can not be read.
    std::string GetValue(std::string_view section, std::string_view key) const;

    /// The value with the quotes around it that GetValue drops.
    std::string GetWritten(std::string_view section, std::string_view key) const;

    /// Sets one key, so that GetValue gives the value back as it is, and leaves every other byte of the file as it was;
    /// makes the file, the section and the key where they are missing. Line breaks in the value are dropped. The new
    /// file takes the old one's place in one step, and its rights. Throws Fault when it cannot.
    void WriteValue(std::string_view section, std::string_view key, std::string_view value) const;

    /// Makes the file with the defaults where it is missing, whole and in one step. A folder that can only be read
    /// stays without it.
    void MakeDefaults(Rights rights = Rights::AsUsual) const;

    /// The section's lines as "key=value".
    std::vector<std::string> GetSection(std::string_view section) const;

    /// The section's keys.
    std::vector<std::string> GetSectionKeys(std::string_view section) const;
};

} // namespace pgbp
