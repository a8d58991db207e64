#include "workbook/position.h"

#include "workbook/workbook.h"

#include <charconv>

namespace pgbp::xls {
namespace {

/// 1 to 26, or 0 for what is no letter.
int LetterNumber(char c)
{
    const char upper = c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper >= 'A' && upper <= 'Z' ? upper - 'A' + 1 : 0;
}

} // namespace

std::string NameOf(Position position)
{
    const int letters = position.column / 26;
    std::string name;
    if (letters > 0)
        name += static_cast<char>('A' + letters - 1);
    name += static_cast<char>('A' + position.column % 26);
    return name + std::to_string(position.row + 1);
}

std::optional<Position> TakePosition(std::string_view& text)
{
    std::size_t letters = 0;
    int column = 0;
    for (; letters < text.size() && letters < 3 && LetterNumber(text[letters]) > 0; ++letters)
        column = column * 26 + LetterNumber(text[letters]);
    int row = 0;
    const auto digits = text.substr(letters);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), row);
    if (error != std::errc{} || column < 1 || column > kColumns || row < 1 || row > kRows)
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return Position{row - 1, column - 1};
}

Position PositionOf(std::string_view name)
{
    std::string_view rest = name;
    const auto position = TakePosition(rest);
    if (!position || !rest.empty())
        throw WorkbookError('"' + std::string(name) + "\" is not the name of a cell.");
    return *position;
}

} // namespace pgbp::xls
