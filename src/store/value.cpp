#include "store/value.h"

#include "services/format.h"

#include <charconv>
#include <cmath>
#include <cstdint>

namespace pgbp {
namespace {

std::string ShortestText(double number)
{
    char digits[400];                                  // plain digits, also for the largest double and the smallest
    if (IsExactWhole(number) && !std::signbit(number)) // nearly all amounts: an integer is written three times as fast
        return std::string(digits,
                           std::to_chars(digits, digits + sizeof digits, static_cast<std::int64_t>(number)).ptr);
    return std::string(digits, std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed).ptr);
}

} // namespace

double Value::Number() const
{
    if (const auto* number = std::get_if<double>(&held_))
        return *number;
    const auto* text = std::get_if<std::string>(&held_);
    return text ? Val(*text) : 0;
}

std::string Value::Text() const
{
    if (const auto* text = std::get_if<std::string>(&held_))
        return *text;
    if (const auto* number = std::get_if<double>(&held_))
        return ShortestText(*number);
    const auto* date = std::get_if<DateTime>(&held_);
    return date ? IsoText(*date) : std::string();
}

std::optional<DateTime> Value::Date() const
{
    if (const auto* date = std::get_if<DateTime>(&held_))
        return *date;
    const auto* text = std::get_if<std::string>(&held_);
    return text ? FromIsoText(*text) : std::nullopt;
}

} // namespace pgbp
