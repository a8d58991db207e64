#pragma once

#include "statements/amount_cell.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace pgbp {

/// The computed lines of one statement, made from rules over the position of a line (line 1 is the first of the
/// template):
///
///     20 = 5 + 6 + 7 + 8 + 19     169 = 88 - (89..94 + 106)     69 = copy of 25     71 = 70 + intraday
///
/// `a..b` adds the lines a to b. Rules are worked in the order written; a later rule reads the figure that an earlier
/// one wrote. A total is rounded to two places and grouped as it is written. A copy takes the text as it stands, and a
/// rule with the intraday profit is written without the rounding.
class StatementTotals {
  public:
    /// `parts` hold rules parted by ';' or line ends. Rules that name a line beyond `lastRow` are left out, as a
    /// balance sheet passes through the rules of a longer form. Throws std::invalid_argument that quotes a malformed
    /// rule.
    StatementTotals(std::span<const std::string_view> parts, std::size_t lastRow);

    /// `amounts[n]` is the cell of line n, [0] stands for the heading; it must reach to `lastRow`. Throws
    /// std::overflow_error when a sum is too large to be shown.
    void Run(std::span<AmountCell> amounts, double intraday = 0) const;

    /// Lines that a rule writes, in the order of the rules.
    const std::vector<std::size_t>& ComputedRows() const { return computedRows_; }

  private:
    enum class Writing { Rounded, AsItStands, Copied };
    struct Term {
        std::size_t from;
        std::size_t to;
        double sign;
    };
    struct Rule {
        std::size_t row = 0;
        Writing writing = Writing::Rounded;
        std::size_t firstTerm = 0;
        std::size_t endTerm = 0;
        double intradaySign = 0;
    };
    class Parser;

    void Add(std::string_view text);
    double Sum(const Rule& rule, std::span<const AmountCell> amounts) const;

    std::size_t lastRow_;
    std::vector<Rule> rules_;
    std::vector<Term> terms_;
    std::vector<std::size_t> computedRows_;
};

} // namespace pgbp
