#pragma once

#include <SQLiteCpp/Exception.h>

namespace pgbp {

/// The engine's result code, extended where the refusal carries that: one of a copy carries the plain code alone.
inline int CodeOf(const SQLite::Exception& error)
{
    return error.getExtendedErrorCode() >= 0 ? error.getExtendedErrorCode() : error.getErrorCode();
}

} // namespace pgbp
