#pragma once

#include "suite/chooser_model.h"
#include "suite/hand_over_row.h"
#include "suite/module_process.h"

#include <QWidget>

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace pgbp {

/// The list of the practice's assessee-years. Choosing one starts the module and, when it has ended, shows the head of
/// income that came back. One run at a time, as there is one hand-over file; the window stays alive meanwhile.
class ChooserWindow : public QWidget {
  public:
    /// Throws std::runtime_error when no practice stands in the folder.
    ChooserWindow(const std::filesystem::path& programFolder, const std::filesystem::path& module);

    /// Shows only what holds the text, as typing it does.
    void Search(const QString& text);
    /// Starts the module for the chosen row.
    void Open();

  private:
    void BuildTop();
    void BuildTable();
    void BuildOptions();
    void BuildBottom();
    void Connect();

    void Reload(const std::string& chosenCode);
    const AssesseeYear* Chosen() const;
    void Choose(int proxyRow);
    void ShowMinors();
    void AddAssessee();
    void AddYear(double client, const std::string& name, const std::string& year);
    void AddYearOfChosen();
    void ModuleEnded(const QString& failure, const QString& said);
    void Tell(const QString& text, bool isFailure = false);
    /// Tells what the work throws: an exception that leaves a slot would end the program.
    void Guarded(const std::function<void()>& work);
    HandOver HandOverOfChosen(const AssesseeYear& chosen) const;

    bool eventFilter(QObject* watched, QEvent* event) override;

    Practice practice_;
    ModuleProcess module_;
    std::string openCode_; ///< of the assessee-year that the module has open, or had last
    AssesseeYearModel years_;
    SearchModel found_;

    QLineEdit* search_ = nullptr;
    QTableView* table_ = nullptr;
    QCheckBox* comparative_ = nullptr;
    QCheckBox* locked_ = nullptr;
    QComboBox* whose_ = nullptr;
    QPushButton* open_ = nullptr;
    QPushButton* addAssessee_ = nullptr;
    QPushButton* addYear_ = nullptr;
    QPushButton* close_ = nullptr;
    QLabel* message_ = nullptr;
};

} // namespace pgbp
