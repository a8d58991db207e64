#include "workbook/formula.h"

#include "workbook/workbook.h"

#include <algorithm>
#include <charconv>

namespace pgbp::xls {
namespace {

constexpr std::size_t kMostArguments = 30;
constexpr int kDeepest = 64;

class Parser {
  public:
    explicit Parser(std::string_view text) : text_(text), rest_(text) {}

    Formula Parse()
    {
        if (text_.size() > kLongestFormula || !Take('='))
            Fail();
        Expression();
        SkipBlanks();
        if (!rest_.empty() || std::ranges::any_of(formula_, IsAreaAsValue))
            Fail();
        return std::move(formula_);
    }

  private:
    static bool IsAreaAsValue(const Token& token) { return token.operation == Operation::Cells && !token.isReference; }

    [[noreturn]] void Fail() const
    {
        const std::string place = rest_.empty() ? "at its end" : "at \"" + std::string(rest_) + '"';
        throw WorkbookError("the formula \"" + std::string(text_) + "\" is not understood " + place + '.');
    }

    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    bool Take(char c)
    {
        SkipBlanks();
        const bool found = rest_.starts_with(c);
        if (found)
            rest_.remove_prefix(1);
        return found;
    }

    void Expect(char c)
    {
        if (!Take(c))
            Fail();
    }

    void Expression()
    {
        if (++depth_ > kDeepest)
            Fail();
        Signed();
        while (true) {
            if (Take('+'))
                Binary(Operation::Add);
            else if (Take('-'))
                Binary(Operation::Subtract);
            else
                break;
        }
        --depth_;
    }

    void Binary(Operation operation)
    {
        Signed();
        formula_.push_back({operation});
    }

    void Signed()
    {
        std::size_t minuses = 0;
        while (true) {
            if (Take('-'))
                ++minuses;
            else if (!Take('+'))
                break;
        }
        Operand();
        formula_.insert(formula_.end(), minuses, {Operation::Minus});
    }

    void Operand()
    {
        if (Take('(')) {
            Expression();
            Expect(')');
            formula_.push_back({Operation::Brackets});
        } else if (TakeSum())
            Sum();
        else if (const auto cell = TakePosition(rest_))
            Reference(*cell);
        else
            Number();
    }

    bool TakeSum()
    {
        const auto isLetter = [](char text, char upper) { return text == upper || text == upper - 'A' + 'a'; };
        const bool found = std::ranges::equal(rest_.substr(0, 3), std::string_view("SUM"), isLetter);
        if (found)
            rest_.remove_prefix(3);
        return found;
    }

    void Sum()
    {
        Expect('(');
        std::size_t arguments = 0;
        do {
            Argument();
            ++arguments;
        } while (Take(','));
        Expect(')');
        if (arguments > kMostArguments)
            Fail();
        formula_.push_back({.operation = Operation::Sum, .arguments = arguments});
    }

    void Argument()
    {
        const auto first = static_cast<std::ptrdiff_t>(formula_.size());
        Expression();
        Token& token = *(formula_.begin() + first);
        // the first token of an inner sum keeps what that sum made of it
        if ((token.operation == Operation::Cell || token.operation == Operation::Cells) &&
            std::all_of(formula_.begin() + first + 1, formula_.end(),
                        [](const Token& t) { return t.operation == Operation::Brackets; }))
            token.isReference = true;
    }

    void Reference(Position first)
    {
        if (!Take(':')) {
            formula_.push_back({.operation = Operation::Cell, .area = {first, first}});
            return;
        }
        SkipBlanks();
        const auto second = TakePosition(rest_);
        if (!second)
            Fail();
        const auto [top, bottom] = std::minmax(first.row, second->row);
        const auto [left, right] = std::minmax(first.column, second->column);
        formula_.push_back({.operation = Operation::Cells, .area = {{top, left}, {bottom, right}}});
    }

    void Number()
    {
        double number = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (rest_.empty() || !(rest_.front() >= '0' && rest_.front() <= '9') || error != std::errc{})
            Fail();
        rest_.remove_prefix(static_cast<std::size_t>(end - rest_.data()));
        formula_.push_back({Operation::Number, number});
    }

    std::string_view text_;
    std::string_view rest_;
    Formula formula_;
    int depth_ = 0;
};

} // namespace

Formula ParseFormula(std::string_view text) { return Parser(text).Parse(); }

} // namespace pgbp::xls
