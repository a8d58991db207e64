#pragma once

#include "report/document.h"

#include <QPainter>
#include <QString>

#include <vector>

namespace pgbp::report {

/// Points on a page are counted so many to the inch, whatever it is drawn on.
inline constexpr int kUnitsPerInch = 720;
/// A4.
inline constexpr double kPageWidth = 5953;
inline constexpr double kPageHeight = 8419;

/// Where a section begins.
struct Bookmark {
    QString title;
    int level; ///< 1 or 2
    int page;  ///< from 0
    double y;  ///< from the upper edge
};

/// The document on A4 pages: tables are broken between rows with their headings repeated, a total keeps a row above it,
/// a heading the rows below it. Made once, drawn on whatever there is.
class PageLayout {
  public:
    explicit PageLayout(const Document& document);

    /// A text or a line on a page.
    struct Mark {
        enum class Kind { Text, Line } kind;
        QRectF place;
        QString text{};
        QFont font{};
        QColor color{};
        int flags = 0;
        double width = 0; ///< of a line
    };

    int Pages() const { return static_cast<int>(pages_.size()); }
    const std::vector<Mark>& Marks(int page) const { return pages_[static_cast<std::size_t>(page)]; }
    const std::vector<Bookmark>& bookmarks() const { return bookmarks_; }
    const QString& title() const { return title_; }

    /// `painter` counts in the units of the page.
    void Draw(QPainter& painter, int page) const;

  private:
    friend class PageMaker;

    std::vector<std::vector<Mark>> pages_;
    std::vector<Bookmark> bookmarks_;
    QString title_;
    QString foot_;
};

} // namespace pgbp::report
