#pragma once

#include <QLabel>

namespace pgbp {

/// One line of plain text that ends in dots where it does not fit; its tool tip has the whole.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent);
    void Show(const QString& whole);

    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace pgbp
