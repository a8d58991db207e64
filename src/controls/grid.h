#pragma once

#include "controls/control.h"

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
};

/// Rows of texts under headings. Row 0 is the heading row, the first row of data is row 1.
class grid : public Control {
  public:
    grid(Form& form, std::string_view name, std::vector<GridColumn> columns);

    std::function<void(int row)> onDoubleClick; ///< a double click or Enter on a row
    std::function<void(int row)> onDelete;      ///< the Delete key on a row

    const std::vector<GridColumn>& columns() const { return columns_; }
    void SetHeading(int column, std::string heading);
    int Rows() const { return static_cast<int>(rows_.size()); } ///< rows of data
    /// Text of a cell; row 0 gives the heading. Throws std::out_of_range.
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string text);
    void SetRows(std::vector<std::vector<std::string>> rows);
    void Clear() { SetRows({}); }

    int currentRow() const { return currentRow_; } ///< 0 when there is none
    int currentColumn() const { return currentColumn_; }
    void SetCurrentRow(int row);
    /// Goes to a cell. Throws std::out_of_range when there is none.
    void EnterCell(int row, int column);
    void DoubleClick(int row);

    std::string Shows() const override; ///< rows as lines of tab-separated texts
    bool TakesFocus() const override { return true; }
    bool KeyDown(Key key) override;

  private:
    std::vector<GridColumn> columns_;
    std::vector<std::vector<std::string>> rows_;
    int currentRow_ = 0;
    int currentColumn_ = 0;
};

} // namespace pgbp
