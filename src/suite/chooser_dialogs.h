#pragma once

#include "suite/assessee_years.h"

#include <QDialog>

class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;

namespace pgbp {

/// A dialog that adds something to the practice. What the practice refuses is told in the dialog, which stays open.
class AddDialog : public QDialog {
  public:
    AddDialog(QWidget* parent, const QString& title);

  protected:
    virtual void Add() = 0;
    /// The fields stand; the message and the buttons come below them.
    void Finish();

    QFormLayout* fields_;

  private:
    void TryToAdd();

    QLabel* refusal_;
};

/// Adds an assessee.
class AddAssesseeDialog : public AddDialog {
  public:
    AddAssesseeDialog(QWidget* parent, const Practice& practice);
    double number() const { return number_; } ///< of the assessee that was added

  protected:
    void Add() override;

  private:
    const Practice& practice_;
    QLineEdit* name_;
    QLineEdit* pan_;
    QComboBox* status_;
    QLineEdit* address_;
    QLineEdit* city_;
    double number_ = 0;
};

/// Adds an assessment year of an assessee.
class AddYearDialog : public AddDialog {
  public:
    /// `year` is offered first.
    AddYearDialog(QWidget* parent, const Practice& practice, double client, const std::string& name,
                  const std::string& year);
    const std::string& code() const { return code_; } ///< of the year that was added

  protected:
    void Add() override;

  private:
    const Practice& practice_;
    double client_;
    QComboBox* year_;
    QComboBox* form_;
    std::string code_;
};

} // namespace pgbp
