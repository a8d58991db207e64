#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace pgbp {

/// A calendar day with its time, as the tables hold it.
struct DateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;

    auto operator<=>(const DateTime&) const = default;
};

/// "2024-03-31 14:05:00"; sorts as the time does.
std::string IsoText(const DateTime& date);

/// The moment of an ISO text with or without its time; nothing for any other text.
std::optional<DateTime> FromIsoText(std::string_view text);

/// "dd-MM-yyyy".
std::string DayText(const DateTime& date);

/// The day of a text "dd-MM-yyyy"; nothing for any other text, and for a day that no calendar has.
std::optional<DateTime> FromDayText(std::string_view text);

/// Days from one day to the other, 0 for the same; their times do not count.
int DaysBetween(const DateTime& from, const DateTime& to);

/// "HH:mm".
std::string TimeText(const DateTime& date);

/// "dddd MMM, d yyyy   H:MM AMPM", for example "Sunday Mar, 31 2024   2:05 PM".
std::string StampText(const DateTime& date);

/// The moment on this computer's clock, local time.
DateTime Now();

} // namespace pgbp
