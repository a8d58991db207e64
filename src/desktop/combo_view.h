#pragma once

#include "controls/lists.h"
#include "desktop/control_view.h"
#include "desktop/text_sync.h"

class QComboBox;

namespace pgbp {

/// A field with a list that drops down.
class ComboView : public ControlView {
  public:
    ComboView(combo& itsCombo, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;
    QWidget* keyboard() const override;

  private:
    void ShowItems();

    combo& combo_;
    QComboBox* box_;
    std::unique_ptr<TextSync> typing_; ///< where free text can be typed
};

} // namespace pgbp
