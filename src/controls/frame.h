#pragma once

#include "controls/control.h"

#include <vector>

namespace pgbp {

enum class FramePlace {
    Main, ///< fills the form; one at a time
    Card, ///< lies over the main frame, which cannot be used meanwhile
    Group ///< part of the frame it is laid out in
};

enum class LayoutColumn {
    Button,
    Caption,
    Field,
    Amount,
    Previous ///< amounts of the preceding year
};

enum class RowStyle { Plain, Heading, Total, Final };

/// One row of a frame: a control (or none) for each column. A row with one control that is a grid, a list or a group
/// takes the whole width, and grids and lists share the height that is left.
struct LayoutRow {
    std::vector<Control*> cells;
    RowStyle style = RowStyle::Plain;
    bool keepsPlace = false; ///< while it is hidden, too: it comes and goes while the preparer looks at the frame
};

/// How a frame is laid out. Rows give the order of the walk; what draws the form decides pixels.
struct Layout {
    std::vector<LayoutColumn> columns = {};
    std::vector<LayoutRow> rows = {};
    std::vector<Control*> buttonsLeft = {};  ///< ways to other places
    std::vector<Control*> buttonsRight = {}; ///< Save, Cancel, Back
};

/// A panel with its heading; shows or hides as a unit. A side frame is put up and taken away by `Form::Raise` and
/// `Form::Lower`.
class Frame : public Control {
  public:
    Frame(Form& form, std::string_view name, std::string captionText = "", FramePlace where = FramePlace::Card);

    Property<std::string> caption;
    const FramePlace place;
    std::function<void()> onLowered; ///< the side frame has been taken away: what was entered in it counts now
    std::function<void()> onEscape;  ///< the Escape key while the frame is up
    std::function<void()> onUndo;    ///< Ctrl+Z while the frame is up and the field with the focus has nothing to undo

    std::function<void()> onPrint; ///< Ctrl+P while the frame is up

    /// Lays the controls out and makes the frame their container.
    void Lay(Layout layout);
    const Layout& layout() const { return layout_; }

    std::string Shows() const override { return caption; }

  private:
    friend class Form;
    Layout layout_;
    Control* cameFrom_ = nullptr; ///< of a side frame that is up: where the focus was before
};

} // namespace pgbp
