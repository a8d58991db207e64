#include "report_program/page_layout.h"

#include <QFontMetricsF>
#include <QGuiApplication>

#include <gtest/gtest.h>

#include <algorithm>

using namespace pgbp;
using namespace pgbp::report;

namespace {

/// Fonts want an application.
const QGuiApplication& Application()
{
    static int words = 1;
    static char name[] = "test";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static const QGuiApplication application(words, arguments);
    return application;
}

class PageLayoutTest : public testing::Test {
  protected:
    PageLayoutTest() { Application(); }
};

/// A ledger of so many rows with a total.
Document Long(int rows)
{
    Table table{.columns = {{"Particulars"}, {"Rupees", GridColumnKind::Amount}}};
    for (int row = 1; row <= rows; ++row)
        table.rows.push_back({.cells = {"Expense " + std::to_string(row), "1000.00"}});
    table.rows.push_back({.look = RowLook::Total, .cells = {"Sum of all", std::to_string(rows) + "000.00"}});
    return {.client = "Asha Traders",
            .pan = "AAQFV5512C",
            .status = "Firm",
            .year = "2023-24",
            .sections = {{.title = "Normal Business: Shop", .tables = {std::move(table)}}}};
}

/// The texts of a page from top to bottom.
QStringList TextsOf(const PageLayout& layout, int page)
{
    auto marks = layout.Marks(page);
    std::ranges::stable_sort(marks, {}, [](const PageLayout::Mark& mark) { return mark.place.top(); });
    QStringList texts;
    for (const PageLayout::Mark& mark : marks)
        if (mark.kind == PageLayout::Mark::Kind::Text && !mark.text.isEmpty())
            texts << mark.text;
    return texts;
}

} // namespace

TEST_F(PageLayoutTest, RepeatsHeadingsAndNumbersPages)
{
    const PageLayout layout(Long(120));
    ASSERT_EQ(layout.Pages(), 3);
    for (int page = 0; page < 3; ++page) {
        const QStringList texts = TextsOf(layout, page);
        EXPECT_TRUE(texts.contains("Particulars")) << page;
        EXPECT_TRUE(texts.contains(QString("Page %1 of 3").arg(page + 1)));
        EXPECT_TRUE(texts.filter("PAN AAQFV5512C").size() > 0);
    }
    EXPECT_EQ(TextsOf(layout, 1).front(), "Normal Business: Shop (continued)");
}

TEST_F(PageLayoutTest, ATotalNeverBeginsAPage)
{
    int several = 0;
    for (int rows = 30; rows < 110; ++rows) {
        const PageLayout layout(Long(rows));
        if (layout.Pages() == 1)
            continue;
        ++several;
        const QStringList last = TextsOf(layout, layout.Pages() - 1);
        EXPECT_GE(last.filter("Expense").size(), 1) << rows;
    }
    EXPECT_GT(several, 40);
}

TEST_F(PageLayoutTest, NothingIsCutAtTheEdges)
{
    Document wide = Long(3);
    Table table{.columns = {{"Name"}}};
    for (int column = 0; column < 9; ++column)
        table.columns.push_back({"Purchases of the half " + std::to_string(column), GridColumnKind::Amount});
    table.rows.push_back({.cells = std::vector<std::string>(10, "987654321.00")});
    table.rows.front().cells.front() = "Machinery with a very long name that has to be broken into several lines";
    wide.sections.push_back({.title = "Depreciation", .level = 2, .tables = {table}});
    const PageLayout layout(wide);
    for (int page = 0; page < layout.Pages(); ++page)
        for (const PageLayout::Mark& mark : layout.Marks(page)) {
            EXPECT_GE(mark.place.left(), 0) << mark.text.toStdString();
            EXPECT_LE(mark.place.right(), kPageWidth) << mark.text.toStdString();
            EXPECT_LE(mark.place.bottom(), kPageHeight) << mark.text.toStdString();
            const bool isOfOneLine = mark.kind == PageLayout::Mark::Kind::Text && !(mark.flags & Qt::TextWordWrap);
            const double width = isOfOneLine ? QFontMetricsF(mark.font).horizontalAdvance(mark.text) : 0;
            EXPECT_LE(width, mark.place.width() + 1) << mark.text.toStdString();
        }
}

TEST_F(PageLayoutTest, KeepsAHeadingWithItsRows)
{
    for (int rows = 40; rows < 60; ++rows) {
        Document document = Long(rows);
        document.sections.push_back(document.sections.front());
        document.sections.back().title = "Second line";
        document.sections.back().tables.front().rows.resize(5);
        const PageLayout layout(document);
        const int page = layout.bookmarks().back().page;
        const QStringList texts = TextsOf(layout, page);
        const auto heading = texts.indexOf("Second line");
        EXPECT_GE(texts.mid(heading).filter("Expense").size(), 4) << rows;
    }
}
