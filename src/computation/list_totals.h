#pragma once

#include "startup/run.h"

#include <map>
#include <string>
#include <string_view>

namespace pgbp {

/// Sums over the detail rows of the line that is open, by list, rupees. They change only when a list is saved; between
/// that a screen computes from them without a look at the store. Types are one list without regard to case, as the
/// store compares them.
class ListTotals {
  public:
    /// Reads the sums anew from `temp1`.
    void Read(const Run& run);

    double Amt1(std::string_view type) const { return Of(type).amt1; }
    double Amt2(std::string_view type) const { return Of(type).amt2; }
    double Amt3(std::string_view type) const { return Of(type).amt3; }
    double Amt3LessAmt2(std::string_view type) const { return Of(type).amt3LessAmt2; }
    /// The line has rows of this type.
    bool Has(std::string_view type) const;

  private:
    struct Sums {
        double amt1 = 0;
        double amt2 = 0;
        double amt3 = 0;
        double amt3LessAmt2 = 0;
    };
    Sums Of(std::string_view type) const;

    std::map<std::string, Sums, std::less<>> byType_; ///< type in upper case
};

} // namespace pgbp
