#include "suite/chooser_dialogs.h"

#include "desktop/captions.h"
#include "desktop/combo_view.h"
#include "desktop/theme.h"
#include "services/error_log.h"
#include "services/fault.h"
#include "suite/assessee_kinds.h"
#include "suite/new_clients.h"
#include "suite/text_color.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace pgbp {
namespace {

constexpr int kLengthOfPan = 10;

QString Text(std::string_view words) { return QString::fromUtf8(words.data(), static_cast<int>(words.size())); }

QLineEdit* AddField(QFormLayout& fields, const QString& caption)
{
    auto* field = new QLineEdit;
    fields.addRow(caption, field);
    return field;
}

QComboBox* AddChoice(QFormLayout& fields, const QString& caption)
{
    auto* choice = MakeDropBox(nullptr);
    fields.addRow(caption, choice);
    return choice;
}

QComboBox* AddKinds(QFormLayout& fields)
{
    auto* kinds = AddChoice(fields, "&Kind :");
    for (const AssesseeKind& kind : AssesseeKinds())
        kinds->addItem(Text(kind.words), Text(kind.status));
    return kinds;
}

QComboBox* AddYears(QFormLayout& fields, const Practice& practice, const std::string& year)
{
    auto* years = AddChoice(fields, "Assessment &year :");
    for (const std::string& each : AssessmentYears(practice))
        years->addItem(Text(each));
    years->setCurrentText(Text(year));
    return years;
}

QComboBox* AddForms(QFormLayout& fields)
{
    auto* forms = AddChoice(fields, "Return &form :");
    for (const ReturnFormChoice& choice : ReturnFormChoices())
        forms->addItem(Text(choice.words), choice.form);
    return forms;
}

} // namespace

EntryDialog::EntryDialog(QWidget* parent, const Practice& practice, const QString& title)
    : QDialog(parent), practice_(practice), fields_(new QFormLayout(this)), refusal_(new QLabel)
{
    setWindowTitle(title);
    setMinimumWidth(120 * kUnit);
    fields_->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    fields_->setVerticalSpacing(2 * kUnit);
    refusal_->setWordWrap(true);
    SetTextColor(*refusal_, Theme().negative);
}

void EntryDialog::Finish(const QString& storing)
{
    auto* buttons = new QDialogButtonBox;
    auto* store = buttons->addButton(storing, QDialogButtonBox::AcceptRole);
    auto* cancel = buttons->addButton("&Cancel", QDialogButtonBox::RejectRole);
    store->setProperty("main", true);
    for (QPushButton* button : {store, cancel})
        button->setMinimumHeight(RowHeight() + kUnit);
    for (QWidget* field : findChildren<QWidget*>())
        if (field->parent() == this && field->focusPolicy() != Qt::NoFocus)
            field->setMinimumHeight(RowHeight());
    fields_->addRow(refusal_);
    fields_->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { TryToStore(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

/// Enter that no button took belongs to a field.
void EntryDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        focusNextChild();
    else
        QDialog::keyPressEvent(event);
}

void EntryDialog::TryToStore()
{
    try {
        Store();
        accept();
    } catch (const std::exception& refusal) {
        LogError(practice_.folders.Client(), Now(), refusal);
        refusal_->setText(Text(PreparersWords(refusal)));
    }
    practice_.company.engine()->RenewPatience(); // the next press is an action of its own
}

NewClientDialog::NewClientDialog(QWidget* parent, const Practice& practice, const std::string& year)
    : EntryDialog(parent, practice, "New client"), name_(AddField(*fields_, "&Name :")),
      pan_(AddField(*fields_, "&PAN :")), kind_(AddKinds(*fields_)), address_(AddField(*fields_, "A&ddress :")),
      city_(AddField(*fields_, "C&ity :")), year_(AddYears(*fields_, practice, year)), form_(AddForms(*fields_))
{
    pan_->setMaxLength(kLengthOfPan);
    connect(pan_, &QLineEdit::textEdited, pan_, [this](const QString& typed) {
        const int cursor = pan_->cursorPosition();
        pan_->setText(typed.toUpper());
        pan_->setCursorPosition(cursor);
        const std::string_view status = StatusOfPan(pan_->text().toStdString());
        if (!status.empty())
            kind_->setCurrentIndex(kind_->findData(Text(status)));
    });
    Finish("&Add");
}

void NewClientDialog::Store()
{
    const Assessee assessee{.name = name_->text().toStdString(),
                            .pan = pan_->text().toStdString(),
                            .status = kind_->currentData().toString().toStdString(),
                            .further = {{"comm", "O"},
                                        {"add_o1", address_->text().trimmed().toStdString()},
                                        {"city_o", city_->text().trimmed().toStdString()}}};
    code_ = AddClient(practice_, assessee, year_->currentText().toStdString(), form_->currentData().toDouble());
}

AddYearDialog::AddYearDialog(QWidget* parent, const Practice& practice, const AssesseeYear& client,
                             const std::string& year)
    : EntryDialog(parent, practice, "Add an assessment year"), client_(client.client)
{
    fields_->addRow("Client :", new QLabel(Text(client.name)));
    year_ = AddYears(*fields_, practice, year);
    form_ = AddForms(*fields_);
    Finish("&Add");
}

void AddYearDialog::Store()
{
    code_ = AddYear(practice_, client_, year_->currentText().toStdString(), form_->currentData().toDouble());
}

SettingsDialog::SettingsDialog(QWidget* parent, const Practice& practice, const AssesseeYear& assesseeYear)
    : EntryDialog(parent, practice, "Client settings"), assesseeYear_(assesseeYear),
      settings_(ReadSettings(practice, assesseeYear.code))
{
    fields_->addRow("Client :", new QLabel(Text(assesseeYear.name)));
    fields_->addRow("Year :", new QLabel(Text(assesseeYear.year + "   " + KindInWords(assesseeYear.status))));
    form_ = AddForms(*fields_);
    form_->setCurrentIndex(form_->findData(settings_.returnForm));
    for (const ClientSwitch& each : ClientSwitches())
        if (each.concerns(assesseeYear))
            AddSwitch(each);
    Finish("&Save");
}

void SettingsDialog::AddSwitch(const ClientSwitch& each)
{
    QString caption = Text(each.words);
    caption[0] = caption[0].toUpper();
    auto* box = new QCheckBox(caption);
    box->setChecked(settings_.*each.value);
    auto* explanation = new QLabel(Text(each.explanation));
    SetTextColor(*explanation, Theme().muted);
    explanation->setWordWrap(true);
    explanation->setIndent(6 * kUnit);
    box->setAccessibleDescription(explanation->text());
    fields_->addRow(box);
    fields_->addRow(explanation);
    switches_.emplace_back(&each, box);
}

void SettingsDialog::Store()
{
    ClientSettings settings = settings_;
    if (form_->currentIndex() >= 0) {
        const double form = form_->currentData().toDouble();
        settings.returnForm = form != 0 ? form : UsualReturnForm(assesseeYear_.status);
    }
    for (const auto& [each, box] : switches_)
        settings.*each->value = box->isChecked();
    StoreSettings(practice_, assesseeYear_, settings);
}

} // namespace pgbp
