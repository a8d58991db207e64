#include "statements/template_row.h"

#include "services/text.h"

#include <algorithm>

namespace pgbp {
namespace {

constexpr std::size_t kIndentOfLevel = 3;

bool IsBlank(std::string_view text) { return text.find_first_not_of(' ') == std::string_view::npos; }

std::string_view Serial(const TemplateRow& row)
{
    const auto first = std::find_if_not(row.serials.begin(), row.serials.end(), IsBlank);
    return first == row.serials.end() ? std::string_view() : *first;
}

std::string Caption(const TemplateRow& row)
{
    const auto first = std::ranges::find_if_not(row.captions, &std::string_view::empty);
    if (first == row.captions.end())
        return {};
    const auto level = static_cast<std::size_t>(first - row.captions.begin());
    return std::string(level * kIndentOfLevel, ' ').append(*first);
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

StatementRow ToStatementRow(const TemplateRow& row)
{
    StatementRow cells(kStatementColumns);
    cells[kSerial] = Serial(row);
    cells[kDescription] = cells[kBlankDescription] = Caption(row);
    cells[kType] = EntryType(row);
    cells[kSlno] = std::to_string(row.slno);
    if (!row.isBlocked)
        cells[kDetail] = kDetailsPossible;
    return cells;
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
