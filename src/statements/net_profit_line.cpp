#include "statements/net_profit_line.h"

#include "services/format.h"
#include "statements/form_predicates.h"

#include <algorithm>

namespace pgbp {
namespace {

using namespace forms;

/// Where an operation finds the net profit: a distance from the number of grid rows, or a line of its own (shown as a
/// number without grouping). 0 and 0: the label is left alone.
struct ProfitPlace {
    std::size_t fromEnd = 0;
    std::size_t row = 0;
};
struct NetProfitLine {
    TotalsOperation operation;
    int lastYear;
    ProfitPlace firm;
    ProfitPlace company;
    ProfitPlace other;
};
constexpr NetProfitLine kNetProfitLines[] = {
    {TotalsOperation::Cal_Total, kNoEnd, {.fromEnd = 14}, {.fromEnd = 13}, {.fromEnd = 13}},
    {TotalsOperation::Cal_Total_1, 2017, {.fromEnd = 13}, {.row = 136}, {}},
    {TotalsOperation::Cal_Total_1, kNoEnd, {.fromEnd = 13}, {.row = 148}, {}},
    {TotalsOperation::Cal_Total_2, kNoEnd, {.fromEnd = 20}, {.row = 136}, {}},
    {TotalsOperation::Cal_Total_3, kNoEnd, {.fromEnd = 20}, {.row = 136}, {}},
    {TotalsOperation::Cal_Total_4, kNoEnd, {.fromEnd = 20}, {.row = 136}, {}},
    {TotalsOperation::Cal_Total_5, kNoEnd, {.fromEnd = 20}, {.row = 136}, {}},
    {TotalsOperation::Cal_Total_6, kNoEnd, {.fromEnd = 20}, {.row = 175}, {}},
};
constexpr ProfitPlace kLastRow{.fromEnd = 1};

ProfitPlace PlaceOfNetProfit(TotalsOperation operation, const StatementForm& form)
{
    const auto line = std::ranges::find_if(kNetProfitLines, [&](const NetProfitLine& candidate) {
        return candidate.operation == operation && form.year <= candidate.lastYear;
    });
    return RunsAsFirm(form) ? line->firm : RunsAsCompany(form) ? line->company : line->other;
}

} // namespace

std::optional<std::string> NetProfitText(TotalsOperation operation, const StatementForm& form, bool booksNotKept,
                                         std::span<const AmountCell> amounts, std::size_t netProfitLine)
{
    const ProfitPlace place = booksNotKept ? kLastRow : PlaceOfNetProfit(operation, form);
    const std::size_t row = place.row != 0 ? place.row : amounts.size() - std::min(place.fromEnd, amounts.size());
    if (!booksNotKept && netProfitLine != 0 && row != netProfitLine)
        return amounts[netProfitLine].text();
    if (row == 0 || row >= amounts.size())
        return std::nullopt;
    return place.row != 0 ? PlainFigure(amounts[row].figure()) : amounts[row].text();
}

} // namespace pgbp
