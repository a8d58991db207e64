#pragma once

#include "annexure/annexure_row.h"
#include "annexure/annexure_rules.h"
#include "store/connection.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pgbp {

/// Record types of the annexure.
inline constexpr std::string_view kBusinessAnnexure = "P";
inline constexpr std::string_view kOtherSourcesAnnexure = "O";

/// Whose annexure it is. A business annexure is always that of the line of business now open.
struct AnnexureOwner {
    std::string code; ///< blanks around it do not count
    std::string_view type = kBusinessAnnexure;
    double minor = 0; ///< `GLminor`: a child whose income is clubbed, 0 for the assessee
    int year = 0;
};

/// The short-term gain on a block that was sold out (section 50); a loss is negative.
struct Sec50Gain {
    std::string name;
    double cost = 0; ///< opening value, purchases of the year and expenses on transfer
    double proceeds = 0;
    double gain = 0;
    DateTime date; ///< of the sale, otherwise the last day of the previous year
};
Sec50Gain GainOnEmptyBlock(const AnnexureRow& row, int year);

/// The stored rows, in the order in which they were saved, amounts in whole rupees.
std::vector<AnnexureRow> LoadAnnexure(const Connection& balance, const AnnexureOwner& owner);

/// Stores the annexure in place of what was stored before, with a gain for each empty block, all or nothing over both
/// files. From 2023 the rows are held against their blocks first (`ask` as in CheckBlockDifference), which may change
/// them. Stores nothing when RefusalOfSave has something against the rows.
/// Throws StoreError.
std::optional<AnnexureRefusal> SaveAnnexure(const Connection& company, const Connection& balance,
                                            const AnnexureOwner& owner, std::vector<AnnexureRow>& rows,
                                            const std::function<bool()>& ask);

} // namespace pgbp
