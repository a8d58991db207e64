#pragma once

#include "store/connection.h"

#include <span>
#include <string_view>
#include <vector>

namespace pgbp {

enum class ColumnKind { Text, Memo, Number, Flag, Date };

struct Column {
    std::string_view name;
    ColumnKind kind;
    int width = 255; ///< of a Text, in characters
};

struct Index {
    std::string_view name;
    std::string_view columns; ///< "code, Type"
};

/// One table of the suite as this module uses it.
struct Table {
    std::string_view file; ///< data file without its extension: "company", "balance", "tax", "qeltemp", "misc", ...
    std::string_view name;
    std::vector<Column> columns;
    std::vector<Index> indexes;
};

/// The whole inventory, in one place.
std::span<const Table> Tables();

/// Widest text the column takes, in characters; 0 where it is not limited. Throws std::out_of_range for unknown names.
int ColumnWidth(std::string_view file, std::string_view table, std::string_view column);

/// The statement that makes the table in the dialect's engine (table name as it stands, without braces).
std::string CreateTableText(const Table& table, const Dialect& dialect);

} // namespace pgbp
