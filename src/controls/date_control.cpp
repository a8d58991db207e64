#include "controls/date_control.h"

#include "controls/form.h"
#include "services/dates.h"
#include "services/format.h"
#include "services/text.h"

#include <algorithm>
#include <array>

namespace pgbp {
namespace {

constexpr std::array<std::string_view, 12> kMonths = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                      "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

/// The text with dashes for all separators; bare digits get theirs: ddmmyyyy.
std::string WithDashes(std::string_view text)
{
    std::string dashed = Replace(Replace(text, "/", "-"), ".", "-");
    if (dashed.find('-') == std::string::npos && dashed.size() > 4)
        dashed = dashed.substr(0, 2) + '-' + dashed.substr(2, 2) + '-' + dashed.substr(4);
    return dashed;
}

/// 1 to 12 for a number or a name; anything else is no month.
int MonthNumber(const std::string& text)
{
    const double number = Val(text);
    if (number != 0)
        return number >= 1 && number <= 12 && number == static_cast<int>(number) ? static_cast<int>(number) : 0;
    const auto found = std::find(kMonths.begin(), kMonths.end(), Trim(Upper(text)));
    return found == kMonths.end() ? 0 : static_cast<int>(found - kMonths.begin()) + 1;
}

/// Two-digit years: 30 to 99 are of the last century, 0 to 29 of this one.
double FullYear(const std::string& text)
{
    const double year = Val(text);
    if (Trim(text).size() >= 4)
        return year;
    if (year > 29 && year < 100)
        return year + 1900;
    return year < 30 ? year + 2000 : year;
}

/// The leap rule here has no century exception.
int DaysOf(int month, int year)
{
    if (month == 2)
        return year % 4 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

} // namespace

DateReading ReadDate(std::string_view text)
{
    if (text.empty())
        return {};
    const std::string dashed = WithDashes(text);
    if (std::count(dashed.begin(), dashed.end(), '-') != 2)
        return {"", "Invalid Date Format"};
    const auto first = dashed.find('-');
    const auto last = dashed.rfind('-');
    const int month = MonthNumber(dashed.substr(first + 1, last - first - 1));
    if (month < 1 || month > 12)
        return {"", "Invalid Month"};
    const double year = FullYear(dashed.substr(last + 1));
    if (year > 9999)
        return {"", "Invalid Year"};
    const double day = Val(dashed.substr(0, first));
    if (day < 1 || day > DaysOf(month, static_cast<int>(year)))
        return {"", month == 2 ? "Invalid month days" : "Invalid Month Days"};
    return {DayText({static_cast<int>(year), month, static_cast<int>(day)}), ""};
}

std::string clsdate::DateVal(std::string_view text)
{
    const DateReading reading = ReadDate(text);
    failed = !reading.error.empty();
    if (failed)
        boxes_.Show({reading.error, title_ + " - Date Error", Icon::Critical});
    return reading.date;
}

txtdate::txtdate(Form& form, std::string_view name) : TextBox(form, name, Walks::Yes) {}

Verdict txtdate::Filter(char32_t character)
{
    return character < U'-' || character >= U':' || character == U'/' ? Verdict::Swallow : Verdict::Pass;
}

std::optional<std::string> txtdate::Pasted(std::string_view utf8)
{
    const DateReading reading = ReadDate(Trim(utf8));
    Hint(reading.error.empty() ? "" : "Not taken: " + reading.error);
    if (reading.date.empty())
        return std::nullopt;
    SelectAll();
    return reading.date;
}

void txtdate::Choose(int day, int month, int year)
{
    Set(DayText({year, month, day}));
    calendarShown = false;
}

bool txtdate::Leave()
{
    calendarShown = false;
    clsdate dates(form().boxes(), form().title());
    const std::string date = dates.DateVal(text());
    if (dates.failed)
        return false;
    Set(date);
    return TextBox::Leave();
}

} // namespace pgbp
