#pragma once

#include "controls/lists.h"
#include "desktop/control_view.h"

class QListWidget;

namespace pgbp {

/// A list of titles with the empty spot below them.
class ListView : public ControlView {
  public:
    ListView(List& itsList, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool Noticed(QEvent& event) override;
    bool TakesHeight() const override { return true; }
    void ShowWhole(bool whole) override;
    int BeyondLeast() const override;
    QRect Spot() const override;

  protected:
    bool Wants(Key) const override { return true; }

  private:
    void ShowItems();

    List& list_;
    QListWidget* rows_;
};

} // namespace pgbp
