#include "report_program/page_layout.h"

#include <QFontDatabase>
#include <QFontMetricsF>

#include <algorithm>
#include <array>
#include <cmath>

namespace pgbp::report {
namespace {

constexpr double kMillimetre = kUnitsPerInch / 25.4;
constexpr double kPoint = kUnitsPerInch / 72.0;

constexpr double kLeft = 20 * kMillimetre;
constexpr double kRight = kPageWidth - 16 * kMillimetre;
constexpr double kTop = 16 * kMillimetre;
constexpr double kBottom = kPageHeight - 21 * kMillimetre;
constexpr double kFoot = kPageHeight - 14 * kMillimetre;
constexpr double kWidth = kRight - kLeft;

constexpr double kGap = 9 * kPoint;         ///< between columns
constexpr double kStep = 10 * kPoint;       ///< by which a text is set in
constexpr double kAir = 2.1 * kPoint;       ///< above and below a row
constexpr double kLeast = 130 * kPoint;     ///< width of the first column
constexpr double kSmallestPart = 0.65;      ///< to which a wide table is made smaller
constexpr std::size_t kColumnsWithRoom = 4; ///< up to so many their headings take one line
constexpr double kPartOfHeading = 0.6;      ///< of its length that a heading of two lines takes
constexpr double kHair = 0.5 * kPoint;

const QColor kInk("#1B2430");
const QColor kMuted("#5D6978");
const QColor kRule("#B9C1CB");
const QColor kStrongRule("#4A5563");
const QColor kAccent("#1D4E89");

QString Text(const std::string& utf8) { return QString::fromStdString(utf8); }

QString Family()
{
    static const QString chosen = [] {
        const QStringList there = QFontDatabase::families();
        for (const char* family : {"Liberation Sans", "Noto Sans", "DejaVu Sans"})
            if (there.contains(QLatin1String(family)))
                return QString::fromLatin1(family);
        return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    }();
    return chosen;
}

QFont FontOf(double points, QFont::Weight weight = QFont::Normal, bool italic = false)
{
    QFont font(Family());
    font.setPixelSize(static_cast<int>(std::lround(points * kPoint)));
    font.setWeight(weight);
    font.setItalic(italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

double IndentOf(const Row& row) { return (row.depth + (row.look == RowLook::Item ? 1 : 0)) * kStep; }

bool IsTotal(const Row& row) { return row.look == RowLook::Total || row.look == RowLook::Final; }

} // namespace

/// Sets the document, page by page, from top to bottom.
class PageMaker {
  public:
    PageMaker(PageLayout& layout, const Document& document) : layout_(layout), document_(document) {}

    void Make()
    {
        NewPage();
        Letterhead();
        for (const Section& section : document_.sections)
            SetSection(section);
        Feet();
    }

  private:
    using Mark = PageLayout::Mark;

    /// A table's columns as they come to lie, and its fonts.
    struct Frame {
        const Table* table;
        std::vector<double> left{};
        std::vector<double> width{};
        QFont plain{};
        QFont strong{};
        QFont remark{};
        double headingHeight = 0;
    };

    void NewPage()
    {
        layout_.pages_.emplace_back();
        y_ = kTop;
    }

    void Letterhead();
    void SetSection(const Section& section);
    void SetTable(const Table& table, const QString& section, double before);
    Frame FrameOf(const Table& table) const;
    bool Fits(Frame& frame, double part) const;
    double HeightOf(const Frame& frame, const Row& row) const;
    double LineHeight(const Frame& frame) const { return QFontMetricsF(frame.plain).height(); }
    void SetHeadings(const Frame& frame);
    void SetRow(const Frame& frame, const Row& row);
    void SetFirstCell(const Frame& frame, const Row& row, const QFont& font, double height);
    void RuleAbove(const Frame& frame, const Row& row, double y, double width, const QColor& color);
    void Feet();

    void Put(const QRectF& place, const QString& text, const QFont& font, const QColor& color, int flags)
    {
        layout_.pages_.back().push_back({Mark::Kind::Text, place, text, font, color, flags});
    }
    void Line(double from, double to, double y, double width, const QColor& color)
    {
        layout_.pages_.back().push_back({Mark::Kind::Line, QRectF(from, y, to - from, 0), {}, {}, color, 0, width});
    }
    /// A text over the width; gives its height.
    double Paragraph(const QString& text, const QFont& font, const QColor& color, double width = kWidth)
    {
        const double height = TextHeight(text, font, width);
        Put(QRectF(kLeft, y_, width, height), text, font, color, Qt::TextWordWrap);
        return height;
    }
    static double TextHeight(const QString& text, const QFont& font, double width)
    {
        return QFontMetricsF(font).boundingRect(QRectF(0, 0, width, 1e6), Qt::TextWordWrap, text).height();
    }

    PageLayout& layout_;
    const Document& document_;
    double y_ = 0;
};

void PageMaker::Letterhead()
{
    const QFont name = FontOf(17, QFont::DemiBold);
    const QFont small = FontOf(9.5);
    y_ += Paragraph(Text(document_.client), name, kInk) + 1.5 * kPoint;
    QStringList words;
    if (!document_.pan.empty())
        words << "PAN " + Text(document_.pan);
    words << Text(document_.status) << "Assessment year " + Text(document_.year);
    if (!document_.incomeOf.empty())
        words << Text(document_.incomeOf);
    words.removeAll(QString());
    y_ += Paragraph(words.join(QStringLiteral("   ·   ")), small, kMuted) + 5 * kPoint;
    Line(kLeft, kRight, y_, 1.2 * kPoint, kAccent);
    y_ += 4 * kPoint;
    layout_.title_ = Text(document_.client) + ", assessment year " + Text(document_.year);
    layout_.foot_ = Text(document_.client) + (document_.pan.empty() ? "" : "   ·   PAN " + Text(document_.pan)) +
                    "   ·   A.Y. " + Text(document_.year);
}

/// A heading stays with what follows: the first rows of its first table.
void PageMaker::SetSection(const Section& section)
{
    const bool isFirst = section.level == 1;
    const QFont font = FontOf(isFirst ? 13 : 11, QFont::DemiBold);
    const double before = (isFirst ? 16 : 13) * kPoint;
    const double height = TextHeight(Text(section.title), font, kWidth);
    double needed = before + height + 8 * kPoint;
    if (!section.tables.empty()) {
        const Frame frame = FrameOf(section.tables.front());
        needed += frame.headingHeight;
        const auto& rows = section.tables.front().rows;
        for (std::size_t i = 0; i < std::min<std::size_t>(rows.size(), 4); ++i)
            needed += HeightOf(frame, rows[i]);
    }
    if (y_ + needed > kBottom && y_ > kTop)
        NewPage();
    else
        y_ += before;
    layout_.bookmarks_.push_back({Text(section.title), section.level, layout_.Pages() - 1, y_});
    Paragraph(Text(section.title), font, isFirst ? kAccent : kInk);
    y_ += height + 3 * kPoint;
    double space = 3 * kPoint;
    for (const Table& table : section.tables) {
        SetTable(table, Text(section.title), space);
        space = 11 * kPoint;
    }
}

bool PageMaker::Fits(Frame& frame, double part) const
{
    const Table& table = *frame.table;
    frame.plain = FontOf(9.5 * part);
    frame.strong = FontOf(9.5 * part, QFont::DemiBold);
    frame.remark = FontOf(8.2 * part, QFont::Normal, true);
    const QFontMetricsF plain(frame.plain);
    const QFontMetricsF strong(frame.strong);
    const std::size_t columns = table.columns.size();
    frame.left.assign(columns, kLeft);
    frame.width.assign(columns, 0);
    double rest = kWidth;
    for (std::size_t column = 1; column < columns; ++column) {
        double& width = frame.width[column];
        const QString heading = Text(table.columns[column].heading);
        width = strong.horizontalAdvance(heading) * (columns > kColumnsWithRoom ? kPartOfHeading : 1);
        for (const QString& word : heading.split(' '))
            width = std::max(width, strong.horizontalAdvance(word));
        for (const Row& row : table.rows)
            if (column < row.cells.size())
                width = std::max(width, (IsTotal(row) || row.look == RowLook::Strong ? strong : plain)
                                            .horizontalAdvance(Text(Drawn(table.columns[column], row.cells[column]))));
        width = std::ceil(width);
        rest -= width + kGap;
    }
    frame.width[0] = rest;
    for (std::size_t column = 1; column < columns; ++column)
        frame.left[column] = frame.left[column - 1] + frame.width[column - 1] + kGap;
    return rest >= std::min(kLeast, kLeast * part * 1.1);
}

PageMaker::Frame PageMaker::FrameOf(const Table& table) const
{
    Frame frame{.table = &table};
    for (double part = 1; !Fits(frame, part) && part > kSmallestPart; part -= 0.05) {
    }
    const bool hasHeadings =
        std::ranges::any_of(table.columns, [](const Column& column) { return !column.heading.empty(); });
    if (hasHeadings)
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            frame.headingHeight =
                std::max(frame.headingHeight,
                         TextHeight(Text(table.columns[column].heading), frame.strong, frame.width[column]) + 2 * kAir);
    return frame;
}

double PageMaker::HeightOf(const Frame& frame, const Row& row) const
{
    const QFont& font =
        IsTotal(row) || row.look == RowLook::Heading || row.look == RowLook::Strong ? frame.strong : frame.plain;
    const bool isWide = row.look == RowLook::Note || row.look == RowLook::Heading;
    const double width = (isWide ? kWidth : frame.width[0]) - IndentOf(row);
    double height = TextHeight(Text(row.cells.front()), row.look == RowLook::Note ? frame.remark : font, width);
    if (!row.remark.empty())
        height += TextHeight(Text(row.remark), frame.remark, width);
    return std::max(height, QFontMetricsF(font).height()) + 2 * kAir + (IsTotal(row) ? kAir : 0);
}

void PageMaker::SetHeadings(const Frame& frame)
{
    if (frame.headingHeight == 0)
        return;
    for (std::size_t column = 0; column < frame.table->columns.size(); ++column) {
        const Column& its = frame.table->columns[column];
        const int flags = Qt::TextWordWrap | Qt::AlignBottom | (its.IsNumber() ? Qt::AlignRight : Qt::AlignLeft);
        Put(QRectF(frame.left[column], y_, frame.width[column], frame.headingHeight - kAir), Text(its.heading),
            frame.strong, kMuted, flags);
    }
    y_ += frame.headingHeight;
    Line(kLeft, kRight, y_, kHair, kStrongRule);
    y_ += kAir / 2;
}

void PageMaker::RuleAbove(const Frame& frame, const Row& row, double y, double width, const QColor& color)
{
    for (std::size_t column = 1; column < frame.table->columns.size(); ++column)
        if (column < row.cells.size() && !row.cells[column].empty() && frame.table->columns[column].IsNumber())
            Line(frame.left[column], frame.left[column] + frame.width[column], y, width, color);
}

void PageMaker::SetFirstCell(const Frame& frame, const Row& row, const QFont& font, double height)
{
    const bool isWide = row.look == RowLook::Note || row.look == RowLook::Heading;
    const double indent = IndentOf(row);
    const QRectF place(kLeft + indent, y_ + kAir, (isWide ? kWidth : frame.width[0]) - indent, height);
    const QString text = Text(row.cells.front());
    const bool isNote = row.look == RowLook::Note;
    Put(place, text, isNote ? frame.remark : font, isNote || row.look == RowLook::Item ? kMuted : kInk,
        Qt::TextWordWrap);
    if (!row.remark.empty())
        Put(place.adjusted(0, TextHeight(text, font, place.width()), 0, 0), Text(row.remark), frame.remark, kAccent,
            Qt::TextWordWrap);
}

/// The amounts stand on the last line of a text that takes several, above a remark.
void PageMaker::SetRow(const Frame& frame, const Row& row)
{
    const bool isStrong = IsTotal(row) || row.look == RowLook::Strong;
    const QFont& font = isStrong || row.look == RowLook::Heading ? frame.strong : frame.plain;
    const double height = HeightOf(frame, row);
    if (IsTotal(row)) {
        RuleAbove(frame, row, y_ + kAir / 2, kHair, kStrongRule);
        y_ += kAir;
    }
    SetFirstCell(frame, row, font, height);
    const double line = QFontMetricsF(font).height();
    const double text = TextHeight(Text(row.cells.front()), font, frame.width[0] - IndentOf(row));
    const double top = y_ + kAir + std::max(0.0, text - line);
    for (std::size_t column = 1; column < row.cells.size() && column < frame.table->columns.size(); ++column) {
        const Column& its = frame.table->columns[column];
        const bool isMuted = its.muted || row.look == RowLook::Item;
        Put(QRectF(frame.left[column], top, frame.width[column], line), Text(Drawn(its, row.cells[column])), font,
            isMuted ? kMuted : kInk, its.IsNumber() ? Qt::AlignRight : Qt::AlignLeft);
    }
    y_ += height - (IsTotal(row) ? kAir : 0);
    if (row.look == RowLook::Final) {
        RuleAbove(frame, row, y_, kHair, kStrongRule);
        RuleAbove(frame, row, y_ + 1.6 * kPoint, kHair, kStrongRule);
        y_ += 2.5 * kPoint;
    }
}

void PageMaker::SetTable(const Table& table, const QString& section, double before)
{
    const Frame frame = FrameOf(table);
    const QFont titleFont = FontOf(10, QFont::DemiBold);
    const double title = table.title.empty() ? 0 : TextHeight(Text(table.title), titleFont, kWidth) + 2 * kPoint;
    const auto begin = [&](const QString& words) {
        if (!words.isEmpty()) {
            Paragraph(words, titleFont, kInk);
            y_ += title;
        }
        SetHeadings(frame);
    };
    const auto& rows = table.rows;
    // rows that stay together: a heading with the next one, a total or a note with the one before
    const auto endOfChunk = [&](std::size_t from) {
        std::size_t end = from + 1;
        while (end < rows.size() &&
               (rows[end - 1].look == RowLook::Heading || IsTotal(rows[end]) || rows[end].look == RowLook::Note))
            ++end;
        return end;
    };
    for (std::size_t from = 0, end = 0; from < rows.size(); from = end) {
        end = endOfChunk(from);
        double needed = from == 0 ? before + title + frame.headingHeight : 0;
        for (std::size_t i = from; i < end; ++i)
            needed += HeightOf(frame, rows[i]);
        const bool isNewPage = y_ + needed > kBottom && y_ > kTop;
        if (isNewPage) {
            NewPage();
            const QFont small = FontOf(8.5);
            y_ += Paragraph(section + " (continued)", small, kMuted) + 3 * kPoint;
        }
        if (from == 0) {
            y_ += isNewPage ? 0 : before;
            begin(Text(table.title));
        } else if (isNewPage) {
            begin(Text(table.title));
        }
        for (std::size_t i = from; i < end; ++i)
            SetRow(frame, rows[i]);
    }
}

void PageMaker::Feet()
{
    const QFont font = FontOf(8);
    const double height = QFontMetricsF(font).height();
    for (std::size_t page = 0; page < layout_.pages_.size(); ++page) {
        auto& marks = layout_.pages_[page];
        marks.push_back({Mark::Kind::Line, QRectF(kLeft, kFoot, kWidth, 0), {}, {}, kRule, 0, kHair});
        const QRectF place(kLeft, kFoot + 3 * kPoint, kWidth, height);
        marks.push_back({Mark::Kind::Text, place, layout_.foot_, font, kMuted, Qt::AlignLeft});
        const QString number = QString("Page %1 of %2").arg(page + 1).arg(layout_.pages_.size());
        marks.push_back({Mark::Kind::Text, place, number, font, kMuted, Qt::AlignRight});
    }
}

PageLayout::PageLayout(const Document& document) { PageMaker(*this, document).Make(); }

void PageLayout::Draw(QPainter& painter, int page) const
{
    for (const Mark& mark : Marks(page)) {
        if (mark.kind == Mark::Kind::Line) {
            painter.setPen(QPen(mark.color, mark.width));
            painter.drawLine(mark.place.topLeft(), mark.place.topRight());
            continue;
        }
        painter.setPen(mark.color);
        painter.setFont(mark.font);
        painter.drawText(mark.place, mark.flags, mark.text);
    }
}

} // namespace pgbp::report
