#pragma once

#include "services/ini_file.h"
#include "suite/backup_process.h"
#include "suite/chooser.h"
#include "suite/chooser_model.h"
#include "suite/client_settings.h"
#include "suite/hand_over_row.h"
#include "suite/module_process.h"

#include <QWidget>

#include <functional>

class QComboBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace pgbp {

class CheckWindow;
class ElidedLabel;
class YearsPanel;

/// The list of the practice's assessee-years. Choosing one starts the module and, when it has ended, shows the head of
/// income that came back. One run at a time, as there is one hand-over file; the window stays alive meanwhile. Letters
/// typed anywhere search; the order and the look of the list are kept for the next time.
class ChooserWindow : public QWidget {
  public:
    /// Throws std::runtime_error when no practice stands in the folder.
    explicit ChooserWindow(const ChooserPrograms& programs);

    /// Shows only what holds each of the words, as typing them does.
    void Search(const QString& text);
    /// Starts the module for the chosen row.
    void Open();

  private:
    void BuildTop();
    void BuildTable();
    void BuildOptions();
    void BuildBottom();
    void Connect();
    void TakeUp();
    void KeepLook();

    void Reload(const std::string& chosenCode);
    const AssesseeYear* Chosen();
    void Choose(const std::string& code);
    void ChooseRow(std::size_t row);
    void SortBy(YearList::Column column);
    void ShowOrder();
    void ShowEmpty();
    void ShowOptions();
    void ShowAbout();
    void AddClient();
    void AddYear();
    void ChangeSettings();
    void ReportOnMany();
    void ReportOnChosen();
    void Check();
    /// Opens the client of a finding; gives why not, or nothing.
    QString OpenFound(const std::string& code);
    void BackUp();
    void Added(const std::string& code);
    void ModuleEnded(const QString& failure, const QString& said);
    QString WhatCameBack(const AssesseeYear& year, const QString& failure, const QString& said) const;
    void Tell(const QString& text, bool isFailure = false);
    /// What the user is told of an error, whose technical words go to the log.
    QString Logged(const std::exception& error) const;
    /// Tells what the work throws: an exception that leaves a slot would end the program.
    void Guarded(const std::function<void()>& work);
    HandOver HandOverOfChosen(const AssesseeYear& chosen) const;

    bool TakesKey(QObject* watched, const QKeyEvent& key);
    void SearchAnew(const QString& letters);
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

    const ChooserPrograms programs_;
    Practice practice_;
    ModuleProcess module_;
    BackupProcess backup_;
    std::string openCode_;    ///< of the assessee-year that the module has open, or had last
    ClientSettings settings_; ///< of the chosen assessee-year
    clsIniFile look_;         ///< order of the list, size of the window: of this workstation
    YearList list_;
    AssesseeYearModel rows_{list_};

    QLineEdit* search_ = nullptr;
    QTableView* table_ = nullptr;
    QLabel* empty_ = nullptr;
    YearsPanel* years_ = nullptr;
    QComboBox* whose_ = nullptr;
    ElidedLabel* about_ = nullptr;
    QPushButton* open_ = nullptr;
    QPushButton* newClient_ = nullptr;
    QPushButton* addYear_ = nullptr;
    QPushButton* changeSettings_ = nullptr;
    QPushButton* reports_ = nullptr;
    QPushButton* check_ = nullptr;
    QPushButton* backUp_ = nullptr;
    QPushButton* close_ = nullptr;
    QLabel* message_ = nullptr;
    CheckWindow* checkWindow_ = nullptr; ///< none until it is asked for
};

} // namespace pgbp
