#include "controls/grid.h"

#include "services/amount_text.h"

#include <algorithm>
#include <stdexcept>

namespace pgbp {
namespace {

std::string TabSeparated(const std::vector<std::string>& cells)
{
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
        line += (i == 0 ? "" : "\t") + cells[i];
    return line;
}

} // namespace

std::string GridColumn::Drawn(const std::string& text) const
{
    if (drawn)
        return drawn(text);
    return kind == GridColumnKind::Amount ? GroupedAmount(text) : text;
}

Grid::Grid(Form& form, std::string_view name, std::vector<GridColumn> columns)
    : Control(form, name), columns_(std::move(columns))
{
}

void Grid::SetHeading(int column, std::string heading)
{
    columns_.at(static_cast<std::size_t>(column)).heading = std::move(heading);
    changed();
}

const std::string& Grid::Cell(int row, int column) const
{
    const auto at = static_cast<std::size_t>(column);
    if (row < 0 || row > Rows() || column < 0 || at >= columns_.size())
        throw std::out_of_range(name() + " has no cell " + std::to_string(row) + ' ' + std::to_string(column));
    return row == 0 ? columns_.at(at).heading : rows_.at(static_cast<std::size_t>(row) - 1).at(at);
}

void Grid::SetCell(int row, int column, std::string text)
{
    rows_.at(static_cast<std::size_t>(row) - 1).at(static_cast<std::size_t>(column)) = std::move(text);
    changed();
}

void Grid::SetRows(std::vector<std::vector<std::string>> rows)
{
    rows_ = std::move(rows);
    for (auto& row : rows_)
        row.resize(columns_.size());
    currentRow_ = rows_.empty() ? 0 : 1;
    changed();
}

void Grid::SetFooter(std::vector<std::string> cells)
{
    if (!cells.empty())
        cells.resize(columns_.size());
    if (footer_ == cells)
        return;
    footer_ = std::move(cells);
    changed();
}

void Grid::SetCurrentRow(int row)
{
    currentRow_ = std::clamp(row, Rows() == 0 ? 0 : 1, Rows());
    changed();
}

void Grid::EnterCell(int row, int column)
{
    Cell(row, column);
    currentColumn_ = column;
    SetCurrentRow(row);
}

void Grid::DoubleClick(int row)
{
    SetCurrentRow(row);
    if (currentRow_ > 0 && onDoubleClick)
        onDoubleClick(currentRow_);
}

std::string Grid::Shows() const
{
    std::string lines;
    for (const auto& row : rows_)
        lines += (lines.empty() ? "" : "\n") + TabSeparated(row);
    return lines;
}

std::string Grid::ShowsBelow() const { return TabSeparated(footer_); }

bool Grid::KeyDown(Key key)
{
    constexpr int page = 10;
    switch (key) {
    case Key::Up:
        SetCurrentRow(currentRow_ - 1);
        return true;
    case Key::Down:
        SetCurrentRow(currentRow_ + 1);
        return true;
    case Key::PageUp:
        SetCurrentRow(currentRow_ - page);
        return true;
    case Key::PageDown:
        SetCurrentRow(currentRow_ + page);
        return true;
    case Key::Home:
        SetCurrentRow(1);
        return true;
    case Key::End:
        SetCurrentRow(Rows());
        return true;
    case Key::Enter:
        if (currentRow_ > 0)
            DoubleClick(currentRow_);
        return true;
    case Key::Escape:
        if (onEscape)
            onEscape();
        return static_cast<bool>(onEscape);
    case Key::Delete:
        if (currentRow_ > 0 && onDelete)
            onDelete(currentRow_);
        return true;
    default:
        return false;
    }
}

} // namespace pgbp
