#include "services/dates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <ctime>

namespace pgbp {
namespace {

constexpr std::array<std::string_view, 7> kDays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                                   "Thursday", "Friday", "Saturday"};
constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string Padded(int number, std::size_t width)
{
    std::string digits = std::to_string(number);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

/// The number in text[at, at + length), or -1 when anything but digits stands there.
int NumberAt(std::string_view text, std::size_t at, std::size_t length)
{
    if (at + length > text.size())
        return -1;
    int number = -1;
    const auto [end, error] = std::from_chars(&text[at], &text[at] + length, number);
    return error == std::errc() && end == &text[at] + length ? number : -1;
}

std::chrono::year_month_day CalendarDay(const DateTime& date)
{
    using namespace std::chrono;
    return year{date.year} / month(static_cast<unsigned>(date.month)) / day(static_cast<unsigned>(date.day));
}

} // namespace

std::string IsoText(const DateTime& date)
{
    return Padded(date.year, 4) + '-' + Padded(date.month, 2) + '-' + Padded(date.day, 2) + ' ' + Padded(date.hour, 2) +
           ':' + Padded(date.minute, 2) + ':' + Padded(date.second, 2);
}

std::optional<DateTime> FromIsoText(std::string_view text)
{
    DateTime date{NumberAt(text, 0, 4), NumberAt(text, 5, 2), NumberAt(text, 8, 2)};
    if (date.year < 0 || date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31 || text[4] != '-' ||
        text[7] != '-')
        return std::nullopt;
    if (text.size() >= 16) {
        date.hour = NumberAt(text, 11, 2);
        date.minute = NumberAt(text, 14, 2);
        date.second = text.size() >= 19 ? NumberAt(text, 17, 2) : 0;
        if (date.hour < 0 || date.minute < 0 || date.second < 0)
            return std::nullopt;
    }
    return date;
}

std::string DayText(const DateTime& date)
{
    return Padded(date.day, 2) + '-' + Padded(date.month, 2) + '-' + Padded(date.year, 4);
}

std::optional<DateTime> FromDayText(std::string_view text)
{
    const DateTime date{NumberAt(text, 6, 4), NumberAt(text, 3, 2), NumberAt(text, 0, 2)};
    const bool isWritten =
        text.size() == 10 && text[2] == '-' && text[5] == '-' && std::min({date.year, date.month, date.day}) > 0;
    if (!isWritten || !CalendarDay(date).ok())
        return std::nullopt;
    return date;
}

int DaysBetween(const DateTime& from, const DateTime& to)
{
    const auto days = std::chrono::sys_days(CalendarDay(to)) - std::chrono::sys_days(CalendarDay(from));
    return static_cast<int>(days.count());
}

std::string TimeText(const DateTime& date) { return Padded(date.hour, 2) + ':' + Padded(date.minute, 2); }

std::string StampText(const DateTime& date)
{
    const std::chrono::weekday day{std::chrono::sys_days{CalendarDay(date)}};
    const int hour = date.hour % 12 == 0 ? 12 : date.hour % 12;
    return std::string(kDays[day.c_encoding()]) + ' ' + std::string(kMonths[(date.month + 11) % 12]) + ", " +
           std::to_string(date.day) + ' ' + Padded(date.year, 4) + "   " + std::to_string(hour) + ':' +
           Padded(date.minute, 2) + (date.hour < 12 ? " AM" : " PM");
}

DateTime Now()
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

} // namespace pgbp
