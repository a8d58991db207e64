#pragma once

#include <QSettings>

#include <vector>

class QWidget;

namespace pgbp {

/// What the preparer made of the window: its place and size, and the widths of columns. Kept for the user of the
/// machine, not in the practice: another one has another screen.
class WindowMemory {
  public:
    /// The file of the user's settings, or another one.
    WindowMemory();
    explicit WindowMemory(const QString& file);

    /// Shows the window where and as large as it was left, on a screen that is there; the first time maximized.
    void Show(QWidget& window) const;
    void Keep(const QWidget& window);

    /// Widths that the preparer gave to the columns of a grid, 0 for one that he left alone; of none if of others.
    std::vector<int> Columns(const QString& grid, std::size_t count) const;
    void KeepColumns(const QString& grid, const std::vector<int>& widths);

  private:
    QSettings settings_;
};

} // namespace pgbp
