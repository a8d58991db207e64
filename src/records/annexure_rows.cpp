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
    Recordset working = WorkingRows();
    if (!stored.Empty() || !working.Empty()) {
        const std::string columns = CarriedColumns(stored);
        Transaction transaction({run_.balance});
        run_.balance.Delete(kRowsOfLine, run_.Code(), kUnsavedLine);
        if (!stored.Empty())
            run_.balance.Execute("insert into {fassets} (" + columns + ", sno) select " + columns + ", " +
                                     std::to_string(kUnsavedLine) + ' ' + kRowsOfLine +
                                     std::string(run_.balance.dialect().insertionOrder),
                                 run_.Code(), *sno);
        transaction.Commit();
        working = WorkingRows();
    }
    Take(working);
    opened_ = mine_;
}

void WorkAnnexure::Take(const Recordset& working)
{
    mine_ = AsText(working);
    depreciation_.reset();
    for (const Row row : working)
        depreciation_ = depreciation_.value_or(0) + row["f_dep"].Number();
}

void WorkAnnexure::Replace(const Recordset& assets)
{
    Transaction transaction({run_.balance});
    run_.balance.Delete(kRowsOfLine, run_.Code(), kUnsavedLine);
    RowsInto rows(run_.balance, "fassets");
    for (const Row asset : assets) {
        std::vector<Field> fields = {{"code", run_.Code()}, {"Type", "P"}, {"SNO", kUnsavedLine}};
        for (std::size_t i = 0; i < asset.Size(); ++i)
            fields.push_back({asset.Name(i), asset.At(i)});
        rows.Add(std::move(fields));
    }
    transaction.Commit();
    TakeOver();
}

void WorkAnnexure::TakeOver() { Take(WorkingRows()); }

bool WorkAnnexure::IsMine() const { return AsText(WorkingRows()) == mine_; }

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

Recordset WorkAnnexure::WorkingRows() const
{
    return run_.balance.Query(std::string("select * ") + kRowsOfLine +
                                  std::string(run_.balance.dialect().insertionOrder),
                              run_.Code(), kUnsavedLine);
}

} // namespace pgbp
