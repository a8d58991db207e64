#pragma once

#include "store/connection.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// How long a statement waits for another program's lock before it fails.
inline constexpr int kBusyTimeoutMilliseconds = 5000;

/// One session over embedded data files that exist, the first one opened and the others attached to it under their name
/// without extension; one connection a file, and a commit covers all of them. Throws StoreError that names the file.
std::vector<Connection> OpenEmbeddedFiles(std::span<const std::filesystem::path> files);

/// A session that reads one embedded file and can write nothing to it. It waits for nobody. Throws StoreError.
Connection OpenEmbeddedFileToRead(const std::filesystem::path& file);

/// One session over data files of its own in memory, named as in the inventory ("company", "qeltemp" ...): their tables
/// without rows and without indexes, gone with the session. One connection a file.
std::vector<Connection> OpenInMemory(std::span<const std::string_view> files);

} // namespace pgbp
