#pragma once

#include "controls/offers.h"

#include <QListWidget>

namespace pgbp {

/// The offers of a text box below its field, or above it where the window ends. The keyboard stays in the field.
class OfferList : public QListWidget {
  public:
    explicit OfferList(QWidget* form);

    void ShowFor(const QWidget& field, const Offers& offers);

  private:
    void Fill(const Offers& offers);
    void PlaceAt(const QWidget& field);
};

} // namespace pgbp
