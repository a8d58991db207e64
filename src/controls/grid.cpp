#include "controls/grid.h"

#include "controls/form.h"
#include "controls/lists.h"
#include "services/amount_text.h"
#include "services/text.h"
#include "services/utf8.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace pgbp {
namespace {

std::string TabSeparated(const std::vector<std::string>& cells)
{
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
        line += (i == 0 ? "" : "\t") + cells[i];
    return line;
}

/// Line ends at the end are none of a further line.
std::vector<std::string> Lines(std::string_view text)
{
    const std::string plain = Replace(text.substr(0, text.find_last_not_of("\r\n") + 1), "\r\n", "\n");
    std::vector<std::string> lines;
    for (std::size_t from = 0, end = 0; end != std::string::npos; from = end + 1) {
        end = plain.find('\n', from);
        lines.push_back(plain.substr(from, end - from));
    }
    return lines;
}

std::string TextFor(const TextBox& editor, const std::string& cell)
{
    if (dynamic_cast<const NumberBox*>(&editor))
        return UngroupedAmount(cell);
    return dynamic_cast<const combo*>(&editor) ? Trim(cell) : cell;
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
    cellChanged.Add([&form](int, int) { form.changed(); });
    moved.Add([&form] { form.changed(); });
    form.focusMoved.Add([this, &form] {
        if (editor_ && form.focused() != editor_)
            CloseEditor();
    });
}

void Grid::SetHeading(int column, std::string heading)
{
    std::string& its = columns_.at(static_cast<std::size_t>(column)).heading;
    if (its == heading)
        return;
    its = std::move(heading);
    changed();
}

void Grid::ShowColumn(int column, bool shown)
{
    GridColumn& its = columns_.at(static_cast<std::size_t>(column));
    if (its.visible == shown)
        return;
    if (column == currentColumn_)
        HideEditor();
    its.visible = shown;
    changed();
}

int Grid::ShownRows() const
{
    return static_cast<int>(
        std::count_if(looks_.begin(), looks_.end(), [](const RowLook& row) { return !row.hidden; }));
}

const std::string& Grid::Cell(int row, int column) const
{
    const auto at = static_cast<std::size_t>(column);
    if (row < 0 || row > Rows() || column < 0 || at >= columns_.size())
        throw std::out_of_range(name() + " has no cell " + std::to_string(row) + ' ' + std::to_string(column));
    return row == 0 ? columns_.at(at).heading : TextsOf(row).at(at);
}

std::vector<std::string>& Grid::TextsOf(int row) const
{
    std::vector<std::string>& texts = rows_.at(static_cast<std::size_t>(row) - 1);
    if (texts.empty()) {
        texts = textsOf_(row);
        texts.resize(columns_.size());
    }
    return texts;
}

void Grid::SetCell(int row, int column, std::string text)
{
    std::string& cell = TextsOf(row).at(static_cast<std::size_t>(column));
    if (cell == text)
        return;
    cell = std::move(text);
    cellChanged(row, column);
}

void Grid::SetRows(std::vector<std::vector<std::string>> rows)
{
    for (auto& row : rows)
        row.resize(columns_.size());
    Put(std::move(rows), nullptr);
}

void Grid::SetRows(std::size_t rows, std::function<std::vector<std::string>(int row)> textsOf)
{
    Put(std::vector<std::vector<std::string>>(rows), std::move(textsOf));
}

void Grid::Put(std::vector<std::vector<std::string>> rows, std::function<std::vector<std::string>(int row)> textsOf)
{
    if (!LeftEditor())
        CloseEditor(); // the cell under it is gone
    rows_ = std::move(rows);
    textsOf_ = std::move(textsOf);
    looks_.clear();
    looks_.resize(rows_.size());
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

void Grid::HideRow(int row, bool hidden)
{
    RowLook& its = LookOf(row);
    if (its.hidden == hidden)
        return;
    if (row == currentRow_)
        HideEditor();
    its.hidden = hidden;
    changed();
}

void Grid::SetRowLook(int row, CellLook look)
{
    if (std::exchange(LookOf(row).look, look) != look)
        changed();
}

void Grid::SetCellLook(int row, int column, CellLook look)
{
    Cell(row, column);
    if (std::exchange(LookOf(row).cells[column], look) != look)
        changed();
}

CellLook Grid::Look(int row, int column) const
{
    const RowLook& its = LookOf(row);
    const auto cell = its.cells.find(column);
    return cell == its.cells.end() || cell->second == CellLook::Plain ? its.look : cell->second;
}

void Grid::SetCurrentRow(int row)
{
    const int to = std::clamp(row, Rows() == 0 ? 0 : 1, Rows());
    if (to != currentRow_ && !LeftEditor())
        return;
    currentRow_ = to;
    moved();
}

void Grid::EnterCell(int row, int column)
{
    Cell(row, column);
    if (row == 0 || IsHidden(row) || (onEnterCell && Reachable() && !form().SetFocus(*this)))
        return;
    currentColumn_ = column;
    SetCurrentRow(row);
    if (onEnterCell)
        onEnterCell(row, column);
}

void Grid::ClickCell(int row, int column)
{
    EnterCell(row, column);
    if (currentRow_ == row && currentColumn_ == column && onClickCell)
        onClickCell(row, column);
}

void Grid::SetEditors(std::vector<TextBox*> editors)
{
    editors_ = std::move(editors);
    for (TextBox* each : editors_) {
        each->host = this;
        each->visible = false;
    }
}

void Grid::PlaceEditor(TextBox& editor, int row, int column)
{
    Cell(row, column);
    if (editor.host != this)
        throw std::logic_error(editor.name() + " is no editor of " + name());
    if (!LeftEditor())
        return;
    editor.Set(TextFor(editor, Cell(row, column)), Notify::No);
    currentRow_ = row;
    currentColumn_ = column;
    editor_ = &editor;
    editor.visible = true;
    if (!form().SetFocus(editor) && editor_ == &editor)
        CloseEditor();
    moved();
}

void Grid::HideEditor()
{
    if (editor_ && !form().SetFocus(*this) && !Reachable())
        CloseEditor();
}

/// False when the editor stays: its line of arithmetic has no result.
bool Grid::LeftEditor()
{
    HideEditor();
    return !editor_;
}

void Grid::CloseEditor()
{
    TextBox& closed = *std::exchange(editor_, nullptr);
    closed.visible = false;
    if (form().focused() == &closed)
        form().SetFocus(*this);
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
    for (int row = 1; row <= Rows(); ++row)
        if (!IsHidden(row))
            lines += (lines.empty() ? "" : "\n") + TabSeparated(TextsOf(row));
    return lines;
}

std::string Grid::ShowsBelow() const { return TabSeparated(footer_); }

bool Grid::TakesInput(int row, int column) const
{
    return row > 0 && !IsHidden(row) && columns_[static_cast<std::size_t>(column)].IsShown() && canEnter &&
           canEnter(row, column);
}

/// To the row, or the nearest one to it that is not hidden.
void Grid::GoToShown(int row, int step)
{
    const auto shownFrom = [this](int at, int by) {
        while (at >= 1 && at <= Rows() && IsHidden(at))
            at += by;
        return at >= 1 && at <= Rows() ? at : 0;
    };
    const int ahead = shownFrom(row, step);
    const int to = ahead > 0 ? ahead : shownFrom(row, -step);
    if (!onEnterCell)
        SetCurrentRow(to);
    else if (to > 0 && to != currentRow_)
        EnterCell(to, currentColumn_);
}

/// To the nearest row that takes input, in the current column if it does there. False when there is none.
bool Grid::GoToEntry(int row, int step)
{
    for (; row >= 1 && row <= Rows(); row += step) {
        int column = TakesInput(row, currentColumn_) ? currentColumn_ : 0;
        while (column < static_cast<int>(columns_.size()) && !TakesInput(row, column))
            ++column;
        if (column == static_cast<int>(columns_.size()))
            continue;
        EnterCell(row, column);
        return true;
    }
    return false;
}

void Grid::MoveRow(Key key)
{
    constexpr int kPage = 10;
    const bool isFar = key != Key::Up && key != Key::Down;
    const bool isUp = key == Key::Up || key == Key::PageUp;
    const int by = isFar ? kPage : 1;
    int row = currentRow_ + (isUp ? -by : by);
    if (key == Key::Home || key == Key::End)
        row = key == Key::Home ? 1 : Rows();
    row = std::clamp(row, Rows() == 0 ? 0 : 1, Rows());
    const int step = isUp || key == Key::End ? -1 : 1;
    if (!onEnterCell || !isFar || !(GoToEntry(row, step) || GoToEntry(row, -step)))
        GoToShown(row, step);
}

void Grid::MoveColumn(int step)
{
    const int count = static_cast<int>(columns_.size());
    int column = currentColumn_ + step;
    while (column >= 0 && column < count && !columns_[static_cast<std::size_t>(column)].IsShown())
        column += step;
    if (column >= 0 && column < count && currentRow_ > 0)
        EnterCell(currentRow_, column);
}

/// The next cell that takes input, row by row. False behind the last one.
bool Grid::EnterNext()
{
    int column = currentColumn_ + 1;
    for (int row = std::max(currentRow_, 1); row <= Rows(); ++row, column = 0)
        for (; column < static_cast<int>(columns_.size()); ++column)
            if (TakesInput(row, column)) {
                EnterCell(row, column);
                return true;
            }
    return false;
}

void Grid::EnterHere()
{
    if (TakesInput(currentRow_, currentColumn_))
        EnterCell(currentRow_, currentColumn_);
    else
        EnterNext();
}

bool Grid::TakesFromEditor(Key key) const
{
    const auto* amount = dynamic_cast<const NumberBox*>(editor_);
    if (!editor_ || (amount && amount->sum()))
        return false;
    const auto* choice = dynamic_cast<const combo*>(editor_);
    switch (key) {
    case Key::Up:
    case Key::Down:
        return !choice;
    case Key::Home:
    case Key::End:
        return (choice && !choice->editable) || editor_->selLength() == CharacterCount(editor_->text());
    case Key::PageUp:
    case Key::PageDown:
    case Key::Enter:
    case Key::Escape:
        return true;
    case Key::Find:
        return static_cast<bool>(onFind);
    default:
        return false;
    }
}

bool Grid::EditorKey(Key key)
{
    if (!TakesFromEditor(key))
        return false;
    if (key == Key::Find) {
        onFind();
    } else if (key == Key::Escape) {
        HideEditor();
    } else if (key != Key::Enter) {
        MoveRow(key);
    } else {
        if (editor_->onEnter)
            editor_->onEnter();
        if (editor_ && !EnterNext()) // the screen may have hidden it
            form().FocusNextField();
    }
    return true;
}

bool Grid::PasteLines(std::string_view text)
{
    const auto lines = Lines(text);
    return lines.size() > 1 && currentRow_ > 0 && onPaste && onPaste(currentRow_, currentColumn_, lines);
}

void Grid::Paste(std::string_view text)
{
    if (PasteLines(text) || !TakesInput(currentRow_, currentColumn_))
        return;
    EnterCell(currentRow_, currentColumn_);
    if (editor_)
        editor_->Paste(text);
}

bool Grid::Type(char32_t character)
{
    if (onType && onType(character))
        return true;
    if (TakesInput(currentRow_, currentColumn_)) {
        EnterCell(currentRow_, currentColumn_);
        return editor_ && editor_->Type(character);
    }
    if (character == U' ' && currentRow_ > 0 && onClickCell)
        ClickCell(currentRow_, currentColumn_);
    return character == U' ';
}

bool Grid::KeyDown(Key key)
{
    switch (key) {
    case Key::Up:
    case Key::Down:
    case Key::PageUp:
    case Key::PageDown:
    case Key::Home:
    case Key::End:
        MoveRow(key);
        return true;
    case Key::Left:
    case Key::Right:
        if (onEnterCell)
            MoveColumn(key == Key::Left ? -1 : 1);
        return static_cast<bool>(onEnterCell);
    case Key::Enter:
        if (onEnterCell)
            EnterHere();
        else if (currentRow_ > 0)
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
    case Key::Find:
        if (onFind)
            onFind();
        return static_cast<bool>(onFind);
    default:
        return false;
    }
}

} // namespace pgbp
