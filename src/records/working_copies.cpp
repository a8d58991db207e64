#include "records/working_copies.h"

#include "records/keys.h"
#include "services/text.h"

#include <map>

namespace pgbp {
namespace {

/// The columns of a detail row that the working copy carries.
constexpr std::string_view kDetailColumns =
    "[Type], name1, name2, name3, amt1, amt2, amt3, amt4, AD1, CITY, State, PIN, utn, flag1";
constexpr std::size_t kType = 0;
constexpr std::size_t kName2 = 2;

constexpr std::pair<std::string_view, std::string WorkItem::*> kTexts[] = {
    {"name1", &WorkItem::name1}, {"name2", &WorkItem::name2}, {"name3", &WorkItem::name3}};
constexpr std::pair<std::string_view, std::optional<double> WorkItem::*> kAmounts[] = {
    {"amt1", &WorkItem::amt1}, {"amt2", &WorkItem::amt2}, {"amt3", &WorkItem::amt3}, {"amt4", &WorkItem::amt4}};

/// A detail row with its `name2` as `change` makes it, and with further fields.
template <typename Change>
std::vector<Field> Carried(const Row& row, Change change, std::initializer_list<Field> more)
{
    std::vector<Field> fields;
    fields.reserve(row.Size() + more.size());
    for (std::size_t i = 0; i < row.Size(); ++i) {
        const bool isChanged = i == kName2 && !row.At(i).IsNull();
        fields.push_back({row.Name(i), isChanged ? change(row.At(i).Text()) : row.At(i)});
    }
    fields.insert(fields.end(), more);
    return fields;
}

std::vector<std::vector<Field>> RowsOf(const std::vector<WorkItem>& items)
{
    std::vector<std::vector<Field>> rows;
    rows.reserve(items.size());
    for (const WorkItem& item : items) {
        auto& row = rows.emplace_back();
        for (const auto& [column, member] : kTexts)
            row.push_back({column, item.*member});
        for (const auto& [column, member] : kAmounts)
            row.push_back({column, item.*member ? Value(*(item.*member)) : Value()});
    }
    return rows;
}

} // namespace

void EmptyWorkingCopies(const Run& run)
{
    DropWorkList(run);
    run.qeltemp.Delete("from {temp1} where code = ?", run.Code());
}

Recordset CopyLineToWork(const Run& run, double sno, DetailRows which)
{
    std::string sql = "select " + std::string(kDetailColumns) +
                      " from {business1} where code = ? and sno = ? and [Type] <> 'LESSINTT' and [Type] <> 'LESSREMU' "
                      "and [Type] <> 'PARTCHANGE'";
    sql += which == DetailRows::WithFirstAmount ? " and amt1 <> 0" : "";
    sql += run.company.dialect().insertionOrder;
    const Recordset stored = run.company.Query(sql, run.Glcode, sno);
    const auto trimmed = [](const std::string& name2) -> Value { return Trim(name2); };
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp1} where code = ?", run.Code());
    RowsInto work(run.qeltemp, "temp1");
    for (const Row row : stored)
        work.Add(Carried(row, trimmed, {{"code", run.Code()}}));
    transaction.Commit();
    return stored;
}

Recordset ReadWork(const Run& run)
{
    return run.qeltemp.Query("select " + std::string(kDetailColumns) + " from {temp1} where code = ?" +
                                 std::string(run.qeltemp.dialect().insertionOrder),
                             run.Code());
}

std::string AsComparedText(const Recordset& work)
{
    std::map<std::string, std::string> byType;
    for (const Row row : work) {
        std::string& rows = byType[row.At(kType).Text()];
        for (std::size_t i = 0; i < row.Size(); ++i) {
            const std::string field = Trim(row.At(i).Text());
            if (field != "0")
                rows += field;
            rows += '\t';
        }
        rows += '\n';
    }
    std::string text;
    for (const auto& [type, rows] : byType)
        text += rows;
    return text;
}

void CopyWorkToLine(const Run& run, double sno, const std::function<bool(std::string_view type)>& takes,
                    Apostrophes inName2)
{
    const Recordset work = ReadWork(run);
    const auto changed = [&](const std::string& name2) -> Value {
        return inName2 == Apostrophes::Blank ? Replace(name2, "'", " ") : name2;
    };
    RowsInto details(run.company, "business1");
    for (const Row row : work)
        if (takes(row.At(kType).Text()))
            details.Add(Carried(row, changed, {{"code", run.Code()}, {"SNO", sno}, {"Minor", MinorOfRun(run)}}));
}

std::vector<WorkItem> ReadWorkList(const Run& run, std::string_view type)
{
    std::vector<WorkItem> items;
    for (const Row row :
         run.qeltemp.Query("select name1, name2, name3, amt1, amt2, amt3, amt4 from {temp1} where code = "
                           "? and [Type] = ?" +
                               std::string(run.qeltemp.dialect().insertionOrder),
                           run.Code(), type)) {
        WorkItem& item = items.emplace_back();
        for (const auto& [column, member] : kTexts)
            item.*member = row[column].Text();
        for (const auto& [column, member] : kAmounts)
            if (const Value& amount = row[column]; !amount.IsNull())
                item.*member = amount.Number();
    }
    return items;
}

void AddToWork(const Run& run, std::string_view type, const std::vector<WorkItem>& items)
{
    Transaction transaction({run.qeltemp});
    RowsInto work(run.qeltemp, "temp1");
    for (std::vector<Field>& row : RowsOf(items)) {
        row.insert(row.end(), {{"code", run.Code()}, {"Type", type}});
        work.Add(std::move(row));
    }
    transaction.Commit();
}

void WriteWorkList(const Run& run, const std::vector<WorkItem>& items) { WriteWorkRows(run, RowsOf(items)); }

void WriteWorkRows(const Run& run, std::vector<std::vector<Field>> rows)
{
    Transaction transaction({run.qeltemp});
    DropWorkList(run);
    RowsInto work(run.qeltemp, "temp");
    for (auto& row : rows) {
        row.push_back({"code", run.Code()});
        work.Add(std::move(row));
    }
    transaction.Commit();
}

void SaveWorkList(const Run& run, std::string_view type)
{
    const std::string code = run.Code();
    run.qeltemp.Delete("from {temp1} where code = ? and [Type] = ?", code, type);
    run.qeltemp.Execute("insert into {temp1} (code, [Type], name1, name2, name3, amt1, amt2, amt3, amt4) select code, "
                        "?, name1, name2, name3, amt1, amt2, amt3, amt4 from {temp} where code = ?" +
                            std::string(run.qeltemp.dialect().insertionOrder),
                        type, code);
    run.qeltemp.Delete("from {temp} where code = ?", code);
}

void DropWorkList(const Run& run) { run.qeltemp.Delete("from {temp} where code = ?", run.Code()); }

} // namespace pgbp
