#include "records/working_copies.h"

namespace pgbp {

void EmptyWorkingCopies(const Run& run)
{
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp} where code = ?", run.Code());
    run.qeltemp.Delete("from {temp1} where code = ?", run.Code());
    transaction.Commit();
}

void CopyLineToWork(const Run& run, double sno)
{
    const Recordset stored = run.company.Query(
        "select [Type], name1, name2, name3, amt1, amt2, amt3, amt4, AD1, CITY, State, PIN, utn, flag1 from "
        "{business1} where code = ? and sno = ? and [Type] <> 'LESSINTT' and [Type] <> 'LESSREMU' and [Type] <> "
        "'PARTCHANGE'" +
            std::string(run.company.dialect().insertionOrder),
        run.Glcode, sno);
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp1} where code = ?", run.Code());
    for (const Row row : stored) {
        std::vector<Field> fields{{"code", run.Code()}};
        for (std::size_t i = 0; i < row.Size(); ++i)
            fields.push_back({row.Name(i), row.At(i)});
        run.qeltemp.Insert("temp1", fields);
    }
    transaction.Commit();
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
    Transaction transaction({run.qeltemp});
    run.qeltemp.Delete("from {temp1} where code = ? and [Type] = ?", code, type);
    run.qeltemp.Execute("insert into {temp1} (code, [Type], name1, name2, name3, amt1, amt2, amt3, amt4) select code, "
                        "?, name1, name2, name3, amt1, amt2, amt3, amt4 from {temp} where code = ?" +
                            std::string(run.qeltemp.dialect().insertionOrder),
                        type, code);
    run.qeltemp.Delete("from {temp} where code = ?", code);
    transaction.Commit();
}

void DropWorkList(const Run& run) { run.qeltemp.Delete("from {temp} where code = ?", run.Code()); }

} // namespace pgbp
