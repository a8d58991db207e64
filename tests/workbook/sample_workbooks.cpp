#include "workbook/sample_workbooks.h"

#include "workbook/bytes.h"
#include "workbook/calculation.h"
#include "workbook/compound_file.h"
#include "workbook/records.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace pgbp::xls {
namespace {

constexpr int kBlock = 10;
constexpr int kAmountColumn = 2;
constexpr int kPreviousColumn = 5;

std::string Cells(int column, int firstRow, int lastRow)
{
    return NameOf({firstRow, column}) + ':' + NameOf({lastRow, column});
}

std::string GrandTotal(int column, int rows)
{
    std::string formula = "=0";
    for (int row = kBlock; row < rows - 1; row += kBlock)
        formula += '+' + NameOf({row, column});
    return formula;
}

void FillAmount(Sheet& sheet, int row, int column, int rows)
{
    Cell& cell = sheet.cells[{row, column}];
    cell.style = {.numberFormat = "0", .locked = false};
    cell.value = row * 1000.0 + column + 0.25;
    if (row == rows - 1)
        cell.formula = GrandTotal(column, rows);
    else if (row % kBlock == 0)
        cell.formula = "=sum(" + Cells(column, row - kBlock + 1, row - 1) + ')';
    if (!cell.formula.empty())
        cell.style = {.fill = Colour{255, 255, 0}, .numberFormat = "0"};
}

void FillRow(Sheet& sheet, int row, int rows)
{
    const std::string number = std::to_string(row);
    const std::string texts[] = {
        number, "Line " + number + " of the statement, in words that take some room", "", "N", number, "", "=>"};
    for (int column = 0; column < static_cast<int>(std::size(texts)); ++column)
        if (!texts[column].empty())
            sheet.cells[{row, column}] = {texts[column]};
    FillAmount(sheet, row, kAmountColumn, rows);
    FillAmount(sheet, row, kPreviousColumn, rows);
}

} // namespace

Workbook SampleStatement(int rows)
{
    Sheet sheet{"Sheet1"};
    const char* heads[] = {"Sr.", "Description", "Amount", "Type", "SLNO", "Prev. Year", "Detail"};
    for (int column = 0; column < static_cast<int>(std::size(heads)); ++column)
        sheet.cells[{0, column}] = {heads[column], {}, {.bold = true, .fontSize = 12}};
    for (int row = 1; row < rows; ++row)
        FillRow(sheet, row, rows);
    sheet.columns = {{1, {.width = 60}}, {3, {.hidden = true}}, {4, {.hidden = true}}};
    sheet.isProtected = true;
    return {{sheet}};
}

Workbook SampleOfAllKinds()
{
    Sheet first{"Sheet1"}, second{"दूसरा पन्ना"};
    const std::pair<const char*, Cell> cells[] = {
        {"A1", {"Serial", {}, {.bold = true, .fontSize = 12}}},
        {"B1", {"विवरण — café 😀"}},
        {"C1", {""}},
        {"D1", {std::string(8300, 'x') + "y"}},
        {"E1", {"blanks  and\nline end"}},
        {"C2", {100.25}},
        {"C3", {-200.0}},
        {"C4", {std::monostate{}, {}, {.locked = false}}},
        {"C5", {999999999999999.0}},
        {"C6", {0.1}},
        {"C7", {true}},
        {"C8", {ErrorCode::NotAvailable}},
        {"C9", {" 7 "}},
        {"D2", {{}, "=sum(C2:C4)", {.fill = Colour{255, 255, 0}, .numberFormat = "0"}}},
        {"D3", {{}, "=D2-sum(C2,C3:C4)-(-C2+1.5)", {.fill = Colour{1, 2, 3}, .numberFormat = "#,##0.00"}}},
        {"D4", {{}, "=A1"}},
        {"D5", {{}, "=A1+1"}},
        {"D6", {{}, "=c7"}},
        {"D7", {{}, "=SUM(C2:C6)+C7+C9"}},
        {"D8", {{}, "=sum(C2:C8)"}},
        {"D9", {{}, "=D1"}},
        {"D10", {{}, "=C4"}},
        {"D11", {{}, "=sum(C2+C3,100000.5,70000,3,(C5))"}}};
    for (const auto& [name, cell] : cells)
        first.cells[PositionOf(name)] = cell;
    second.cells[PositionOf("IV65536")] = {"last"};
    first.columns = {{1, {.width = 40, .style = {.numberFormat = "0"}}}, {3, {.hidden = true}}};
    first.isProtected = true;
    return {{first, second}};
}

Workbook AsRead(const Workbook& workbook)
{
    Workbook read;
    for (const Sheet& sheet : workbook.sheets) {
        Sheet& plain = read.sheets.emplace_back(Sheet{sheet.name});
        for (const auto& [position, cell] : sheet.cells)
            if (!std::holds_alternative<std::monostate>(cell.value))
                plain.cells[position].value = cell.value;
        for (const auto& [position, formula] : Calculate(sheet))
            plain.cells[position].value = formula.result;
    }
    return read;
}

std::string WithStoredResults(const std::string& file, std::uint64_t result, std::uint16_t marks)
{
    constexpr std::size_t resultAt = kRecordHeader + 6, marksAt = resultAt + 8;
    std::string stream = *ReadStream(file, "Workbook");
    const auto u16 = [&](std::size_t at) { return NumberAt<std::uint16_t>(stream, at).value_or(0); };
    for (std::size_t at = 0; at < stream.size(); at += kRecordHeader + u16(at + 2))
        if (u16(at) == static_cast<std::uint16_t>(RecordId::Formula) && u16(at + resultAt + 6) != 0xFFFF) {
            Overwrite(stream, at + resultAt, result);
            Overwrite(stream, at + marksAt, marks);
        }
    return WriteCompoundFile("Workbook", stream);
}

std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::filesystem::path& path, const std::string& bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string SampleFile(const std::string& name)
{
    return ReadBytes(std::filesystem::path(PGBP_WORKBOOK_SAMPLES) / name);
}

} // namespace pgbp::xls
