#pragma once

#include <filesystem>

namespace pgbp {

/// Brings an embedded data file to the schema that this program knows: one step a version, each in a transaction of its
/// own, with a copy of the file beside it first ("company.mdb.v0.bak"). Files of other programs are left as they are.
/// Two processes may do it at once. Throws StoreError that names the file when it is damaged, foreign or of a newer
/// version.
void BringUpToDate(const std::filesystem::path& file);

} // namespace pgbp
