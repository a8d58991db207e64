#pragma once

#include "controls/offers.h"
#include "desktop/over_field.h"

#include <QListWidget>

namespace pgbp {

/// The offers of a text box below its field, or above it where the window ends. The keyboard stays in the field.
class OfferList : public QListWidget {
  public:
    OfferList(QWidget* form, QWidget& field);

    void Show(const Offers& offers);

  private:
    void Fill(const Offers& offers);
    void PlaceAt(const QRect& field);

    OverField over_;
};

} // namespace pgbp
