#include "report/frame_reader.h"

#include "controls/text_controls.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <utility>

namespace pgbp::report {
namespace {

/// Stands in the place of an amount that the assessee can not have.
constexpr std::string_view kNotAllowed = "Not Allowed";

/// Columns that tell where a partner lives and not what he gets.
constexpr std::string_view kLeftOut[] = {"City", "State", "PIN", "Status", "DIN", "Current", "Audit Case", "Intt Rate"};

bool IsCaption(const TextControl& text, LayoutColumn place)
{
    const auto* label = dynamic_cast<const Label*>(&text);
    const bool isOfAmounts = place == LayoutColumn::Amount || place == LayoutColumn::Previous;
    return label && label->look != LabelLook::Amount && !isOfAmounts;
}

/// The frame whose rows have one caption, and further ones that head the columns.
constexpr std::string_view kWithColumns = "fra441";

bool IsOfValues(LayoutColumn place) { return place != LayoutColumn::Button && place != LayoutColumn::Caption; }

/// Reads one row of a layout into entries.
class RowReader {
  public:
    explicit RowReader(RowStyle style) { current_.style = style; }

    void Take(Control& control, LayoutColumn place)
    {
        if (auto* tick = dynamic_cast<CheckBox*>(&control)) {
            Flush();
            current_.caption = PlainCaption(tick->caption);
            AddValue(*tick, tick->value ? "Yes" : "");
        } else if (auto* button = dynamic_cast<cmd*>(&control)) {
            current_.door = button;
        } else if (const auto* text = dynamic_cast<const TextControl*>(&control)) {
            IsCaption(*text, place) ? TakeCaption(text->text()) : AddValue(control, text->text());
        }
    }

    std::vector<Entry> Entries()
    {
        Flush();
        return std::move(entries_);
    }

  private:
    void TakeCaption(const std::string& caption)
    {
        Flush();
        current_.caption += (current_.caption.empty() ? "" : ", ") + PlainCaption(caption);
    }

    void AddValue(const Control& control, std::string text)
    {
        current_.values.push_back(std::move(text));
        current_.shownBy.push_back(&control);
    }

    void Flush()
    {
        if (current_.values.empty())
            return;
        Entry next{.style = current_.style};
        entries_.push_back(std::exchange(current_, next));
    }

    Entry current_;
    std::vector<Entry> entries_;
};

/// One entry of a row with columns: each value under its heading, which is the caption beside it in the first row that
/// has a value there and a caption of its own before.
Entry ReadColumns(const LayoutRow& row, const Layout& layout, std::vector<std::string>& headings)
{
    Entry entry{.style = row.style};
    std::string caption;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        Control* control = row.cells[i] && row.cells[i]->visible ? row.cells[i] : nullptr;
        if (auto* button = dynamic_cast<cmd*>(control))
            entry.door = button;
        const auto* text = dynamic_cast<const TextControl*>(control);
        if (!IsOfValues(layout.columns[i])) {
            caption = text ? PlainCaption(text->text()) : caption;
            continue;
        }
        const std::size_t column = entry.values.size();
        headings.resize(std::max(headings.size(), column + 1));
        if (text && entry.caption.empty())
            entry.caption = caption;
        else if (text && headings[column].empty())
            headings[column] = caption;
        entry.values.push_back(text ? text->text() : "");
        entry.shownBy.push_back(control);
    }
    return entry;
}

bool IsLeftOut(const GridColumn& column)
{
    return !column.IsShown() || column.kind == GridColumnKind::Mark || column.kind == GridColumnKind::Serial ||
           std::ranges::find(kLeftOut, column.heading) != std::end(kLeftOut);
}

bool IsEmptyRow(const Grid& grid, int row)
{
    for (int column = 0; column < static_cast<int>(grid.columns().size()); ++column)
        if (grid.columns()[static_cast<std::size_t>(column)].kind != GridColumnKind::Serial &&
            !IsNothing(grid.Cell(row, column)))
            return false;
    return true;
}

/// The columns of the grid that the report shows.
std::vector<int> ShownColumns(const Grid& grid)
{
    std::vector<int> shown;
    for (int column = 0; column < static_cast<int>(grid.columns().size()); ++column) {
        if (IsLeftOut(grid.columns()[static_cast<std::size_t>(column)]))
            continue;
        for (int row = 1; row <= grid.Rows(); ++row)
            if (!grid.IsHidden(row) && !IsNothing(grid.Cell(row, column))) {
                shown.push_back(column);
                break;
            }
    }
    return shown;
}

/// The row below the columns, where it has any figure.
void AddTotal(Table& table, const Grid& grid, const std::vector<int>& shown)
{
    Row total{.look = RowLook::Total};
    for (const int column : shown) {
        const auto at = static_cast<std::size_t>(column);
        total.cells.push_back(at < grid.footer().size() && grid.columns()[at].IsNumber() ? grid.footer()[at] : "");
    }
    if (std::ranges::all_of(total.cells, [](const std::string& cell) { return cell.empty(); }))
        return;
    total.cells.front() = "Total";
    table.rows.push_back(std::move(total));
    for (std::size_t column = 0; column < table.columns.size(); ++column)
        if (table.columns[column].IsNumber())
            FindSums(table, column, std::vector<int>(table.rows.size(), 1));
}

} // namespace

std::vector<FrameContent> ReadFrame(const Frame& frame)
{
    std::vector<FrameContent> contents(1);
    contents.front().caption = PlainCaption(frame.caption);
    const Layout& layout = frame.layout();
    for (const LayoutRow& row : layout.rows) {
        if (frame.name() == kWithColumns) {
            contents.front().entries.push_back(ReadColumns(row, layout, contents.front().headings));
            continue;
        }
        RowReader reader(row.style);
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            Control* control = row.cells[i];
            if (!control || !control->visible)
                continue;
            if (row.style == RowStyle::Heading) {
                contents.front().headings.push_back(PlainCaption(control->Shows()));
            } else if (const auto* group = dynamic_cast<const Frame*>(control)) {
                std::ranges::move(ReadFrame(*group), std::back_inserter(contents));
            } else if (const auto* grid = dynamic_cast<const Grid*>(control)) {
                FrameContent& its = contents.front();
                its.grids.push_back(grid);
                its.fields = std::exchange(its.entries, {});
                contents.resize(1); // groups above the grid are fields of a row too
            } else {
                reader.Take(*control, i < layout.columns.size() ? layout.columns[i] : LayoutColumn::Field);
            }
        }
        std::ranges::move(reader.Entries(), std::back_inserter(contents.front().entries));
    }
    return contents;
}

bool IsNothing(const std::string& value)
{
    return value.find_first_not_of("-0., ") == std::string::npos || value == kNotAllowed;
}

bool IsNothing(const Entry& entry)
{
    return std::ranges::all_of(entry.values, [](const std::string& value) { return IsNothing(value); });
}

Table TableOf(const Grid& grid)
{
    Table table;
    const std::vector<int> shown = ShownColumns(grid);
    for (const int column : shown) {
        const GridColumn& its = grid.columns()[static_cast<std::size_t>(column)];
        table.columns.push_back({its.heading, its.kind, its.muted});
    }
    for (int row = 1; row <= grid.Rows(); ++row) {
        if (grid.IsHidden(row) || IsEmptyRow(grid, row))
            continue;
        Row& its = table.rows.emplace_back();
        for (const int column : shown) {
            const GridColumn& of = grid.columns()[static_cast<std::size_t>(column)];
            const std::string& text = grid.Cell(row, column);
            its.cells.push_back(of.drawn ? of.drawn(text) : text);
        }
    }
    if (table.rows.size() > 1)
        AddTotal(table, grid, shown);
    return table;
}

bool IsPlainList(const Grid& grid)
{
    return std::ranges::count_if(grid.columns(),
                                 [](const GridColumn& column) { return column.IsShown() && column.IsNumber(); }) == 1;
}

std::vector<std::pair<std::string, std::string>> ItemsOf(const Grid& grid)
{
    std::vector<std::pair<std::string, std::string>> items;
    for (int row = 1; row <= grid.Rows(); ++row) {
        if (grid.IsHidden(row) || IsEmptyRow(grid, row))
            continue;
        auto& [text, amount] = items.emplace_back();
        for (int column = 0; column < static_cast<int>(grid.columns().size()); ++column) {
            const GridColumn& its = grid.columns()[static_cast<std::size_t>(column)];
            const std::string cell = Trim(grid.Cell(row, column));
            if (its.IsShown() && its.IsNumber())
                amount = cell;
            else if (its.IsShown() && its.kind == GridColumnKind::Text && !cell.empty())
                text += (text.empty() ? "" : ", ") + cell;
        }
    }
    return items;
}

} // namespace pgbp::report
