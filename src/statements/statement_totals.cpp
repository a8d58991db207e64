#include "statements/statement_totals.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace pgbp {

/// Reads one rule into a row, a way of writing and signed terms; brackets are dissolved into signs.
class StatementTotals::Parser {
  public:
    Parser(std::string_view rule, std::vector<Term>& terms) : text_(rule), rest_(rule), terms_(terms) {}

    Rule Parse()
    {
        Rule rule{.row = Number(), .firstTerm = terms_.size()};
        Expect("=");
        if (Take("copy of")) {
            rule.writing = Writing::Copied;
            const std::size_t source = Number();
            terms_.push_back({source, source, 1});
        } else {
            Expression(1);
        }
        if (!rest_.empty())
            Fail();
        rule.intradaySign = intradaySign_;
        if (intradaySign_ != 0)
            rule.writing = Writing::AsItStands;
        rule.endTerm = terms_.size();
        return rule;
    }

  private:
    void Expression(double sign)
    {
        Operand(sign);
        while (true) {
            if (Take("+"))
                Operand(sign);
            else if (Take("-"))
                Operand(-sign);
            else
                return;
        }
    }

    void Operand(double sign)
    {
        if (Take("(")) {
            Expression(sign);
            Expect(")");
        } else if (Take("intraday")) {
            intradaySign_ += sign;
        } else {
            Range(sign);
        }
    }

    void Range(double sign)
    {
        const std::size_t from = Number();
        const std::size_t to = Take("..") ? Number() : from;
        if (to < from)
            Fail();
        terms_.push_back({from, to, sign});
    }

    std::size_t Number()
    {
        SkipBlanks();
        std::size_t number = 0;
        const auto end = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (end.ec != std::errc() || number == 0)
            Fail();
        rest_.remove_prefix(static_cast<std::size_t>(end.ptr - rest_.data()));
        SkipBlanks();
        return number;
    }

    bool Take(std::string_view word)
    {
        if (!rest_.starts_with(word))
            return false;
        rest_.remove_prefix(word.size());
        SkipBlanks();
        return true;
    }

    void Expect(std::string_view word)
    {
        if (!Take(word))
            Fail();
    }

    void SkipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

    [[noreturn]] void Fail() const { throw std::invalid_argument("Not a rule of a total: " + std::string(text_)); }

    std::string_view text_;
    std::string_view rest_;
    std::vector<Term>& terms_;
    double intradaySign_ = 0;
};

StatementTotals::StatementTotals(std::span<const std::string_view> parts, std::size_t lastRow) : lastRow_(lastRow)
{
    for (std::string_view part : parts) {
        while (!part.empty()) {
            const std::size_t end = std::min(part.find_first_of(";\n"), part.size());
            Add(part.substr(0, end));
            part.remove_prefix(std::min(end + 1, part.size()));
        }
    }
}

void StatementTotals::Add(std::string_view text)
{
    if (text.find_first_not_of(' ') == std::string_view::npos)
        return;
    const Rule rule = Parser(text, terms_).Parse();
    const auto first = terms_.begin() + static_cast<std::ptrdiff_t>(rule.firstTerm);
    const bool fits =
        rule.row <= lastRow_ && std::all_of(first, terms_.end(), [&](const Term& term) { return term.to <= lastRow_; });
    if (!fits)
        return terms_.resize(rule.firstTerm);
    rules_.push_back(rule);
    computedRows_.push_back(rule.row);
}

double StatementTotals::Sum(const Rule& rule, std::span<const AmountCell> amounts) const
{
    double sum = 0;
    for (std::size_t i = rule.firstTerm; i < rule.endTerm; ++i)
        for (std::size_t row = terms_[i].from; row <= terms_[i].to; ++row)
            sum += terms_[i].sign * amounts[row].figure();
    return sum;
}

void StatementTotals::Run(std::span<AmountCell> amounts, double intraday) const
{
    for (const Rule& rule : rules_) {
        AmountCell& cell = amounts[rule.row];
        if (rule.writing == Writing::Copied)
            cell = amounts[terms_[rule.firstTerm].from];
        else if (rule.writing == Writing::Rounded)
            cell.SetRounded(Sum(rule, amounts));
        else
            cell.SetAsItStands(Sum(rule, amounts) + rule.intradaySign * intraday);
    }
}

} // namespace pgbp
