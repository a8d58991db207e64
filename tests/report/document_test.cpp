#include "report/document.h"
#include "report/plain_text.h"
#include "report/workbook_of.h"

#include <gtest/gtest.h>

using namespace pgbp;
using namespace pgbp::report;

namespace {

Table Ledger(std::vector<Row> rows)
{
    return {.columns = {{"Particulars"}, {"Rupees", GridColumnKind::Amount}}, .rows = std::move(rows)};
}

} // namespace

TEST(FindSums, NotesWhatATotalIsTheSumOf)
{
    Table table = Ledger({{.cells = {"Sales", "1,00,000"}},
                          {.cells = {"Wages", "30000.50"}},
                          {.look = RowLook::Total, .cells = {"Total", "69999.50"}},
                          {.cells = {"Rent", "5000.00"}},
                          {.look = RowLook::Final, .cells = {"Profit", "74999.50"}}});
    FindSums(table, 1, {1, -1, 1, 1, 1});
    ASSERT_EQ(table.rows[2].sums.at(1).size(), 2U);
    EXPECT_EQ(table.rows[2].sums.at(1)[1].sign, -1);
    ASSERT_EQ(table.rows[4].sums.at(1).size(), 2U);
    EXPECT_EQ(table.rows[4].sums.at(1)[0].row, 2U);
}

TEST(FindSums, LeavesATotalPlainThatCountsMoreThanIsShown)
{
    Table table = Ledger({{.cells = {"Sales", "100.00"}}, {.look = RowLook::Total, .cells = {"Total", "150.00"}}});
    FindSums(table, 1, {1, 1});
    EXPECT_TRUE(table.rows[1].sums.empty());
}

TEST(FindSums, FindsThePartsOfAGroupBelowItsSumOrBeforeIt)
{
    Table table = Ledger({{.look = RowLook::Strong, .cells = {"D Direct expenses", "30.00"}},
                          {.depth = 1, .cells = {"i Fuel", "10.00"}},
                          {.depth = 1, .cells = {"ii Power", "20.00"}},
                          {.look = RowLook::Heading, .cells = {"E Overheads", ""}},
                          {.depth = 1, .cells = {"i Wages", "7.00"}},
                          {.look = RowLook::Item, .depth = 1, .cells = {"of which boiler", "4.00"}},
                          {.look = RowLook::Strong, .depth = 1, .cells = {"ii Total", "7.00"}},
                          {.look = RowLook::Strong, .cells = {"Gross profit", "99.00"}}});
    FindSumsOfGroups(table, 1);
    ASSERT_EQ(table.rows[0].sums.at(1).size(), 2U);
    EXPECT_EQ(table.rows[0].sums.at(1)[1].row, 2U);
    ASSERT_EQ(table.rows[6].sums.at(1).size(), 1U);
    EXPECT_EQ(table.rows[6].sums.at(1)[0].row, 4U);
    EXPECT_TRUE(table.rows[7].sums.empty());
}

TEST(Document, CaptionsComeWithoutMarks)
{
    EXPECT_EQ(PlainCaption("Net Profit as per P && L Account :"), "Net Profit as per P & L Account");
    EXPECT_EQ(PlainCaption("De&tails"), "Details");
    EXPECT_EQ(PlainCaption("Fuel & oil"), "Fuel & oil");
}

TEST(Document, NamesItsFileByPanAndYear)
{
    Document document{.client = "A/B & Sons", .pan = "AAQFV5512C", .year = "2023-24"};
    EXPECT_EQ(FileName(document), "AAQFV5512C 2023-24");
    document.pan.clear();
    document.incomeOf = "Income of minor 1";
    EXPECT_EQ(FileName(document), "A-B & Sons 2023-24 Income of minor 1");
}

TEST(PlainText, KeepsAmountsInTheirColumnAndBreaksLongTexts)
{
    const std::string longText = "Advance to a supplier of machinery that was written off because the supplier was "
                                 "wound up before it could deliver";
    const Document document{
        .client = "Asha",
        .sections = {{.title = "Line",
                      .tables = {Ledger({{.cells = {longText, "123456.00"}},
                                         {.look = RowLook::Total, .cells = {"Total", "123456.00"}}})}}}};
    const std::string text = PlainText(document);
    EXPECT_NE(text.find("1,23,456.00"), std::string::npos);
    std::size_t widest = 0;
    for (std::size_t from = 0, end = 0; end != std::string::npos; from = end + 1) {
        end = text.find('\n', from);
        widest = std::max(widest, std::min(end, text.size()) - from);
    }
    EXPECT_EQ(widest, 100U);
}

TEST(WorkbookOf, WritesSumsAsFormulas)
{
    Table table = Ledger({{.cells = {"Sales", "100.00"}},
                          {.cells = {"Services", "50.00"}},
                          {.look = RowLook::Total, .cells = {"Total", "150.00"}},
                          {.cells = {"Wages", "30.00"}},
                          {.look = RowLook::Final, .cells = {"Profit", "120.00"}}});
    FindSums(table, 1, {1, 1, 1, -1, 1});
    const Document document{.client = "Asha",
                            .sections = {{.title = "Shop: a/b", .tables = {table}}, {.title = "Shop: a/b"}}};
    const xls::Workbook workbook = WorkbookOf(document);
    ASSERT_EQ(workbook.sheets.size(), 2U);
    EXPECT_EQ(workbook.sheets[0].name, "Shop  a b");
    EXPECT_EQ(workbook.sheets[1].name, "Shop  a b 2");
    EXPECT_EQ(workbook.sheets[0].cells.at(xls::PositionOf("B9")).formula, "=SUM(B7:B8)");
    EXPECT_EQ(workbook.sheets[0].cells.at(xls::PositionOf("B11")).formula, "=B9-B10");
}
