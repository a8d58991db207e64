#pragma once

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

/// Whole rupees, "###0".
std::string Rupees(double rupees);

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

} // namespace pgbp
