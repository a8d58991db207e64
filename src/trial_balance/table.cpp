#include "trial_balance/table.h"

#include "services/text.h"
#include "trial_balance/delimited_text.h"
#include "trial_balance/plain_text.h"
#include "workbook/workbook.h"

#include <algorithm>
#include <fstream>
#include <system_error>

namespace pgbp::trial {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kCompoundFile = "\xD0\xCF\x11\xE0";
constexpr std::string_view kZipFile = "PK\x03\x04";
constexpr int kMostColumns = 256;

/// The rows of a sheet stand where their cells do, so that a message names the row that the spreadsheet shows.
Table TableOf(const xls::Sheet& sheet)
{
    Table table;
    for (const auto& [position, cell] : sheet.cells) {
        std::string text = xls::TextOf(cell.value);
        if (position.column >= kMostColumns || Trim(text).empty())
            continue;
        const auto row = static_cast<std::size_t>(position.row);
        const auto column = static_cast<std::size_t>(position.column);
        table.rows.resize(std::max(table.rows.size(), row + 1));
        table.rows[row].resize(std::max(table.rows[row].size(), column + 1));
        table.rows[row][column] = std::move(text);
    }
    return table;
}

} // namespace

std::vector<Table> TablesOf(std::string_view bytes)
{
    std::vector<Table> tables;
    if (bytes.starts_with(kCompoundFile)) {
        for (const xls::Sheet& sheet : xls::ReadXls(bytes).sheets)
            tables.push_back(TableOf(sheet));
        return tables;
    }
    if (bytes.starts_with(kZipFile))
        throw TrialBalanceError("This is a workbook of the newer kind (.xlsx). Save it as \"Excel 97-2003 workbook\" "
                                "(.xls) or as CSV, and import that.");
    const std::string text = Utf8Text(bytes);
    for (const char separator : {',', ';', '\t'})
        tables.push_back(ParseDelimited(text, separator));
    return tables;
}

std::string ContentOf(const fs::path& path)
{
    const auto refuse = [&path](const std::string& why) {
        const auto name = path.filename().u8string();
        return TrialBalanceError(std::string(name.begin(), name.end()) + ": " + why);
    };
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        throw refuse("There is no such file.");
    const auto size = fs::file_size(path, error);
    if (error || size > kLargestFile)
        throw refuse("The file is larger than 16 MB. That is no list of accounts: export the trial balance alone, "
                     "without the entries.");
    std::string bytes(size, '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size)))
        throw refuse("The file cannot be read.");
    return bytes;
}

} // namespace pgbp::trial
