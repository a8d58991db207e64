#include "workbook/calculation.h"

#include "workbook/formula.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>

namespace pgbp::xls {
namespace {

using Operand = std::variant<Value, Area>;

/// The most cells that all formulas together look at: a small damaged file can hold areas that overlap a thousandfold.
constexpr std::size_t kMostLooks = 5'000'000;

Value AsNumber(const std::string& text)
{
    constexpr std::string_view blank = " ";
    const auto first = text.data() + std::min(text.find_first_not_of(blank), text.size());
    const auto last = std::max(first, text.data() + text.find_last_not_of(blank) + 1);
    double number = 0;
    const auto [end, error] = std::from_chars(first, last, number);
    const bool isNumber = error == std::errc{} && end == last && std::isfinite(number);
    return isNumber ? Value(number) : ErrorCode::WrongValue;
}

/// A number or an error.
Value AsNumber(const Value& value)
{
    if (const auto* text = std::get_if<std::string>(&value))
        return AsNumber(*text);
    if (const auto* truth = std::get_if<bool>(&value))
        return *truth ? 1.0 : 0.0;
    return std::holds_alternative<std::monostate>(value) ? Value(0.0) : value;
}

/// first + sign * second
Value Combine(const Value& first, double sign, const Value& second)
{
    for (const Value* value : {&first, &second})
        if (std::holds_alternative<ErrorCode>(*value))
            return *value;
    const double sum = std::get<double>(first) + sign * std::get<double>(second);
    return std::isfinite(sum) ? Value(sum) : ErrorCode::BadNumber;
}

class Calculator {
  public:
    explicit Calculator(const Sheet& sheet) : sheet_(sheet)
    {
        for (const auto& [position, cell] : sheet.cells)
            if (!cell.formula.empty())
                entries_.emplace_hint(entries_.end(), position, Parse(position, cell.formula));
    }

    std::map<Position, Calculated> Run()
    {
        std::map<Position, Calculated> results;
        for (auto& [position, entry] : entries_) {
            Settle(position);
            results.emplace_hint(results.end(), position, Calculated{EncodeFormula(entry.formula), entry.result});
        }
        return results;
    }

  private:
    enum class State { Waiting, Open, Settled };

    struct Entry {
        Formula formula;
        State state = State::Waiting;
        Value result = {};
    };

    static Entry Parse(Position position, const std::string& formula)
    {
        try {
            return {ParseFormula(formula)};
        } catch (const WorkbookError& error) {
            throw WorkbookError("cell " + NameOf(position) + ": " + error.what());
        }
    }

    /// Calculates what a cell needs, then the cell. Chains of cells may be as long as the sheet, so there is no
    /// recursion.
    void Settle(Position wanted)
    {
        std::vector<Position> path{wanted};
        while (!path.empty()) {
            const Position position = path.back();
            Entry& entry = entries_.at(position);
            if (entry.state == State::Waiting) {
                entry.state = State::Open;
                PushNeeded(entry.formula, path);
                continue;
            }
            path.pop_back();
            if (entry.state == State::Open)
                entry.result = Result(entry.formula);
            entry.state = State::Settled;
        }
    }

    /// Calls `use` for each entry of a map by position that lies in the area, row by row.
    template <typename Map, typename Use>
    void Walk(const Map& map, const Area& area, Use use)
    {
        const auto end = map.upper_bound(area.last);
        for (auto entry = map.lower_bound(area.first); entry != end; ++entry) {
            if (++looks_ > kMostLooks)
                throw WorkbookError("The workbook holds more formulas than can be worked out.");
            if (entry->first.column >= area.first.column && entry->first.column <= area.last.column)
                use(*entry);
        }
    }

    void PushNeeded(const Formula& formula, std::vector<Position>& path)
    {
        for (const Token& token : formula)
            if (token.operation == Operation::Cell || token.operation == Operation::Cells)
                Walk(entries_, token.area, [&](const auto& needed) {
                    if (needed.second.state == State::Open)
                        throw WorkbookError("cell " + NameOf(needed.first) + ": its formula needs its own result.");
                    if (needed.second.state == State::Waiting)
                        path.push_back(needed.first);
                });
    }

    const Value& ValueOf(Position position, const Cell& cell) const
    {
        return cell.formula.empty() ? cell.value : entries_.at(position).result;
    }

    Value ValueOf(Position position) const
    {
        const auto cell = sheet_.cells.find(position);
        return cell != sheet_.cells.end() ? ValueOf(position, cell->second) : Value();
    }

    Value SumOf(const Operand& argument)
    {
        const auto* area = std::get_if<Area>(&argument);
        if (!area)
            return AsNumber(std::get<Value>(argument));
        Value sum = 0.0;
        Walk(sheet_.cells, *area, [&](const auto& entry) {
            const Value& value = ValueOf(entry.first, entry.second);
            if (std::holds_alternative<double>(value) || std::holds_alternative<ErrorCode>(value))
                sum = Combine(sum, 1, value);
        });
        return sum;
    }

    Value Sum(std::span<const Operand> arguments)
    {
        Value sum = 0.0;
        for (const Operand& argument : arguments)
            sum = Combine(sum, 1, SumOf(argument));
        return sum;
    }

    void Step(const Token& token, std::vector<Operand>& stack)
    {
        // Takes as many operands off the stack as the operation has and puts its result there.
        const auto replace = [&](std::size_t count, auto operation) {
            const std::span operands(stack.end() - static_cast<std::ptrdiff_t>(count), count);
            Operand result = operation(operands);
            stack.resize(stack.size() - count);
            stack.push_back(std::move(result));
        };
        const auto number = [](const Operand& operand) { return AsNumber(std::get<Value>(operand)); };
        switch (token.operation) {
        case Operation::Number:
            return stack.push_back(Value(token.number));
        case Operation::Cell:
        case Operation::Cells:
            return stack.push_back(token.isReference ? Operand(token.area) : ValueOf(token.area.first));
        case Operation::Add:
            return replace(2, [&](auto of) { return Combine(number(of[0]), 1, number(of[1])); });
        case Operation::Subtract:
            return replace(2, [&](auto of) { return Combine(number(of[0]), -1, number(of[1])); });
        case Operation::Minus:
            return replace(1, [&](auto of) { return Combine(0.0, -1, number(of[0])); });
        case Operation::Brackets:
            return;
        case Operation::Sum:
            return replace(token.arguments, [&](auto of) { return Sum(of); });
        }
    }

    Value Result(const Formula& formula)
    {
        std::vector<Operand> stack;
        for (const Token& token : formula)
            Step(token, stack);
        const Value& result = std::get<Value>(stack.back());
        return std::holds_alternative<std::monostate>(result) ? Value(0.0) : result;
    }

    const Sheet& sheet_;
    std::map<Position, Entry> entries_;
    std::size_t looks_ = 0;
};

} // namespace

std::map<Position, Calculated> Calculate(const Sheet& sheet) { return Calculator(sheet).Run(); }

} // namespace pgbp::xls
