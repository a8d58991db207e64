#pragma once

#include "startup/run.h"

#include <span>
#include <string>
#include <vector>

namespace pgbp {

/// A table in which rows stand that belong to a line of business.
struct RowsOfLine {
    const Connection* file;
    std::string table;
    std::string condition;       ///< that finds them behind the assessee's code; empty: all that name a line
    std::string line;            ///< column with the number of the line
    bool alsoOfShort = false;    ///< lines that are computed in short have such rows too
    double standsForNoLine = -1; ///< a number that stands there in place of a line's
};

/// All that go with a line, beside its own row.
std::vector<RowsOfLine> RowsOfLines(const Run& run);

/// Rows whose line is not there.
struct StrayRows {
    std::string table;
    double line; ///< the number that they name
    double count;
};

/// The rows of this run's assessee that name another line than one of these.
std::vector<StrayRows> RowsOfNoLine(const Run& run, std::span<const double> lines);

} // namespace pgbp
