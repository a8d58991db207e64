#pragma once

#include "store/server.h"

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace pgbp {

/// Makes a practice with that many firms to work on, among four times as many assessee-years that nobody opens. Gives
/// the codes of the firms' years in work.
std::vector<std::string> MakePractice(const std::filesystem::path& folder, int firms);

enum class Indexes { AsInFiles, None };

/// Moves `company` and `balance` of the practice to the server.
void PutOnServer(const std::filesystem::path& folder, const ServerLogin& login, Indexes indexes);

/// Prints what the drivers' words are held against, wherever it lies: each line of business with its income, the
/// other income that it was computed from, how many items it has, and each head of income.
void PrintRows(const std::filesystem::path& folder, std::ostream& out);

} // namespace pgbp
