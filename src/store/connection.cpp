#include "store/connection.h"

#include "services/text.h"
#include "store/statement.h"

#include <algorithm>
#include <cassert>
#include <functional>
#include <unordered_map>

namespace pgbp {
namespace {

struct TextHash : std::hash<std::string_view> {
    using is_transparent = void;
};

/// Asks an engine; its refusal becomes one that names the file or server.
template <typename Work>
auto Ask(Attempt attempt, const FaultPlace& place, Work work)
{
    try {
        return work();
    } catch (const EngineError& error) {
        throw StoreError(error.cause(), attempt, place, error.what());
    }
}

std::string InsertText(std::string_view table, std::span<const Field> fields)
{
    std::string columns;
    std::string marks;
    for (const Field& field : fields) {
        columns.append(columns.empty() ? "[" : ",[").append(field.column).append("]");
        marks += marks.empty() ? "?" : ",?";
    }
    return "insert into {" + std::string(table) + "} (" + columns + ") values (" + marks + ")";
}

void RollbackAll(const std::vector<Connection>& connections)
{
    for (const Connection& connection : connections)
        connection.engine()->Rollback();
}

} // namespace

struct Connection::Texts {
    std::unordered_map<std::string, std::string, TextHash, std::equal_to<>> ready;
};

Connection::Connection(std::shared_ptr<Engine> engine, std::string tablePrefix, FaultPlace place)
    : engine_(std::move(engine)), tablePrefix_(std::move(tablePrefix)), place_(std::move(place)),
      texts_(std::make_shared<Texts>())
{
}

void Connection::CheckWritable() const
{
    Ask(Attempt::Open, place_, [&] { engine_->CheckWritable(tablePrefix_); });
}

void Connection::LockForWriting() const
{
    Ask(Attempt::Save, place_, [&] { engine_->LockForWriting(tablePrefix_); });
}

const std::string& Connection::Text(std::string_view sql) const
{
    if (const auto found = texts_->ready.find(sql); found != texts_->ready.end())
        return found->second;
    std::string text = Replace(Replace(sql, "{", tablePrefix_ + '['), "}", "]");
    return texts_->ready.emplace(sql, std::move(text)).first->second;
}

Recordset Connection::QueryBound(std::string_view sql, std::span<const Value> values) const
{
    return Ask(Attempt::Read, place_, [&] {
        const std::string& text = Text(sql);
        CheckValues(text, values);
        return engine_->Query(text, values);
    });
}

long Connection::ExecuteBound(std::string_view sql, std::span<const Value> values) const
{
    return Ask(Attempt::Save, place_, [&] {
        const std::string& text = Text(sql);
        CheckValues(text, values);
        return engine_->Execute(text, values);
    });
}

void Connection::Insert(std::string_view table, std::initializer_list<Field> fields) const
{
    Insert(table, std::span(fields.begin(), fields.size()));
}

void Connection::Insert(std::string_view table, std::span<const Field> fields) const
{
    std::vector<Value> values;
    values.reserve(fields.size());
    for (const Field& field : fields)
        values.push_back(field.value);
    ExecuteBound(InsertText(table, fields), values);
}

double Connection::NextNumber(std::string_view table, std::string_view column) const
{
    if (const std::string lock = dialect().Lock(table, column); !lock.empty())
        Execute(lock);
    const std::string largest = "select max([" + std::string(column) + "]) as [max] from {" + std::string(table) + '}';
    return Scalar(largest + std::string(dialect().lockClause)).Number() + 1;
}

void RowsInto::Add(std::vector<Field> fields)
{
    if (text_.empty())
        text_ = InsertText(table_, fields);
    values_.resize(fields.size());
    for (std::size_t i = 0; i < fields.size(); ++i)
        values_[i] = std::move(fields[i].value);
    file_.ExecuteBound(text_, values_);
}

Reading::Reading(const Connection& file) : engine_(*file.engine())
{
    Ask(Attempt::Read, file.place(), [&] { engine_.BeginReading(); });
}

Transaction::Transaction(std::initializer_list<std::reference_wrapper<const Connection>> connections)
{
    try {
        for (const Connection& connection : connections) {
            const auto isOfThisEngine = [&](const Connection& each) { return each.engine() == connection.engine(); };
            if (std::none_of(open_.begin(), open_.end(), isOfThisEngine)) {
                Ask(Attempt::Save, connection.place(), [&] { connection.engine()->Begin(); });
                open_.push_back(connection);
            }
            connection.LockForWriting();
        }
    } catch (...) {
        RollbackAll(open_);
        throw;
    }
}

Transaction::~Transaction() { RollbackAll(open_); }

void Transaction::Commit()
{
    assert(!open_.empty());
    while (!open_.empty()) {
        Ask(Attempt::Save, open_.front().place(), [&] { open_.front().engine()->Commit(); });
        open_.erase(open_.begin());
    }
}

} // namespace pgbp
