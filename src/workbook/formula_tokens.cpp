#include "workbook/bytes.h"
#include "workbook/calculation.h"
#include "workbook/formula.h"

#include <charconv>
#include <numeric>

namespace pgbp::xls {
namespace {

enum TokenId : std::uint8_t {
    AddToken = 0x03,
    SubtractToken = 0x04,
    PlusToken = 0x12,
    MinusToken = 0x13,
    BracketsToken = 0x15,
    AttributeToken = 0x19,
    IntegerToken = 0x1E,
    NumberToken = 0x1F,
    CellToken = 0x24,
    CellsToken = 0x25,
    FunctionToken = 0x22
};

constexpr std::uint8_t kAsValue = 0x20; // added to the token of an operand whose value is wanted, not its place
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
        put(FunctionToken + kAsValue);
        put(static_cast<std::uint8_t>(token.arguments));
        return Append(bytes, kSumFunction);
    }
}

std::string TextOf(double number)
{
    char text[32];
    return {text, std::to_chars(text, std::end(text), number).ptr};
}

/// Builds the text of a formula from its tokens, operand by operand.
class Decoder {
  public:
    explicit Decoder(std::string_view tokens) : rest_(tokens) {}

    std::optional<std::string> Text()
    {
        while (understood_ && !rest_.empty())
            Step();
        if (!understood_ || operands_.size() != 1)
            return std::nullopt;
        return '=' + operands_.front();
    }

  private:
    void Step()
    {
        const auto id = Take<std::uint8_t>();
        switch (WithoutClass(id)) {
        case AddToken:
            return Join(2, "", "+");
        case SubtractToken:
            return Join(2, "", "-");
        case PlusToken:
            return;
        case MinusToken:
            return Join(1, "-", "");
        case BracketsToken:
            return Join(1, "(", "", ")");
        case AttributeToken:
            return Attribute();
        case IntegerToken:
            return operands_.push_back(std::to_string(Take<std::uint16_t>()));
        case NumberToken:
            return operands_.push_back(TextOf(Take<double>()));
        case CellToken:
            return Cells(1);
        case CellsToken:
            return Cells(2);
        case FunctionToken:
            return Function();
        }
        understood_ = false;
    }

    /// Tokens of operands come in three classes, which tell what is made of the operand.
    static int WithoutClass(std::uint8_t id)
    {
        constexpr int kind = 0x1F, firstClass = 0x20;
        return id < firstClass ? id : (id & kind) | firstClass;
    }

    template <typename Number>
    Number Take()
    {
        const auto number = NumberAt<Number>(rest_, 0);
        understood_ = understood_ && number;
        rest_.remove_prefix(number ? sizeof(Number) : rest_.size());
        return number.value_or(0);
    }

    void Join(std::size_t count, std::string_view before, std::string_view between, std::string_view behind = "")
    {
        understood_ = understood_ && count > 0 && operands_.size() >= count;
        if (!understood_)
            return;
        const auto first = operands_.end() - static_cast<std::ptrdiff_t>(count);
        std::string text = std::accumulate(
            first + 1, operands_.end(), std::string(before) + *first,
            [&](std::string all, const std::string& next) { return std::move(all.append(between).append(next)); });
        operands_.erase(first, operands_.end());
        operands_.push_back(text.append(behind));
        understood_ = operands_.back().size() < kLongestFormula;
    }

    void Cells(std::size_t corners)
    {
        std::uint16_t rows[2] = {}, columns[2] = {};
        for (std::size_t i = 0; i < corners; ++i)
            rows[i] = Take<std::uint16_t>();
        constexpr std::uint16_t number = 0x00FF; // the other bits tell whether the place is relative
        for (std::size_t i = 0; i < corners; ++i)
            columns[i] = Take<std::uint16_t>() & number;
        operands_.push_back(NameOf({rows[0], columns[0]}));
        if (corners == 2)
            operands_.back().append(":").append(NameOf({rows[1], columns[1]}));
    }

    /// A mark beside the formula proper, or the short way to write a SUM of one operand.
    void Attribute()
    {
        constexpr std::uint8_t isSum = 0x10, mattersNot = 0x01 | 0x40; // calculated always; blanks
        const auto marks = Take<std::uint8_t>();
        Take<std::uint16_t>();
        if (marks & isSum)
            Join(1, "SUM(", "", ")");
        else
            understood_ = understood_ && (marks & mattersNot);
    }

    void Function()
    {
        const auto arguments = Take<std::uint8_t>();
        understood_ = understood_ && Take<std::uint16_t>() == kSumFunction;
        Join(arguments, "SUM(", ",", ")");
    }

    std::string_view rest_;
    std::vector<std::string> operands_;
    bool understood_ = true;
};

} // namespace

std::string EncodeFormula(const Formula& formula)
{
    std::string bytes;
    for (const Token& token : formula)
        AppendToken(bytes, token);
    return bytes;
}

std::optional<std::string> DecodeFormula(std::string_view tokens)
{
    auto text = Decoder(tokens).Text();
    try {
        if (text)
            ParseFormula(*text);
        return text;
    } catch (const WorkbookError&) {
        return std::nullopt;
    }
}

} // namespace pgbp::xls
