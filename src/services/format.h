#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace pgbp {

/// The number an amount text begins with; 0 for a text that begins with none, for "" and for "-".
/// Blanks are passed over, commas end the number (ParseAmount takes them out first).
double Val(std::string_view text);

/// `amount` through a picture "###0" or "###0.00": as many places as the picture has behind its point, rounded half
/// away from zero on the 15-significant-digit decimal text of the double, so 10.495 gives "10.50" though the double
/// lies below it. A rounded zero has no sign. Throws std::overflow_error for an amount that is not finite.
std::string Format(double amount, std::string_view picture);

/// Rupees and paise, "###0.00".
std::string Amount(double rupees);

/// Rupees and paise of a sum. A sum beyond the largest double is shown as that one: a screen opens with whatever
/// amounts are stored.
std::string SumText(double rupees);

/// Whole rupees, "###0".
std::string Rupees(double rupees);

/// A figure with all the places it has, without grouping: 1250.50 is "1250.5", 1250 is "1250". Throws as Format does.
std::string PlainFigure(double figure);

/// A text of digits and places without the zeros at its end, and without a point that nothing stands behind.
std::string WithoutZeroPlaces(std::string places);

/// Rounds on the two-place text of the amount: 0 places takes .50 up; more places look at the digits that are cut.
/// The sign of the amount is set aside first. An amount whose two-place text is zero comes back unchanged.
double RoundOff(double amount, int places);

/// Value of an amount text with or without grouping commas; empty counts as 0.
double ParseAmount(std::string_view text);

/// Turns grouping 12,34,567 on in FormatAmountIndian.
inline constexpr int kIndianGrouping = -1;

/// Groups the digits of an amount text in the Indian way (last three, then twos) when `flag` is kIndianGrouping. A
/// minus is set aside, the places stay as given; a text that is no number, or any other flag, gives the text back
/// unchanged.
std::string FormatAmountIndian(std::string_view amount, int flag);

namespace rupees {

/// Below this a whole number has at most 15 digits, and every format gives it back digit by digit.
inline constexpr double kExactWhole = 1e15;

/// From .495 on the paise round to 50 and the rupee goes up. So near to it, only the text can tell, for amounts below
/// kPlainAmount.
inline constexpr double kTurningPoint = 0.495;
inline constexpr double kTooNear = 1e-4;
inline constexpr double kPlainAmount = 1e9;

inline double WithoutPaise(double amount) { return static_cast<double>(static_cast<std::int64_t>(amount)); }

double RoundedByText(double amount);

} // namespace rupees

/// Whole rupees of at most 15 digits, which a text gives back as they are.
inline bool IsExactWhole(double amount)
{
    return std::fabs(amount) < rupees::kExactWhole && amount == rupees::WithoutPaise(amount);
}

/// Val(Rupees(amount)): what a field that shows whole rupees gives back. Without the text where the result is beyond
/// doubt, as in RoundedRupees: a long annexure asks for thousands of them.
inline double ShownRupees(double amount) { return IsExactWhole(amount) ? amount : Val(Rupees(amount)); }

/// Val(Rupees(RoundOff(amount, 0))): first rounded to paise, then .50 goes up, so 10.495 is 11. Throws
/// std::overflow_error for an amount that is not finite.
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
