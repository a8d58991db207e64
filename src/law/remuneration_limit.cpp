#include "law/remuneration_limit.h"

#include "services/format.h"

#include <algorithm>
#include <limits>

namespace pgbp {
namespace {

constexpr int kNoEnd = std::numeric_limits<int>::max();
constexpr double kAbove = std::numeric_limits<double>::infinity();

/// The part of the book profit up to `upTo` (above the slab before it) counts with `rate`; `atLeast` is the floor of
/// the whole limit while the profit ends in this slab.
struct Slab {
    double upTo;
    double rate;
    double atLeast;
};

/// Slabs of one status over a span of assessment years.
struct Scale {
    std::string_view status;
    int lastYear;
    Slab slabs[3];
};

// Finance Acts 1992 (up to assessment year 2009-10: other firms, then firms of a profession), (No. 2) 2009 and (No. 2)
// 2024.
constexpr Scale kScales[] = {
    {"05", 2009, {{75000, 0.9, 50000}, {150000, 0.6, 0}, {kAbove, 0.4, 0}}},
    {"06", 2009, {{100000, 0.9, 50000}, {200000, 0.6, 0}, {kAbove, 0.4, 0}}},
    {"05", 2024, {{300000, 0.9, 150000}, {kAbove, 0.6, 0}}},
    {"06", 2024, {{300000, 0.9, 150000}, {kAbove, 0.6, 0}}},
    {"05", kNoEnd, {{600000, 0.9, 300000}, {kAbove, 0.6, 0}}},
    {"06", kNoEnd, {{600000, 0.9, 300000}, {kAbove, 0.6, 0}}},
};

double OnScale(const Scale& scale, double bookProfit)
{
    double limit = 0;
    double from = 0;
    for (const auto& [upTo, rate, atLeast] : scale.slabs) {
        if (bookProfit <= upTo)
            return std::max(limit + (bookProfit - from) * rate, atLeast);
        limit += (upTo - from) * rate;
        from = upTo;
    }
    return limit;
}

} // namespace

double RemunerationLimit(double bookProfit, int year, std::string_view status)
{
    for (const auto& scale : kScales)
        if (scale.status == status && year <= scale.lastYear)
            return RoundOff(OnScale(scale, bookProfit), 0);
    return 0;
}

} // namespace pgbp
