#include "records/annexure_rows.h"

#include "records/keys.h"
#include "services/text.h"

namespace pgbp {
namespace {

constexpr const char* kRowsOfLine = "from {fassets} where code = ? and [Type] = 'P' and sno = ?";

/// All columns of the table, as it is, but the number of the line.
std::string CarriedColumns(const Recordset& rows)
{
    std::string columns;
    for (const std::string& column : rows.Columns())
        if (!EqualsIgnoringCase(column, "sno"))
            columns += (columns.empty() ? "[" : ", [") + column + ']';
    return columns;
}

} // namespace

void CopyAnnexureToWork(const Run& run, double sno)
{
    const Recordset stored = run.balance.Query(std::string("select * ") + kRowsOfLine, run.Code(), sno);
    if (stored.Empty())
        return DropWorkAnnexure(run);
    const std::string columns = CarriedColumns(stored);
    Transaction transaction({run.balance});
    run.balance.Delete(kRowsOfLine, run.Code(), kUnsavedLine);
    run.balance.Execute("insert into {fassets} (" + columns + ", sno) select " + columns + ", " +
                            std::to_string(kUnsavedLine) + ' ' + kRowsOfLine +
                            std::string(run.balance.dialect().insertionOrder),
                        run.Code(), sno);
    transaction.Commit();
}

void StoreWorkAnnexure(const Run& run, double sno)
{
    run.balance.Delete(kRowsOfLine, run.Code(), sno);
    run.balance.Execute("update {fassets} set sno = ? where code = ? and [Type] = 'P' and sno = ?", sno, run.Code(),
                        kUnsavedLine);
}

void DropWorkAnnexure(const Run& run)
{
    if (AnnexureDepreciation(run, kUnsavedLine))
        run.balance.Delete(kRowsOfLine, run.Code(), kUnsavedLine);
}

std::optional<double> AnnexureDepreciation(const Run& run, double sno)
{
    const Recordset sum =
        run.balance.Query(std::string("select count(*) as counted, sum(f_dep) as tot ") + kRowsOfLine, run.Code(), sno);
    if (sum.First()["counted"].Number() == 0)
        return std::nullopt;
    return sum.First()["tot"].Number();
}

} // namespace pgbp
