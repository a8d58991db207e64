#include "report_program/pdf.h"

#include "services/fault.h"
#include "services/fresh_file.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace pgbp::report {
namespace {

QByteArray DrawnPages(const PageLayout& layout)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(kUnitsPerInch);
    writer.setTitle(layout.title());
    writer.setCreator(QStringLiteral("Vorn"));
    QPainter painter(&writer);
    for (int page = 0; page < layout.Pages(); ++page) {
        if (page > 0)
            writer.newPage();
        layout.Draw(painter, page);
    }
    return bytes;
}

/// The outline as the format wants it: each entry knows its neighbours, its parent and the first and last below it.
class Outline {
  public:
    Outline(QPDF& pdf, const std::vector<Bookmark>& bookmarks) : pdf_(pdf), root_(NewEntry())
    {
        root_.replaceKey("/Type", QPDFObjectHandle::newName("/Outlines"));
        const std::vector<QPDFPageObjectHelper> pages = QPDFPageDocumentHelper(pdf).getAllPages();
        QPDFObjectHandle parent = root_;
        for (const Bookmark& bookmark : bookmarks) {
            QPDFObjectHandle entry = NewEntry();
            entry.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(bookmark.title.toStdString()));
            entry.replaceKey("/Dest", PlaceOf(bookmark, pages));
            const bool isBelow = bookmark.level > 1 && parent.getObjGen() != root_.getObjGen();
            Hang(entry, isBelow ? parent : root_);
            if (!isBelow)
                parent = entry;
        }
    }

    QPDFObjectHandle root() const { return root_; }

  private:
    QPDFObjectHandle NewEntry() { return pdf_.makeIndirectObject(QPDFObjectHandle::newDictionary()); }

    static QPDFObjectHandle PlaceOf(const Bookmark& bookmark, const std::vector<QPDFPageObjectHelper>& pages)
    {
        constexpr double kPointsPerUnit = 72.0 / kUnitsPerInch;
        const auto top = static_cast<int>((kPageHeight - bookmark.y) * kPointsPerUnit);
        return QPDFObjectHandle::newArray({pages[static_cast<std::size_t>(bookmark.page)].getObjectHandle(),
                                           QPDFObjectHandle::newName("/XYZ"), QPDFObjectHandle::newInteger(0),
                                           QPDFObjectHandle::newInteger(top + 4), QPDFObjectHandle::newNull()});
    }

    void Hang(QPDFObjectHandle& entry, QPDFObjectHandle parent)
    {
        entry.replaceKey("/Parent", parent);
        if (parent.hasKey("/Last")) {
            QPDFObjectHandle before = parent.getKey("/Last");
            before.replaceKey("/Next", entry);
            entry.replaceKey("/Prev", before);
        } else {
            parent.replaceKey("/First", entry);
        }
        parent.replaceKey("/Last", entry);
        const int count = parent.hasKey("/Count") ? parent.getKey("/Count").getIntValueAsInt() : 0;
        parent.replaceKey("/Count", QPDFObjectHandle::newInteger(count + 1));
    }

    QPDF& pdf_;
    QPDFObjectHandle root_;
};

std::string WithOutline(const QByteArray& bytes, const PageLayout& layout)
{
    QPDF pdf;
    pdf.processMemoryFile("report", bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const Outline outline(pdf, layout.bookmarks());
    pdf.getRoot().replaceKey("/Outlines", outline.root());
    pdf.getRoot().replaceKey("/PageMode", QPDFObjectHandle::newName("/UseOutlines"));
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.write();
    const auto content = writer.getBufferSharedPointer();
    return {reinterpret_cast<const char*>(content->getBuffer()), content->getSize()};
}

} // namespace

void WritePdf(const PageLayout& layout, const std::filesystem::path& path)
{
    FreshFile file(path);
    file.Write(WithOutline(DrawnPages(layout), layout));
    file.TakePlace();
}

} // namespace pgbp::report
