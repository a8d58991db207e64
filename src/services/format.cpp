#include "services/format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace pgbp {
namespace {

constexpr int kSignificantDigits = 15;
constexpr std::string_view kTwoPlaces = "###0.00";

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

constexpr auto kPowersOfTen = [] {
    std::array<std::uint64_t, kSignificantDigits + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

/// A finite, positive double as its 15 significant digits: digits x 10^exponent.
struct Decimal {
    std::uint64_t digits = 0;
    int exponent = 0;
};

Decimal ToDecimal(double positive)
{
    std::array<char, 32> text; // "d.dddddddddddddde+xx"
    const char* end = std::to_chars(text.data(), text.data() + text.size(), positive, std::chars_format::scientific,
                                    kSignificantDigits - 1)
                          .ptr;
    text[1] = text[0]; // the point gives way to the first digit
    Decimal decimal;
    const char* exponent = std::from_chars(&text[1], end, decimal.digits).ptr + 1;
    std::from_chars(exponent + (*exponent == '+' ? 1 : 0), end, decimal.exponent);
    decimal.exponent -= kSignificantDigits - 1;
    return decimal;
}

/// The digits of the amount in units of its last place, rounded half up.
std::string Units(const Decimal& decimal, int places)
{
    const int shift = decimal.exponent + places;
    if (shift >= 0)
        return std::to_string(decimal.digits).append(static_cast<std::size_t>(decimal.digits == 0 ? 0 : shift), '0');
    if (-shift > kSignificantDigits)
        return "0";
    const std::uint64_t unit = kPowersOfTen[static_cast<std::size_t>(-shift)];
    return std::to_string((decimal.digits + unit / 2) / unit);
}

std::string FormatPlaces(double amount, int places)
{
    if (!std::isfinite(amount))
        throw std::overflow_error("Overflow: the amount is too large to be shown.");
    std::string text = Units(ToDecimal(std::fabs(amount)), places);
    const bool negative = amount < 0 && text != "0";
    const auto behind = static_cast<std::size_t>(places);
    if (text.size() <= behind)
        text.insert(0, behind + 1 - text.size(), '0');
    if (behind > 0)
        text.insert(text.size() - behind, 1, '.');
    if (negative)
        text.insert(0, 1, '-');
    return text;
}

int PlacesOf(std::string_view picture)
{
    const auto point = picture.find('.');
    return point == std::string_view::npos ? 0 : static_cast<int>(picture.size() - point - 1);
}

} // namespace

double Val(std::string_view text)
{
    std::string blankless;
    if (text.find(' ') != std::string_view::npos) {
        std::remove_copy(text.begin(), text.end(), std::back_inserter(blankless), ' ');
        text = blankless;
    }
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    const std::size_t digits = !text.empty() && text.front() == '-' ? 1 : 0;
    if (text.size() == digits || (!IsDigit(text[digits]) && text[digits] != '.'))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        // too small is 0; the 15-digit text of the largest double lies beyond it and reads back as itself
        const bool tooSmall = text[std::min(text.find_first_not_of('0', digits), text.size() - 1)] == '.';
        const double largest = tooSmall ? 0 : std::numeric_limits<double>::max();
        return digits == 1 ? -largest : largest;
    }
    return result.ec == std::errc() ? value : 0;
}

std::string Format(double amount, std::string_view picture) { return FormatPlaces(amount, PlacesOf(picture)); }

std::string Amount(double rupees) { return FormatPlaces(rupees, 2); }

std::string SumText(double rupees)
{
    constexpr double kLargest = std::numeric_limits<double>::max();
    return Amount(std::clamp(rupees, -kLargest, kLargest));
}

std::string Rupees(double rupees) { return FormatPlaces(rupees, 0); }

std::string PlainFigure(double figure)
{
    constexpr int kEveryPlace = 15; // as many as a double has digits
    return WithoutZeroPlaces(FormatPlaces(figure, kEveryPlace));
}

std::string WithoutZeroPlaces(std::string places)
{
    places.erase(places.find_last_not_of('0') + 1);
    if (places.ends_with('.'))
        places.pop_back();
    return places;
}

double RoundOff(double amount, int places)
{
    if (Val(Format(amount, kTwoPlaces)) == 0)
        return amount;
    const bool negative = amount < 0;
    const std::string text = Format(std::fabs(amount), kTwoPlaces);
    const auto point = text.find('.');
    const std::string paise = text.substr(point + 1);
    double rounded = Val(text.substr(0, point));
    if (places <= 0) {
        rounded += Val(paise) > 49 ? 1 : 0;
    } else {
        const auto kept = std::min<std::size_t>(places, paise.size());
        const std::string rest = paise.substr(kept);
        // 4, 49, 499 ...: anything above takes the last kept place up
        const double below = rest.empty() ? 0 : 5 * std::pow(10, rest.size() - 1) - 1;
        const double unit = std::pow(10, kept);
        const double keptPaise = Val(paise.substr(0, kept)) + (!rest.empty() && Val(rest) > below ? 1 : 0);
        rounded = (rounded * unit + keptPaise) / unit;
    }
    return negative ? -rounded : rounded;
}

double rupees::RoundedByText(double amount) { return ShownRupees(RoundOff(amount, 0)); }

double ParseAmount(std::string_view text)
{
    std::string digits;
    std::remove_copy(text.begin(), text.end(), std::back_inserter(digits), ',');
    return Val(digits);
}

std::string FormatAmountIndian(std::string_view amount, int flag)
{
    if (flag != kIndianGrouping)
        return std::string(amount);
    const std::size_t sign = !amount.empty() && amount.front() == '-' ? 1 : 0;
    const std::size_t point = std::min(amount.find('.'), amount.size());
    const auto whole = amount.substr(sign, point - sign);
    const auto places = amount.substr(std::min(point + 1, amount.size()));
    if (whole.empty() || !std::all_of(whole.begin(), whole.end(), IsDigit) ||
        !std::all_of(places.begin(), places.end(), IsDigit))
        return std::string(amount);

    std::string text(amount.substr(0, sign));
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const std::size_t behind = whole.size() - i; // digits from here to the point
        if (i > 0 && behind >= 3 && behind % 2 == 1)
            text += ',';
        text += whole[i];
    }
    return text.append(amount.substr(point));
}

} // namespace pgbp
