#pragma once

#include "store/schema.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pgbp {

/// Rows of one table as a text file holds them. Two columns stand for keys that are known only when the rows are
/// written: `year`, the assessment year, for the row's `code`; `line`, the number of a line of business within its
/// year, for its `sno`.
struct TableText {
    std::string name; ///< "company.business"; any other word for rows that are no table
    std::vector<std::string> columns;
    std::vector<std::vector<Value>> rows;

    /// Index of the column; throws std::out_of_range that names the table when it is missing.
    std::size_t IndexOf(std::string_view column) const;
};

// Format of the files: one line a row, fields parted by tabs, the first line names the columns. An empty field is Null,
// yes and no (or 1 and 0) are flags, a date is 2024-03-31 with or without its time. Lines that begin with # and columns
// whose name does are remarks. Both readers throw std::runtime_error that names the file and the line.

/// A file of one table, without further columns than the table has.
TableText ReadTable(const std::filesystem::path& path, const Table& table);

/// A file of several tables. Each begins with a line "[file.table]", behind it fields "column=value" that hold for all
/// its rows.
std::vector<TableText> ReadTables(const std::filesystem::path& path);

} // namespace pgbp
