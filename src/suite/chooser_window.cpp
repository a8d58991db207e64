#include "suite/chooser_window.h"

#include "desktop/captions.h"
#include "desktop/cell_delegate.h"
#include "desktop/theme.h"
#include "services/format.h"
#include "services/year.h"
#include "suite/chooser_dialogs.h"
#include "suite/head_of_income.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>

namespace pgbp {
namespace {

QString NextYear(const std::string& year)
{
    const int first = YearNumber(year) + 1;
    return QString("%1-%2").arg(first).arg((first + 1) % 100, 2, 10, QChar('0'));
}

QPushButton* Button(const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setMinimumHeight(RowHeight() + kUnit);
    button->setAutoDefault(true);
    return button;
}

} // namespace

ChooserWindow::ChooserWindow(const std::filesystem::path& programFolder, const std::filesystem::path& module)
    : practice_(programFolder), module_(module), found_(years_)
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
    Reload("");
    search_->setFocus();
}

void ChooserWindow::BuildTop()
{
    auto* title = new QLabel("Assessee-years");
    title->setFont(FontOf(Type::Title));
    auto* place = new QLabel(Text(practice_.folders.program.filename().string()));
    place->setToolTip(Text(practice_.folders.program.string()));
    place->setProperty("look", "hint");
    search_ = new QLineEdit;
    search_->setMinimumHeight(RowHeight());
    search_->setPlaceholderText("Name, PAN, code, year or status");
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
    table_ = new QTableView;
    table_->setModel(&found_);
    table_->setAccessibleName("Assessee-years");
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setShowGrid(false);
    table_->setItemDelegate(new CellDelegate(*table_, AssesseeYearModel::Client));
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setDefaultSectionSize(GridRowHeight());
    table_->horizontalHeader()->setSectionResizeMode(AssesseeYearModel::Client, QHeaderView::Stretch);
    table_->horizontalHeader()->setHighlightSections(false);
    const std::pair<int, int> widths[] = {
        {AssesseeYearModel::Year, 20}, {AssesseeYearModel::Status, 34}, {AssesseeYearModel::Pan, 30},
        {AssesseeYearModel::Head, 46}, {AssesseeYearModel::Code, 34},
    };
    for (const auto& [column, units] : widths)
        table_->setColumnWidth(column, units * kUnit);
    static_cast<QVBoxLayout*>(layout())->addWidget(table_, 1);
}

void ChooserWindow::BuildOptions()
{
    whose_ = new QComboBox;
    whose_->setMinimumHeight(RowHeight());
    comparative_ = new QCheckBox("Previous &year beside it");
    comparative_->setChecked(true);
    locked_ = new QCheckBox("&Locked, only to be read");
    auto* caption = new QLabel("&Income of :");
    caption->setBuddy(whose_);

    auto* row = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    row->addWidget(caption);
    row->addWidget(whose_);
    row->addSpacing(2 * kPadding);
    row->addWidget(comparative_);
    row->addSpacing(kPadding);
    row->addWidget(locked_);
    row->addStretch();
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void ChooserWindow::BuildBottom()
{
    addAssessee_ = Button("Add &Assessee ...");
    addYear_ = Button("Add Y&ear ...");
    open_ = Button("&Open");
    open_->setProperty("main", true);
    close_ = Button("&Close");
    message_ = new QLabel;
    message_->setProperty("look", "status");
    message_->setWordWrap(true);

    auto* row = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    row->addWidget(addAssessee_);
    row->addWidget(addYear_);
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
            found_.Search(text);
            Choose(0);
        });
    });
    connect(search_, &QLineEdit::returnPressed, this, [this] { Open(); });
    module_.ended = [this](const QString& failure, const QString& said) { ModuleEnded(failure, said); };
    search_->installEventFilter(this);
    table_->installEventFilter(this);
    connect(table_, &QTableView::doubleClicked, this, [this] { Open(); });
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            guarded(&ChooserWindow::ShowMinors));
    connect(open_, &QPushButton::clicked, this, [this] { Open(); });
    connect(addAssessee_, &QPushButton::clicked, this, guarded(&ChooserWindow::AddAssessee));
    connect(addYear_, &QPushButton::clicked, this, guarded(&ChooserWindow::AddYearOfChosen));
    connect(close_, &QPushButton::clicked, this, [this] { close(); });
}

/// The arrows leave the search for the list; Enter on a row opens it.
bool ChooserWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isArrow = key == Qt::Key_Down || key == Qt::Key_Up;
    if (watched == search_ && isArrow) {
        table_->setFocus();
        return QApplication::sendEvent(table_, event);
    }
    if (watched == table_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Open();
        return true;
    }
    return false;
}

void ChooserWindow::Search(const QString& text) { search_->setText(text); }

void ChooserWindow::Reload(const std::string& chosenCode)
{
    years_.Show(AssesseeYears(practice_));
    const int row = years_.RowOf(chosenCode);
    Choose(row < 0 ? 0 : found_.mapFromSource(years_.index(row, 0)).row());
}

void ChooserWindow::Choose(int proxyRow)
{
    table_->setCurrentIndex(found_.index(proxyRow, 0));
    ShowMinors();
}

const AssesseeYear* ChooserWindow::Chosen() const
{
    const QModelIndex current = found_.mapToSource(table_->currentIndex());
    return current.isValid() ? &years_.At(current.row()) : nullptr;
}

void ChooserWindow::ShowMinors()
{
    const AssesseeYear* chosen = Chosen();
    open_->setEnabled(chosen && !module_.IsRunning());
    addYear_->setEnabled(chosen);
    whose_->clear();
    whose_->addItem("the assessee, with his minors", 0);
    if (chosen)
        for (const double minor : MinorsOf(practice_, chosen->code))
            whose_->addItem(QString("minor %1").arg(minor), minor);
    whose_->setEnabled(whose_->count() > 1);
}

HandOver ChooserWindow::HandOverOfChosen(const AssesseeYear& chosen) const
{
    HandOver record = PrepareHandOver(practice_, chosen);
    record.GlLarge = comparative_->isChecked();
    record.GLlock = locked_->isChecked() ? 1 : 0;
    record.GLminor = whose_->currentData().toDouble();
    return record;
}

void ChooserWindow::Open()
{
    const AssesseeYear* chosen = Chosen();
    if (!chosen || module_.IsRunning())
        return;
    Guarded([&] {
        WriteHandOverFile(practice_, HandOverOfChosen(*chosen));
        MarkHeadOfIncome(practice_, chosen->code);
        openCode_ = chosen->code;
        Tell(Text(chosen->name + ", " + chosen->year + " is open in the module."));
        module_.Start(practice_.folders.program);
        ShowMinors();
    });
}

void ChooserWindow::ModuleEnded(const QString& failure, const QString& said)
{
    Guarded([&] {
        Reload(openCode_);
        const AssesseeYear year = FindAssesseeYear(practice_, openCode_);
        if (!failure.isEmpty())
            Tell(failure + ' ' + said, true);
        else if (!HeadOfIncomeCameBack(practice_, openCode_))
            Tell("The module ended without writing the head of income of " + Text(openCode_) + ". " + said, true);
        else
            Tell(QString("Profits & gains of %1, %2: %3")
                     .arg(Text(year.name), Text(year.year),
                          Text(FormatAmountIndian(Amount(*year.headOfIncome), kIndianGrouping))));
    });
    Guarded([&] { ShowMinors(); });
}

void ChooserWindow::AddAssessee()
{
    const std::string latest = AssessmentYears(practice_).back();
    AddAssesseeDialog dialog(this, practice_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const std::string name =
        practice_.company.Scalar("select comp_name from {assessee} where company = ?", dialog.number()).Text();
    AddYear(dialog.number(), name, latest);
}

void ChooserWindow::AddYearOfChosen()
{
    if (const AssesseeYear* chosen = Chosen())
        AddYear(chosen->client, chosen->name, NextYear(chosen->year).toStdString());
}

void ChooserWindow::AddYear(double client, const std::string& name, const std::string& year)
{
    AddYearDialog dialog(this, practice_, client, name, year);
    if (dialog.exec() == QDialog::Accepted) {
        search_->clear();
        Reload(dialog.code());
        table_->setFocus();
    }
}

void ChooserWindow::Tell(const QString& text, bool isFailure)
{
    message_->setProperty("sign", isFailure ? "negative" : "");
    message_->style()->unpolish(message_);
    message_->style()->polish(message_);
    message_->setText(text);
}

void ChooserWindow::Guarded(const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::exception& error) {
        Tell(QString::fromUtf8(error.what()), true);
    }
}

} // namespace pgbp
