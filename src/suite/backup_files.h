#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace pgbp {

/// A file of a practice that belongs into its backup.
struct PracticeFile {
    std::string name;        ///< its path in the practice
    bool isEmbedded = false; ///< one that the embedded engine copies
};

/// What a backup takes, and in words what it can not take.
struct BackedUpFiles {
    std::vector<PracticeFile> files;
    std::vector<std::string> without;
};

/// Looks through the practice. The hand-over and the working file belong to a run that is under way and mean nothing
/// later: they are not taken. Throws StoreError where one of the practice's own data files is none any more.
BackedUpFiles FilesToBackUp(const std::filesystem::path& programFolder);

/// Something that a preparer stored is in such a file, not how a workstation left its windows or what a run handed
/// over.
bool HoldsWork(const std::string& name);

} // namespace pgbp
