#include "services/year.h"

#include "services/format.h"

namespace pgbp {

int YearNumber(std::string_view glyear) { return static_cast<int>(Val(glyear.substr(0, 4))); }

std::string LongYearText(std::string_view glyear)
{
    const auto from = [&](std::size_t at, std::size_t length) {
        return std::string(at < glyear.size() ? glyear.substr(at, length) : "");
    };
    return from(0, 5) + from(0, 2) + from(5, 2);
}

} // namespace pgbp
