#pragma once

#include "controls/lists.h"
#include "desktop/control_view.h"
#include "desktop/text_sync.h"

class QComboBox;
class QWidget;

namespace pgbp {

/// The platform's field with a list that drops down, in the look of the program.
QComboBox* MakeDropBox(QWidget* parent);

/// A field with a list that drops down.
class ComboView : public ControlView {
  public:
    ComboView(combo& itsCombo, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;
    QWidget* keyboard() const override;
    void Forget() override;

  private:
    void ShowItems();

    combo& combo_;
    QComboBox* box_;
    std::unique_ptr<TextSync> typing_; ///< where free text can be typed
};

} // namespace pgbp
