#pragma once

#include "trial_balance/proposal.h"

namespace pgbp::trial {

/// What words in the name of an account, or of its group, say about it.
struct AccountRule {
    Statement statement;
    Side side; ///< none: both
    /// Words that stand for it: one of the alternatives, parted by "|", all of whose words the account has. As
    /// PlainWords gives them.
    std::string_view words;
    /// Words of the line, alternatives in the order in which they are looked for; empty: no line is proposed.
    std::string_view line;
};

/// The rules, the most telling first: the first one that fits counts.
std::span<const AccountRule> AccountRules();

/// The same for the group that an account stands in.
std::span<const AccountRule> GroupRules();

/// The words of a name in their plain form: one number, no words that every account has, and of several words for one
/// thing the one that the forms use.
std::vector<std::string> PlainWords(std::string_view text);

/// The parts of a text between the separators.
std::vector<std::string_view> PartsOf(std::string_view text, char separator);

} // namespace pgbp::trial
