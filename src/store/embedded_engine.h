#pragma once

#include "store/connection.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace pgbp {

/// How long a statement waits for another program's lock before it fails.
inline constexpr int kBusyTimeoutMilliseconds = 5000;

/// One session over embedded data files that exist, the first one opened and the others attached to it under their name
/// without extension; one connection a file, and a commit covers all of them. Throws StoreError that names the file.
std::vector<Connection> OpenEmbeddedFiles(std::span<const std::filesystem::path> files);

/// A session that reads one embedded file and can write nothing to it. It waits for nobody. Throws StoreError.
Connection OpenEmbeddedFileToRead(const std::filesystem::path& file);

} // namespace pgbp
