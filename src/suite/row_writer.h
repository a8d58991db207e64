#pragma once

#include "store/connection.h"

#include <span>
#include <string>

namespace pgbp {

/// Adds many rows to one table with a statement that is written once.
class RowWriter {
  public:
    RowWriter(const Connection& connection, std::string_view table, std::span<const std::string> columns);
    /// One value a column, in their order. Throws StoreError.
    void Add(std::span<const Value> values) const { connection_.ExecuteBound(statement_, values); }

  private:
    const Connection& connection_;
    std::string statement_;
};

} // namespace pgbp
