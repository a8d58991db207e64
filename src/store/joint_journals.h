#pragma once

#include <filesystem>
#include <span>
#include <vector>

namespace pgbp {

// While one commit covers several files, a joint journal beside one of them ("company.mdb-mj1B2C3D9E0") lists the
// journals of all. As long as it stands they are rolled back, without it they count as committed. A writer that is
// killed before the journals name it leaves it behind for good.

/// The joint journals that stand beside the data files.
std::vector<std::filesystem::path> JointJournals(std::span<const std::filesystem::path> files);

/// Removes those that nobody needs any more. All the files must be held for writing meanwhile, so that no commit is
/// under way.
void RemoveUnneededJointJournals(std::span<const std::filesystem::path> files);

} // namespace pgbp
