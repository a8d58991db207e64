#pragma once

#include "suite/client_settings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace pgbp {

/// A dialog that stores something in the practice. Enter walks from field to field to the button that stores. What the
/// practice refuses is told in the dialog, which stays open.
class EntryDialog : public QDialog {
  public:
    EntryDialog(QWidget* parent, const Practice& practice, const QString& title);

  protected:
    virtual void Store() = 0;
    /// The fields stand; the message and the buttons come below them.
    void Finish(const QString& storing);
    void keyPressEvent(QKeyEvent* event) override;

    const Practice& practice_;
    QFormLayout* fields_;

  private:
    void TryToStore();

    QLabel* refusal_;
};

/// Adds a client with his first assessment year.
class NewClientDialog : public EntryDialog {
  public:
    /// `year` is offered first.
    NewClientDialog(QWidget* parent, const Practice& practice, const std::string& year);
    const std::string& code() const { return code_; } ///< of the year that was added

  protected:
    void Store() override;

  private:
    QLineEdit* name_;
    QLineEdit* pan_;
    QComboBox* kind_;
    QLineEdit* address_;
    QLineEdit* city_;
    QComboBox* year_;
    QComboBox* form_;
    std::string code_;
};

/// Adds an assessment year of a client.
class AddYearDialog : public EntryDialog {
  public:
    /// `year` is offered first.
    AddYearDialog(QWidget* parent, const Practice& practice, const AssesseeYear& client, const std::string& year);
    const std::string& code() const { return code_; } ///< of the year that was added

  protected:
    void Store() override;

  private:
    double client_;
    QComboBox* year_;
    QComboBox* form_;
    std::string code_;
};

/// The settings of an assessee-year.
class SettingsDialog : public EntryDialog {
  public:
    SettingsDialog(QWidget* parent, const Practice& practice, const AssesseeYear& assesseeYear);

  protected:
    void Store() override;

  private:
    void AddSwitch(const ClientSwitch& each);

    const AssesseeYear assesseeYear_;
    ClientSettings settings_;
    QComboBox* form_;
    std::vector<std::pair<const ClientSwitch*, QCheckBox*>> switches_;
};

} // namespace pgbp
