#include "statements/statement_rows.h"

#include "services/format.h"
#include "services/text.h"

namespace pgbp {
namespace {

/// A balance sheet under Ind AS is the company's, not the line's: a second set stands under this number.
constexpr double kOfTheCompany = 1;

constexpr std::string_view kIntraday = "PLNew3_23";

constexpr std::string_view kColumns = "amt1, name8, name1, name2, name7, Amt10";

/// In the order of kColumns.
StoredLines LinesOf(const Recordset& rows)
{
    StoredLines lines(rows.Size());
    for (const Row row : rows)
        lines.try_emplace(static_cast<int>(row.At(0).Number()),
                          StoredLine{.amount = row.At(1).Text(),
                                     .description = row.At(2).Text(),
                                     .isOwn = row.At(3).Text() == kWrittenByPreparer,
                                     .previousYear = row.At(4).Text(),
                                     .booksNotKept = row.At(5).Number() == 1});
    return lines;
}

} // namespace

std::vector<Field> CellOf(const StatementLines& lines, std::size_t line, const std::string& description,
                          bool booksNotKept)
{
    const AmountCell& amount = lines.At(line);
    std::vector<Field> fields = {{"name9", Trim(description)},
                                 {"name8", lines.TakesChoice(line) ? Trim(amount.text()) : Rupees(amount.figure())},
                                 {"amt1", lines.Slno(line)},
                                 {"Amt10", booksNotKept ? 1 : 0}};
    if (lines.TakesDescription(line))
        fields.insert(fields.end(), {{"name1", Trim(description)}, {"name2", kWrittenByPreparer}});
    return fields;
}

RowsOfType StatementRows::Values(double sno) const
{
    return ScheduleCells(run_, std::string(keeping_.values) + kind_, sno);
}

RowsOfType StatementRows::DetailsOf(double sno) const
{
    return ScheduleCells(run_, std::string(keeping_.details) + kind_, sno);
}

StoredLines StatementRows::Read(double sno) const
{
    StoredLines lines = LinesOf(Values(sno).Read(kColumns));
    return lines.empty() && IsOfTheCompany() ? LinesOf(Values(kOfTheCompany).Read(kColumns)) : lines;
}

std::unordered_map<int, std::string> StatementRows::ReadPreviousYear() const
{
    std::unordered_map<int, std::string> amounts;
    if (Trim(run_.GlPrCode).empty())
        return amounts;
    const RowsOfType ofYear = ScheduleCells(run_, std::string(keeping_.values) + kind_).OfCode(run_.GlPrCode);
    for (const Row row : ofYear.Read("amt1, name8"))
        amounts.try_emplace(static_cast<int>(row.At(0).Number()), row.At(1).Text());
    return amounts;
}

/// The suite's own programs build these texts into statements, so an apostrophe is a blank.
Details StatementRows::ReadDetails(double sno) const
{
    Details details;
    for (const Row row : DetailsOf(sno).Read("amt1, name9, name8"))
        details[static_cast<int>(row.At(0).Number())].push_back(
            {pgbp::Replace(row.At(1).Text(), "'", " "), ParseAmount(row.At(2).Text())});
    return details;
}

std::optional<Intraday> StatementRows::ReadIntraday(double sno) const
{
    const Recordset rows = MiscItems(run_, kIntraday, sno).Read("amt1, amt2");
    if (rows.Empty())
        return std::nullopt;
    return Intraday{rows.First().At(0).Number(), rows.First().At(1).Number()};
}

bool StatementRows::IsOfTheCompany() const
{
    return keeping_.isIndAS && kind_ == KindWord(StatementKind::BalanceSheet);
}

void StatementRows::Delete(double sno, const Transaction& proof) const
{
    Values(sno).Delete(proof);
    DetailsOf(sno).Delete(proof);
}

void StatementRows::Replace(double sno, const Content& content, const Transaction& proof) const
{
    Delete(sno, proof);
    std::vector<RowsOfType> sets{Values(sno)};
    if (IsOfTheCompany()) {
        sets.push_back(Values(kOfTheCompany));
        sets.back().Delete(proof);
    }
    for (const RowsOfType& values : sets)
        for (const std::vector<Field>& line : content.lines)
            values.Add(line, proof);
    const RowsOfType details = DetailsOf(sno);
    for (const auto& [slno, entries] : content.details)
        for (const DetailEntry& entry : entries)
            details.Add({{"amt1", slno}, {"name9", entry.description}, {"name8", Rupees(entry.amount)}}, proof);
    if (!content.intraday)
        return;
    const RowsOfType intraday = MiscItems(run_, kIntraday, sno);
    intraday.Delete(proof);
    if (content.intraday->turnover != 0 && content.intraday->profit != 0)
        intraday.Add({{"amt1", content.intraday->turnover}, {"amt2", content.intraday->profit}}, proof);
}

} // namespace pgbp
