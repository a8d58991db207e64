#pragma once

#include "report/document.h"
#include "report_program/page_layout.h"

#include <QPrinter>
#include <QWidget>

#include <functional>

class QLabel;
class QListWidget;
class QPrintPreviewWidget;

namespace pgbp::report {

/// The pages as they will be printed, with the sections beside them: prints, saves as a PDF or as a workbook.
class ReportWindow : public QWidget {
  public:
    explicit ReportWindow(Document document);

  private:
    void Build();
    void BuildSections();
    void BuildButtons();
    void AddKey(const QKeySequence& key, const std::function<void()>& work);
    void Draw(QPrinter& printer) const;
    void Print();
    void SavePdf();
    void SaveWorkbook();
    void Save(const QString& extension, const QString& kind, const std::function<void(const std::string& path)>& save);
    void Turn(int pages);

    const Document document_;
    const PageLayout layout_;
    QPrinter printer_;
    QPrintPreviewWidget* preview_ = nullptr;
    QListWidget* sections_ = nullptr;
    QLabel* message_ = nullptr;
};

} // namespace pgbp::report
