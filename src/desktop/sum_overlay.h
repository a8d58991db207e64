#pragma once

#include "controls/text_controls.h"
#include "desktop/over_field.h"

#include <QFrame>

#include <functional>

class QLineEdit;

namespace pgbp {

class ElidedLabel;

/// The line of arithmetic over an amount field, with its result where the amount will stand.
class SumOverlay : public QFrame {
  public:
    SumOverlay(QWidget* form, QWidget& field);

    std::function<void(const QString& line)> edited;

    QLineEdit* line() const { return line_; }
    void Show(const SumLine& sum);

  private:
    void PlaceOver(const QRect& field);

    QLineEdit* line_;
    ElidedLabel* result_;
    const QWidget& page_; ///< the rows that the field stands in
    OverField over_;
};

} // namespace pgbp
