#pragma once

#include "controls/buttons.h"
#include "desktop/control_view.h"

#include <QString>

class QAbstractButton;
class QCheckBox;
class QRadioButton;

namespace pgbp {

/// What is pressed. The form decides whether the press counts: the field in which the preparer is may not let go.
class PushView : public ControlView {
  public:
    PushView(PushControl& itsControl, FormView& itsForm, QAbstractButton* button);

    void FromModel() override;
    bool IsEnabled() const override { return control.Reachable() || !control.Shown(); }

  protected:
    bool Wants(Key) const override { return true; }
    virtual QString Caption() const;
    QAbstractButton* button() const { return button_; }
    const PushControl& push() const { return push_; }

  private:
    PushControl& push_;
    QAbstractButton* button_;
};

class ButtonView : public PushView {
  public:
    ButtonView(cmd& itsButton, FormView& itsForm, const Place& place);

  protected:
    bool IsVisible() const override;
};

class ImageView : public PushView {
  public:
    ImageView(Image& itsImage, FormView& itsForm, const Place& place);
    void FromModel() override;

  protected:
    QString Caption() const override { return "?"; }
};

/// A check box or an option: ticked as the control is, whatever the widget made of the click.
template <typename Kind, typename Button>
class TickView : public PushView {
  public:
    TickView(Kind& itsTick, FormView& itsForm, const Place& place);
    void FromModel() override;

  private:
    Kind& tick_;
};

using CheckView = TickView<CheckBox, QCheckBox>;
using OptionView = TickView<Option, QRadioButton>;

} // namespace pgbp
