#include "statements/amount_cell.h"

#include "services/format.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace pgbp {
namespace {

char Digit(std::uint64_t value) { return static_cast<char>('0' + value); }

} // namespace

void AmountCell::SetText(std::string_view text)
{
    text_ = text;
    figure_ = ParseAmount(text);
    isWhole_ = false;
}

void AmountCell::SetRounded(double figure)
{
    if (IsExactWhole(figure))
        SetWhole(figure);
    else
        SetPlaces(WithoutZeroPlaces(Amount(figure)));
}

void AmountCell::SetAsItStands(double figure)
{
    if (IsExactWhole(figure))
        SetWhole(figure);
    else
        SetPlaces(PlainFigure(figure));
}

void AmountCell::SetPlaces(const std::string& places)
{
    text_ = FormatAmountIndian(places, kIndianGrouping);
    figure_ = Val(places);
    isWhole_ = false;
}

/// The common case, as amounts are entered in whole rupees: written from the right, the commas with the digits, since
/// every key stroke writes all totals of the statement. Most of them stand already.
void AmountCell::SetWhole(double figure)
{
    if (isWhole_ && figure == figure_)
        return;
    std::array<char, 24> buffer;
    char* const end = buffer.data() + buffer.size();
    char* at = end;
    const auto putPair = [&at](std::uint64_t pair) {
        *--at = Digit(pair % 10);
        *--at = Digit(pair / 10);
    };
    auto rest = static_cast<std::uint64_t>(std::fabs(figure));
    if (rest >= 100) {
        *--at = Digit(rest % 10); // of the last three digits, which stand together, one goes before the pairs
        for (rest /= 10; rest >= 100; rest /= 100) {
            putPair(rest % 100);
            *--at = ',';
        }
    }
    if (rest >= 10)
        putPair(rest);
    else
        *--at = Digit(rest);
    if (figure < 0)
        *--at = '-';
    text_.assign(at, end);
    figure_ = figure;
    isWhole_ = true;
}

} // namespace pgbp
