#include "statements/amount_cell.h"

#include "services/format.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace pgbp {
namespace {

/// As many places as a double has digits: the text of the figure itself.
constexpr std::string_view kEveryPlace = "###0.000000000000000";

/// Whole rupees up to here have a text of at most 15 digits, which every format gives back digit by digit.
constexpr double kExactWhole = 1e15;
constexpr std::size_t kExactDigits = 15;

std::string WithoutZeroPlaces(std::string text)
{
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

bool IsExactWhole(double figure) { return std::fabs(figure) < kExactWhole && figure == std::trunc(figure); }

/// The common case of a cell: whole rupees, grouped from the right while they are written.
void WriteWhole(std::string& cell, double figure)
{
    std::array<char, 24> text;
    char* at = text.data() + text.size();
    auto rest = static_cast<std::uint64_t>(std::fabs(figure));
    std::size_t digits = 0;
    do {
        if (digits >= 3 && digits % 2 == 1)
            *--at = ',';
        *--at = static_cast<char>('0' + rest % 10);
        rest /= 10;
        ++digits;
    } while (rest > 0);
    if (figure < 0)
        *--at = '-';
    cell.assign(at, text.data() + text.size());
}

double WriteText(std::string& cell, const std::string& places)
{
    cell = FormatAmountIndian(WithoutZeroPlaces(places), kIndianGrouping);
    return Val(places);
}

} // namespace

double CellValue(std::string_view cell)
{
    std::uint64_t rupees = 0;
    std::size_t digits = 0;
    for (const char c : cell) {
        if (c == ',')
            continue;
        if (c < '0' || c > '9' || ++digits > kExactDigits)
            return ParseAmount(cell);
        rupees = rupees * 10 + static_cast<std::uint64_t>(c - '0');
    }
    return static_cast<double>(rupees);
}

double WriteRounded(std::string& cell, double figure)
{
    if (!IsExactWhole(figure))
        return WriteText(cell, Amount(figure));
    WriteWhole(cell, figure);
    return figure;
}

double WriteAsItStands(std::string& cell, double figure) { return WriteText(cell, Format(figure, kEveryPlace)); }

std::string PlainFigure(double figure) { return WithoutZeroPlaces(Format(figure, kEveryPlace)); }

} // namespace pgbp
