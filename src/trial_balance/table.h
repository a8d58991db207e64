#pragma once

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// A trial balance out of another program's file: its cells, its heading, its accounts, and the lines of a form that
/// are proposed for them. Knows no screen and no store. All texts are UTF-8.
namespace pgbp::trial {

/// Why a file gives no accounts, as a sentence to show.
class TrialBalanceError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The texts of a sheet, or of a file with separators, row by row; rows end with their last cell that has a text.
struct Table {
    std::vector<std::vector<std::string>> rows = {};
    std::size_t unclosedQuote = 0; ///< the row, from 1, in which a quotation mark opens that nothing closes; else 0
};

/// The largest file that is read, in bytes, and the most rows and cells: a list of accounts has a few hundred rows.
inline constexpr std::size_t kLargestFile = 16u << 20;
inline constexpr std::size_t kMostCells = 1'000'000;

/// What the bytes can be read as, one of which is meant: the sheets of a workbook (.xls), or the text parted by
/// commas, by semicolons and by tabs. Throws TrialBalanceError, or WorkbookError for a damaged workbook.
std::vector<Table> TablesOf(std::string_view bytes);

/// The bytes of a file that is not too large. Throws TrialBalanceError with the file's name.
std::string ContentOf(const std::filesystem::path& path);

} // namespace pgbp::trial
