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

void WorkAnnexure::Open(std::optional<double> sno)
{
    sno_ = sno;
    const Recordset stored = run_.balance.Query(std::string("select * ") + kRowsOfLine, run_.Code(), sno.value_or(0));
    if (!stored.Empty() || Depreciation()) {
        const std::string columns = CarriedColumns(stored);
        Transaction transaction({run_.balance});
        run_.balance.Delete(kRowsOfLine, run_.Code(), kUnsavedLine);
        if (!stored.Empty())
            run_.balance.Execute("insert into {fassets} (" + columns + ", sno) select " + columns + ", " +
                                     std::to_string(kUnsavedLine) + ' ' + kRowsOfLine +
                                     std::string(run_.balance.dialect().insertionOrder),
                                 run_.Code(), *sno);
        transaction.Commit();
    }
    opened_ = mine_ = WorkingRows();
}

void WorkAnnexure::TakeOver() { mine_ = WorkingRows(); }

bool WorkAnnexure::IsMine() const { return WorkingRows() == mine_; }

void WorkAnnexure::Store(double sno, const Transaction&) const
{
    if (!Altered() && sno == sno_) {
        run_.balance.Delete(kRowsOfLine, run_.Code(), kUnsavedLine);
        return;
    }
    run_.balance.Delete(kRowsOfLine, run_.Code(), sno);
    run_.balance.Execute("update {fassets} set sno = ? where code = ? and [Type] = 'P' and sno = ?", sno, run_.Code(),
                         kUnsavedLine);
}

void WorkAnnexure::Drop() const
{
    if (!mine_.empty() && IsMine())
        run_.balance.Delete(kRowsOfLine, run_.Code(), kUnsavedLine);
}

std::string WorkAnnexure::WorkingRows() const
{
    return AsText(
        run_.balance.Query(std::string("select * ") + kRowsOfLine + std::string(run_.balance.dialect().insertionOrder),
                           run_.Code(), kUnsavedLine));
}

std::optional<double> WorkAnnexure::Depreciation() const
{
    const Recordset sum = run_.balance.Query(
        std::string("select count(*) as counted, sum(f_dep) as tot ") + kRowsOfLine, run_.Code(), kUnsavedLine);
    if (sum.First()["counted"].Number() == 0)
        return std::nullopt;
    return sum.First()["tot"].Number();
}

} // namespace pgbp
