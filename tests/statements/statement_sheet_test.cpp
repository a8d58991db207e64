#include "statements/statement_sheet.h"

#include "statements/gnumeric.h"
#include "statements/served_totals.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

namespace pgbp {
namespace {

using namespace pgbp::test;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
using testing::ThrowsMessage;

/// A text of the grid: line, column and text.
struct Typed {
    std::size_t line;
    StatementColumn column;
    const char* text;
};

GridTexts GridOf(const char* form, const std::vector<Typed>& typed)
{
    GridTexts grid{{"Serial", "Description", "Amount", "Type", "SLNO", "Prev. Year", "Detail", "Blank Description"}};
    for (const TemplateRow& row : TemplateNamed(form).rows)
        grid.push_back(ToStatementRow(row));
    for (const auto& [line, column, text] : typed)
        grid.at(line)[column] = text;
    return grid;
}

xls::Workbook Exported(const char* form, ExportOperation operation, const std::vector<Typed>& typed)
{
    return SheetOfStatement(GridOf(form, typed), operation, TotalsOf(TemplateNamed(form)).ComputedRows());
}

const xls::Cell& CellAt(const xls::Workbook& workbook, const char* name)
{
    static const xls::Cell none;
    const auto& cells = workbook.sheets.at(0).cells;
    const auto found = cells.find(xls::PositionOf(name));
    return found == cells.end() ? none : found->second;
}

} // namespace

/// Totals were added up on paper.
TEST(StatementSheet, AmountsAreNumbersAndTotalsAreFormulas)
{
    using enum ExportOperation;
    struct Case {
        const char* form;
        ExportOperation operation;
        std::vector<Typed> typed;
        std::vector<std::pair<const char*, xls::Value>> read;
    };
    const xls::Value empty;
    const Case cases[] = {
        {"PL_4",
         excel_mod,
         {{3, kAmount, "1,000"}, {4, kAmount, "200"}, {6, kAmount, "34.5"}, {7, kAmount, "99"}, {3, kDetail, "Filled"}},
         {{"C4", 1000.0}, {"C5", 200.0}, {"C6", empty}, {"C7", 34.5}, {"C8", 1234.5}, {"G4", "Filled"}, {"G5", empty}}},
        {"PL_5_2017",
         excel_mod_17_PL1,
         {{2, kAmount, "100"}, {3, kAmount, "-7"}, {5, kAmount, "10"}, {6, kAmount, "5"}, {5, kDescription, " Scrap "}},
         {{"C4", -7.0}, {"C8", 15.0}, {"C9", 108.0}, {"F9", empty}, {"B6", "Scrap"}, {"C5", empty}}},
        {"PL_5_2",
         excel_mod_17_PL4,
         {{2, kAmount, "100"}, {5, kAmount, "10"}, {5, kPreviousYear, "1,00,000"}},
         {{"C8", 10.0}, {"C9", 110.0}, {"F6", 100000.0}}},
        {"PL_6_1",
         excel_mod_17_PL6,
         {{2, kAmount, "100"}, {3, kAmount, "7"}, {5, kAmount, "10"}, {6, kAmount, "5"}, {8, kAmount, "1"}},
         {{"C8", 15.0}, {"C11", 123.0}}},
        {"PL_5_2019",
         excel_mod_21_PL1,
         {{3, kAmount, "1,000"},
          {4, kAmount, "200"},
          {3, kPreviousYear, "2,00,000"},
          {4, kPreviousYear, "50"},
          {189, kAmount, "900"},
          {190, kAmount, "100"}},
         {{"C6", 1200.0}, {"F4", 200000.0}, {"F6", 200050.0}, {"C198", 800.0}, {"F198", 0.0}}},
        {"PL_3_2019", excel_mod_21_PL4, {{157, kAmount, "3"}, {158, kAmount, "4"}}, {{"C160", 7.0}}},
        // what an individual's account is exported with: the lines from 160 on are not where the formulas mean them
        {"PL_3_2019",
         excel_mod_21_PL1,
         {{157, kAmount, "3"}, {159, kAmount, "7"}, {161, kAmount, "5"}},
         {{"C160", 7.0}, {"C161", empty}, {"C162", 5.0}, {"C171", empty}}},
        {"PL_6_2019", excel_mod_21_PL6, {{3, kAmount, "1"}, {4, kAmount, "2"}}, {{"C6", 3.0}, {"A1", "Serial"}}},
    };
    for (const Case& each : cases) {
        const xls::Workbook read = xls::ReadXls(xls::WriteXls(Exported(each.form, each.operation, each.typed)));
        for (const auto& [cell, value] : each.read)
            EXPECT_TRUE(CellAt(read, cell).value == value) << each.form << ' ' << cell;
    }
}

TEST(StatementSheet, LooksAsItsYearsDo)
{
    const xls::Workbook old = Exported("PL_4", ExportOperation::excel_mod, {{3, kPreviousYear, "1,000"}});
    const xls::Workbook from2021 = Exported("PL_5_2019", ExportOperation::excel_mod_21_PL1, {{3, kAmount, "1"}});
    for (const xls::Workbook& workbook : {old, from2021}) {
        const xls::Sheet& sheet = workbook.sheets.at(0);
        EXPECT_EQ(sheet.name, "Sheet1");
        for (int column = 0; column < 7; ++column) {
            const xls::Style& heading = sheet.cells.at({0, column}).style;
            EXPECT_TRUE(heading.bold && heading.fontSize == 12) << column;
            EXPECT_EQ(sheet.columns.at(column).hidden, column == 3 || column == 4);
        }
        EXPECT_EQ(sheet.columns.at(kDescription).width, 82) << "a caption of the form is longer than eighty characters";
        EXPECT_FALSE(CellAt(workbook, "A2").style.bold);
    }
    EXPECT_EQ(CellAt(old, "C8").style, (xls::Style{.fill = xls::Colour{255, 255, 0}}));
    EXPECT_EQ(CellAt(old, "C4").style, (xls::Style{.locked = false}));
    EXPECT_EQ(CellAt(old, "F4").style.numberFormat, "#,##0");
    EXPECT_EQ(CellAt(from2021, "C4").style, (xls::Style{.numberFormat = "0"}));
    EXPECT_EQ(CellAt(from2021, "E6").style.fill, (xls::Colour{255, 255, 0}));
    EXPECT_EQ(from2021.sheets.at(0).columns.at(kAmount).style.numberFormat, "0") << "also where nothing stands yet";
}

TEST(StatementSheet, UnderIndAsHoldsFiguresAlone)
{
    GridTexts grid = GridOf("INDASPL", {{3, kAmount, "1,000"}, {3, kPreviousYear, "900"}});
    const std::size_t total = TotalsOf(TemplateNamed("INDASPL")).ComputedRows().at(0);
    grid.at(total)[kAmount] = "7";
    const xls::Workbook whole = SheetOfIndStatement(grid), blank = BlankSheetOfIndStatement(grid);
    EXPECT_TRUE(CellAt(whole, "C4").value == xls::Value(1000.0));
    EXPECT_TRUE(xls::ValueAt(whole.sheets[0], {static_cast<int>(total), kAmount}) == xls::Value(7.0));
    for (const auto& [position, cell] : blank.sheets[0].cells) {
        EXPECT_TRUE(cell.formula.empty());
        EXPECT_TRUE(position.row == 0 || position.column != kAmount) << xls::NameOf(position);
    }
    EXPECT_TRUE(CellAt(blank, "F4").value == xls::Value(900.0));
}

TEST(StatementSheet, AmountIsReadAsAPreparerMeansIt)
{
    struct Case {
        const char* type;
        const char* cell;
        const char* taken; ///< nullptr: refused
    };
    const Case cases[] = {
        {"NUM", "1250", "1250"},
        {"NUM", "-1250.5", "-1250.5"},
        {"NUM", "333.333333333333", "333.333333333333"},
        {"NUM", "", ""},
        {"NUM", " \u00A0", ""},
        {"NUM", "-", ""},
        {"NUM", "1,23,456", "123456"},
        {"NUM", "\t1,250", "1250"},
        {"NUM", "\u00A01250", "1250"},
        {"NUM", "₹ 1,250.50", "1250.50"},
        {"NUM", "Rs. 500/-", "500"},
        {"NUM", "(500)", "-500"},
        {"NUM", "999999999999999", "999999999999999"},
        {"NUM", "12345678901234567890", nullptr},
        {"NUM", "1000000000000000", nullptr},
        {"NUM", "100 Dr", nullptr},
        {"NUM", "approx 100", nullptr},
        {"NUM", "1.2.3", nullptr},
        {"NUM", "#VALUE!", nullptr},
        {"CBO", "yes ", "Yes"},
        {"CBO", "Perhaps", "Perhaps"},
        {"", "#VALUE!", "#VALUE!"},
    };
    for (const Case& each : cases) {
        const GridTexts grid{{}, {"1", "   Sales", "", each.type, "254", "", ""}};
        const StatementSheetRow row{"SALES ", each.cell, " 254"};
        const Import import = TakeOver({&row, 1}, grid);
        EXPECT_EQ(import.end == ImportEnd::Refused, each.taken == nullptr) << each.cell;
        if (each.taken)
            EXPECT_EQ(import.amounts, std::vector<std::string>{each.taken}) << each.cell;
        else
            EXPECT_THAT(import.message, StartsWith("Row 2 of the sheet (SALES): Not taken: "));
    }
}

TEST(StatementSheet, ImportEndsAtTheFirstLineOfAnotherStatement)
{
    const GridTexts grid{{}, {"1", "Sales", "9", "NUM", "167", "", ""}, {"2", " Rent", "", "NUM", "168", "", ""}};
    struct Case {
        const char* name;
        std::vector<StatementSheetRow> sheet;
        std::vector<std::string> amounts;
        ImportEnd end;
        const char* message;
    };
    const Case cases[] = {
        {"whole", {{"Sales", "1", "167"}, {"rent", "", "168"}}, {"1", ""}, ImportEnd::Completed, "Process Completed"},
        {"fewer", {{"Sales", "1", "167"}}, {"1"}, ImportEnd::Completed, "Process Completed"},
        {"none", {}, {}, ImportEnd::Completed, "Process Completed"},
        {"other words", {{"Sales", "1", "167"}, {"R ent", "2", "168"}}, {"1"}, ImportEnd::Mismatch, "Record Mismatch"},
        {"other number", {{"Sales", "1", "168"}}, {}, ImportEnd::Mismatch, "Record Mismatch"},
        {"more",
         {{"Sales", "1", "167"}, {"Rent", "2", "168"}, {"", "3", ""}},
         {"1", "2"},
         ImportEnd::Refused,
         "Row 4 of the sheet stands behind the last line of the statement."},
    };
    for (const Case& each : cases) {
        const Import import = TakeOver(each.sheet, grid);
        EXPECT_EQ(import.amounts, each.amounts) << each.name;
        EXPECT_EQ(import.end, each.end) << each.name;
        EXPECT_EQ(import.message, each.message) << each.name;
    }
}

/// The sheet is filled in by another program, which calculates the totals anew and saves.
TEST(StatementSheet, ComesBackFromAnotherProgram)
{
    const TemporaryFolder folder;
    const auto ours = folder.path() / "ours.xls", theirs = folder.path() / "theirs.xls";
    const GridTexts grid = GridOf("PL_5_2019", {{3, kAmount, "1,000"}, {4, kAmount, "200"}});
    xls::WriteXlsFile(
        SheetOfStatement(grid, ExportOperation::excel_mod_21_PL1, TotalsOf(TemplateNamed("PL_5_2019")).ComputedRows()),
        ours);
    if (!ChangedByGnumeric(ours, theirs, "--set C5=300.5 --set C8=40"))
        GTEST_SKIP() << "Gnumeric is not installed";
    const Import import = TakeOver(ReadStatementSheet(theirs), grid);
    ASSERT_EQ(import.end, ImportEnd::Completed) << import.message;
    EXPECT_EQ(import.amounts.size(), grid.size() - 1);
    for (const auto& [line, amount] : {std::pair{3, "1000"}, {4, "300.5"}, {5, "1300.5"}, {7, "40"}, {20, "1340.5"}})
        EXPECT_EQ(import.amounts.at(static_cast<std::size_t>(line) - 1), amount) << "line " << line;
}

TEST(StatementSheet, FileThatHoldsNoStatementIsRefusedByName)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "filled.xls";
    const std::string whole = xls::WriteXls(Exported("PL_4", ExportOperation::excel_mod, {{3, kAmount, "1"}}));
    const std::pair<std::string, const char*> cases[] = {
        {"", "not a workbook"},
        {"Serial,Description\n", "not a workbook"},
        {whole.substr(0, whole.size() / 2), ""},
        {xls::WriteXls({{{"Figures"}, {"Notes"}}}), "named \"Sheet1\"; this workbook has \"Figures\", \"Notes\"."},
    };
    for (const auto& [bytes, sentence] : cases) {
        folder.Write("filled.xls", bytes);
        EXPECT_THAT([&] { ReadStatementSheet(path); },
                    ThrowsMessage<xls::WorkbookError>(AllOf(StartsWith("filled.xls: "), HasSubstr(sentence))));
    }
    EXPECT_THROW(ReadStatementSheet(folder.path() / "missing.xls"), xls::WorkbookError);

    xls::Sheet shouting{.name = "SHEET1"};
    const std::pair<const char*, xls::Value> cells[] = {
        {"B2", "Sales"}, {"C2", 1e20}, {"E2", 167.0}, {"C3", true}, {"J99", "note"}};
    for (const auto& [name, value] : cells)
        shouting.cells[xls::PositionOf(name)].value = value;
    folder.Write("filled.xls", xls::WriteXls({{{"Notes"}, shouting}}));
    EXPECT_EQ(ReadStatementSheet(path),
              (std::vector<StatementSheetRow>{{"Sales", "100000000000000000000", "167"}, {"", "True", ""}}));
}

} // namespace pgbp
