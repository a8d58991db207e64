#pragma once

#include "startup/run.h"

#include <optional>
#include <string>

namespace pgbp {

/// The assessee's books in the accounts product.
struct LinkedClient {
    Connection books;
    std::string code; ///< key of the client and year there
};

/// Looks for the linked client: the folder and the client number stand among the suite's settings. Nothing when there
/// is no link, no file, or when the file cannot be read: the screens do without it.
std::optional<LinkedClient> FindLinkedClient(const Run& run);

} // namespace pgbp
