#pragma once

#include "controls/frame.h"

#include <QObject>
#include <QRect>
#include <QString>

#include <memory>

class QEvent;
class QKeyEvent;
class QWidget;

namespace pgbp {

class FormView;

/// Where a control is laid out.
struct Place {
    QWidget* parent = nullptr;
    LayoutColumn column = LayoutColumn::Button;
    RowStyle style = RowStyle::Plain;
    bool inRow = true;   ///< in a row of its frame; else in the row of buttons
    bool inCell = false; ///< over the cell of a grid, which gives it its place

    bool OfAmounts() const { return column == LayoutColumn::Amount || column == LayoutColumn::Previous; }
};

/// Draws one control: keeps its widget like the control, and brings to the control what the preparer does. One class
/// for each kind of control; none knows a screen.
class ControlView {
  public:
    ControlView(Control& itsControl, FormView& itsForm) : control(itsControl), form(itsForm) {}
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;
    virtual ~ControlView() = default;

    Control& control;
    FormView& form;

    /// The widget in the layout, and the one that has the keyboard.
    QWidget* widget() const { return widget_; }
    virtual QWidget* keyboard() const { return widget_; }

    /// Makes the widget like the control.
    virtual void FromModel();
    /// A key pressed in the widget; true when it is dealt with.
    virtual bool KeyPressed(const QKeyEvent& event);
    /// Any other event of the widget; true when it goes no further.
    virtual bool Noticed(QEvent&) { return false; }
    /// The press of the mouse that brings the focus only brings the focus.
    virtual bool KeepsFirstPress() const { return false; }
    /// What was typed so far is no step of undo any more: it belongs to another cell.
    virtual void Forget() {}
    /// What Ctrl+C copies while the mouse has marked the control; empty for one that can not be marked.
    virtual QString Copied() const { return {}; }
    virtual void ShowMarked(bool) {}
    virtual bool TakesHeight() const { return false; }
    /// For what takes height: shows all rows at once, for a page that scrolls, or as many as there is room for.
    virtual void ShowWhole(bool) {}
    /// The height that showing all rows takes beyond the least; 0 while it does not.
    virtual int BeyondLeast() const { return 0; }
    /// The part of the widget that is to be in sight while it has the focus.
    virtual QRect Spot() const;
    virtual bool IsEnabled() const;

  protected:
    void Shows(QWidget* widget) { widget_ = widget; }
    virtual bool IsVisible() const { return control.visible; }
    /// The keys that are the control's and not the widget's own.
    virtual bool Wants(Key key) const;

    QObject connections; ///< signals of the widget reach this view as long as it lives

  private:
    QWidget* widget_ = nullptr;
};

/// The view for the kind of control it is.
std::unique_ptr<ControlView> MakeView(Control& control, FormView& form, const Place& place);

} // namespace pgbp
