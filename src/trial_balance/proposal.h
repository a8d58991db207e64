#pragma once

#include "trial_balance/accounts.h"
#include "trial_balance/sided_amount.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pgbp::trial {

/// What an account belongs to.
enum class Statement { Unknown, ProfitAndLoss, BalanceSheet };

/// A line of the form that takes accounts.
struct FormLine {
    int slno = 0; ///< its lasting number
    std::string caption = {};
    std::vector<std::string> headings = {}; ///< those above it, the nearest first
    Side side = Side::None;                 ///< of the accounts that may be proposed for it; none: no account is
};

/// What the words of an account say.
struct Proposal {
    Statement statement = Statement::Unknown;
    std::optional<int> slno = {}; ///< of the line; none where no line is near enough
};

/// Proposes lines of one form by the words of accounts and lines.
class Proposer {
  public:
    Proposer(Statement statement, std::span<const FormLine> lines);

    /// A debit is proposed for expenses or assets alone, a credit for income or liabilities. An account of the other
    /// statement gets no line, and neither does one whose words fit several lines alike.
    Proposal For(const Account& account) const;

  private:
    /// A line as its words; those in brackets that explain it left out.
    struct Known {
        int slno;
        Side side;
        std::vector<std::string> own;
        std::vector<std::string> above;
        std::size_t depth;
    };

    std::optional<int> Best(const std::vector<std::string>& words, Side side, double atLeast) const;
    static double Likeness(const std::vector<std::string>& words, const Known& line);

    Statement statement_;
    std::vector<Known> lines_;
};

/// Where signs alone tell the sides: whether accounts whose side their words tell say that a minus is a debit.
bool MinusIsDebit(const TrialBalance& trialBalance);

/// Turns the side of each account.
void TurnSides(TrialBalance& trialBalance);

} // namespace pgbp::trial
