#pragma once

#include <cmath>
#include <cstdint>

namespace pgbp {

/// Both functions below are told by decimal texts. A long annexure goes past the texts wherever the result is beyond
/// doubt without them.
namespace rupees {

double ShownByText(double amount);
double RoundedByText(double amount);

/// Below this a whole number has at most 15 digits, and its text gives it back.
inline constexpr double kExactWhole = 1e15;

/// From .495 on the paise round to 50 and the rupee goes up. So near to it, only the text can tell, for amounts below
/// kPlainAmount.
inline constexpr double kTurningPoint = 0.495;
inline constexpr double kTooNear = 1e-4;
inline constexpr double kPlainAmount = 1e9;

inline double WithoutPaise(double amount) { return static_cast<double>(static_cast<std::int64_t>(amount)); }

} // namespace rupees

/// The amount as "###0" shows it and as a field of the annexure gives it back. Throws std::overflow_error for an amount
/// that is not finite.
inline double ShownRupees(double amount)
{
    const bool showsItself = std::fabs(amount) < rupees::kExactWhole && amount == rupees::WithoutPaise(amount);
    return showsItself ? amount : rupees::ShownByText(amount);
}

/// RoundOff to whole rupees, as a field of the annexure gives it back: the amount is first rounded to paise, then .50
/// goes up, so 10.495 is 11. Throws std::overflow_error for an amount that is not finite.
inline double RoundedRupees(double amount)
{
    const double positive = std::fabs(amount);
    if (!(positive < rupees::kPlainAmount))
        return rupees::RoundedByText(amount);
    const double whole = rupees::WithoutPaise(positive);
    const double aboveTurn = positive - whole - rupees::kTurningPoint;
    if (std::fabs(aboveTurn) < rupees::kTooNear)
        return rupees::RoundedByText(amount);
    return std::copysign(whole + static_cast<double>(aboveTurn > 0), amount);
}

} // namespace pgbp
