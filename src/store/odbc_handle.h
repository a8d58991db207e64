#pragma once

#include "services/fault.h"
#include "store/connection.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <string>

namespace pgbp {

/// A text's units as the driver manager takes them.
SQLWCHAR* Units(std::u16string& text);

/// One handle of the driver manager, freed with its owner.
class Handle {
  public:
    /// Throws EngineError when the driver manager gives none.
    Handle(SQLSMALLINT type, SQLHANDLE parent);
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { SQLFreeHandle(type_, handle_); }

    SQLHANDLE get() const { return handle_; }

    /// Throws EngineError with the driver's words when the call on this handle has failed.
    void Check(SQLRETURN result, Attempt attempt = Attempt::Save) const;

  private:
    SQLSMALLINT type_;
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

} // namespace pgbp
