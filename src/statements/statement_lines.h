#pragma once

#include "statements/amount_cell.h"
#include "statements/statement_totals.h"
#include "statements/template_row.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pgbp {

/// The lines of one open statement and their amounts. Line n is the n-th of the template; line 0 is the heading.
class StatementLines {
  public:
    StatementLines() = default;
    StatementLines(std::span<const StatementRow> rows, std::span<const std::string_view> rules);

    std::size_t Count() const { return lines_.size() - 1; } ///< without the heading
    int Slno(std::size_t line) const { return slnos_[line]; }
    /// The line with this lasting number; none where the form has no such line.
    std::optional<std::size_t> Find(int slno) const;

    bool TakesNumber(std::size_t line) const { return lines_[line].type == "NUM"; }
    bool TakesChoice(std::size_t line) const { return lines_[line].type == "CBO"; }
    bool TakesDescription(std::size_t line) const { return lines_[line].takesDescription; }
    /// A heading, or a total that a rule computes.
    bool IsClosed(std::size_t line) const { return lines_[line].type.empty(); }

    const AmountCell& At(std::size_t line) const { return amounts_[line]; }
    std::span<const AmountCell> amounts() const { return amounts_; }
    void SetAmount(std::size_t line, std::string_view text) { amounts_[line].SetText(text); }
    /// Works the totals. `intraday`: profit from intraday trading, rupees. Throws std::overflow_error.
    void Run(double intraday) { totals_->Run(amounts_, intraday); }
    const std::vector<std::size_t>& ComputedLines() const { return totals_->ComputedRows(); }

  private:
    struct Line {
        std::string type{};
        bool takesDescription = false;
    };

    std::vector<Line> lines_{1};
    std::vector<int> slnos_{0};
    std::vector<AmountCell> amounts_{1};
    std::optional<StatementTotals> totals_;
};

} // namespace pgbp
