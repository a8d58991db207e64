#pragma once

#include "store/connection.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

enum class ColumnKind { Text, Memo, Number, Flag, Date };

struct Column {
    std::string_view name;
    ColumnKind kind;
    int width = 255; ///< of a Text, in characters
};

/// One table of the suite as this module uses it.
struct Table {
    std::string_view file; ///< data file without its extension: "company", "balance", "tax", "qeltemp", "VornTemp" ...
    std::string_view name;
    std::vector<Column> columns;
    std::vector<std::string_view> indexes; ///< columns of each index, "code, Type"
};

/// The whole inventory, in one place.
std::span<const Table> Tables();

/// Widest text the column takes, in characters; 0 where it is not limited. Throws std::out_of_range for unknown names.
int ColumnWidth(std::string_view file, std::string_view table, std::string_view column);

/// A column's declaration in the dialect's engine, "[code] nvarchar(50)".
std::string ColumnText(const Column& column, const Dialect& dialect);

/// The statement that makes the table in the dialect's engine (table name as it stands, without braces).
std::string CreateTableText(const Table& table, const Dialect& dialect);

/// The statements that make its indexes where they are missing. An index that the engine has no words for is left out.
std::vector<std::string> IndexTexts(const Table& table, const Dialect& dialect);

} // namespace pgbp
