// The causes behind the numbers of engines that are not at hand; those of the engines at hand are made to fail for
// real.
#include "store/causes.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cerrno>

namespace pgbp {
namespace {

TEST(Causes, OfTheEmbeddedEngineTakeTheFileCallIntoAccount)
{
    const struct {
        int code, systemError;
        Cause cause;
    } cases[] = {
        {SQLITE_IOERR_WRITE, EDQUOT, Cause::DiskFull},
        {SQLITE_IOERR_READ, EIO, Cause::DeviceFailed},
        {SQLITE_IOERR_READ, ESTALE, Cause::Gone},
        {SQLITE_IOERR_LOCK, 0, Cause::DeviceFailed},
        {SQLITE_CANTOPEN, EACCES, Cause::NoRights},
        {SQLITE_CANTOPEN, EROFS, Cause::ReadOnly},
        {SQLITE_CANTOPEN, 0, Cause::Gone},
        {SQLITE_READONLY_DIRECTORY, EACCES, Cause::ReadOnly},
        {SQLITE_READONLY_DBMOVED, 0, Cause::Gone},
        {SQLITE_BUSY_RECOVERY, 0, Cause::Locked},
        {SQLITE_CORRUPT_INDEX, 0, Cause::Damaged},
        {SQLITE_ERROR, EIO, Cause::Unknown},
    };
    for (const auto& one : cases)
        EXPECT_EQ(EmbeddedCause(one.code, one.systemError), one.cause) << one.code << ' ' << one.systemError;
}

TEST(Causes, OfADriverComeFromItsStateAndTheNumberBehindIt)
{
    const struct {
        const char* what;
        const char* state;
        int native;
        Attempt attempt;
        Cause cause;
    } cases[] = {
        {"wrong password, server", "28000", 18456, Attempt::Open, Cause::WrongPassword},
        {"wrong password, Jet", "42000", -1905, Attempt::Open, Cause::WrongPassword},
        {"no such database", "42000", 4060, Attempt::Open, Cause::Gone},
        {"no server", "08001", 17, Attempt::Open, Cause::Gone},
        {"no answer to the login", "HYT00", 0, Attempt::Open, Cause::Gone},
        {"no answer to a statement", "HYT00", 0, Attempt::Save, Cause::Locked},
        {"no such driver", "IM002", 0, Attempt::Open, Cause::NoDriver},
        {"lock held too long", "HYT00", 1222, Attempt::Save, Cause::Locked},
        {"deadlock", "40001", 1205, Attempt::Save, Cause::Locked},
        {"locked row, Jet", "HY000", -1102, Attempt::Save, Cause::Locked},
        {"session lost", "08S01", 10054, Attempt::Read, Cause::Gone},
        {"no right to a table", "42000", 229, Attempt::Read, Cause::NoRights},
        {"file group full", "42000", 1105, Attempt::Save, Cause::DiskFull},
        {"the other make's unknown error of that number", "HY000", 1105, Attempt::Save, Cause::Unknown},
        {"read-only database", "25000", 3906, Attempt::Save, Cause::ReadOnly},
        {"torn page", "HY000", 824, Attempt::Read, Cause::Damaged},
        {"text cut", "22001", 8152, Attempt::Save, Cause::DoesNotFit},
        {"unknown table", "42S02", 208, Attempt::Read, Cause::Unknown},
    };
    for (const auto& one : cases)
        EXPECT_EQ(OdbcCause(one.state, one.native, one.attempt), one.cause) << one.what;
}

} // namespace
} // namespace pgbp
