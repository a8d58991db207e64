#include "computation/statement_figures.h"

#include "computation/line_rules.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <optional>

namespace pgbp {
namespace {

constexpr std::string_view kPlain = "NEWPL";
constexpr std::string_view kIndAs = "NEWINDPL";

/// Cells of a statement, by their numbers in the return's schedule.
enum Cell {
    kDepreciation = 254,
    kNetProfit = 255,
    kNoBooksProfit = 272,
    kProfessionNoBooksProfit = 1166,
    kIndAsProfit = 7149,
    kIndAsDepreciation = 8015
};

/// The cells of one line that its computation looks at.
class Cells {
  public:
    Cells(const Run& run, double sno)
        : rows_(
              run.balance.Query("select [Type], amt1, name8 from {qelgeneral} where code = ? and ([Type] = 'NEWPL' or "
                                "[Type] = 'NEWINDPL') and amt2 = ? and (amt1 = 254 or amt1 = 255 or amt1 = 272 or "
                                "amt1 = 1166 or amt1 = 7149 or amt1 = 8015)" +
                                    std::string(run.balance.dialect().insertionOrder),
                                run.Glcode, sno))
    {
    }

    std::optional<double> Find(std::string_view statement, Cell cell) const
    {
        for (const Row row : rows_)
            if (Is(row, statement, cell))
                return ParseAmount(row["name8"].Text());
        return std::nullopt;
    }

    double Sum(std::string_view statement, std::initializer_list<Cell> cells) const
    {
        double sum = 0;
        for (const Row row : rows_)
            if (std::any_of(cells.begin(), cells.end(), [&](Cell cell) { return Is(row, statement, cell); }))
                sum += ParseAmount(row["name8"].Text());
        return sum;
    }

  private:
    static bool Is(const Row& row, std::string_view statement, Cell cell)
    {
        return row["amt1"].Number() == static_cast<double>(cell) && EqualsIgnoringCase(row["Type"].Text(), statement);
    }

    Recordset rows_;
};

double NetProfit(const Run& run, const Cells& cells)
{
    const auto net = cells.Find(run.FormCheckDone ? kIndAs : kPlain, kNetProfit);
    if (net && *net != 0)
        return *net;
    if (const auto noBooks = cells.Find(kPlain, kNoBooksProfit))
        return *noBooks;
    return !net && RulesOf(run).MayReportUnderIndAS() ? cells.Find(kIndAs, kIndAsProfit).value_or(0) : 0;
}

} // namespace

StatementFigures ReadStatement(const Run& run, double sno)
{
    const Cells cells(run, sno);
    StatementFigures figures{.netProfit = NetProfit(run, cells),
                             .depreciation =
                                 cells.Sum(run.FormCheckDone ? kIndAs : kPlain, {kDepreciation, kIndAsDepreciation})};
    if (RulesOf(run).AddsProfessionWithoutBooks())
        figures.netProfit += cells.Find(kPlain, kProfessionNoBooksProfit).value_or(0);
    return figures;
}

double ReadPlainNetProfit(const Run& run, double sno)
{
    const Cells cells(run, sno);
    const auto net = cells.Find(kPlain, kNetProfit);
    return net && *net != 0 ? *net : cells.Find(kPlain, kNoBooksProfit).value_or(0);
}

} // namespace pgbp
