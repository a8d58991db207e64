#pragma once

#include <optional>

namespace pgbp {

/// Sections of the Income-tax Act that deem the income of a business.
enum class DeemingSection {
    k44AD,  ///< civil construction, from assessment year 2011-12 any eligible business
    k44ADA, ///< a profession, from 2017-18
    k44AE,  ///< goods carriages
    k44AF   ///< retail trade, up to 2010-11
};

/// Gross receipts in rupees, by the way in which they came.
struct Receipts {
    double cash = 0; ///< all of them where the section does not tell them apart
    double bank = 0;
    double others = 0;

    double Total() const { return cash + bank + others; }
};

/// Profit on receipts at a rate in percent, whole rupees.
double ProfitAt(double percent, double receipts);

/// Rate of the section on receipts in cash, percent; 0 for section 44AE, which goes by vehicles. `year` is the
/// assessment year, here and below.
double RateOf(DeemingSection section, int year);

/// The least profit that the section accepts, whole rupees: section 44AD 8 % and on receipts through a bank 6 %, each
/// kind of receipts rounded by itself; section 44ADA 50 % of all; section 44AF 5 %. Section 44AE has none.
double DeemedFloor(DeemingSection section, int year, const Receipts& receipts);

/// The deemed profit is below that floor, and not excused: u/s 44AD from assessment year 2011-12 a profit of up to
/// 160000 is.
bool IsBelowFloor(DeemingSection section, int year, const Receipts& receipts, double deemed);

/// Receipts in cash and through a bank are more than the section allows. `limit` is that of the year in rupees; without
/// one it is kReceiptsWithoutLimit on those in cash. Section 44AE limits the vehicles instead.
bool ReceiptsAreTooHigh(DeemingSection section, std::optional<double> limit, const Receipts& receipts);
inline constexpr double kReceiptsWithoutLimit = 4000000;

/// A profession's receipts in cash reach what section 44ADA allows: 5000000 from assessment year 2023-24.
bool CashIsTooHigh(DeemingSection section, int year, double cash);

} // namespace pgbp
