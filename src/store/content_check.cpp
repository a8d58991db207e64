#include "store/content_check.h"

#include "store/causes.h"
#include "store/connection.h"
#include "store/embedded_code.h"
#include "store/embedded_engine.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace pgbp {
namespace {

/// A private copy on disk that goes with its session. Writers get their turn between the pieces, after which the engine
/// begins anew; where they leave no peace, there is no copy.
SQLite::Database CopyOf(const std::filesystem::path& file, const std::stop_token& stop)
{
    constexpr int kPagesAtOnce = 1000;
    constexpr std::chrono::milliseconds kPause(2);
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    SQLite::Database source(file.string(), SQLite::OPEN_READONLY, kBusyTimeoutMilliseconds);
    SQLite::Database copy("", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    SQLite::Backup backup(copy, source);
    while (backup.executeStep(kPagesAtOnce) != SQLITE_DONE) {
        if (stop.stop_requested() || std::chrono::steady_clock::now() > end)
            throw SQLite::Exception("the check was ended", SQLITE_INTERRUPT);
        std::this_thread::sleep_for(kPause);
    }
    return copy;
}

/// Ends the statement that runs in the database when `stop` is asked for.
void EndWhenStopped(SQLite::Database& database, const std::stop_token& stop)
{
    constexpr int kStepsBetween = 10000;
    const auto isStopped = [](void* token) {
        return static_cast<int>(static_cast<const std::stop_token*>(token)->stop_requested());
    };
    sqlite3_progress_handler(database.getHandle(), kStepsBetween, isStopped, const_cast<std::stop_token*>(&stop));
}

bool IsDamage(const SQLite::Exception& error)
{
    return error.getErrorCode() == SQLITE_CORRUPT || error.getErrorCode() == SQLITE_NOTADB;
}

/// What the engine finds in the database that `open` gives.
template <typename Open>
std::optional<std::string> DamageFound(const std::filesystem::path& file, Open open)
try {
    SQLite::Database database = open();
    const std::string found = database.execAndGet("pragma integrity_check(1)").getString();
    return found == "ok" ? std::nullopt : std::optional(found);
} catch (const SQLite::Exception& error) {
    if (IsDamage(error))
        return error.what();
    throw StoreError(EmbeddedCause(CodeOf(error), errno), Attempt::Read, {file.string()}, error.what());
}

} // namespace

std::optional<std::string> DamageOf(const std::filesystem::path& file, const std::stop_token& stop)
{
    return DamageFound(file, [&] {
        SQLite::Database copy = CopyOf(file, stop);
        EndWhenStopped(copy, stop);
        return copy;
    });
}

std::optional<std::string> DamageOfQuiet(const std::filesystem::path& file)
{
    return DamageFound(file, [&] { return SQLite::Database(file.string(), SQLite::OPEN_READONLY); });
}

} // namespace pgbp
