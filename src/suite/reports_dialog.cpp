#include "suite/reports_dialog.h"

#include "desktop/captions.h"
#include "desktop/combo_view.h"
#include "desktop/theme.h"
#include "suite/push_button.h"
#include "suite/text_color.h"

#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QStandardPaths>

namespace pgbp {
namespace {

constexpr const char* kFailed = "failed: ";

} // namespace

ReportsDialog::ReportsDialog(QWidget* parent, std::filesystem::path programFolder,
                             const std::filesystem::path& reporter, const std::vector<Choice>& choices)
    : QDialog(parent), programFolder_(std::move(programFolder)), program_(reporter)
{
    setWindowTitle("Reports");
    setMinimumWidth(150 * kUnit);
    Build(choices);
    ShowRunning(false);
    program_.told = [this](const QString& line) { TakeLine(line.trimmed()); };
    program_.ended = [this](const QString& failure) { Ended(failure); };
}

void ReportsDialog::Build(const std::vector<Choice>& choices)
{
    auto* fields = new QFormLayout(this);
    fields->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    fields->setVerticalSpacing(2 * kUnit);
    clients_ = MakeDropBox(nullptr);
    for (const Choice& choice : choices) {
        clients_->addItem(choice.words);
        codes_.push_back(choice.codes);
    }
    kind_ = MakeDropBox(nullptr);
    kind_->addItem("PDF", "--pdf");
    kind_->addItem("Workbook (.xls)", "--xls");
    folder_ =
        new QLineEdit(QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)).filePath("Reports"));
    browse_ = MakeButton("&Browse ...");
    auto* place = new QHBoxLayout;
    place->addWidget(folder_, 1);
    place->addWidget(browse_);
    for (QWidget* field : std::initializer_list<QWidget*>{clients_, kind_, folder_})
        field->setMinimumHeight(RowHeight());
    fields->addRow("C&lients :", clients_);
    fields->addRow("&As :", kind_);
    auto* into = new QLabel("&Into :");
    into->setBuddy(folder_);
    fields->addRow(into, place);

    progress_ = new QProgressBar;
    progress_->setAccessibleName("Progress");
    message_ = new QLabel;
    message_->setWordWrap(true);
    failures_ = new QListWidget;
    failures_->setAccessibleName("What failed");
    failures_->setWordWrap(true);
    failures_->hide();
    fields->addRow(progress_);
    fields->addRow(message_);
    fields->addRow(failures_);

    start_ = MakeButton("&Write");
    start_->setDefault(true);
    start_->setProperty("main", true);
    close_ = MakeButton("&Close");
    close_->setAutoDefault(false);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(start_);
    buttons->addWidget(close_);
    fields->addRow(buttons);
    connect(browse_, &QPushButton::clicked, this, [this] { ChooseFolder(); });
    connect(start_, &QPushButton::clicked, this, [this] { Start(); });
    connect(close_, &QPushButton::clicked, this, &QDialog::reject);
}

void ReportsDialog::ChooseFolder()
{
    const QString chosen = QFileDialog::getExistingDirectory(this, "Folder for the reports", folder_->text());
    if (!chosen.isEmpty())
        folder_->setText(chosen);
}

void ReportsDialog::Start()
{
    if (folder_->text().trimmed().isEmpty())
        return Tell("Tell the folder into which the reports are written.", true);
    const auto& codes = codes_[static_cast<std::size_t>(clients_->currentIndex())];
    progress_->setRange(0, static_cast<int>(codes.size()));
    progress_->setValue(0);
    failures_->clear();
    failures_->hide();
    cancelled_ = false;
    written_ = 0;
    Tell("");
    QByteArray lines; // a practice has more than a command line holds
    for (const std::string& code : codes)
        lines.append((code + '\n').c_str());
    program_.Start({"--program-folder", Text(programFolder_.string()), kind_->currentData().toString(),
                    folder_->text().trimmed(), "-"},
                   lines);
    ShowRunning(true);
}

/// "3/12 CODE FILE", or "3/12 CODE failed: ...".
void ReportsDialog::TakeLine(const QString& line)
{
    progress_->setValue(line.section('/', 0, 0).toInt());
    const QString code = line.section(' ', 1, 1);
    const QString rest = line.section(' ', 2);
    if (rest.startsWith(kFailed))
        return ListFailure(code + ": " + rest.mid(static_cast<int>(qstrlen(kFailed))));
    ++written_;
    Tell(rest);
}

void ReportsDialog::ListFailure(const QString& words)
{
    failures_->addItem(words);
    failures_->show();
}

void ReportsDialog::Ended(const QString& failure)
{
    ShowRunning(false);
    if (!failure.isEmpty() && failures_->count() == 0) // it could not even begin
        ListFailure(failure);
    const QString count =
        QString("%1 of %2 reports stand in %3.").arg(written_).arg(progress_->maximum()).arg(folder_->text().trimmed());
    if (cancelled_)
        Tell("Cancelled: " + count);
    else
        Tell(count, failures_->count() > 0);
}

void ReportsDialog::ShowRunning(bool runs)
{
    for (QWidget* field : std::initializer_list<QWidget*>{clients_, kind_, folder_, browse_, start_})
        field->setEnabled(!runs);
    progress_->setVisible(runs || progress_->value() > 0);
    close_->setText(runs ? "&Cancel" : "&Close");
    if (runs)
        close_->setFocus();
}

void ReportsDialog::Tell(const QString& text, bool isFailure)
{
    SetTextColor(*message_, isFailure ? Theme().negative : Theme().text);
    message_->setText(text);
}

/// While it writes, Escape and the button stop it: each file is written in one step, so none is left in half.
void ReportsDialog::reject()
{
    if (!program_.IsRunning())
        return QDialog::reject();
    cancelled_ = true;
    program_.Stop();
}

} // namespace pgbp
