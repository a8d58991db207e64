#pragma once

#include "suite/year_list.h"

#include <QTimer>
#include <QWidget>

#include <chrono>

class QLabel;

namespace pgbp {

class ElidedLabel;
class YearsChartView;

/// The head of income of the marked client over his years, below the list. Walking the list reads nothing for it: what
/// the list has not read yet is read once when a row stays marked, and the list keeps it.
class YearsPanel : public QWidget {
  public:
    /// Longer than the keyboard's own repetition: what is walked over is not read for.
    static constexpr std::chrono::milliseconds kStays{150};

    YearsPanel(QWidget* parent, YearList& list);

    /// The row that is marked; none in an empty list.
    void Mark(std::optional<std::size_t> row);
    /// Hides where a window of this height would leave the list too few rows.
    void GiveWay(int windowHeight);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void ShowMarked();
    void ShowNothingOf(const QString& client);
    void Tell(const ClientYear& year);

    YearList& list_;
    std::optional<std::size_t> row_; ///< that is marked
    QTimer stays_;
    ElidedLabel* client_ = nullptr;
    ElidedLabel* year_ = nullptr;
    ElidedLabel* head_ = nullptr;
    YearsChartView* chart_ = nullptr;
};

} // namespace pgbp
