#include "suite/check_window.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "services/fault.h"
#include "services/fresh_file.h"
#include "suite/list_table.h"
#include "suite/push_button.h"
#include "suite/text_color.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QTableView>

namespace pgbp {
namespace {

constexpr const char* kProgress = "progress ";
constexpr int kSomethingFound = 1; ///< exit status of the program

constexpr UsualText kUsualTexts[] = {
    {FindingsModel::Client, "Sahyadri Precision Tools"},
    {FindingsModel::Year, "2023-24"},
    {FindingsModel::What, "Depreciation of the statement"},
    {FindingsModel::Stored, "00,00,00,000.00"},
    {FindingsModel::Follows, "00,00,00,000.00"},
    {FindingsModel::Code, "00000r2023-24"},
};

} // namespace

CheckWindow::CheckWindow(QWidget* parent, const std::filesystem::path& programFolder,
                         const std::filesystem::path& checker)
    : QWidget(parent, Qt::Window), programFolder_(Text(programFolder.string())), program_(checker)
{
    setObjectName("check");
    setWindowTitle("Vorn - Check of the practice");
    sorted_.setSourceModel(&findings_);
    sorted_.setSortRole(FindingsModel::kSortRole);
    program_.mayEndWith = kSomethingFound;
    program_.told = [this](const QString& line) { TakeLine(line); };
    program_.ended = [this](const QString& failure) { Ended(failure); };
    Build();
}

void CheckWindow::Build()
{
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    page->setSpacing(3 * kUnit);
    auto* title = new QLabel("What does not agree");
    title->setFont(FontOf(Type::Title));
    page->addWidget(title);
    BuildTable();
    page->addWidget(table_, 1);
    progress_ = new QProgressBar;
    progress_->setAccessibleName("Assessee-years that were looked at");
    page->addWidget(progress_);
    message_ = new QLabel;
    message_->setObjectName("message");
    message_->setWordWrap(true);

    again_ = MakeButton("Check &Again");
    export_ = MakeButton("&Export ...");
    export_->setToolTip("Writes the list, as it is sorted, into a file for a spreadsheet");
    open_ = MakeButton("&Open");
    open_->setProperty("main", true);
    close_ = MakeButton("&Close");
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    row->addWidget(again_);
    row->addWidget(export_);
    row->addStretch();
    row->addWidget(open_);
    row->addWidget(close_);
    page->addLayout(row);
    page->addWidget(message_);

    connect(again_, &QPushButton::clicked, this, [this] { Start(); });
    connect(export_, &QPushButton::clicked, this, [this] { Export(); });
    connect(open_, &QPushButton::clicked, this, [this] { Open(); });
    connect(close_, &QPushButton::clicked, this, [this] { Leave(); });
    for (QWidget* widget : findChildren<QWidget*>())
        widget->installEventFilter(this);
}

void CheckWindow::BuildTable()
{
    table_ = MakeListTable(sorted_, FindingsModel::Where, kUsualTexts);
    table_->setAccessibleName("What does not agree");
    auto* heading = table_->horizontalHeader();
    heading->setSortIndicator(-1, Qt::AscendingOrder); // as they were found
    connect(heading, &QHeaderView::sectionClicked, this, [this](int column) { SortBy(column); });
    connect(table_, &QTableView::doubleClicked, this, [this] { Open(); });
}

/// By another column upwards, by the same one turned round.
void CheckWindow::SortBy(int column)
{
    auto* heading = table_->horizontalHeader();
    const bool turns = heading->sortIndicatorSection() == column && heading->sortIndicatorOrder() == Qt::AscendingOrder;
    heading->setSortIndicator(column, turns ? Qt::DescendingOrder : Qt::AscendingOrder);
    sorted_.sort(column, heading->sortIndicatorOrder());
    table_->scrollTo(table_->currentIndex());
}

void CheckWindow::Start()
{
    if (program_.IsRunning())
        return;
    lookedAt_.clear();
    cancelled_ = false;
    findings_.Clear();
    progress_->setRange(0, 0); // how much there is to do is told by the program
    ShowRunning(true);
    Tell("The practice is being checked. You can go on working.");
    program_.Start({"--program-folder", programFolder_, "--lines"});
}

/// While the whole practice is checked, that is enough.
void CheckWindow::LookAgain(const std::string& code)
{
    if (program_.IsRunning())
        return;
    lookedAt_ = code;
    cancelled_ = false;
    program_.Start({"--program-folder", programFolder_, "--lines", Text(code)});
}

void CheckWindow::TakeLine(const QString& line)
{
    if (line.startsWith(kProgress)) {
        ShowFound();
        progress_->setMaximum(line.section(' ', 2, 2).toInt());
        progress_->setValue(line.section(' ', 1, 1).toInt());
    } else if (const auto finding = FromLine(line.toStdString())) {
        found_.push_back(*finding);
    }
}

void CheckWindow::ShowFound()
{
    findings_.Add(std::exchange(found_, {}));
    if (!table_->currentIndex().isValid() && sorted_.rowCount() > 0)
        table_->setCurrentIndex(sorted_.index(0, 0));
}

void CheckWindow::Ended(const QString& failure)
{
    if (!lookedAt_.empty() && failure.isEmpty())
        findings_.RemoveOf(lookedAt_);
    ShowFound();
    ShowRunning(false);
    const int count = findings_.rowCount();
    if (!failure.isEmpty())
        Tell(failure, true);
    else if (cancelled_)
        Tell(QString("Cancelled: %1 found so far.").arg(count));
    else if (count == 0)
        Tell("All agrees.");
    else
        Tell(QString("%1 found. Enter opens the client; what was put right there leaves the list.").arg(count));
}

const Finding& CheckWindow::At(int row) const { return findings_.At(sorted_.mapToSource(sorted_.index(row, 0)).row()); }

void CheckWindow::Open()
{
    if (!table_->currentIndex().isValid())
        return;
    if (const QString why = open(At(table_->currentIndex().row()).code); !why.isEmpty())
        Tell(why, true);
}

/// The marked finding, between tabs, as a spreadsheet takes it.
void CheckWindow::Copy()
{
    if (table_->currentIndex().isValid())
        QApplication::clipboard()->setText(Text(AsLine(At(table_->currentIndex().row()))));
}

void CheckWindow::Export()
{
    const QString name = QFileDialog::getSaveFileName(this, "Export", "Check of the practice.csv", "CSV (*.csv)");
    if (name.isEmpty())
        return;
    std::vector<Finding> shown;
    for (int row = 0; row < sorted_.rowCount(); ++row)
        shown.push_back(At(row));
    try {
        FreshFile file(name.toStdString());
        file.Write(AsCsv(shown));
        file.TakePlace();
        Tell(QString("%1 rows stand in %2.").arg(shown.size()).arg(name));
    } catch (const std::exception& error) {
        Tell(Text(PreparersWords(error)).simplified(), true);
    }
}

void CheckWindow::ShowRunning(bool runs)
{
    progress_->setVisible(runs);
    again_->setEnabled(!runs);
    export_->setEnabled(!runs && findings_.rowCount() > 0);
    open_->setEnabled(findings_.rowCount() > 0 || runs);
    close_->setText(runs ? "&Cancel" : "&Close");
    table_->setFocus();
}

void CheckWindow::Tell(const QString& text, bool isFailure)
{
    SetTextColor(*message_, isFailure ? Theme().negative : Theme().text);
    message_->setText(text);
}

/// While it runs, Escape and the button end the check; what was found stays.
void CheckWindow::Leave()
{
    if (!program_.IsRunning() || !lookedAt_.empty())
        return static_cast<void>(close());
    cancelled_ = true;
    program_.Stop();
}

void CheckWindow::closeEvent(QCloseEvent* event)
{
    if (program_.IsRunning())
        program_.Stop();
    parentWidget()->activateWindow();
    QWidget::closeEvent(event);
}

bool CheckWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const int column = key.key() - Qt::Key_1;
    const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (key.modifiers() == Qt::ControlModifier && column >= 0 && column < FindingsModel::ColumnCount)
        SortBy(column);
    else if (key.key() == Qt::Key_Escape)
        Leave();
    else if (key.key() == Qt::Key_F5)
        Start();
    else if (key.matches(QKeySequence::Copy))
        Copy();
    else if (isEnter && watched == table_)
        Open();
    else
        return false;
    return true;
}

} // namespace pgbp
