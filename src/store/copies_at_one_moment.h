#pragma once

#include <filesystem>
#include <span>

namespace pgbp {

/// An embedded data file, and where its copy is made; no file stands there yet.
struct FileToCopy {
    std::filesystem::path from;
    std::filesystem::path to;
};

/// Copies the files as they all stand at one and the same moment, while others read and write them: what one commit
/// stored in several files is in all copies or in none. Others store nothing at that moment itself, which is short
/// where they left the files alone shortly before, and ends after two seconds in any case. The copies are not on the
/// disk for certain yet. Throws StoreError that names the file; after a minute without such a moment, too.
void CopyAtOneMoment(std::span<const FileToCopy> files);

} // namespace pgbp
