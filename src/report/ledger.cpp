#include "report/ledger.h"

#include "report/doors.h"
#include "services/format.h"

#include <algorithm>

namespace pgbp::report {
namespace {

/// Figures that come off the total above them.
constexpr std::string_view kDeducted[] = {"lbl17",        "lblless", "txtlessdep", "lbl23l",  "txtlesspart1",
                                          "txtlesspart2", "lbl28l",  "TxtIntt",    "txtremu", "lblRemu",
                                          "LblIntt",      "lblded",  "lbl568",     "Lbl35",   "lbl10abc"};
/// A part of the total above it.
constexpr std::string_view kPartOfTotal = "lblothers";

bool IsText(const Entry& entry)
{
    return std::ranges::none_of(entry.values, [](const std::string& value) {
        return value.empty() || value.find_first_not_of("-0123456789.,") == std::string::npos;
    });
}

/// A figure that a table of its own ends in.
bool IsToldElsewhere(const Entry& entry)
{
    return entry.shownBy.size() == 1 && entry.shownBy.front()->name() == "lblallowremu";
}

bool IsNoAmount(const std::string& text) { return IsNothing(text); }

/// A rate between two amounts of 0 says nothing.
bool SaysNothing(const Entry& entry) { return IsNothing(entry.values.front()) && IsNothing(entry.values.back()); }

/// The items of the list behind the entry's button, where they are a text and an amount each.
void AddItems(Screen& screen, Table& table, std::vector<int>& signs, const Entry& entry, std::set<const Control*>& read)
{
    if (!entry.door || IsNothing(entry))
        return;
    const Door* door = DoorNamed(entry.door->name());
    if (!door || door->alsoOfNothing)
        return;
    const auto opened = Press(screen, door->button);
    if (!opened)
        return;
    if (opened->card) {
        const FrameContent content = ReadFrame(*opened->card).front();
        if (content.grids.size() == 1 && IsPlainList(*content.grids.front())) {
            const std::size_t total = table.rows.size() - 1;
            const std::size_t column = table.columns.size() - 1;
            std::vector<Summand> items;
            double sum = 0;
            for (const auto& [text, amount] : ItemsOf(*content.grids.front())) {
                items.push_back({table.rows.size(), 1});
                sum += ParseAmount(amount);
                Row row{.look = RowLook::Item, .cells = {text, amount}};
                row.cells.resize(table.columns.size());
                table.rows.push_back(std::move(row));
                signs.push_back(0);
            }
            if (!items.empty() && Amount(sum) == Amount(ParseAmount(table.rows[total].cells[column])))
                table.rows[total].sums[column] = std::move(items);
            read.insert(entry.door);
        }
    }
    Leave(*opened);
}

} // namespace

int SignOf(const Entry& entry)
{
    const auto isOf = [&](std::string_view name) {
        return std::ranges::any_of(entry.shownBy, [&](const Control* value) { return value && value->name() == name; });
    };
    if (isOf(kPartOfTotal))
        return 0;
    return std::ranges::any_of(kDeducted, isOf) ? -1 : 1;
}

RowLook LookOf(RowStyle style)
{
    return style == RowStyle::Final ? RowLook::Final : style == RowStyle::Total ? RowLook::Total : RowLook::Plain;
}

Table LedgerOf(Screen& screen, const FrameContent& content, const std::function<std::string(const Entry&)>& remarkOn,
               std::set<const Control*>& read)
{
    std::size_t values = 1;
    for (const Entry& entry : content.entries)
        values = std::max(values, entry.values.size());
    const bool hasItems = values == 1;
    Table table{.columns = {{"Particulars"}}};
    if (hasItems)
        table.columns.push_back({"", GridColumnKind::Amount});
    for (std::size_t i = 0; i < values; ++i)
        table.columns.push_back({i < content.headings.size() ? content.headings[i] : "", GridColumnKind::Amount});
    if (table.columns.back().heading.empty())
        table.columns.back().heading = "Rupees";
    std::vector<int> signs;
    std::size_t sinceTotal = 0;
    for (const Entry& entry : content.entries) {
        const RowLook look = LookOf(entry.style);
        const std::string remark = remarkOn(entry);
        if (entry.caption.empty() || IsToldElsewhere(entry) || IsText(entry) ||
            (SaysNothing(entry) && look == RowLook::Plain && remark.empty()))
            continue;
        if (look == RowLook::Total && sinceTotal == 1 && table.rows.back().cells.back() == entry.values.back())
            continue;
        sinceTotal = look == RowLook::Plain ? sinceTotal + 1 : 1;
        Row row{.look = look, .cells = {entry.caption}, .remark = remark};
        row.cells.resize(table.columns.size() - entry.values.size());
        row.cells.insert(row.cells.end(), entry.values.begin(), entry.values.end());
        table.rows.push_back(std::move(row));
        signs.push_back(SignOf(entry));
        if (hasItems)
            AddItems(screen, table, signs, entry, read);
    }
    if (std::ranges::all_of(
            table.rows, [](const Row& row) { return std::all_of(row.cells.begin() + 1, row.cells.end(), IsNoAmount); }))
        return {};
    FindSums(table, table.columns.size() - 1, signs);
    for (std::size_t column = table.columns.size() - 1; column > 1; --column)
        DropIfEmpty(table, column - 1);
    if (table.rows.size() == 1 && table.columns.size() == 2)
        for (Column& column : table.columns)
            column.heading.clear();
    return table;
}

} // namespace pgbp::report
