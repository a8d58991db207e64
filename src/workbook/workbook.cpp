#include "workbook/workbook.h"

#include "services/format.h"

#include <algorithm>
#include <fstream>
#include <random>
#include <system_error>

namespace pgbp::xls {
namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path& path)
{
    const auto name = path.u8string();
    return {name.begin(), name.end()};
}

[[noreturn]] void Fail(const fs::path& path, const std::string& what)
{
    throw WorkbookError(Utf8(path.filename()) + ": " + what);
}

std::string ReadWhole(const fs::path& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        Fail(path, "There is no such file.");
    const auto size = fs::file_size(path, error);
    if (error || size > kLargestFile)
        Fail(path, "The file is too large to be read.");
    std::string bytes(size, '\0');
    std::ifstream file(path, std::ios::binary);
    if (!file.read(bytes.data(), static_cast<std::streamsize>(size)))
        Fail(path, "The file cannot be read.");
    return bytes;
}

/// A name beside the file's own that no other writer takes at the same time.
fs::path TemporaryBeside(const fs::path& path)
{
    fs::path temporary = path;
    temporary += '.' + std::to_string(std::random_device{}()) + ".tmp";
    return temporary;
}

std::string TextOf(ErrorCode error)
{
    using enum ErrorCode;
    constexpr std::pair<ErrorCode, const char*> kTexts[] = {
        {NoIntersection, "#NULL!"}, {DivisionByZero, "#DIV/0!"}, {WrongValue, "#VALUE!"}, {LostReference, "#REF!"},
        {UnknownName, "#NAME?"},    {BadNumber, "#NUM!"},        {NotAvailable, "#N/A"},
    };
    return std::ranges::find(kTexts, error, &std::pair<ErrorCode, const char*>::first)->second;
}

bool WriteWhole(const fs::path& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return !file.fail();
}

} // namespace

const Value& ValueAt(const Sheet& sheet, Position position)
{
    static const Value empty;
    const auto cell = sheet.cells.find(position);
    return cell == sheet.cells.end() ? empty : cell->second.value;
}

std::string TextOf(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return *text;
    if (const auto* figure = std::get_if<double>(&value))
        return PlainFigure(*figure);
    if (const auto* truth = std::get_if<bool>(&value))
        return *truth ? "True" : "False";
    if (const auto* error = std::get_if<ErrorCode>(&value))
        return TextOf(*error);
    return {};
}

Workbook ReadXlsFile(const fs::path& path)
{
    const std::string bytes = ReadWhole(path);
    try {
        return ReadXls(bytes);
    } catch (const WorkbookError& error) {
        Fail(path, error.what());
    }
}

void WriteXlsFile(const Workbook& workbook, const fs::path& path)
{
    const std::string bytes = WriteXls(workbook);
    const fs::path temporary = TemporaryBeside(path);
    std::error_code error;
    if (WriteWhole(temporary, bytes))
        fs::rename(temporary, path, error);
    else
        error = std::make_error_code(std::errc::io_error);
    if (!error)
        return;
    fs::remove(temporary, error);
    Fail(path, "The file cannot be written.");
}

} // namespace pgbp::xls
