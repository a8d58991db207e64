#pragma once

#include <string_view>
#include <vector>

namespace pgbp {

/// A part of the book profit and what of it may go to the partners, rupees.
struct RemunerationSlab {
    double profit = 0;
    double percent = 0;
    double remuneration = 0;

    bool operator==(const RemunerationSlab&) const = default;
};

/// How the limit comes about.
struct RemunerationWorking {
    std::vector<RemunerationSlab> slabs; ///< as far as the book profit goes, the lowest first
    double atLeast = 0;                  ///< rupees, where the slabs give less and this counts in their place
    double limit = 0;                    ///< whole rupees
};

/// Most that a firm may deduct as remuneration of its working partners: section 40(b)(v) of the Income-tax Act on the
/// book profit of Explanation 3. `year` is the assessment year. Statuses other than "05" and "06" give 0.
RemunerationWorking WorkRemunerationLimit(double bookProfit, int year, std::string_view status);

/// The limit alone.
double RemunerationLimit(double bookProfit, int year, std::string_view status);

} // namespace pgbp
