#include "suite/row_writer.h"

namespace pgbp {

RowWriter::RowWriter(const Connection& connection, std::string_view table, std::span<const std::string> columns)
    : connection_(connection)
{
    std::string names;
    std::string marks;
    for (const std::string& column : columns) {
        names += (names.empty() ? "[" : ", [") + column + ']';
        marks += marks.empty() ? "?" : ", ?";
    }
    statement_ = "insert into {" + std::string(table) + "} (" + names + ") values (" + marks + ')';
}

} // namespace pgbp
