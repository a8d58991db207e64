#include "records/working_copies.h"

#include "records/keys.h"
#include "services/text.h"

namespace pgbp {
namespace {

/// The columns of a detail row that the working copy carries.
constexpr std::string_view kDetailColumns =
    "[Type], name1, name2, name3, amt1, amt2, amt3, amt4, AD1, CITY, State, PIN, utn, flag1";

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
        fields.push_back({"code", run.Code()});
        run.qeltemp.Insert("temp1", fields);
    }
    transaction.Commit();
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

void OpenWorkList(const Run& run, std::string_view type)
{
    const std::string code = run.Code();
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp} where code = ?", code);
    run.qeltemp.Execute("insert into {temp} (code, name1, name2, name3, amt1, amt2, amt3, amt4) select code, name1, "
                        "name2, name3, amt1, amt2, amt3, amt4 from {temp1} where code = ? and [Type] = ?" +
                            std::string(run.qeltemp.dialect().insertionOrder),
                        code, type);
    // a row is found again by its texts, and Null equals nothing
    for (const char* text : {"name1", "name2", "name3"})
        run.qeltemp.Execute("update {temp} set " + std::string(text) + " = '' where code = ? and " + text + " is null",
                            code);
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
