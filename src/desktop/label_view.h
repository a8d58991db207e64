#pragma once

#include "controls/text_controls.h"
#include "desktop/control_view.h"

#include <QColor>

namespace pgbp {

class ElidedLabel;

/// A caption, a hint, a heading or a computed amount.
class LabelView : public ControlView {
  public:
    LabelView(Label& itsLabel, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;
    QString Copied() const override;
    void ShowMarked(bool marked) override;
    /// The label names this widget from now on.
    void SetBuddy(QWidget* field);

  private:
    QColor Color() const;

    Label& label_;
    ElidedLabel* text_;
    bool isMuted_ = false;
};

} // namespace pgbp
