#pragma once

#include "annexure/annexure_row.h"

#include <functional>
#include <span>
#include <string_view>

namespace pgbp {

/// First assessment year whose save compares the rows with their blocks.
inline constexpr int kFirstYearOfBlockCheck = 2023;

inline constexpr std::string_view kBlockDifferenceQuestion =
    "There is some difference of depreciation between individual asset calculation and block calculation.\n"
    "Do you want to correct it ?";
inline constexpr std::string_view kBlockDifferenceTitleTail = " - Confirmation"; ///< behind the program's title

/// The law depreciates a block, that is all assets of one group and rate, as one (section 2(11)); the annexure rounds
/// each asset. Where the two differ, `ask` is asked, and on Yes the block's first row takes the whole difference. After
/// a Yes the later blocks are corrected unasked; after a No the next differing block asks again. A block counts as its
/// last row says: empty ones, and those that do not say, are passed over. Blocks come in the order of their first rows.
void CheckBlockDifference(std::span<AnnexureRow> rows, const std::function<bool()>& ask);

} // namespace pgbp
