#include "store/upgrade.h"

#include "services/fresh_file.h"
#include "services/text.h"
#include "store/causes.h"
#include "store/embedded_code.h"
#include "store/embedded_engine.h"
#include "store/files.h"
#include "store/schema.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <cerrno>

namespace pgbp {
namespace {

using Step = void (*)(SQLite::Database&, std::string_view file);

/// Files that the module writes to for good. All others are read, or made anew for each run.
constexpr std::string_view kKeptFiles[] = {"company", "balance", "tax", "qeltemp"};

bool HasTable(const SQLite::Database& database, const Table& table)
{
    SQLite::Statement found(database, "select 1 from sqlite_master where type = 'table' and name = ? collate nocase");
    found.bind(1, std::string(table.name));
    return found.executeStep();
}

bool HasColumn(const SQLite::Database& database, const Table& table, const Column& column)
{
    SQLite::Statement found(database, "select 1 from pragma_table_info(?) where name = ? collate nocase");
    found.bind(1, std::string(table.name));
    found.bind(2, std::string(column.name));
    return found.executeStep();
}

void AddMissingColumns(SQLite::Database& database, const Table& table)
{
    for (const Column& column : table.columns)
        if (!HasColumn(database, table, column))
            database.exec("alter table [" + std::string(table.name) + "] add column " +
                          ColumnText(column, kEmbeddedDialect));
}

void AddMissingTablesAndIndexes(SQLite::Database& database, std::string_view file)
{
    for (const Table& table : Tables()) {
        if (!EqualsIgnoringCase(table.file, file))
            continue;
        if (HasTable(database, table))
            AddMissingColumns(database, table);
        else
            database.exec(CreateTableText(table, kEmbeddedDialect));
        for (const std::string& index : IndexTexts(table, kEmbeddedDialect))
            database.exec(index);
    }
}

/// Columns whose content a person would not notice to have changed: all but names and notes.
bool IsFigure(const Column& column)
{
    constexpr std::string_view kAmountInWords = "name8"; // of the schedule's cells
    const bool isNote = column.kind == ColumnKind::Memo || (column.kind == ColumnKind::Text && column.width >= 255);
    return !isNote || column.name == kAmountInWords;
}

/// The table's figures as the columns of an index.
std::string Figures(const Table& table)
{
    std::string columns;
    for (const Column& column : table.columns)
        if (IsFigure(column))
            columns += (columns.empty() ? "[" : ",[") + std::string(column.name) + "] collate binary";
    return columns;
}

/// An index over all figures of a table is a second copy of them, which every program that writes through the engine
/// keeps up: the daily check holds one against the other. No statement is served by it, since it is sorted as none
/// asks.
void AddSecondCopies(SQLite::Database& database, std::string_view file)
{
    constexpr std::string_view kPractice[] = {"company", "balance", "tax"};
    for (const Table& table : Tables()) {
        if (!EqualsIgnoringCase(table.file, file) || std::ranges::find(kPractice, table.file) == std::end(kPractice))
            continue;
        const std::string figures = Figures(table);
        if (!figures.empty())
            database.exec("create index if not exists [" + std::string(table.name) + "_figures] on [" +
                          std::string(table.name) + "] (" + figures + ")");
    }
}

/// Step n leads from version n to version n + 1.
constexpr Step kSteps[] = {AddMissingTablesAndIndexes, AddSecondCopies};
constexpr int kSchemaVersion = static_cast<int>(std::size(kSteps));

int Version(SQLite::Database& database) { return database.execAndGet("pragma user_version").getInt(); }

void SetVersion(SQLite::Database& database, int version)
{
    database.exec("pragma user_version = " + std::to_string(version));
}

/// Through the engine, since a plain copy would let go of this process's locks on the file when it closes it.
void CopyBeside(const std::filesystem::path& file, int version)
{
    FreshFile copy(file.string() + ".v" + std::to_string(version) + ".bak", Rights::OwnerAlone);
    {
        SQLite::Database source(file.string(), SQLite::OPEN_READONLY, kBusyTimeoutMilliseconds);
        SQLite::Database target(copy.path().string(), SQLite::OPEN_READWRITE);
        SQLite::Backup(target, source).executeStep();
    }
    copy.TakeRightsOf(file);
    copy.TakePlace();
}

void UpgradeOneStep(SQLite::Database& database, const std::filesystem::path& file)
{
    SQLite::Transaction lock(database, SQLite::TransactionBehavior::IMMEDIATE);
    const int version = Version(database);
    if (version >= kSchemaVersion)
        return; // another process was faster
    CopyBeside(file, version);
    kSteps[version](database, file.stem().string());
    SetVersion(database, version + 1);
    lock.commit();
}

/// Called at once: the system's error number is that of the engine's last file call.
StoreError Refused(const SQLite::Exception& error, const std::filesystem::path& file)
{
    return {EmbeddedCause(CodeOf(error), errno), Attempt::Open, {file.string()}, error.what()};
}

/// True when the inventory knows no table of such a file, or the file holds one of them.
bool HoldsItsTables(const SQLite::Database& database, std::string_view file)
{
    bool known = false;
    for (const Table& table : Tables())
        if (EqualsIgnoringCase(table.file, file)) {
            known = true;
            if (HasTable(database, table))
                return true;
        }
    return !known;
}

void CheckAndUpgrade(SQLite::Database& database, const std::filesystem::path& file)
{
    const std::string stem = file.stem().string();
    if (!HoldsItsTables(database, stem))
        throw StoreError(Cause::NotADataFile, Attempt::Open, {file.string()},
                         "The file holds none of the tables of \"" + stem + "\".");
    const auto isKept = [&](std::string_view kept) { return EqualsIgnoringCase(kept, stem); };
    if (std::none_of(std::begin(kKeptFiles), std::end(kKeptFiles), isKept))
        return;
    if (Version(database) > kSchemaVersion)
        throw StoreError(Cause::NewerVersion, Attempt::Open, {file.string()},
                         "Schema version " + std::to_string(Version(database)));
    while (Version(database) < kSchemaVersion)
        UpgradeOneStep(database, file);
}

} // namespace

void BringUpToDate(const std::filesystem::path& file)
{
    try {
        SQLite::Database database(file.string(), SQLite::OPEN_READWRITE, kBusyTimeoutMilliseconds);
        CheckAndUpgrade(database, file);
    } catch (const SQLite::Exception& error) {
        throw Refused(error, file);
    }
}

void CreateEmbeddedFile(const std::filesystem::path& path, std::string_view file)
{
    FreshFile fresh(path);
    try {
        SQLite::Database database(fresh.path().string(), SQLite::OPEN_READWRITE);
        SQLite::Transaction whole(database);
        for (const Step step : kSteps)
            step(database, file);
        SetVersion(database, kSchemaVersion);
        whole.commit();
    } catch (const SQLite::Exception& error) {
        throw Refused(error, path);
    }
    if (!fresh.TakeFreePlace())
        throw StoreError("The data file \"" + path.string() + "\" stands already.");
}

} // namespace pgbp
