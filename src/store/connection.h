#pragma once

#include "services/fault.h"
#include "store/dialect.h"
#include "store/recordset.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace pgbp {

/// A data file or the server refused; tells the preparer which one and why.
class StoreError : public Fault {
    using Fault::Fault;
};

/// An engine's refusal, before the connection adds what was attempted and where. `what()` is technical: the engine's
/// words and the statement, without values.
class EngineError : public std::runtime_error {
  public:
    explicit EngineError(Cause cause, const std::string& technical) : std::runtime_error(technical), cause_(cause) {}

    Cause cause() const { return cause_; }

  private:
    Cause cause_;
};

/// The session with a server is gone, and with it its transaction.
class SessionLost : public EngineError {
  public:
    explicit SessionLost(const std::string& technical, Cause cause = Cause::Gone) : EngineError(cause, technical) {}
};

/// A column with its value, for an insert.
struct Field {
    std::string_view column;
    Value value;
};

/// One physical session with an engine. Several connections may share it: the embedded files of one folder are attached
/// to one session, so that one commit covers them all. One thread at a time uses it. Each call throws EngineError.
class Engine {
  public:
    virtual ~Engine() = default;
    /// Runs a statement with its bound values and gives all rows.
    virtual Recordset Query(const std::string& sql, std::span<const Value> values) = 0;
    /// Runs a statement and gives the number of rows it changed.
    virtual long Execute(const std::string& sql, std::span<const Value> values) = 0;
    virtual void Begin() = 0;
    /// Within a transaction: makes the tables under this prefix its own to write to until it ends. An engine whose
    /// locks are those of single rows does nothing.
    virtual void LockForWriting([[maybe_unused]] const std::string& tablePrefix) {}
    virtual void Commit() = 0;
    virtual void Rollback() = 0;
    /// See Reading. An engine whose reads never wait for a file does nothing.
    virtual void BeginReading() {}
    virtual void EndReading() noexcept {}
    virtual const Dialect& dialect() const = 0;
    /// See Connection::OwnTables. An engine without tables of a session's own does nothing.
    virtual void OwnTables([[maybe_unused]] std::span<const std::string_view> tables) {}
    /// A statement waits a few seconds for another program's lock. Once one has waited in vain the next ones fail at
    /// once, until this is called: a locked file costs one wait an action, not one a statement.
    virtual void RenewPatience() {}
    /// Refuses when the tables under this prefix can only be read; leaves nothing behind, and waits for nobody. An
    /// engine that can not tell beforehand does nothing.
    virtual void CheckWritable([[maybe_unused]] const std::string& tablePrefix) {}

    /// Called before each transaction and each change outside of one; what it throws refuses the change. An engine that
    /// reaches its data through a server does not call it.
    std::function<void()> beforeChange;
};

/// One of the run's seven logical connections. In a statement a table stands in braces, "select * from {business} where
/// code = ?", and the connection names it for its engine; a reserved column name stands in brackets, "[Type]". Values
/// are bound, never written into the text. Each call throws StoreError.
class Connection {
  public:
    Connection() = default;
    /// `tablePrefix` goes before each table name in braces; empty where the engine holds this connection's tables
    /// alone. `place` is the file or the server that errors name.
    Connection(std::shared_ptr<Engine> engine, std::string tablePrefix, FaultPlace place = {});

    bool IsOpen() const { return engine_ != nullptr; }
    const FaultPlace& place() const { return place_; }

    /// Throws StoreError when the file can only be read. Nothing of the trial stays.
    void CheckWritable() const;

    template <typename... Values>
    Recordset Query(std::string_view sql, Values&&... values) const
    {
        const Value bound[] = {Value(std::forward<Values>(values))..., Value()};
        return QueryBound(sql, std::span(bound, sizeof...(Values)));
    }

    /// First field of the first row; Null when there is no row.
    template <typename... Values>
    Value Scalar(std::string_view sql, Values&&... values) const
    {
        const Recordset rows = Query(sql, std::forward<Values>(values)...);
        return rows.Empty() ? Value() : rows.First().At(0);
    }

    /// Gives the number of rows changed.
    template <typename... Values>
    long Execute(std::string_view sql, Values&&... values) const
    {
        const Value bound[] = {Value(std::forward<Values>(values))..., Value()};
        return ExecuteBound(sql, std::span(bound, sizeof...(Values)));
    }

    /// Deletes: `fromWhere` is "from {table} where ..."; the dialect's DeleteWord goes before it.
    template <typename... Values>
    long Delete(std::string_view fromWhere, Values&&... values) const
    {
        return Execute(std::string(dialect().DeleteWord) + std::string(fromWhere), std::forward<Values>(values)...);
    }

    /// Adds one row to the table (named without braces).
    void Insert(std::string_view table, std::initializer_list<Field> fields) const;
    void Insert(std::string_view table, std::span<const Field> fields) const;

    /// One more than the largest number of the table's column (the table named without braces). Within a transaction,
    /// to whose end every other session waits with its own: no two get the same number.
    double NextNumber(std::string_view table, std::string_view column) const;

    Recordset QueryBound(std::string_view sql, std::span<const Value> values) const;
    long ExecuteBound(std::string_view sql, std::span<const Value> values) const;

    /// Has this session use empty tables of its own in place of those of its file: of the same columns, in memory, gone
    /// with the session and seen by no other run. Where the engine has no such tables, those of the file serve.
    void OwnTables(std::initializer_list<std::string_view> tables) const
    {
        engine_->OwnTables({tables.begin(), tables.size()});
    }

    const Dialect& dialect() const { return engine_->dialect(); }
    const std::shared_ptr<Engine>& engine() const { return engine_; }

  private:
    friend class Transaction;
    void LockForWriting() const;
    const std::string& Text(std::string_view sql) const;

    std::shared_ptr<Engine> engine_;
    std::string tablePrefix_;
    FaultPlace place_;
    struct Texts;
    std::shared_ptr<Texts> texts_; // statement texts already made ready for the engine
};

/// While it lives each file of the connection's session is seen in the state in which it was first read, and locked
/// once for all reads. A change ends that, and what is read behind it is read as ever. One within another is part of
/// it. The session has no transaction open when it begins, and asks the preparer nothing meanwhile: others can not
/// store. Throws StoreError.
class Reading {
  public:
    explicit Reading(const Connection& file);
    ~Reading() { engine_.EndReading(); }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

  private:
    Engine& engine_;
};

/// Adds many rows to one table (named without braces), each of the same columns in the same order.
class RowsInto {
  public:
    RowsInto(const Connection& file, std::string_view table) : file_(file), table_(table) {}
    void Add(std::vector<Field> fields);

  private:
    const Connection& file_;
    const std::string table_;
    std::string text_;
    std::vector<Value> values_;
};

/// All or nothing over one or more connections. Without Commit the destructor rolls everything back. Names each file
/// that it writes to, always in the same order (`company`, `balance`, `tax`, `qeltemp`): they are locked one after the
/// other, and a commit over files that stay as they are is dearer.
class Transaction {
  public:
    explicit Transaction(std::initializer_list<std::reference_wrapper<const Connection>> connections);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Ends the transaction for good; calling it twice is a mistake of ours. Throws StoreError when the engine refuses;
    /// then nothing of this transaction is in that engine.
    void Commit();

  private:
    std::vector<Connection> open_; // one an engine, those that still stand open
};

} // namespace pgbp
