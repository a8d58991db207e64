#pragma once

#include "trial_balance/table.h"

#include <optional>

namespace pgbp::trial {

/// An account with its balances: rupees, debits positive.
struct Account {
    std::string name = {};
    std::string group = {}; ///< as the list tells it; may be empty
    double balance = 0;     ///< of the closing
    double opening = 0;

    bool operator==(const Account&) const = default;
};

struct TrialBalance {
    std::vector<Account> accounts = {}; ///< in the order of the list, those without a balance too
    bool bySigns = false;               ///< a sign alone tells the side: which one, the list does not say
    bool hasOpening = false;
    std::string doubt = {}; ///< a sentence, where the list's own total is another one

    double Debits() const;
    double Credits() const; ///< positive
};

/// The longest name of an account; a longer one ends in "...".
inline constexpr std::size_t kLongestName = 200;

/// Reads the accounts of whichever table has a heading, the one with most columns told. Rows of totals are left out,
/// and so are rows whose name stands less deep than that of the row below and whose amount is the sum of those below:
/// they name the group of these. Throws TrialBalanceError with the row where an amount cannot be read.
TrialBalance AccountsOf(const std::vector<Table>& tables);

/// The accounts of a file. Throws TrialBalanceError or WorkbookError with a sentence that begins with its name.
TrialBalance ReadTrialBalance(const std::filesystem::path& path);

} // namespace pgbp::trial
