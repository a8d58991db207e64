#include "suite/pan.h"

#include <algorithm>

namespace pgbp {

std::string PanOfCopy(std::string pan, int serial)
{
    const auto advance = [&](char& symbol, char first, int base) {
        const int sum = symbol - first + serial % base;
        serial = serial / base + sum / base;
        symbol = static_cast<char>(first + sum % base);
    };
    for (const std::size_t at : {8, 7, 6, 5})
        advance(pan[at], '0', 10);
    for (const std::size_t at : {2, 1, 0})
        advance(pan[at], 'A', 26);
    return pan;
}

} // namespace pgbp
