#include "statements/template_row.h"

#include "services/text.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr std::size_t kIndentOfLevel = 3;

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

std::string Serial(TemplateRow& row)
{
    const auto first = std::find_if_not(row.serials.begin(), row.serials.end(), IsBlank);
    return first == row.serials.end() ? std::string() : std::move(*first);
}

std::string Caption(TemplateRow& row)
{
    for (std::size_t level = 0; level < row.captions.size(); ++level)
        if (!row.captions[level].empty())
            return std::move(row.captions[level].insert(0, level * kIndentOfLevel, ' '));
    return {};
}

std::string_view EntryType(const TemplateRow& row)
{
    if (row.isBlocked)
        return "";
    if (row.isChoice)
        return "CBO";
    return row.isNumber ? "NUM" : "TXT";
}

/// What a choice line offers, and which of its items the cell selects when the list opens.
constexpr std::string_view kValuations[] = {"Cost or Market which Is Less", "At Cost", "At Market Rate"};
constexpr std::string_view kAccountingMethods[] = {"Mercantile System", "Cash System"};
constexpr std::string_view kYesNo[] = {"Yes", "No"};

struct ChoiceLine {
    int slno;
    std::span<const std::string_view> items;
};
constexpr ChoiceLine kChoiceLines[] = {{1, kAccountingMethods}, {5, kValuations}, {6, kValuations}};

struct Selection {
    std::string_view text;
    int item;
};
constexpr Selection kSelections[] = {
    {"Yes", 0},
    {"Cost or Market which Is Less", 0},
    {"Mercantile System", 0},
    {"No", 1},
    {"At Cost", 1},
    {"At Market Rate", 2},
};

} // namespace

StatementRow ToStatementRow(TemplateRow row)
{
    StatementRow line;
    line.cells[kSerial] = Serial(row);
    line.cells[kDescription] = line.cells[kBlankDescription] = Caption(row);
    line.cells[kType] = EntryType(row);
    line.cells[kSlno] = std::to_string(row.slno);
    if (!row.isBlocked)
        line.cells[kDetail] = kDetailsPossible;
    line.isShaded = row.isBlocked;
    return line;
}

std::vector<StatementRow> ToStatementRows(std::vector<TemplateRow> rows)
{
    std::vector<StatementRow> lines;
    lines.reserve(rows.size());
    for (TemplateRow& row : rows)
        lines.push_back(ToStatementRow(std::move(row)));
    return lines;
}

std::span<const std::string_view> ChoiceItems(int slno)
{
    const auto line = std::ranges::find(kChoiceLines, slno, &ChoiceLine::slno);
    return line == std::end(kChoiceLines) ? std::span<const std::string_view>(kYesNo) : line->items;
}

int ChoiceOnOpening(std::string_view cell)
{
    const auto selection = std::ranges::find(kSelections, Trim(cell), &Selection::text);
    return selection == std::end(kSelections) ? -1 : selection->item;
}

} // namespace pgbp
