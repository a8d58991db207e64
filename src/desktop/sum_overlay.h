#pragma once

#include "controls/text_controls.h"

#include <QFrame>

#include <functional>

class QLineEdit;

namespace pgbp {

class ElidedLabel;

/// The line of arithmetic over an amount field, with its result where the amount will stand.
class SumOverlay : public QFrame {
  public:
    explicit SumOverlay(QWidget* form);

    std::function<void(const QString& line)> edited;

    QLineEdit* line() const { return line_; }
    void ShowOver(const QWidget& field, const SumLine& sum);
    void PlaceOver(const QWidget& field);

  private:
    QLineEdit* line_;
    ElidedLabel* result_;
};

} // namespace pgbp
