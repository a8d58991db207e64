#pragma once

#include "startup/run.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace pgbp {

/// The assessee's books in the accounts product.
struct LinkedClient {
    Connection books;
    std::string code; ///< key of the client and year there
};

/// The books of all clients. The folder stands among the suite's settings; without that it is none.
std::filesystem::path BooksFile(const Run& run);

/// "2023-2024" for "2023-24", as some tables of the accounts product have the year.
std::string BothYearsInFull(std::string_view glyear);

/// Looks for the linked client in that year: the client number stands among the suite's settings. Nothing when there is
/// no link, no file, or when the file cannot be read: the screens do without it.
std::optional<LinkedClient> FindLinkedClient(const Run& run, const std::string& year);

} // namespace pgbp
