#pragma once

#include "startup/run.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pgbp {

/// The books that the assessee keeps in the accounts product, for the year of the run. That product's data file is only
/// read.
struct LinkedClient {
    std::string folder; ///< of the product, as the suite's settings have it
    double number = 0;  ///< of the client there
    std::string code;   ///< key of the client and year there
    Connection books;

    /// Status of the client there. Throws StoreError, as each read of the books does.
    std::string Status() const;
};

/// The data file of the accounts product. Its folder stands among the suite's settings; without that it is none.
std::filesystem::path BooksFile(const Run& run);

/// Number of the client in the accounts product, as the suite's settings have it; 0 without a link.
double LinkedNumber(const Run& run);

/// Key of the client and year in these books; empty when they have none. The product writes a year with both of its
/// years in full, "2023-2024", in older books as the suite does.
std::string LinkedCode(const Connection& books, double client, const std::string& glyear);

/// Looks for the assessee's books. Nothing without a link, a file or a year there, and nothing when the file can not be
/// read just now, whatever the reason: the screens do without it.
std::optional<LinkedClient> FindLinkedClient(const Run& run);

} // namespace pgbp
