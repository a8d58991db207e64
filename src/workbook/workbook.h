#pragma once

#include "workbook/position.h"

#include <compare>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Workbooks in the Excel 97-2003 format (.xls: BIFF8 records in an OLE2 compound file). All texts are UTF-8.
namespace pgbp::xls {

/// What is wrong with a workbook, as a sentence to show.
class WorkbookError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The error values of a cell with the codes that the format gives them.
enum class ErrorCode : std::uint8_t {
    NoIntersection = 0x00, // #NULL!
    DivisionByZero = 0x07, // #DIV/0!
    WrongValue = 0x0F,     // #VALUE!
    LostReference = 0x17,  // #REF!
    UnknownName = 0x1D,    // #NAME?
    BadNumber = 0x24,      // #NUM!
    NotAvailable = 0x2A    // #N/A
};

/// What a cell holds or its formula gives; std::monostate is an empty cell.
using Value = std::variant<std::monostate, double, bool, std::string, ErrorCode>;

struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    auto operator<=>(const Colour&) const = default;
};

struct Style {
    bool bold = false;
    double fontSize = 10; ///< points, 1 to 409
    std::optional<Colour> fill = {};
    std::string numberFormat = "General";
    bool locked = true; ///< matters only on a protected sheet
    auto operator<=>(const Style&) const = default;
};

struct Cell {
    Value value = {};
    /// "=C22-SUM(C23:C30,C40)" in any letter case, or empty. Where it is set, the value is calculated on writing and
    /// what `value` holds is not used. Reading gives values only: the formula's result, no formula.
    std::string formula = {};
    Style style = {};
    bool operator==(const Cell&) const = default;
};

struct Column {
    double width = 8.43; ///< characters of the standard font, 0 to 255
    bool hidden = false;
    Style style = {}; ///< of the column's cells that are not in the sheet
    bool operator==(const Column&) const = default;
};

struct Sheet {
    /// 1 to 31 characters, none of []:*?/\ and no apostrophe at either end; unique in the workbook without regard to
    /// ASCII case.
    std::string name = {};
    std::map<Position, Cell> cells = {};
    std::map<int, Column> columns = {}; ///< by column number from 0; the others have the standard width
    bool isProtected = false;           ///< without a password
    bool operator==(const Sheet&) const = default;
};

struct Workbook {
    std::vector<Sheet> sheets = {};
    bool operator==(const Workbook&) const = default;
};

/// The longest text of a cell, in UTF-16 units.
inline constexpr std::size_t kLongestText = 32767;

/// The largest file that is read, in bytes; a full annual statement takes some 40 thousand.
inline constexpr std::size_t kLargestFile = 32u << 20;

/// The cell's value; empty for a cell that is not there.
const Value& ValueAt(const Sheet& sheet, Position position);

/// What a person reads in the cell: a figure with all its places, "True", "#REF!".
std::string TextOf(const Value& value);

/// The file's bytes. Formulas are calculated and stored with their result. Throws WorkbookError for what the format
/// cannot hold: a bad sheet name, a text too long or not UTF-8, a formula that is not understood, formulas in a circle.
std::string WriteXls(const Workbook& workbook);

/// Writes the file in one step: an existing file is replaced only by a whole new one. Throws WorkbookError.
void WriteXlsFile(const Workbook& workbook, const std::filesystem::path& path);

/// The worksheets with the cells that hold a value; a formula that the file has no result for is worked out where it is
/// understood. Styles, columns and protection are not read, charts and macro sheets are left out. Throws WorkbookError
/// for anything that is not a whole, unencrypted workbook of this format.
Workbook ReadXls(std::string_view bytes);

/// As ReadXls; the message begins with the file's name.
Workbook ReadXlsFile(const std::filesystem::path& path);

} // namespace pgbp::xls
