#pragma once

#include "controls/control.h"

#include <functional>
#include <string>
#include <vector>

namespace pgbp {

enum class GridColumnKind {
    Text,
    Amount,
    Rate, ///< a percentage or a small number: at the right like an amount, but narrow
    Serial,
    Hidden
};

struct GridColumn {
    std::string heading;
    GridColumnKind kind = GridColumnKind::Text;
    int weight = 1; ///< share of the width among the text columns
    /// How a cell's text is drawn, say a code in words; the text itself stays. None: an amount in groups, others as
    /// they are.
    std::function<std::string(const std::string& text)> drawn = {};

    std::string Drawn(const std::string& text) const;
    bool IsNumber() const { return kind == GridColumnKind::Amount || kind == GridColumnKind::Rate; }
};

/// Rows of texts under headings, with a row of totals below them where there is one. Row 0 is the heading row, the
/// first row of data is row 1.
class Grid : public Control {
  public:
    Grid(Form& form, std::string_view name, std::vector<GridColumn> columns);

    std::function<void(int row)> onDoubleClick; ///< a double click or Enter on a row
    std::function<void(int row)> onDelete;      ///< the Delete key on a row
    std::function<void()> onEscape;             ///< the Escape key; without it the frame has the key

    const std::vector<GridColumn>& columns() const { return columns_; }
    void SetHeading(int column, std::string heading);
    int Rows() const { return static_cast<int>(rows_.size()); } ///< rows of data
    /// Text of a cell; row 0 gives the heading. Throws std::out_of_range.
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string text);
    void SetRows(std::vector<std::vector<std::string>> rows);
    void Clear() { SetRows({}); }
    /// Texts that stand under the columns and are not scrolled with the rows; none at all: no such row.
    void SetFooter(std::vector<std::string> cells);
    const std::vector<std::string>& footer() const { return footer_; }

    int currentRow() const { return currentRow_; } ///< 0 when there is none
    int currentColumn() const { return currentColumn_; }
    void SetCurrentRow(int row);
    /// Goes to a cell. Throws std::out_of_range when there is none.
    void EnterCell(int row, int column);
    void DoubleClick(int row);

    std::string Shows() const override; ///< rows as lines of tab-separated texts
    std::string ShowsBelow() const;     ///< the footer as such a line
    bool TakesFocus() const override { return true; }
    bool KeyDown(Key key) override;

  private:
    std::vector<GridColumn> columns_;
    std::vector<std::vector<std::string>> rows_;
    std::vector<std::string> footer_;
    int currentRow_ = 0;
    int currentColumn_ = 0;
};

} // namespace pgbp
