#pragma once

#include "suite/findings_model.h"
#include "suite/line_program.h"

#include <QSortFilterProxyModel>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;
class QTableView;

namespace pgbp {

/// The check of the practice, beside the list of the clients: what does not agree, found by a program of its own while
/// the work goes on. A finding opens its client; what was mended there is gone from the list when the preparer is back.
class CheckWindow : public QWidget {
  public:
    CheckWindow(QWidget* parent, const std::filesystem::path& programFolder, const std::filesystem::path& checker);

    /// Opens the client of a finding; gives why not, or nothing.
    std::function<QString(const std::string& code)> open;

    /// Checks the whole practice anew.
    void Start();
    /// Looks again at one assessee-year.
    void LookAgain(const std::string& code);

  private:
    void Build();
    void BuildTable();
    void TakeLine(const QString& line);
    void ShowFound();
    void Ended(const QString& failure);
    void Open();
    void Copy();
    void Export();
    void SortBy(int column);
    void ShowRunning(bool runs);
    void Tell(const QString& text, bool isFailure = false);
    void Leave();
    const Finding& At(int row) const;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

    const QString programFolder_;
    LineProgram program_;
    FindingsModel findings_;
    QSortFilterProxyModel sorted_;
    std::vector<Finding> found_; ///< not in the table yet
    std::string lookedAt_;       ///< the assessee-year that is checked alone; none: the practice is
    bool cancelled_ = false;

    QTableView* table_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QLabel* message_ = nullptr;
    QPushButton* again_ = nullptr;
    QPushButton* export_ = nullptr;
    QPushButton* open_ = nullptr;
    QPushButton* close_ = nullptr;
};

} // namespace pgbp
