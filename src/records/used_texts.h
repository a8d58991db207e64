#pragma once

#include "startup/run.h"

#include <string>
#include <vector>

namespace pgbp {

/// Descriptions and sections that were used before for a list of this type, each once: this client's of both years
/// first, then those among the practice's latest rows.
struct UsedTexts {
    std::vector<std::string> name1;
    std::vector<std::string> name2;
};

/// For the detail rows of a list. Reads the client's rows and a fixed number of others, however large the practice is.
UsedTexts TextsUsedInLists(const Run& run, std::string_view type);

/// For the two descriptions of a line of business, of any kind.
UsedTexts TextsUsedInLines(const Run& run);

} // namespace pgbp
