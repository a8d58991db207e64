#include "records/working_copies.h"

#include "records/keys.h"
#include "services/text.h"

#include <map>

namespace pgbp {
namespace {

/// The columns of a detail row that the working copy carries.
constexpr std::string_view kDetailColumns =
    "[Type], name1, name2, name3, amt1, amt2, amt3, amt4, AD1, CITY, State, PIN, utn, flag1";

constexpr std::pair<std::string_view, std::string WorkItem::*> kTexts[] = {
    {"name1", &WorkItem::name1}, {"name2", &WorkItem::name2}, {"name3", &WorkItem::name3}};
constexpr std::pair<std::string_view, std::optional<double> WorkItem::*> kAmounts[] = {
    {"amt1", &WorkItem::amt1}, {"amt2", &WorkItem::amt2}, {"amt3", &WorkItem::amt3}, {"amt4", &WorkItem::amt4}};

std::vector<Field> Fields(const Row& row)
{
    std::vector<Field> fields;
    for (std::size_t i = 0; i < row.Size(); ++i)
        fields.push_back({row.Name(i), row.At(i)});
    return fields;
}

} // namespace

void EmptyWorkingCopies(const Run& run)
{
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp} where code = ?", run.Code());
    run.qeltemp.Delete("from {temp1} where code = ?", run.Code());
    transaction.Commit();
}

void CopyLineToWork(const Run& run, double sno, DetailRows which)
{
    std::string sql = "select " + std::string(kDetailColumns) +
                      " from {business1} where code = ? and sno = ? and [Type] <> 'LESSINTT' and [Type] <> 'LESSREMU' "
                      "and [Type] <> 'PARTCHANGE'";
    sql += which == DetailRows::WithFirstAmount ? " and amt1 <> 0" : "";
    sql += run.company.dialect().insertionOrder;
    const Recordset stored = run.company.Query(sql, run.Glcode, sno);
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp1} where code = ?", run.Code());
    for (const Row row : stored) {
        std::vector<Field> fields = Fields(row);
        for (Field& field : fields)
            if (field.column == "name2" && !field.value.IsNull())
                field.value = Trim(field.value.Text());
        fields.push_back({"code", run.Code()});
        run.qeltemp.Insert("temp1", fields);
    }
    transaction.Commit();
}

std::string WorkAsText(const Run& run)
{
    std::map<std::string, std::string> byType;
    for (const Row row : run.qeltemp.Query("select " + std::string(kDetailColumns) + " from {temp1} where code = ?" +
                                               std::string(run.qeltemp.dialect().insertionOrder),
                                           run.Code())) {
        std::string& rows = byType[row["Type"].Text()];
        for (std::size_t i = 0; i < row.Size(); ++i)
            rows += (row.At(i).Text() == "0" ? "" : row.At(i).Text()) + '\t';
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
    const Recordset work = run.qeltemp.Query("select " + std::string(kDetailColumns) + " from {temp1} where code = ?" +
                                                 std::string(run.qeltemp.dialect().insertionOrder),
                                             run.Code());
    for (const Row row : work) {
        if (!takes(row["Type"].Text()))
            continue;
        std::vector<Field> fields = Fields(row);
        for (Field& field : fields)
            if (inName2 == Apostrophes::Blank && field.column == "name2" && !field.value.IsNull())
                field.value = Replace(field.value.Text(), "'", " ");
        fields.insert(fields.end(), {{"code", run.Code()}, {"SNO", sno}, {"Minor", MinorOfRun(run)}});
        run.company.Insert("business1", fields);
    }
}

std::vector<WorkItem> ReadWorkList(const Run& run, std::string_view type)
{
    std::vector<WorkItem> items;
    for (const Row row : run.qeltemp.Query("select * from {temp1} where code = ? and [Type] = ?" +
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

void WriteWorkList(const Run& run, const std::vector<WorkItem>& items)
{
    std::vector<std::vector<Field>> rows;
    rows.reserve(items.size());
    for (const WorkItem& item : items) {
        auto& row = rows.emplace_back();
        for (const auto& [column, member] : kTexts)
            row.push_back({column, item.*member});
        for (const auto& [column, member] : kAmounts)
            if (item.*member)
                row.push_back({column, *(item.*member)});
    }
    WriteWorkRows(run, std::move(rows));
}

void WriteWorkRows(const Run& run, std::vector<std::vector<Field>> rows)
{
    Transaction transaction({run.qeltemp});
    DropWorkList(run);
    for (auto& row : rows) {
        row.push_back({"code", run.Code()});
        run.qeltemp.Insert("temp", row);
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
