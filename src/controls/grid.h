#pragma once

#include "controls/control.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace pgbp {

class TextBox;

enum class GridColumnKind {
    Text,
    Amount,
    Rate, ///< a percentage or a small number: at the right like an amount, but narrow
    Serial,
    Mark, ///< a short sign that acts when it is clicked
    Hidden
};

struct GridColumn {
    std::string heading;
    GridColumnKind kind = GridColumnKind::Text;
    int weight = 1; ///< share of the width among the text columns
    /// How a cell's text is drawn, say a code in words; the text itself stays. None: an amount in groups, others as
    /// they are.
    std::function<std::string(const std::string& text)> drawn = {};
    bool muted = false;  ///< figures to compare with, say of the previous year
    bool visible = true; ///< switched by `Grid::ShowColumn`

    std::string Drawn(const std::string& text) const;
    bool IsNumber() const { return kind == GridColumnKind::Amount || kind == GridColumnKind::Rate; }
    bool IsShown() const { return visible && kind != GridColumnKind::Hidden; }
};

/// How a cell is shaded.
enum class CellLook {
    Plain,
    Computed, ///< of a heading or a computed row
    Own       ///< a text in the preparer's own words
};

/// Rows of texts under headings, with a row of totals below them where there is one. Row 0 is the heading row, the
/// first row of data is row 1.
///
/// With `onEnterCell`, which is set before the grid is drawn, the cells are entered one by one, and the screen says
/// what that means: it places one of its editors over the cell, or acts, or does nothing. An editor has the focus as
/// long as it stands; what it changes in the cell is the screen's. Then Up and Down enter the cell above and below (in
/// a drop-down field they choose), Enter the next cell that takes input, Page Up, Page Down, Home and End a row that
/// does, and Escape hides the editor. In a text that is being typed Home and End move the caret.
class Grid : public Control {
  public:
    Grid(Form& form, std::string_view name, std::vector<GridColumn> columns);

    std::function<void(int row)> onDoubleClick; ///< a double click or, where no cells are entered, Enter on a row
    std::function<void(int row)> onDelete;      ///< the Delete key on a row
    std::function<void()> onEscape;             ///< the Escape key; without it the frame has the key

    std::function<void(int row, int column)> onEnterCell; ///< by a key or a click, on the same cell too
    std::function<void(int row, int column)> onClickCell; ///< behind onEnterCell: a click, or the space bar
    std::function<bool(int row, int column)> canEnter;    ///< whether the cell takes input
    std::function<bool(char32_t)> onType;                 ///< a character while no editor stands; true when it is taken
    std::function<void()> onFind;                         ///< Ctrl+F, in an editor too
    /// Several lines pasted at a cell, in an editor too; false leaves them to the editor.
    std::function<bool(int row, int column, const std::vector<std::string>& lines)> onPaste;

    Event<int, int> cellChanged; ///< the text of this one cell; `changed` tells all else
    Event<> moved;               ///< the current cell, or the editor over it

    const std::vector<GridColumn>& columns() const { return columns_; }
    void SetHeading(int column, std::string heading);
    void ShowColumn(int column, bool shown);
    int Rows() const { return static_cast<int>(rows_.size()); } ///< rows of data
    int ShownRows() const;                                      ///< those that are not hidden
    /// Text of a cell; row 0 gives the heading. Throws std::out_of_range.
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string text);
    /// All rows are shown and plain then.
    void SetRows(std::vector<std::vector<std::string>> rows);
    /// The same with rows whose texts are made when they are asked for first. What they are made from must stand until
    /// the rows are set anew.
    void SetRows(std::size_t rows, std::function<std::vector<std::string>(int row)> textsOf);
    void Clear() { SetRows({}); }
    /// Texts that stand under the columns and are not scrolled with the rows; none at all: no such row.
    void SetFooter(std::vector<std::string> cells);
    const std::vector<std::string>& footer() const { return footer_; }

    /// A hidden row keeps its texts; it is not drawn, and nothing goes there.
    void HideRow(int row, bool hidden = true);
    bool IsHidden(int row) const { return row > 0 && LookOf(row).hidden; }
    void SetRowLook(int row, CellLook look);
    /// Goes before the look of the row; Plain takes it back.
    void SetCellLook(int row, int column, CellLook look);
    CellLook Look(int row, int column) const;

    int currentRow() const { return currentRow_; } ///< 0 when there is none
    int currentColumn() const { return currentColumn_; }
    /// Marks a row without entering a cell.
    void SetCurrentRow(int row);
    /// Goes to a cell, with the focus, and raises onEnterCell, unless the field with the focus does not let go. A
    /// hidden row is passed over. Throws std::out_of_range when there is no such cell.
    void EnterCell(int row, int column);
    /// Enters it and raises onClickCell.
    void ClickCell(int row, int column);
    void DoubleClick(int row);

    /// Controls of the form that can be placed over cells, told before the grid is drawn. They are laid out nowhere,
    /// and hidden while they do not stand.
    void SetEditors(std::vector<TextBox*> editors);
    const std::vector<TextBox*>& editors() const { return editors_; }
    /// Puts one of them over a cell, with its text all selected and the focus. That raises no onChange. An amount
    /// comes without its grouping, a choice without the blanks behind it.
    void PlaceEditor(TextBox& editor, int row, int column);
    /// Gives the focus back to the grid, where the editor lets go. An editor that loses the focus is hidden by itself.
    void HideEditor();
    /// What stands over the current cell, if anything.
    TextBox* editor() const { return editor_; }
    /// A key that means the grid while an editor has the focus.
    bool TakesFromEditor(Key key) const;
    bool EditorKey(Key key);
    /// True when the text has several lines and the screen has taken them.
    bool PasteLines(std::string_view text);
    /// A text from the clipboard while the grid itself has the focus.
    void Paste(std::string_view text);

    std::string Shows() const override; ///< rows that are not hidden as lines of tab-separated texts
    std::string ShowsBelow() const;     ///< the footer as such a line
    bool TakesFocus() const override { return true; }
    bool KeyDown(Key key) override;
    bool Type(char32_t character) override;

  private:
    struct RowLook {
        bool hidden = false;
        CellLook look = CellLook::Plain;
        std::map<int, CellLook> cells = {};
    };

    const RowLook& LookOf(int row) const { return looks_.at(static_cast<std::size_t>(row) - 1); }
    RowLook& LookOf(int row) { return looks_.at(static_cast<std::size_t>(row) - 1); }
    void Put(std::vector<std::vector<std::string>> rows, std::function<std::vector<std::string>(int row)> textsOf);
    std::vector<std::string>& TextsOf(int row) const;
    bool LeftEditor();
    void CloseEditor();
    bool TakesInput(int row, int column) const;
    void MoveRow(Key key);
    void MoveColumn(int step);
    void GoToShown(int row, int step);
    bool GoToEntry(int row, int step);
    bool EnterNext();
    void EnterHere();

    std::vector<GridColumn> columns_;
    mutable std::vector<std::vector<std::string>> rows_; ///< one without texts has not been asked for
    std::function<std::vector<std::string>(int row)> textsOf_;
    std::vector<RowLook> looks_; ///< of the rows
    std::vector<std::string> footer_;
    std::vector<TextBox*> editors_;
    TextBox* editor_ = nullptr;
    int currentRow_ = 0;
    int currentColumn_ = 0;
};

} // namespace pgbp
