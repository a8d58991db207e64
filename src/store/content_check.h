#pragma once

#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>

namespace pgbp {

/// What the engine finds wrong in an embedded data file: its pages, and each figure against its second copy in an
/// index. Nothing when the file is whole. Reads a copy, so that nobody waits for more than a few pages. Throws
/// StoreError when the file can not be read, or when `stop` is asked for.
std::optional<std::string> DamageOf(const std::filesystem::path& file, const std::stop_token& stop);

/// The same of a file that nobody writes to, without a copy.
std::optional<std::string> DamageOfQuiet(const std::filesystem::path& file);

} // namespace pgbp
