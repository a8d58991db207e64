#pragma once

#include "desktop/text_view.h"

namespace pgbp {

class SumOverlay;

/// An amount field: drawn in groups while it is not being typed, with the line of arithmetic over it while that is
/// open.
class AmountView : public TextView {
  public:
    AmountView(NumberBox& itsAmount, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;
    QWidget* keyboard() const override;
    QString Copied() const override;
    void ShowMarked(bool marked) override;

  protected:
    bool Wants(Key key) const override;

  private:
    bool SumIsUp() const;

    NumberBox& amount_;
    SumOverlay* overlay_ = nullptr; ///< made when first needed
};

} // namespace pgbp
