#include "report_program/report_window.h"

#include "desktop/captions.h"
#include "desktop/dialogs.h"
#include "desktop/theme.h"
#include "report/workbook_of.h"
#include "report_program/pdf.h"
#include "services/fault.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace pgbp::report {
namespace {

constexpr int kSectionsWidth = 70 * kUnit;

QPushButton* Button(const QString& caption)
{
    auto* button = new QPushButton(caption);
    button->setMinimumHeight(RowHeight() + kUnit);
    button->setAutoDefault(true);
    return button;
}

} // namespace

ReportWindow::ReportWindow(Document document)
    : document_(std::move(document)), layout_(document_), printer_(QPrinter::HighResolution)
{
    setWindowTitle("Vorn - " + layout_.title());
    printer_.setPageSize(QPageSize(QPageSize::A4));
    printer_.setFullPage(true);
    printer_.setDocName(Text(FileName(document_)));
    Build();
    sections_->setFocus();
}

void ReportWindow::Build()
{
    preview_ = new QPrintPreviewWidget(&printer_);
    preview_->setAccessibleName("Pages");
    preview_->fitToWidth();
    connect(preview_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) { Draw(*printer); });
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
    page->setSpacing(3 * kUnit);
    auto* middle = new QHBoxLayout;
    page->addLayout(middle, 1);
    BuildSections();
    middle->addWidget(sections_);
    middle->addWidget(preview_, 1);
    BuildButtons();
}

void ReportWindow::BuildSections()
{
    sections_ = new QListWidget;
    sections_->setAccessibleName("Sections");
    sections_->setFixedWidth(kSectionsWidth);
    sections_->setWordWrap(true);
    for (const Bookmark& bookmark : layout_.bookmarks())
        sections_->addItem((bookmark.level == 1 ? "" : "    ") + bookmark.title);
    connect(sections_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0)
            preview_->setCurrentPage(layout_.bookmarks()[static_cast<std::size_t>(row)].page + 1);
    });
}

void ReportWindow::BuildButtons()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(2 * kUnit);
    const auto add = [&](const QString& caption, const QKeySequence& key, const std::function<void()>& work) {
        QPushButton* button = Button(caption);
        button->setToolTip(key.toString());
        connect(button, &QPushButton::clicked, this, work);
        AddKey(key, work);
        row->addWidget(button);
    };
    add("&Print ...", QKeySequence::Print, [this] { Print(); });
    add("Save as P&DF ...", QKeySequence::Save, [this] { SavePdf(); });
    add("Save as &Workbook ...", QKeySequence("Ctrl+E"), [this] { SaveWorkbook(); });
    message_ = new QLabel;
    message_->setWordWrap(true);
    row->addWidget(message_, 1);
    add("&Close", Qt::Key_Escape, [this] { close(); });
    AddKey(Qt::Key_PageDown, [this] { Turn(1); });
    AddKey(Qt::Key_PageUp, [this] { Turn(-1); });
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

/// Works wherever the focus stands: the list would take Page Down for itself.
void ReportWindow::AddKey(const QKeySequence& key, const std::function<void()>& work)
{
    auto* action = new QAction(this);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, work);
    addAction(action);
}

void ReportWindow::Draw(QPrinter& printer) const
{
    QPainter painter(&printer);
    const double scale = static_cast<double>(printer.resolution()) / kUnitsPerInch;
    const int from = printer.fromPage() == 0 ? 0 : printer.fromPage() - 1;
    const int to = printer.toPage() == 0 ? layout_.Pages() : std::min(printer.toPage(), layout_.Pages());
    for (int page = from; page < to; ++page) {
        if (page > from)
            printer.newPage();
        painter.resetTransform();
        painter.scale(scale, scale);
        layout_.Draw(painter, page);
    }
}

void ReportWindow::Print()
{
    QPrintDialog dialog(&printer_, this);
    dialog.setMinMax(1, layout_.Pages());
    if (dialog.exec() != QDialog::Accepted)
        return;
    Draw(printer_);
    message_->setText("Handed to the printer.");
}

void ReportWindow::SavePdf()
{
    Save(".pdf", "PDF (*.pdf)", [this](const std::string& path) { WritePdf(layout_, path); });
}

void ReportWindow::SaveWorkbook()
{
    Save(".xls", "Excel file (*.xls)",
         [this](const std::string& path) { xls::WriteXlsFile(WorkbookOf(document_), path); });
}

void ReportWindow::Save(const QString& extension, const QString& kind,
                        const std::function<void(const std::string& path)>& save)
{
    const auto chosen =
        WindowFileDialogs().AskSave((Text(FileName(document_)) + extension).toStdString(), kind.toStdString());
    if (!chosen)
        return;
    try {
        save(chosen->string());
        message_->setText("Saved as " + Text(chosen->string()));
    } catch (const std::exception& error) {
        WindowMessageBoxes("Vorn").Show({PreparersWords(error), "", Icon::Critical});
    }
}

void ReportWindow::Turn(int pages)
{
    preview_->setCurrentPage(std::clamp(preview_->currentPage() + pages, 1, layout_.Pages()));
}

} // namespace pgbp::report
