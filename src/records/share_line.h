#pragma once

#include "records/lines.h"

#include <string>
#include <string_view>

namespace pgbp {

/// What the assessee gets as a member of firms or of associations: one line, with a detail row for each of them.
struct KindOfShare {
    BusinessKind kind;
    std::string_view detail;  ///< `type` of the detail rows
    std::string_view caption; ///< of its screens, and the line's description
};
inline constexpr KindOfShare kFirmShares{kFirmIncome, "PART", "Rem./Intt. from Partnership Firm"};
inline constexpr KindOfShare kAopShares{kAopShare, "AOP", "Share from AOP/BOI"};

/// Stores the line, with the run's minor. `net` in rupees.
void AddShareLine(const Run& run, const KindOfShare& share, double sno, double net, const Transaction& proof);

/// Stores a detail row under the line.
void AddShare(const Run& run, const KindOfShare& share, double sno, const std::string& name, double rupees,
              const Transaction& proof);

} // namespace pgbp
