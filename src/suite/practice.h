#pragma once

#include "store/connection.h"

#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace pgbp {

/// Where the files of a practice folder stand. The folder itself is the program folder of a run.
struct PracticeFolders {
    std::filesystem::path program;
    std::filesystem::path Server() const { return program / "server"; }
    std::filesystem::path Client() const { return program / "client"; }
    /// Where a new practice keeps its hand-over file. An existing one tells it in its Drive.txt.
    std::filesystem::path NewHandOver() const { return program / "handover"; }
    /// Where a new practice has the demonstration books of the accounts product.
    std::filesystem::path NewBooks() const { return program / "accounts"; }
};

/// A practice that stands: its data files open in one session.
class Practice {
  public:
    /// Throws std::runtime_error with what is missing and what to do; nothing is created.
    explicit Practice(const std::filesystem::path& programFolder);

    PracticeFolders folders;
    Connection company;
    Connection balance;
    Connection tax;

    /// The hand-over file, as the module itself looks for it.
    std::filesystem::path HandOverFile() const;
};

/// True when a practice stands in the folder.
bool IsPractice(const std::filesystem::path& programFolder);

/// The practice keeps `company` and `balance` on a database server.
bool IsOnServer(const std::filesystem::path& programFolder);

/// What is told where neither holds.
std::runtime_error NoPractice(const std::filesystem::path& folder);

/// Throws std::runtime_error where something stands in the place of a new practice.
void RefuseUnlessFree(const std::filesystem::path& folder);

/// Makes a practice: the settings, all data files with the rows of `dataFolder`, the demonstration clients, and books
/// of the accounts product. The folder must not exist or be empty; it appears whole or not at all. Throws
/// std::runtime_error.
void CreatePractice(const std::filesystem::path& programFolder, const std::filesystem::path& dataFolder);

/// Programs that stand in for siblings of the module.
struct StandIns {
    std::filesystem::path auditReader; ///< reads audit reports
    std::filesystem::path booksLink;   ///< brings statements out of the accounts product, by either link
    std::filesystem::path reporter;    ///< prints the computation
};

/// Puts links to them into the practice, under the names by which the module starts its siblings. A link to such a
/// program in another place, that of another version, and one that leads nowhere is replaced; another program that
/// stands there is left alone. A folder that can only be read does without: the module tells it then.
void LinkStandIns(const std::filesystem::path& programFolder, const StandIns& standIns);

} // namespace pgbp
