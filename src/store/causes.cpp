#include "store/causes.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

namespace pgbp {
namespace {

struct EmbeddedCode {
    int code; ///< an extended one before the one it belongs to
    Cause cause;
};

constexpr EmbeddedCode kEmbeddedCodes[] = {
    {SQLITE_READONLY_DBMOVED, Cause::Gone},
    {SQLITE_READONLY, Cause::ReadOnly},
    {SQLITE_FULL, Cause::DiskFull},
    {SQLITE_CORRUPT, Cause::Damaged},
    {SQLITE_IOERR_SHORT_READ, Cause::Damaged},
    {SQLITE_NOTADB, Cause::NotADataFile},
    {SQLITE_BUSY, Cause::Locked},
    {SQLITE_LOCKED, Cause::Locked},
    {SQLITE_PERM, Cause::NoRights},
    {SQLITE_AUTH, Cause::NoRights},
    {SQLITE_CONSTRAINT, Cause::DoesNotFit},
    {SQLITE_TOOBIG, Cause::DoesNotFit},
    {SQLITE_MISMATCH, Cause::DoesNotFit},
};

/// A `native` of 0 stands for any, an empty `state` too.
struct OdbcCode {
    std::string_view state;
    int native;
    Cause cause;
};

// The numbers of MariaDB and MySQL, of SQL Server and of Jet (below 0). Those that two of them use for different things
// are told apart by the state.
constexpr OdbcCode kOdbcCodes[] = {
    {"IM002", 0, Cause::NoDriver},     {"IM003", 0, Cause::NoDriver},     {"", 1045, Cause::WrongPassword},
    {"", 18456, Cause::WrongPassword}, {"", -1905, Cause::WrongPassword}, {"28000", 0, Cause::WrongPassword},
    {"", 1021, Cause::DiskFull},       {"", 1114, Cause::DiskFull},       {"42000", 1105, Cause::DiskFull},
    {"", 9002, Cause::DiskFull},       {"", -1808, Cause::DiskFull},      {"", 1036, Cause::ReadOnly},
    {"", 1290, Cause::ReadOnly},       {"", 1792, Cause::ReadOnly},       {"", 3906, Cause::ReadOnly},
    {"", -1809, Cause::ReadOnly},      {"", 1034, Cause::Damaged},        {"", 1194, Cause::Damaged},
    {"", 1712, Cause::Damaged},        {"", 823, Cause::Damaged},         {"", 824, Cause::Damaged},
    {"", -1206, Cause::Damaged},       {"", -1028, Cause::NotADataFile},  {"", 1205, Cause::Locked},
    {"", 1213, Cause::Locked},         {"", 1222, Cause::Locked},         {"", 3024, Cause::Locked},
    {"", 1969, Cause::Locked},         {"", -1102, Cause::Locked},        {"", -1024, Cause::Locked},
    {"", -1202, Cause::Locked},        {"", -1302, Cause::Locked},        {"40001", 0, Cause::Locked},
    {"", 1044, Cause::NoRights},       {"", 1142, Cause::NoRights},       {"", 1143, Cause::NoRights},
    {"", 229, Cause::NoRights},        {"", 230, Cause::NoRights},        {"", 262, Cause::NoRights},
    {"", 916, Cause::NoRights},        {"", -1032, Cause::NoRights},      {"", 1049, Cause::Gone},
    {"", 4060, Cause::Gone},           {"", 2002, Cause::Gone},           {"", 2003, Cause::Gone},
    {"", 2005, Cause::Gone},           {"", 2006, Cause::Gone},           {"", 2013, Cause::Gone},
    {"", 1927, Cause::Gone},           {"", -1023, Cause::Gone},          {"", -1811, Cause::Gone},
    {"", -1022, Cause::DeviceFailed},  {"22001", 0, Cause::DoesNotFit},   {"22003", 0, Cause::DoesNotFit},
    {"22007", 0, Cause::DoesNotFit},   {"22018", 0, Cause::DoesNotFit},   {"", 1366, Cause::DoesNotFit},
    {"", 1406, Cause::DoesNotFit},     {"", 8152, Cause::DoesNotFit},
};

} // namespace

Cause EmbeddedCause(int extendedCode, int systemError)
{
    const int primary = extendedCode & 0xFF;
    const auto found =
        std::find_if(std::begin(kEmbeddedCodes), std::end(kEmbeddedCodes),
                     [&](const EmbeddedCode& each) { return each.code == extendedCode || each.code == primary; });
    if (found != std::end(kEmbeddedCodes))
        return found->cause;
    if (primary != SQLITE_CANTOPEN && primary != SQLITE_IOERR)
        return Cause::Unknown;
    const Cause cause = CauseOf(systemError);
    const Cause otherwise = primary == SQLITE_CANTOPEN ? Cause::Gone : Cause::DeviceFailed;
    return cause == Cause::Unknown ? otherwise : cause;
}

/// A session that is lost or does not come about has states of its own, whatever the engine's number.
Cause OdbcCause(std::string_view state, int native, Attempt attempt)
{
    const auto found = std::find_if(std::begin(kOdbcCodes), std::end(kOdbcCodes), [&](const OdbcCode& each) {
        return (each.native == 0 || each.native == native) && (each.state.empty() || each.state == state);
    });
    if (found != std::end(kOdbcCodes))
        return found->cause;
    if (state == "01000" && attempt == Attempt::Open) // the driver manager's answer where the driver's file is missing
        return Cause::NoDriver;
    if (state == "HYT00") // a login or a statement that took too long
        return attempt == Attempt::Open ? Cause::Gone : Cause::Locked;
    return state.starts_with("08") || state == "HYT01" ? Cause::Gone : Cause::Unknown;
}

} // namespace pgbp
