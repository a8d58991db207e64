#pragma once

#include <optional>
#include <string_view>

namespace pgbp::trial {

/// The sides of an account.
enum class Side { None, Debit, Credit };

/// The side that a word alone names: "Dr", "Cr.", "D", "Credit". None for any other text.
Side SideOf(std::string_view word);

/// An amount as a list of accounts writes it, with the side that stands beside it.
struct SidedAmount {
    double rupees = 0; ///< with its own sign
    Side side = Side::None;

    /// Debits are positive. What stands in a column of one side belongs to it unless the amount says another.
    double Balance(Side column) const;
    bool operator==(const SidedAmount&) const = default;
};

/// Reads "1,25,000.00 Dr", "(500)", "Rs. 40 Cr." or "-12.5"; a dash, "Nil" and an empty text are 0. None for a text
/// that is no amount, or that can be read in more than one way.
std::optional<SidedAmount> ReadSidedAmount(std::string_view text);

} // namespace pgbp::trial
