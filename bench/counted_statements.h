#pragma once

#include <sqlite3.h>

namespace pgbp {

/// Statements that any engine of this process has run, once CountStatements is told.
inline long statementsRun = 0;

/// Before the first engine is opened.
inline void CountStatements()
{
    const auto open = [](sqlite3* database, char**, const sqlite3_api_routines*) {
        const auto count = [](unsigned, void*, void*, void*) {
            ++statementsRun;
            return 0;
        };
        return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, count, nullptr);
    };
    int (*const entry)(sqlite3*, char**, const sqlite3_api_routines*) = open;
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(entry));
}

} // namespace pgbp
