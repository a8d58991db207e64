#include "services/arithmetic.h"

#include "services/amount_text.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace pgbp {
namespace {

/// Wider than the amounts, so that a long line of paise does not drift.
using Wide = long double;

constexpr const char* kUnfinished = "not finished";
constexpr const char* kNoSum = "no sum";
constexpr const char* kDivisionByZero = "division by zero";
constexpr const char* kTooLarge = "more than fifteen digits";

constexpr std::size_t kLongestLine = 1000; ///< brackets within brackets must end somewhere

class SumError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One pass over the line, an operation of each rank a function.
class Sum {
  public:
    explicit Sum(std::string_view line) : line_(line) {}

    Wide Value()
    {
        const Wide value = Total();
        if (Next() != kEnd)
            throw SumError(kNoSum);
        return value;
    }

  private:
    static constexpr char kEnd = 0;

    struct Operand {
        Wide value;
        bool isPercentage; ///< a percentage that nothing was multiplied with
    };

    char Next()
    {
        while (at_ < line_.size() && line_[at_] == ' ')
            ++at_;
        return at_ < line_.size() ? line_[at_] : kEnd;
    }

    bool Took(char wanted)
    {
        const bool takes = Next() == wanted;
        at_ += takes ? 1 : 0;
        return takes;
    }

    Wide Total()
    {
        Wide total = Product().value;
        for (char sign = Next(); sign == '+' || sign == '-'; sign = Next()) {
            ++at_;
            const Operand operand = Product();
            const Wide change = operand.isPercentage ? total * operand.value : operand.value;
            total += sign == '-' ? -change : change;
        }
        return total;
    }

    Operand Product()
    {
        Operand product = Factor();
        for (char sign = Next(); sign == '*' || sign == '/'; sign = Next()) {
            ++at_;
            const Wide by = Factor().value;
            if (sign == '/' && by == 0)
                throw SumError(kDivisionByZero);
            product = {sign == '*' ? product.value * by : product.value / by, false};
        }
        return product;
    }

    Operand Factor()
    {
        if (Took('-'))
            return {-Factor().value, false};
        if (Took('+'))
            return Factor();
        Operand factor{Took('(') ? InBrackets() : Number(), false};
        while (Took('%'))
            factor = {factor.value / 100, true};
        return factor;
    }

    Wide InBrackets()
    {
        const Wide value = Total();
        if (Next() == kEnd)
            throw SumError(kUnfinished);
        if (!Took(')'))
            throw SumError(kNoSum);
        return value;
    }

    Wide Number()
    {
        if (Next() == kEnd)
            throw SumError(kUnfinished);
        const auto end = std::min(line_.find_first_not_of("0123456789,.", at_), line_.size());
        const auto number = WithoutGrouping(line_.substr(at_, end - at_));
        if (!number)
            throw SumError(kNoSum);
        if (DigitCount(*number) > kAmountDigits)
            throw SumError(kTooLarge);
        at_ = end;
        return Read(*number);
    }

    static Wide Read(std::string_view number)
    {
        Wide value = 0;
        Wide unit = 0; // of the next place behind the point; 0 before it
        for (const char c : number) {
            if (c == '.')
                unit = 1;
            else
                value = value * 10 + (c - '0');
            unit *= c == '.' ? 1 : 10;
        }
        return unit > 0 ? value / unit : value;
    }

    std::string_view line_;
    std::size_t at_ = 0;
};

std::string Picture(int places)
{
    return places > 0 ? "###0." + std::string(static_cast<std::size_t>(places), '0') : "###0";
}

std::string AmountOf(Wide value, int places)
{
    if (!(std::fabs(value) < rupees::kExactWhole))
        throw SumError(kTooLarge);
    std::string text = Format(static_cast<double>(value), Picture(places));
    if (DigitCount(text) > kAmountDigits)
        throw SumError(kTooLarge);
    return text;
}

} // namespace

SumResult WorkOut(std::string_view line, int places)
{
    if (Trim(line).empty())
        return {};
    if (line.size() > kLongestLine)
        return {"", kNoSum};
    try {
        return {AmountOf(Sum(line).Value(), places), ""};
    } catch (const SumError& error) {
        return {"", error.what()};
    }
}

} // namespace pgbp
