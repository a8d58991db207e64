#pragma once

#include "statements/export_formulas.h"
#include "workbook/workbook.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

/// A statement as a worksheet, which is filled in outside the program and comes back. The sheet mirrors the grid: row 1
/// is the heading, columns A to G are those of StatementColumn up to the details.
namespace pgbp {

/// The texts of a statement's grid, the heading first. The last column of StatementColumn may be missing.
using GridTexts = std::vector<std::vector<std::string>>;

/// The workbook of a statement, with live formulas in the lines that it computes. Amounts are numbers, those of the
/// previous year grouped as the computer groups them; a text that is no number stays a text, and what is empty is
/// empty.
xls::Workbook SheetOfStatement(const GridTexts& grid, ExportOperation operation,
                               std::span<const std::size_t> computedLines);

/// The statements under Ind AS have no formulas.
xls::Workbook SheetOfIndStatement(const GridTexts& grid);

/// The same with the amounts left out.
xls::Workbook BlankSheetOfIndStatement(GridTexts grid);

/// A line of a sheet that comes back. A number is the plain text of its figure, whatever it looks like in the sheet; a
/// formula has the text of its result.
struct StatementSheetRow {
    std::string description;
    std::string amount;
    std::string slno;
    bool operator==(const StatementSheetRow&) const = default;
};

/// The lines of "Sheet1", in whatever case its name is written, hidden columns included. What stands beside or below
/// the lines in other columns is not looked at. Throws WorkbookError, with a sentence for the preparer that begins with
/// the file's name, when the file cannot be read or has no such sheet.
std::vector<StatementSheetRow> ReadStatementSheet(const std::filesystem::path& path);

enum class ImportEnd {
    Completed,
    Mismatch, ///< a line is not the statement's
    Refused   ///< an amount cannot be read, or the sheet goes on behind the statement
};

struct Import {
    std::vector<std::string> amounts; ///< for the lines from 1 on, as far as the sheet was taken; ungrouped
    ImportEnd end;
    std::string message; ///< to be shown: how it ended, and where
};

/// Holds the sheet against the grid line by line. The same description and number, without regard to case and to
/// blanks around them, hand over the amount; the first line that is another one, or that cannot be taken, ends the
/// import, and what was taken before it stands.
///
/// An amount that is typed as a text is read as a pasted one is: with commas, a tab, a no-break space or a rupee sign
/// around it. What is no amount, has more than fifteen digits or can be read in two ways ("100 Dr") is refused with
/// its row and not taken as 0. A lone "-" is an empty amount. A choice in another case becomes the one of its list.
/// A figure in a line that the statement computes is taken as it stands: the totals write over it.
Import TakeOver(std::span<const StatementSheetRow> sheet, const GridTexts& grid);

} // namespace pgbp
