#pragma once

#include "suite/years_chart.h"

#include <QWidget>

class QPainter;

namespace pgbp {

/// Draws the chart of a client's years. The exact figure of a year shows in the tip of its column, all of them are the
/// widget's description for readers. It is reached with Tab alone, never by a click; the arrows then walk the years,
/// and Ctrl+C copies them all as text.
class YearsChartView : public QWidget {
  public:
    explicit YearsChartView(QWidget* parent);

    /// `marked` is the place of the year that the list has marked.
    void Show(const QString& client, std::vector<ClientYear> years, std::size_t marked);

    /// The year that is told beside the chart: the marked one, or the one that the arrows walked to.
    std::function<void(const ClientYear&)> tells;

    QSize sizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    YearsChart Chart() const;
    void TellOf(std::size_t place);
    std::optional<std::size_t> PlaceAfter(int key) const;
    void PaintGround(QPainter& painter, const YearsChart& chart) const;
    void PaintColumn(QPainter& painter, const YearsChart& chart, std::size_t place) const;

    QString client_;
    std::vector<ClientYear> years_;
    std::size_t marked_ = 0;
    std::size_t told_ = 0;
};

} // namespace pgbp
