#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pgbp {

/// Digits of an amount, as many as a double holds.
inline constexpr int kAmountDigits = 15;

/// What a text from elsewhere says as one amount.
struct AmountReading {
    std::string text; ///< as it would be typed, "-1250.5"; empty when the text is refused
    std::string hint; ///< why it is refused, or how a text that can be read in two ways was read
};

/// Reads a text that was copied somewhere else as one amount with at most so many places.
///
/// A minus before or behind the number and brackets make it negative, and so does "Dr": what is keyed here is income,
/// whose credit is a profit. Commas or blanks part groups of two or three digits, the last one of three. "Rs.", "INR",
/// the rupee sign and "/-" are passed over, and so are line ends and tabs around the number. Refused is everything
/// else: a second number, a second sign, places beyond those allowed unless they are zeros, a sixteenth digit.
AmountReading ReadAmount(std::string_view text, int places);

/// Digits with or without grouping commas and a point, without a sign: the number without its commas. None for any
/// other text.
std::optional<std::string> WithoutGrouping(std::string_view number);

/// A text that can be typed into an amount field key by key: "-", ".5" and "" too.
bool IsTypedAmount(std::string_view text, int places);

int DigitCount(std::string_view text);

/// An amount text as it is drawn: 24,72,131.00. Its places stay; a text that is no number stays as it is.
std::string GroupedAmount(std::string_view text);

/// An amount text as a spreadsheet takes it: without grouping. A text that is no number stays as it is.
std::string UngroupedAmount(std::string_view text);

/// What was typed, with at least so many places: "900000" gives "900000.00", "" and "-" give "0.00". A text that is no
/// number stays as it is.
std::string WithPlaces(std::string_view typed, int places);

} // namespace pgbp
