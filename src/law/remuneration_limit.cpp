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

RemunerationWorking OnScale(const Scale& scale, double bookProfit)
{
    RemunerationWorking working;
    double limit = 0;
    double from = 0;
    for (const auto& [upTo, rate, atLeast] : scale.slabs) {
        const double profit = std::min(bookProfit, upTo) - from;
        working.slabs.push_back({profit, rate * 100, profit * rate});
        limit += profit * rate;
        if (bookProfit > upTo) {
            from = upTo;
            continue;
        }
        if (limit < atLeast)
            limit = working.atLeast = atLeast;
        break;
    }
    working.limit = RoundOff(limit, 0);
    return working;
}

} // namespace

RemunerationWorking WorkRemunerationLimit(double bookProfit, int year, std::string_view status)
{
    for (const auto& scale : kScales)
        if (scale.status == status && year <= scale.lastYear)
            return OnScale(scale, bookProfit);
    return {};
}

double RemunerationLimit(double bookProfit, int year, std::string_view status)
{
    return WorkRemunerationLimit(bookProfit, year, status).limit;
}

} // namespace pgbp
