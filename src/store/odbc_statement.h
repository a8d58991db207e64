#pragma once

#include "store/odbc_handle.h"
#include "store/recordset.h"

#include <span>
#include <string>
#include <vector>

namespace pgbp {

/// A statement prepared once in a session and run any number of times. Each call throws EngineError.
class OdbcStatement : public Handle {
  public:
    OdbcStatement(SQLHANDLE session, const std::string& sql);

    void Execute(std::span<const Value> values) const;

    long RowsChanged() const;
    Recordset Rows() const;

    /// Lets go of the rows and values of the last run.
    void Close() const;
};

} // namespace pgbp
