#pragma once

#include "controls/frame.h"
#include "desktop/control_view.h"

#include <QWidget>

#include <algorithm>
#include <map>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace pgbp {

class LabelView;
class Label;
struct ButtonRow;

/// A frame with its heading and its rows in columns. A main frame scrolls as a page, its buttons stand apart in the
/// row that the form keeps at the bottom; a card has its own row of buttons; a group stands in a row of another frame.
class FrameView : public ControlView {
  public:
    FrameView(Frame& itsFrame, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool TakesHeight() const override;

    void AddButtons(const ButtonRow& row);

    /// Makes the rows fit into a page of this height. Where they can not, the page scrolls as one: what has rows of its
    /// own shows them all.
    void FitInto(int height);

    /// The place of the final figure with the line above it; empty when there is none.
    QRect FinalRow() const;

  private:
    struct Columns {
        int first = 0;
        int count = 1;
        bool operator==(const Columns&) const = default;
        Columns UpTo(std::size_t column) const { return {first, std::min(count, static_cast<int>(column) - first)}; }
    };
    /// What lies over several columns: the line above a total, or a control that takes a whole row.
    struct Wide {
        QWidget* widget;
        int line; ///< its row in the grid of rows
        const LayoutRow* totalBelow = nullptr;
        Columns over = {};
    };

    void Build(QWidget* parent);
    QWidget* Rows(QWidget* parent);
    void FillWidth();
    void KeepTogether();
    void AddRow(const LayoutRow& row);
    void AddRule(const LayoutRow& row);
    ControlView& AddCell(const LayoutRow& row, std::size_t column, int line);
    int Spans(const LayoutRow& row, std::size_t column) const;
    void PutBeside(QWidget* widget, int line, std::size_t column);
    void Spread(Wide& wide, Columns over);
    void NoteNames(const LayoutRow& row, std::size_t column, ControlView& view);
    void NameFields();
    int Gaps() const;
    /// The columns from the first to the last one that is seen.
    Columns Seen(bool withButtons) const;
    bool IsBeside(const LayoutRow& row, std::size_t column) const;
    bool IsSeen(std::size_t column) const;
    int ColumnCount() const { return static_cast<int>(frame_.layout().columns.size()); }

    Frame& frame_;
    QLabel* heading_ = nullptr;
    QGridLayout* rows_ = nullptr;
    QHBoxLayout* beside_ = nullptr; ///< the number of the row in hand with the buttons behind it
    std::vector<Wide> wide_;
    /// A field with the texts that tell what it is.
    struct Named {
        ControlView* field;
        const Label* caption = nullptr;
        const Label* heading = nullptr; ///< of its column
    };
    std::vector<Named> named_;
    const Label* caption_ = nullptr; ///< the last caption above or before the cell in hand
    std::map<std::size_t, const Label*> columnHeadings_;
    std::vector<ControlView*> ofHeight_; ///< cells that take the height that is left
};

} // namespace pgbp
