#include "suite/chooser_window.h"

#include "desktop/captions.h"
#include "desktop/combo_view.h"
#include "desktop/elided_label.h"
#include "desktop/theme.h"
#include "services/error_log.h"
#include "services/fault.h"
#include "suite/backup.h"
#include "suite/check_window.h"
#include "suite/chooser_dialogs.h"
#include "suite/head_of_income.h"
#include "suite/list_table.h"
#include "suite/push_button.h"
#include "suite/reports_dialog.h"
#include "suite/text_color.h"
#include "suite/years_panel.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace pgbp {
namespace {

constexpr UsualText kUsualTexts[] = {
    {YearList::Year, "2023-24"},         {YearList::Kind, "Company (private)"}, {YearList::Pan, "WWWWW0000W"},
    {YearList::Head, "00,00,00,000.00"}, {YearList::WrittenBy, "minor 1"},      {YearList::Code, "00000r2023-24"},
};

/// Alt and a letter that no button has.
bool IsStrayMnemonic(const QKeyEvent& key) { return key.modifiers() == Qt::AltModifier && !key.text().isEmpty(); }

bool IsText(const QKeyEvent& key)
{
    const bool isCommand = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isCommand && !key.text().isEmpty() && key.text()[0].isPrint() && key.text()[0] != ' ';
}

} // namespace

ChooserWindow::ChooserWindow(const ChooserPrograms& programs)
    : programs_(programs), practice_(programs.folder), module_(programs.module),
      backup_(programs.module.parent_path() / "pgbp-suite", practice_.folders.program),
      look_{practice_.folders.Client() / "chooser.ini"}, list_([this](std::span<AssesseeYear* const> years) {
          try {
              ReadHeads(practice_, years);
          } catch (const std::exception& failure) {
              const QString why = Logged(failure);
              QMetaObject::invokeMethod(
                  this, [this, why] { Tell(why, true); }, Qt::QueuedConnection);
              throw;
          }
      })
{
    setWindowTitle("Vorn - Assessee-years of the practice");
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    page->setSpacing(3 * kUnit);
    BuildTop();
    BuildTable();
    BuildOptions();
    BuildBottom();
    Connect();
    TakeUp();
    Reload("");
    Guarded([&] {
        if (const std::string warning = BackupWarning(practice_.folders.program, Now()); !warning.empty())
            Tell(Text(warning), true);
    });
    search_->setFocus();
}

void ChooserWindow::BuildTop()
{
    auto* title = new QLabel("Clients");
    title->setFont(FontOf(Type::Title));
    auto* place = new QLabel(Text(practice_.folders.program.filename().string()));
    place->setToolTip("The data lies in " + Text(practice_.folders.program.string()));
    SetTextColor(*place, Theme().muted);
    search_ = new QLineEdit;
    search_->setMinimumHeight(RowHeight());
    search_->setPlaceholderText("Words of the name, PAN, code, year or kind, in any order");
    search_->setClearButtonEnabled(true);
    auto* caption = new QLabel("&Search :");
    caption->setBuddy(search_);

    auto* heading = new QHBoxLayout;
    heading->addWidget(title);
    heading->addStretch();
    heading->addWidget(place);
    auto* row = new QHBoxLayout;
    row->addWidget(caption);
    row->addWidget(search_, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(heading);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void ChooserWindow::BuildTable()
{
    table_ = MakeListTable(rows_, YearList::Client, kUsualTexts);
    table_->setAccessibleName("Assessee-years");
    empty_ = new QLabel;
    empty_->setAlignment(Qt::AlignCenter);
    SetTextColor(*empty_, Theme().muted);
    auto* over = new QVBoxLayout(table_->viewport());
    over->addWidget(empty_);
    static_cast<QVBoxLayout*>(layout())->addWidget(table_, 1);
    years_ = new YearsPanel(this, list_);
    layout()->addWidget(years_);
}

void ChooserWindow::BuildOptions()
{
    whose_ = MakeDropBox(nullptr);
    whose_->setMinimumHeight(RowHeight());
    auto* caption = new QLabel("&Income of :");
    caption->setBuddy(whose_);
    about_ = new ElidedLabel(this);
    about_->setMinimumHeight(RowHeight());
    about_->SetMargin(2 * kUnit);
    about_->GiveWay(0);

    auto* row = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    row->addWidget(caption);
    row->addWidget(whose_);
    row->addSpacing(kPadding);
    row->addWidget(about_, 1);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void ChooserWindow::BuildBottom()
{
    newClient_ = MakeButton("&New Client ...");
    addYear_ = MakeButton("Add &Year ...");
    changeSettings_ = MakeButton("Client Se&ttings ...");
    reports_ = MakeButton("&Reports ...");
    reports_->setToolTip("Computations on paper; Ctrl+P shows that of the marked client");
    check_ = MakeButton("Chec&k ...");
    check_->setToolTip("Finds what does not agree in the practice");
    backUp_ = MakeButton("&Back Up");
    backUp_->setToolTip("Copies all data of the practice, checked, while you go on working");
    open_ = MakeButton("&Open");
    open_->setProperty("main", true);
    close_ = MakeButton("&Close");
    message_ = new QLabel;
    message_->setObjectName("message");
    message_->setWordWrap(true);

    auto* row = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    for (QPushButton* button : {newClient_, addYear_, changeSettings_, reports_, check_, backUp_})
        row->addWidget(button);
    row->addStretch();
    row->addWidget(open_);
    row->addWidget(close_);
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
    layout()->addWidget(message_);
}

void ChooserWindow::Connect()
{
    const auto guarded = [this](void (ChooserWindow::*work)()) {
        return [this, work] { Guarded([&] { (this->*work)(); }); };
    };
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        Guarded([&] {
            rows_.Change([&] { list_.Search(text.toStdString()); });
            ChooseRow(list_.Best());
        });
    });
    connect(search_, &QLineEdit::returnPressed, this, [this] { Open(); });
    module_.ended = [this](const QString& failure, const QString& said) { ModuleEnded(failure, said); };
    for (QWidget* widget : findChildren<QWidget*>())
        widget->installEventFilter(this);
    connect(table_, &QTableView::doubleClicked, this, [this] { Open(); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            guarded(&ChooserWindow::ShowOptions));
    connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int section) { SortBy(static_cast<YearList::Column>(section)); });
    connect(whose_, &QComboBox::currentIndexChanged, this, [this] { ShowAbout(); });
    connect(open_, &QPushButton::clicked, this, [this] { Open(); });
    connect(newClient_, &QPushButton::clicked, this, guarded(&ChooserWindow::AddClient));
    connect(addYear_, &QPushButton::clicked, this, guarded(&ChooserWindow::AddYear));
    connect(changeSettings_, &QPushButton::clicked, this, guarded(&ChooserWindow::ChangeSettings));
    connect(reports_, &QPushButton::clicked, this, guarded(&ChooserWindow::ReportOnMany));
    connect(check_, &QPushButton::clicked, this, [this] { Check(); });
    connect(backUp_, &QPushButton::clicked, this, [this] { BackUp(); });
    backup_.ended = [this](const QString& told, bool isFailure) {
        backUp_->setEnabled(true);
        Tell(told, isFailure);
    };
    connect(close_, &QPushButton::clicked, this, [this] { close(); });
}

/// What the last time left.
void ChooserWindow::TakeUp()
{
    Guarded([&] {
        list_.Sort(OrderFrom(look_.GetValue("LIST", "Order")));
        ShowOrder();
        const auto stored = [&](const char* key) {
            return QByteArray::fromBase64(QByteArray::fromStdString(look_.GetValue("WINDOW", key)));
        };
        restoreGeometry(stored("Geometry"));
        table_->horizontalHeader()->restoreState(stored("Columns"));
    });
}

void ChooserWindow::KeepLook()
{
    const auto keep = [&](const char* key, const QByteArray& bytes) {
        look_.WriteValue("WINDOW", key, bytes.toBase64().toStdString());
    };
    keep("Geometry", saveGeometry());
    keep("Columns", table_->horizontalHeader()->saveState());
}

void ChooserWindow::closeEvent(QCloseEvent* event)
{
    Guarded([&] { KeepLook(); });
    backup_.LeaveBehind();
    QWidget::closeEvent(event);
}

void ChooserWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    years_->GiveWay(height());
}

bool ChooserWindow::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::KeyPress && TakesKey(watched, *static_cast<QKeyEvent*>(event));
}

/// The keys that are the window's, wherever the focus stands.
bool ChooserWindow::TakesKey(QObject* watched, const QKeyEvent& key)
{
    const int column = key.key() - Qt::Key_1;
    if (key.modifiers() == Qt::ControlModifier && column >= 0 && column < YearList::ColumnCount) {
        SortBy(static_cast<YearList::Column>(column));
    } else if (key.matches(QKeySequence::Print)) {
        Guarded([&] { ReportOnChosen(); });
    } else if (key.key() == Qt::Key_Escape) {
        SearchAnew("");
    } else if (key.key() == Qt::Key_F5) {
        Guarded([&] { Reload(Chosen() ? Chosen()->code : ""); });
    } else if (IsStrayMnemonic(key)) { // the search line would take it for a letter
        return true;
    } else if (watched == search_) {
        constexpr int kWalks[] = {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_PageUp};
        if (std::ranges::find(kWalks, key.key()) == std::end(kWalks))
            return false;
        table_->setFocus();
        QKeyEvent walk(QEvent::KeyPress, key.key(), key.modifiers());
        QApplication::sendEvent(table_, &walk);
    } else if (watched == table_ && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)) {
        Open();
    } else if (IsText(key)) {
        SearchAnew(key.text());
    } else {
        return false;
    }
    return true;
}

void ChooserWindow::SearchAnew(const QString& letters)
{
    search_->setText(letters);
    search_->setFocus();
}

void ChooserWindow::Search(const QString& text) { search_->setText(text); }

void ChooserWindow::Reload(const std::string& chosenCode)
{
    std::vector<AssesseeYear> years = AssesseeYears(practice_);
    rows_.Change([&] { list_.Show(std::move(years)); });
    Choose(chosenCode);
}

/// The row of the code, or where there is none the one that is meant by what was searched for.
void ChooserWindow::Choose(const std::string& code) { ChooseRow(list_.RowOf(code).value_or(list_.Best())); }

void ChooserWindow::ChooseRow(std::size_t row)
{
    ShowEmpty();
    if (list_.Size() == 0)
        ShowOptions();
    else
        table_->setCurrentIndex(rows_.index(static_cast<int>(row), 0));
}

const AssesseeYear* ChooserWindow::Chosen()
{
    const int row = table_->currentIndex().row();
    return row >= 0 && row < rows_.rowCount() ? &list_.WithHead(static_cast<std::size_t>(row)) : nullptr;
}

void ChooserWindow::SortBy(YearList::Column column)
{
    Guarded([&] {
        const std::string code = Chosen() ? Chosen()->code : "";
        rows_.Change([&] { list_.Sort(OrderAfter(list_.order(), column)); });
        ShowOrder();
        Choose(code);
        look_.WriteValue("LIST", "Order", OrderText(list_.order()));
    });
}

void ChooserWindow::ShowOrder()
{
    const auto [column, descending] = list_.order();
    table_->horizontalHeader()->setSortIndicator(column, descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void ChooserWindow::ShowEmpty()
{
    empty_->setVisible(list_.Size() == 0);
    empty_->setText(list_.Size() == 0 ? Text(list_.WhyEmpty()) : "");
}

void ChooserWindow::ShowOptions()
{
    const AssesseeYear* chosen = Chosen();
    years_->Mark(chosen ? std::optional(static_cast<std::size_t>(table_->currentIndex().row())) : std::nullopt);
    open_->setEnabled(chosen && !module_.IsRunning());
    addYear_->setEnabled(chosen);
    changeSettings_->setEnabled(chosen);
    reports_->setEnabled(chosen);
    whose_->clear();
    whose_->addItem("the assessee, with his minors", 0);
    if (chosen) {
        for (const double minor : MinorsOf(practice_, chosen->code))
            whose_->addItem(Text(MinorInWords(minor)), minor);
        settings_ = ReadSettings(practice_, chosen->code);
    }
    whose_->setEnabled(whose_->count() > 1);
    ShowAbout();
}

/// Why the assessee's own run is due, as long as it is what Open starts; else the settings of the run.
void ChooserWindow::ShowAbout()
{
    const AssesseeYear* chosen = Chosen();
    const bool isOwnRun = whose_->currentData().toDouble() == 0;
    const std::string due = chosen && isOwnRun ? WhyOwnRunIsDue(*chosen) : "";
    about_->SetBackground(due.empty() ? QColor() : Theme().mark);
    about_->SetColor(due.empty() ? Theme().muted : Theme().text);
    about_->Show(Text(!chosen ? "" : due.empty() ? InWords(settings_, *chosen) : due));
}

HandOver ChooserWindow::HandOverOfChosen(const AssesseeYear& chosen) const
{
    HandOver record = PrepareHandOver(practice_, chosen);
    ApplySettings(record, settings_);
    record.GLminor = whose_->currentData().toDouble();
    return record;
}

void ChooserWindow::Open()
{
    const AssesseeYear* chosen = Chosen();
    if (!chosen || module_.IsRunning())
        return;
    Guarded([&] {
        const HandOver record = HandOverOfChosen(*chosen);
        NoteRun(practice_, chosen->code, record.GLminor);
        WriteHandOverFile(practice_, record);
        openCode_ = chosen->code;
        Tell(Text(chosen->name + ", " + chosen->year + " is open in the module."));
        module_.Start(practice_.folders.program);
        open_->setEnabled(false);
    });
}

/// The client that the run was for stays marked, and the next letters search.
void ChooserWindow::ModuleEnded(const QString& failure, const QString& said)
{
    Guarded([&] {
        rows_.Change([&] { list_.Forget(openCode_); });
        if (!list_.RowOf(openCode_))
            search_->clear();
        Choose(openCode_);
        const AssesseeYear year = FindAssesseeYear(practice_, openCode_);
        Tell(WhatCameBack(year, failure, said), !failure.isEmpty() || !HeadOfIncomeCameBack(practice_, openCode_));
    });
    Guarded([&] { ShowOptions(); });
    search_->setFocus();
    search_->selectAll();
    QWidget* before = this;
    if (checkWindow_ && checkWindow_->isVisible()) {
        checkWindow_->LookAgain(openCode_);
        before = checkWindow_;
    }
    before->raise();
    before->activateWindow();
}

QString ChooserWindow::WhatCameBack(const AssesseeYear& year, const QString& failure, const QString& said) const
{
    const bool cameBack = HeadOfIncomeCameBack(practice_, year.code);
    if (!failure.isEmpty())
        return failure + (cameBack ? " It had written the head of income. " : " The head of income stays as it was. ") +
               said;
    if (!cameBack)
        return "The module ended without writing the head of income of " + Text(year.code) + ". " + said;
    return QString("Profits & gains of %1, %2: %3").arg(Text(year.name), Text(year.year), Text(HeadInWords(year)));
}

void ChooserWindow::AddClient()
{
    NewClientDialog dialog(this, practice_, AssessmentYears(practice_).back());
    if (dialog.exec() == QDialog::Accepted)
        Added(dialog.code());
}

void ChooserWindow::AddYear()
{
    const AssesseeYear* chosen = Chosen();
    if (!chosen)
        return;
    AddYearDialog dialog(this, practice_, *chosen, YearAfter(chosen->year, 1));
    if (dialog.exec() == QDialog::Accepted)
        Added(dialog.code());
}

void ChooserWindow::Added(const std::string& code)
{
    search_->clear();
    Reload(code);
    table_->setFocus();
}

void ChooserWindow::ChangeSettings()
{
    const AssesseeYear* chosen = Chosen();
    if (!chosen)
        return;
    SettingsDialog dialog(this, practice_, *chosen);
    if (dialog.exec() == QDialog::Accepted)
        ShowOptions();
    table_->setFocus();
}

void ChooserWindow::ReportOnMany()
{
    const AssesseeYear* chosen = Chosen();
    if (!chosen)
        return;
    std::vector<std::string> all;
    for (std::size_t row = 0; row < list_.Size(); ++row)
        all.push_back(list_.At(row).code);
    std::vector<ReportsDialog::Choice> choices{{Text(chosen->name + ", " + chosen->year), {chosen->code}}};
    if (all.size() > 1)
        choices.push_back({QString("All %1 assessee-years in the list").arg(all.size()), std::move(all)});
    ReportsDialog(this, practice_.folders.program, programs_.reporter, choices).exec();
    table_->setFocus();
}

/// In a window of its own, beside which the work goes on.
void ChooserWindow::ReportOnChosen()
{
    const AssesseeYear* chosen = Chosen();
    if (!chosen)
        return;
    const QStringList arguments{"--program-folder", Text(practice_.folders.program.string()), "--window",
                                Text(chosen->code)};
    if (QProcess::startDetached(Text(programs_.reporter.string()), arguments))
        Tell(Text("The computation of " + chosen->name + ", " + chosen->year + " is shown in a window of its own."));
    else
        Tell("The program " + Text(programs_.reporter.string()) + " could not be started.", true);
}

/// In a window of its own, which stays while its findings are gone through.
void ChooserWindow::Check()
{
    if (!checkWindow_) {
        checkWindow_ = new CheckWindow(this, practice_.folders.program, programs_.checker);
        checkWindow_->open = [this](const std::string& code) { return OpenFound(code); };
        checkWindow_->resize(size());
    }
    checkWindow_->show();
    checkWindow_->raise();
    checkWindow_->activateWindow();
    checkWindow_->Start();
}

QString ChooserWindow::OpenFound(const std::string& code)
{
    if (module_.IsRunning())
        return "The module is open with a client: close that one first.";
    if (!list_.RowOf(code))
        search_->clear();
    if (!list_.RowOf(code))
        return "No client has the code \"" + Text(code) + "\".";
    Choose(code);
    Open();
    return "";
}

void ChooserWindow::BackUp()
{
    search_->setFocus();
    backUp_->setEnabled(false);
    Tell("A backup is being made. You can go on working.");
    backup_.Start();
}

void ChooserWindow::Tell(const QString& text, bool isFailure)
{
    SetTextColor(*message_, isFailure ? Theme().negative : Theme().text);
    message_->setText(text);
}

QString ChooserWindow::Logged(const std::exception& error) const
{
    LogError(practice_.folders.Client(), Now(), error);
    return Text(PreparersWords(error)).simplified();
}

void ChooserWindow::Guarded(const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& error) {
        Tell(Logged(error), true);
    }
    practice_.company.engine()->RenewPatience();
}

} // namespace pgbp
