#include "store/dialect.h"

#include "services/text.h"

namespace pgbp {
namespace {

std::string Filled(std::string_view pattern, std::string_view column, int length = 0)
{
    return Replace(Replace(pattern, "{n}", std::to_string(length)), "{}", column);
}

constexpr Dialect kSqlServer{
    .name = "server",
    .DeleteWord = "Delete ",
    .UpperWord = "Upper",
    .noMinor = "minor is NULL",
    .noMinorOrZero = "(minor is NULL or minor = 0)",
    .noMinorOrZeroUnparsed = "(minor is NULL or minor = 0)",
    .statusAtMost3 = "cast(status as float) <= 3",
    .trueLiteral = "1",
    .insertionOrder = "", // the suite's server tables hold no column that tells it
    .latestRows = "",
    .firstRowsPattern = "select top {n} {}",
    .sessionStart = "set lock_timeout 5000",
    .lockPattern = "",
    .lockClause = " with (tablockx, holdlock)",
    .leftPattern = "left({},{n})",
    .rightPattern = "right({},{n})",
    .trimPattern = "rtrim(ltrim({}))",
    .asNumberPattern = "coalesce(cast({} as float),0)",
    .textType = "nvarchar({n})",
    .memoType = "nvarchar(4000)",
    .numberType = "double precision",
    .flagType = "bit",
    .dateType = "datetime",
};

constexpr Dialect MariaDb()
{
    Dialect dialect = kSqlServer;
    dialect.name = "mariadb";
    // its own way of reading locks the room between two assessees too: their saves would stop each other
    dialect.sessionStart = "set session innodb_lock_wait_timeout = 5, lock_wait_timeout = 5, max_statement_time = 5, "
                           "tx_isolation = 'READ-COMMITTED'";
    // the row with the smallest number, which stays, stands for the table: what is added behind the largest one while
    // that is waited for would not be seen
    dialect.lockPattern = "select {} from {t} order by {} limit 1 for update";
    dialect.lockClause = " for update";
    dialect.firstRowsPattern = "select {} limit {n}";
    return dialect;
}

} // namespace

const Dialect kJetDialect{
    .name = "jet",
    .DeleteWord = "Delete  * ",
    .UpperWord = "Ucase",
    .noMinor = "isnull(minor) = true",
    .noMinorOrZero = "(isnull(minor) = true or val(minor) = 0)",
    .noMinorOrZeroUnparsed = "(isnull(minor) = true or minor = 0)",
    .statusAtMost3 = "val(status) <= 3",
    .trueLiteral = "True",
    .insertionOrder = "", // the engine reads a table without a key in the order of its pages
    .latestRows = "",
    .firstRowsPattern = "select top {n} {}",
    .sessionStart = "", // the connection string says it
    // reading locks nothing here: the row with the smallest number, which stays, stands for the table
    .lockPattern = "update {t} set {} = {} where {} = (select min({}) from {t})",
    .lockClause = "",
    .leftPattern = "left({},{n})",
    .rightPattern = "right({},{n})",
    .trimPattern = "trim({})",
    .asNumberPattern = "val({} & '')",
    .textType = "text({n})",
    .memoType = "memo",
    .numberType = "double",
    .flagType = "yesno",
    .dateType = "datetime",
};

const Dialect kServerDialect = kSqlServer;
const Dialect kMariaDbDialect = MariaDb();

// The engine would take a text for a number and cut none that is too long: its tables refuse both, as the servers do.
// A function's result loses its column's collation, so the text functions ask for it again.
const Dialect kEmbeddedDialect{
    .name = "embedded",
    .DeleteWord = "Delete ",
    .UpperWord = "Upper",
    .noMinor = "minor is NULL",
    .noMinorOrZero = "(minor is NULL or minor = 0)",
    .noMinorOrZeroUnparsed = "(minor is NULL or minor = 0)",
    .statusAtMost3 = "cast(status as real) <= 3",
    .trueLiteral = "1",
    .insertionOrder = " order by rowid",
    .latestRows = " order by rowid desc limit 300",
    .firstRowsPattern = "select {} limit {n}",
    .sessionStart = "", // the engine's opening says it
    .lockPattern = "",  // a transaction that writes has the file to itself from its beginning
    .lockClause = "",
    .leftPattern = "substr({},1,{n}) collate nocase",
    .rightPattern = "substr({},-{n}) collate nocase",
    .trimPattern = "trim({}) collate nocase",
    .asNumberPattern = "coalesce(cast({} as real),0)",
    .textType = "text collate nocase check (length({}) <= {n})",
    .memoType = "text collate nocase",
    .numberType = "double check (typeof({}) <> 'text')",
    .flagType = "boolean check (typeof({}) <> 'text')",
    .dateType = "datetime",
};

std::string Dialect::Left(std::string_view column, int length) const { return Filled(leftPattern, column, length); }

std::string Dialect::Right(std::string_view column, int length) const { return Filled(rightPattern, column, length); }

std::string Dialect::Trim(std::string_view column) const { return Filled(trimPattern, column); }

std::string Dialect::AsNumber(std::string_view column) const { return Filled(asNumberPattern, column); }

std::string Dialect::Upper(std::string_view column) const
{
    return std::string(UpperWord) + '(' + std::string(column) + ')';
}

std::string Dialect::FirstRows(std::string_view ofSelect, int count) const
{
    return Filled(firstRowsPattern, ofSelect, count);
}

std::string Dialect::Lock(std::string_view table, std::string_view column) const
{
    return Filled(Replace(lockPattern, "{t}", '{' + std::string(table) + '}'), '[' + std::string(column) + ']');
}

const Dialect& ServerDialect(std::string_view product)
{
    return EqualsIgnoringCase(product, "MariaDB") ? kMariaDbDialect : kServerDialect;
}

} // namespace pgbp
