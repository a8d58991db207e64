#include "statements/statement_sheet.h"

#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"
#include "services/utf8.h"
#include "statements/amount_cell.h"
#include "statements/template_row.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace pgbp {
namespace {

constexpr std::string_view kSheetName = "Sheet1";
constexpr int kSheetColumns = kDetail + 1;
constexpr std::string_view kGrouped = "#,##0";

/// The number that the whole text is.
std::optional<double> FigureOf(const std::string& text)
{
    double figure = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), figure, std::chars_format::fixed);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size() && std::isfinite(figure);
    return isNumber ? std::optional(figure) : std::nullopt;
}

// -- Writing

xls::Value ValueOf(const std::string& shown, int column)
{
    const std::string text = Trim(shown);
    if (text.empty() || text == kDetailsPossible)
        return {};
    if (column != kAmount && column != kPreviousYear)
        return text;
    const std::string plain = Replace(text, ",", "");
    if (const auto figure = FigureOf(plain))
        return *figure;
    return column == kAmount ? plain : text;
}

void Fill(xls::Sheet& sheet, const GridTexts& grid)
{
    for (std::size_t row = 0; row < grid.size(); ++row)
        for (int column = 0; column < kSheetColumns; ++column)
            if (auto value = ValueOf(grid[row].at(static_cast<std::size_t>(column)), column);
                !std::holds_alternative<std::monostate>(value))
                sheet.cells[{static_cast<int>(row), column}].value = std::move(value);
}

/// As wide as the longest text; a caption that fills the screen by itself would push the amounts out of sight.
double WidthOf(const GridTexts& grid, int column)
{
    constexpr int widest = 80, room = 2;
    constexpr double headingIsLarger = 1.4;
    double width = 0;
    for (std::size_t row = 0; row < grid.size(); ++row) {
        const double count = CharacterCount(Trim(grid[row][static_cast<std::size_t>(column)]));
        width = std::max(width, row == 0 ? count * headingIsLarger : count);
    }
    return std::min<double>(width, widest) + room;
}

void Dress(xls::Sheet& sheet, const GridTexts& grid, std::string_view numberFormat)
{
    constexpr double headingPoints = 12;
    for (int column = 0; column < kSheetColumns; ++column)
        sheet.columns[column] = {.width = WidthOf(grid, column),
                                 .hidden = column == kType || column == kSlno,
                                 .style = {.numberFormat = std::string(numberFormat)}};
    for (auto& [position, cell] : sheet.cells) {
        cell.style.numberFormat = position.column == kPreviousYear ? kGrouped : numberFormat;
        if (position.row == 0) {
            cell.style.bold = true;
            cell.style.fontSize = headingPoints;
        }
    }
}

// -- Reading

std::string TextAt(const xls::Sheet& sheet, int row, int column)
{
    return xls::TextOf(xls::ValueAt(sheet, {row, column}));
}

const xls::Sheet& StatementSheet(const xls::Workbook& workbook, const std::filesystem::path& path)
{
    for (const xls::Sheet& sheet : workbook.sheets)
        if (EqualsIgnoringCase(sheet.name, kSheetName))
            return sheet;
    std::string names;
    for (const xls::Sheet& sheet : workbook.sheets)
        names += (names.empty() ? "\"" : ", \"") + sheet.name + '"';
    throw xls::WorkbookError(path.filename().string() + ": A statement stands in a sheet named \"" +
                             std::string(kSheetName) + "\"; this workbook has " + (names.empty() ? "no sheet" : names) +
                             '.');
}

bool IsSame(const std::string& one, const std::string& other) { return EqualsIgnoringCase(Trim(one), Trim(other)); }

/// An amount of the sheet, or why it is none.
struct Taken {
    std::string text;
    std::string refusal = {};
};

Taken TakeNumber(const std::string& cell)
{
    constexpr double tooLarge = 1e15;
    constexpr int places = 2;
    const std::string text = Trim(Replace(cell, "\u00A0", " "));
    if (text.empty() || text == "-")
        return {""};
    if (const auto figure = FigureOf(text); figure && std::fabs(*figure) < tooLarge)
        return {text};
    const AmountReading reading = ReadAmount(text, places);
    if (!reading.text.empty() && !reading.hint.empty())
        return {"", "Not taken: \"" + text + "\" can be read in more than one way"};
    return {reading.text, reading.hint};
}

Taken TakeChoice(const std::string& cell, const std::string& slno)
{
    const std::string text = Trim(cell);
    for (const std::string_view item : ChoiceItems(static_cast<int>(ParseAmount(slno))))
        if (EqualsIgnoringCase(text, item))
            return {std::string(item)};
    return {text};
}

Taken TakeAmount(const std::string& cell, const std::vector<std::string>& line)
{
    if (line[kType] == "NUM")
        return TakeNumber(cell);
    return line[kType] == "CBO" ? TakeChoice(cell, line[kSlno]) : Taken{cell};
}

} // namespace

xls::Workbook SheetOfStatement(const GridTexts& grid, ExportOperation operation,
                               std::span<const std::size_t> computedLines)
{
    xls::Sheet sheet{.name = std::string(kSheetName)};
    Fill(sheet, grid);
    PutExportFormulas(sheet, operation, computedLines);
    Dress(sheet, grid, ExportLookOf(operation).numberFormat);
    return {{std::move(sheet)}};
}

xls::Workbook SheetOfIndStatement(const GridTexts& grid)
{
    xls::Sheet sheet{.name = std::string(kSheetName)};
    Fill(sheet, grid);
    Dress(sheet, grid, xls::Style().numberFormat);
    return {{std::move(sheet)}};
}

xls::Workbook BlankSheetOfIndStatement(GridTexts grid)
{
    for (std::size_t line = 1; line < grid.size(); ++line)
        grid[line].at(kAmount).clear();
    return SheetOfIndStatement(grid);
}

std::vector<StatementSheetRow> ReadStatementSheet(const std::filesystem::path& path)
{
    const xls::Workbook workbook = xls::ReadXlsFile(path);
    const xls::Sheet& sheet = StatementSheet(workbook, path);
    int lastRow = 0;
    for (const auto& [position, cell] : sheet.cells)
        if (position.column == kDescription || position.column == kAmount || position.column == kSlno)
            lastRow = position.row;
    std::vector<StatementSheetRow> rows;
    for (int row = 1; row <= lastRow; ++row)
        rows.push_back({TextAt(sheet, row, kDescription), TextAt(sheet, row, kAmount), TextAt(sheet, row, kSlno)});
    return rows;
}

Import TakeOver(std::span<const StatementSheetRow> sheet, const GridTexts& grid)
{
    Import import{.amounts = {}, .end = ImportEnd::Refused, .message = {}};
    for (const StatementSheetRow& row : sheet) {
        const std::size_t line = import.amounts.size() + 1;
        const std::string place = "Row " + std::to_string(line + 1) + " of the sheet";
        if (line >= grid.size()) {
            import.message = place + " stands behind the last line of the statement.";
            return import;
        }
        if (!IsSame(row.description, grid[line][kDescription]) || !IsSame(row.slno, grid[line][kSlno]))
            return {std::move(import.amounts), ImportEnd::Mismatch, "Record Mismatch"};
        Taken taken = TakeAmount(row.amount, grid[line]);
        if (!taken.refusal.empty()) {
            import.message = place + " (" + Trim(row.description) + "): " + taken.refusal + '.';
            return import;
        }
        import.amounts.push_back(std::move(taken.text));
    }
    return {std::move(import.amounts), ImportEnd::Completed, "Process Completed"};
}

} // namespace pgbp
