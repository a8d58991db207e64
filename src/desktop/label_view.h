#pragma once

#include "controls/text_controls.h"
#include "desktop/control_view.h"

namespace pgbp {

class ElidedLabel;

/// A caption, a hint, a heading or a computed amount.
class LabelView : public ControlView {
  public:
    LabelView(label& itsLabel, FormView& itsForm, const Place& place);

    void FromModel() override;
    /// The label names this widget from now on.
    void SetBuddy(QWidget* field);

  private:
    label& label_;
    ElidedLabel* text_;
};

/// Draws the text of an amount as positive, negative or no amount at all ("Not Allowed").
void MarkSign(QWidget& widget, const std::string& amount);

} // namespace pgbp
