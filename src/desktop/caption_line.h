#pragma once

#include <QWidget>

namespace pgbp {

/// A caption in up to three lines. A label that wraps would ask the page for the height that all rows of the grid want.
class CaptionLine : public QWidget {
  public:
    using QWidget::QWidget;

    void Show(const QString& caption);
    int HeightFor(const QString& caption, int width) const;

  protected:
    void paintEvent(QPaintEvent*) override;
};

} // namespace pgbp
