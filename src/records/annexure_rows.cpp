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

std::optional<double> DepreciationOf(const Recordset& assets)
{
    std::optional<double> sum;
    for (const Row asset : assets)
        sum = sum.value_or(0) + asset["f_dep"].Number();
    return sum;
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
        working = WorkingRows(); // before another run puts its own there
        transaction.Commit();
    }
    Take(working);
    opened_ = mine_;
}

void WorkAnnexure::Take(const Recordset& working)
{
    mine_ = AsText(working);
    depreciation_ = DepreciationOf(working);
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

/// A server's transaction locks what it writes, not what it reads: between the look at the rows and their move another
/// run could put its own in their place.
bool WorkAnnexure::Claim(const Transaction&) const
{
    if (!mine_.empty())
        MoveTo(kUnsavedLine);
    return IsMine();
}

bool WorkAnnexure::IsMine() const { return AsText(WorkingRows()) == mine_; }

void WorkAnnexure::MoveTo(double sno) const
{
    run_.balance.Execute("update {fassets} set sno = ? where code = ? and [Type] = 'P' and sno = ?", sno, run_.Code(),
                         kUnsavedLine);
}

/// Rows that came where this run had none are another one's, and stay.
void WorkAnnexure::Store(double sno, const Transaction&) const
{
    const bool replaces = Altered() || sno != sno_;
    if (replaces)
        run_.balance.Delete(kRowsOfLine, run_.Code(), sno);
    if (mine_.empty())
        return;
    if (replaces)
        MoveTo(sno);
    else
        run_.balance.Delete(kRowsOfLine, run_.Code(), kUnsavedLine);
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

std::optional<double> StoredDepreciation(const Run& run, double sno)
{
    return DepreciationOf(run.balance.Query(std::string("select f_dep ") + kRowsOfLine +
                                                std::string(run.balance.dialect().insertionOrder),
                                            run.Code(), sno));
}

} // namespace pgbp
