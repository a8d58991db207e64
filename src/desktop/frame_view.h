#pragma once

#include "controls/frame.h"
#include "desktop/control_view.h"

#include <QWidget>

#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace pgbp {

class LabelView;

/// A frame with its heading and its rows in columns. A main frame scrolls as a page, its buttons stand apart in the
/// row that the form keeps at the bottom; a card has its own row of buttons; a group stands in a row of another frame.
class FrameView : public ControlView {
  public:
    FrameView(frame& itsFrame, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool TakesHeight() const override { return takesHeight_; }

    /// Adds the buttons of the frame to two rows.
    void AddButtons(QHBoxLayout& left, QHBoxLayout& right);

  private:
    struct Rule {
        QWidget* line;
        const LayoutRow* row;
    };

    void Build(QWidget* parent);
    QWidget* Rows(QWidget* parent);
    void AddRow(QGridLayout& rows, const LayoutRow& row);
    void AddRule(QGridLayout& rows, const LayoutRow& row);
    ControlView& AddCell(QGridLayout& rows, const LayoutRow& row, std::size_t column, int line);
    void AddOwnButtons(QVBoxLayout& box);
    int Columns() const { return static_cast<int>(frame_.layout().columns.size()); }

    frame& frame_;
    QLabel* heading_ = nullptr;
    std::vector<Rule> rules_;
    bool takesHeight_ = false;
};

/// A page that scrolls when the window is smaller, as wide as its content asks otherwise.
QScrollArea* MakePage(QWidget* content, QWidget* parent);

} // namespace pgbp
