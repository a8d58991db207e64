#include "workbook/bytes.h"
#include "workbook/formula.h"

namespace pgbp::xls {
namespace {

enum TokenId : std::uint8_t {
    AddToken = 0x03,
    SubtractToken = 0x04,
    MinusToken = 0x13,
    BracketsToken = 0x15,
    IntegerToken = 0x1E,
    NumberToken = 0x1F,
    CellToken = 0x24,
    CellsToken = 0x25,
    FunctionToken = 0x42
};

constexpr std::uint8_t kAsValue = 0x20; // added to the token of a cell whose value is wanted, not its place
constexpr std::uint16_t kSumFunction = 4;

void AppendRow(std::string& bytes, Position position) { Append(bytes, static_cast<std::uint16_t>(position.row)); }

void AppendColumn(std::string& bytes, Position position)
{
    constexpr int bothRelative = 0xC000;
    Append(bytes, static_cast<std::uint16_t>(position.column | bothRelative));
}

void AppendNumber(std::string& bytes, double number)
{
    if (const auto whole = static_cast<std::uint16_t>(number <= 0xFFFF ? number : 0); whole == number) {
        Append(bytes, std::uint8_t{IntegerToken});
        Append(bytes, whole);
    } else {
        Append(bytes, std::uint8_t{NumberToken});
        Append(bytes, number);
    }
}

void AppendToken(std::string& bytes, const Token& token)
{
    const auto put = [&](std::uint8_t id) { Append(bytes, id); };
    switch (token.operation) {
    case Operation::Number:
        return AppendNumber(bytes, token.number);
    case Operation::Cell:
        put(CellToken + (token.isReference ? 0 : kAsValue));
        AppendRow(bytes, token.area.first);
        return AppendColumn(bytes, token.area.first);
    case Operation::Cells:
        put(CellsToken);
        AppendRow(bytes, token.area.first);
        AppendRow(bytes, token.area.last);
        AppendColumn(bytes, token.area.first);
        return AppendColumn(bytes, token.area.last);
    case Operation::Add:
        return put(AddToken);
    case Operation::Subtract:
        return put(SubtractToken);
    case Operation::Minus:
        return put(MinusToken);
    case Operation::Brackets:
        return put(BracketsToken);
    case Operation::Sum:
        put(FunctionToken);
        put(static_cast<std::uint8_t>(token.arguments));
        return Append(bytes, kSumFunction);
    }
}

} // namespace

std::string EncodeFormula(const Formula& formula)
{
    std::string bytes;
    for (const Token& token : formula)
        AppendToken(bytes, token);
    return bytes;
}

} // namespace pgbp::xls
