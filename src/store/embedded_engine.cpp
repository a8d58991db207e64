#include "store/embedded_engine.h"

#include "services/text.h"
#include "store/causes.h"
#include "store/joint_journals.h"
#include "store/schema.h"
#include "store/statement.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace pgbp {
namespace {

/// A statement prepared once, with what does not change from run to run.
struct Prepared {
    SQLite::Statement statement;
    std::shared_ptr<const std::vector<std::string>> columns;
    std::vector<bool> isDate;
    std::size_t valueCount = 0;
    std::size_t cellCount = 0; ///< that it gave last time
};

/// The type of the column behind a result; empty for an expression, which has none.
std::string_view DeclaredType(const SQLite::Statement& statement, int column)
{
    try {
        return statement.getColumnDeclaredType(column);
    } catch (const SQLite::Exception&) {
        return {};
    }
}

Prepared Prepare(const SQLite::Database& database, const std::string& sql)
{
    SQLite::Statement statement(database, sql);
    std::vector<std::string> columns;
    std::vector<bool> isDate;
    for (int i = 0; i < statement.getColumnCount(); ++i) {
        columns.emplace_back(statement.getColumnName(i));
        isDate.push_back(DeclaredType(statement, i) == kEmbeddedDialect.dateType);
    }
    return {std::move(statement), std::make_shared<const std::vector<std::string>>(std::move(columns)),
            std::move(isDate), static_cast<std::size_t>(std::count(sql.begin(), sql.end(), '?'))};
}

struct ResetAtEnd {
    SQLite::Statement& statement;
    ~ResetAtEnd() { statement.tryReset(); }
};

/// A whole number goes in as an integer: a text column then holds "1" and not "1.0".
void BindNumber(SQLite::Statement& statement, int at, double number)
{
    constexpr double exactIntegers = 9007199254740992.0;
    if (std::fabs(number) < exactIntegers && number == std::trunc(number))
        statement.bind(at, static_cast<int64_t>(number));
    else
        statement.bind(at, number);
}

void BindText(SQLite::Statement& statement, int at, const std::string& text)
{
    const std::string_view stored = WithoutTrailingBlanks(text);
    if (stored.size() == text.size())
        statement.bindNoCopy(at, text); // the caller's values outlive the run of the statement
    else
        statement.bind(at, std::string(stored));
}

void BindValue(SQLite::Statement& statement, int at, const Value& value)
{
    if (const auto* number = std::get_if<double>(&value.Held()))
        BindNumber(statement, at, *number);
    else if (const auto* text = std::get_if<std::string>(&value.Held()))
        BindText(statement, at, *text);
    else if (const auto* date = std::get_if<DateTime>(&value.Held()))
        statement.bind(at, IsoText(*date));
    else
        statement.bind(at);
}

void AddText(std::string_view text, bool isDate, std::vector<Value>& cells)
{
    if (const auto date = isDate ? FromIsoText(text) : std::nullopt)
        cells.emplace_back(*date);
    else
        cells.emplace_back(text);
}

void AddField(const SQLite::Column& column, bool isDate, std::vector<Value>& cells)
{
    switch (column.getType()) {
    case SQLITE_NULL:
        cells.emplace_back();
        break;
    case SQLITE_INTEGER:
    case SQLITE_FLOAT:
        cells.emplace_back(column.getDouble());
        break;
    default:
        const char* text = column.getText();
        AddText({text, static_cast<std::size_t>(column.getBytes())}, isDate, cells);
    }
}

/// The engine's words with its numbers.
std::string WordsOf(const SQLite::Exception& error, int systemError)
{
    return std::string(error.what()) + " (result " + std::to_string(error.getExtendedErrorCode()) + ", system error " +
           std::to_string(systemError) + ")";
}

class EmbeddedEngine : public Engine {
    template <typename Work>
    auto Run(const std::string& sql, std::span<const Value> values, Work work)
    {
        try {
            Prepared& prepared = Ready(sql);
            if (prepared.valueCount != values.size())
                throw EngineError(Cause::Unknown,
                                  TechnicalText("The statement takes another number of values.", sql, values));
            const ResetAtEnd reset{prepared.statement};
            for (std::size_t i = 0; i < values.size(); ++i)
                BindValue(prepared.statement, static_cast<int>(i + 1), values[i]);
            return work(prepared);
        } catch (const SQLite::Exception& error) {
            const int systemError = sqlite3_system_errno(database_.getHandle());
            const Cause cause = EmbeddedCause(error.getExtendedErrorCode(), systemError);
            if (cause == Cause::Locked)
                SetPatience(0);
            throw EngineError(cause, TechnicalText(WordsOf(error, systemError), sql, values));
        }
    }

  public:
    enum class Access { Write, Read };

    explicit EmbeddedEngine(const std::filesystem::path& file, Access access = Access::Write)
        : database_(file.string(),
                    (access == Access::Write ? SQLite::OPEN_READWRITE : SQLite::OPEN_READONLY) | SQLite::OPEN_NOMUTEX,
                    access == Access::Write ? kBusyTimeoutMilliseconds : 0),
          patience_(access == Access::Write ? kBusyTimeoutMilliseconds : 0)
    {
    }

    void Attach(const std::filesystem::path& file, const std::string& schema)
    {
        SQLite::Statement attach(database_, "attach database ? as " + schema);
        attach.bind(1, file.string());
        attach.exec();
    }

    /// One commit covers several files only with rollback journals, which are also the ones that are safe on a share.
    void UseRollbackJournal(const std::string& schema)
    {
        database_.execAndGet("select count(*) from " + schema +
                             ".sqlite_master"); // a file's mode shows once it is read
        database_.execAndGet("pragma " + schema + ".journal_mode = delete");
        database_.exec("pragma " + schema + ".synchronous = full");
    }

    /// Does the work while all files are held for writing; not at all when another program writes just now.
    template <typename Work>
    void WhileNobodyWrites(Work work)
    {
        const Trial trial(*this);
        if (database_.tryExec("begin immediate") == SQLITE_OK)
            work();
    }

    Recordset Query(const std::string& sql, std::span<const Value> values) override
    {
        return Run(sql, values, [](Prepared& prepared) {
            std::vector<Value> cells;
            cells.reserve(prepared.cellCount);
            std::vector<SQLite::Column> row; // each shows the row on which the statement stands
            while (prepared.statement.executeStep()) {
                for (auto i = row.size(); i < prepared.isDate.size(); ++i)
                    row.push_back(prepared.statement.getColumn(static_cast<int>(i)));
                for (std::size_t i = 0; i < row.size(); ++i)
                    AddField(row[i], prepared.isDate[i], cells);
            }
            prepared.cellCount = cells.size();
            return Recordset(prepared.columns, std::move(cells));
        });
    }

    long Execute(const std::string& sql, std::span<const Value> values) override
    {
        EndAllReadings();
        if (beforeChange && sqlite3_get_autocommit(database_.getHandle()) != 0)
            beforeChange();
        return Run(sql, values, [](Prepared& prepared) -> long { return prepared.statement.exec(); });
    }

    void Begin() override { Execute("begin", {}); }

    /// "begin immediate" would lock all attached files, and the commit would then flush a journal that joins them, also
    /// where one alone was written to. This pragma begins to write to one file: only a file that gives its free pages
    /// back has something to do for it, and none of ours does.
    void LockForWriting(const std::string& tablePrefix) override
    {
        Query("pragma " + (tablePrefix.empty() ? "main." : tablePrefix) + "incremental_vacuum(1)", {});
    }

    void Commit() override { Execute("commit", {}); }

    void Rollback() override
    {
        // A full disk or a lost file has the engine roll back by itself; then there is nothing left to do.
        if (sqlite3_get_autocommit(database_.getHandle()) == 0)
            database_.tryExec("rollback");
    }

    void BeginReading() override
    {
        if (readings_ == 0)
            Query("begin", {});
        ++readings_;
    }
    void EndReading() noexcept override
    {
        if (readings_ > 0 && --readings_ == 0)
            Rollback();
    }

    const Dialect& dialect() const override { return kEmbeddedDialect; }

    /// A temporary table hides the file's one of that name. It has no index: whoever reads it wants nearly all of it.
    void OwnTables(std::span<const std::string_view> tables) override
    {
        Execute("pragma temp_store = memory", {});
        for (const std::string_view table : tables) {
            const Value name[] = {table};
            const Recordset made =
                Query("select sql from main.sqlite_master where type = 'table' and tbl_name = ?", name);
            Execute(Replace(made.First().At(0).Text(), "CREATE TABLE ", "CREATE TEMP TABLE "), {});
        }
    }

    void RenewPatience() override { SetPatience(kBusyTimeoutMilliseconds); }

    void CheckWritable(const std::string& tablePrefix) override
    {
        try {
            TryToWrite(tablePrefix);
        } catch (const EngineError& error) {
            if (error.cause() != Cause::Locked) // where another program writes, this one can
                throw;
        }
    }

  private:
    void EndAllReadings()
    {
        if (std::exchange(readings_, 0) > 0)
            Rollback();
    }

    /// Statements that wait for nobody and leave nothing behind.
    struct Trial {
        EmbeddedEngine& engine;
        int patience = engine.patience_;

        explicit Trial(EmbeddedEngine& itsEngine) : engine(itsEngine) { engine.SetPatience(0); }
        ~Trial()
        {
            engine.Rollback();
            engine.SetPatience(patience);
        }
    };

    /// Changes the first page of a file, which wants the right to it and room for a journal beside it.
    void TryToWrite(const std::string& prefix)
    {
        const Trial trial(*this);
        const std::string version = "pragma " + prefix + "user_version";
        Execute("begin", {});
        const Recordset present = Query(version, {});
        Execute(version + " = " + present.First().At(0).Text(), {});
    }

    Prepared& Ready(const std::string& sql)
    {
        const auto found = prepared_.find(sql);
        return found != prepared_.end() ? found->second : prepared_.emplace(sql, Prepare(database_, sql)).first->second;
    }

    void SetPatience(int milliseconds)
    {
        if (patience_ != milliseconds)
            database_.setBusyTimeout(patience_ = milliseconds);
    }

    SQLite::Database database_;
    int readings_ = 0; ///< that live, one within the other
    int patience_;
    std::unordered_map<std::string, Prepared> prepared_;
};

/// Called at once: the system's error number is that of the engine's last file call.
StoreError Refused(const SQLite::Exception& error, const std::filesystem::path& file)
{
    return {EmbeddedCause(error.getExtendedErrorCode(), errno), Attempt::Open, {file.string()}, error.what()};
}

/// What can not be removed now stays for a later start: it harms nobody.
void TidyUp(EmbeddedEngine& engine, std::span<const std::filesystem::path> files)
{
    engine.WhileNobodyWrites([&] {
        try {
            RemoveUnneededJointJournals(files);
        } catch (const std::filesystem::filesystem_error&) {
            return;
        }
    });
}

} // namespace

Connection OpenEmbeddedFileToRead(const std::filesystem::path& file)
{
    try {
        return {std::make_shared<EmbeddedEngine>(file, EmbeddedEngine::Access::Read), "", {file.string()}};
    } catch (const SQLite::Exception& error) {
        throw Refused(error, file);
    }
}

std::vector<Connection> OpenEmbeddedFiles(std::span<const std::filesystem::path> files)
{
    std::shared_ptr<EmbeddedEngine> engine;
    std::vector<Connection> connections;
    for (const auto& file : files) {
        const bool isFirst = !engine;
        const std::string schema = isFirst ? "main" : '[' + file.stem().string() + ']';
        try {
            if (engine)
                engine->Attach(file, schema);
            else
                engine = std::make_shared<EmbeddedEngine>(file);
            engine->UseRollbackJournal(schema);
        } catch (const SQLite::Exception& error) {
            throw Refused(error, file);
        }
        // a plain name is the session's own table first
        connections.emplace_back(engine, isFirst ? "" : schema + '.', FaultPlace{file.string()});
    }
    if (!JointJournals(files).empty())
        TidyUp(*engine, files);
    return connections;
}

std::vector<Connection> OpenInMemory(std::span<const std::string_view> files)
{
    const std::filesystem::path memory = ":memory:";
    const auto engine = std::make_shared<EmbeddedEngine>(memory);
    std::vector<Connection> connections;
    for (const std::string_view file : files) {
        const std::string schema = connections.empty() ? "" : '[' + std::string(file) + ']';
        if (!connections.empty())
            engine->Attach(memory, schema);
        const std::string prefix = schema.empty() ? "" : schema + '.';
        for (const Table& table : Tables())
            if (table.file == file)
                engine->Execute(
                    Replace(CreateTableText(table, kEmbeddedDialect), "create table ", "create table " + prefix), {});
        connections.emplace_back(engine, prefix, FaultPlace{std::string(file) + " in memory"});
    }
    return connections;
}

} // namespace pgbp
