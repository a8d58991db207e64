#pragma once

#include "controls/date_control.h"
#include "desktop/text_view.h"

class QCalendarWidget;
class QPoint;

namespace pgbp {

/// A date field with its month view, which drops down on a double click, on the small arrow, or with Alt and Down.
class DateView : public TextView {
  public:
    DateView(txtdate& itsDate, FormView& itsForm, const Place& place);

    void FromModel() override;
    bool KeyPressed(const QKeyEvent& event) override;
    bool Noticed(QEvent& event) override;

  private:
    void Toggle();
    void DropDown();
    void MakeCalendar();
    QPoint PlaceOfCalendar() const;

    txtdate& date_;
    QCalendarWidget* calendar_ = nullptr; ///< made when first needed
};

} // namespace pgbp
