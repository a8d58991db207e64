#pragma once

#include "suite/line_program.h"

#include <QDialog>

#include <filesystem>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace pgbp {

/// Has the program of reports write one file a client into a folder: of the marked assessee-year, or of all that the
/// list shows. Tells how far it is and what failed; Cancel leaves the files that are written.
class ReportsDialog : public QDialog {
  public:
    struct Choice {
        QString words;
        std::vector<std::string> codes;
    };
    ReportsDialog(QWidget* parent, std::filesystem::path programFolder, const std::filesystem::path& reporter,
                  const std::vector<Choice>& choices);

  private:
    void Build(const std::vector<Choice>& choices);
    void ChooseFolder();
    void Start();
    void TakeLine(const QString& line);
    void ListFailure(const QString& words);
    void Ended(const QString& failure);
    void Tell(const QString& text, bool isFailure = false);
    void ShowRunning(bool runs);
    void reject() override;

    const std::filesystem::path programFolder_;
    std::vector<std::vector<std::string>> codes_;
    LineProgram program_;
    bool cancelled_ = false;
    int written_ = 0;

    QComboBox* clients_ = nullptr;
    QComboBox* kind_ = nullptr;
    QLineEdit* folder_ = nullptr;
    QPushButton* browse_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QLabel* message_ = nullptr;
    QListWidget* failures_ = nullptr;
    QPushButton* start_ = nullptr;
    QPushButton* close_ = nullptr;
};

} // namespace pgbp
