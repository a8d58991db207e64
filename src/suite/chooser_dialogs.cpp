#include "suite/chooser_dialogs.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "startup/status.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace pgbp {
namespace {

constexpr const char* kStatusCodes[] = {"01", "05", "06", "07", "08", "09", "12", "13", "15"};

QLineEdit* AddField(QFormLayout& fields, const QString& caption)
{
    auto* field = new QLineEdit;
    fields.addRow(caption, field);
    return field;
}

QComboBox* AddChoice(QFormLayout& fields, const QString& caption)
{
    auto* choice = new QComboBox;
    fields.addRow(caption, choice);
    return choice;
}

} // namespace

AddDialog::AddDialog(QWidget* parent, const QString& title)
    : QDialog(parent), fields_(new QFormLayout(this)), refusal_(new QLabel)
{
    setWindowTitle(title);
    setMinimumWidth(120 * kUnit);
    fields_->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    fields_->setVerticalSpacing(2 * kUnit);
    refusal_->setWordWrap(true);
    refusal_->setProperty("sign", "negative");
}

void AddDialog::Finish()
{
    auto* buttons = new QDialogButtonBox;
    auto* add = buttons->addButton("&Add", QDialogButtonBox::AcceptRole);
    auto* cancel = buttons->addButton("&Cancel", QDialogButtonBox::RejectRole);
    add->setProperty("main", true);
    for (QPushButton* button : {add, cancel})
        button->setMinimumHeight(RowHeight() + kUnit);
    fields_->addRow(refusal_);
    fields_->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { TryToAdd(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void AddDialog::TryToAdd()
{
    try {
        Add();
        accept();
    } catch (const std::exception& refusal) {
        refusal_->setText(QString::fromUtf8(refusal.what()));
    }
}

AddAssesseeDialog::AddAssesseeDialog(QWidget* parent, const Practice& practice)
    : AddDialog(parent, "Add an assessee"), practice_(practice), name_(AddField(*fields_, "&Name :")),
      pan_(AddField(*fields_, "&PAN :")), status_(AddChoice(*fields_, "&Status :")),
      address_(AddField(*fields_, "A&ddress :")), city_(AddField(*fields_, "C&ity :"))
{
    for (const char* code : kStatusCodes)
        status_->addItem(QString("%1   %2").arg(code, Text(StatusInWords(code))), code);
    pan_->setMaxLength(10);
    connect(pan_, &QLineEdit::textEdited, pan_, [this](const QString& typed) { pan_->setText(typed.toUpper()); });
    Finish();
}

void AddAssesseeDialog::Add()
{
    number_ = AddAssessee(practice_, {name_->text().toStdString(),
                                      pan_->text().toStdString(),
                                      status_->currentData().toString().toStdString(),
                                      {{"comm", "O"},
                                       {"add_o1", address_->text().trimmed().toStdString()},
                                       {"city_o", city_->text().trimmed().toStdString()}}});
}

AddYearDialog::AddYearDialog(QWidget* parent, const Practice& practice, double client, const std::string& name,
                             const std::string& year)
    : AddDialog(parent, "Add an assessment year"), practice_(practice), client_(client)
{
    fields_->addRow("Client :", new QLabel(Text(name)));
    year_ = AddChoice(*fields_, "Assessment &year :");
    form_ = AddChoice(*fields_, "Return &form :");
    for (const std::string& each : AssessmentYears(practice))
        year_->addItem(Text(each));
    year_->setCurrentText(Text(year));
    const std::pair<const char*, int> forms[] = {
        {"as usual for the status", 0},
        {"4   business of an individual", 4},
        {"5   firm or association", 5},
        {"6   company", 6},
    };
    for (const auto& [words, number] : forms)
        form_->addItem(words, number);
    Finish();
}

void AddYearDialog::Add()
{
    code_ = AddYear(practice_, client_, year_->currentText().toStdString(), form_->currentData().toInt());
}

} // namespace pgbp
