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

/// Whose annexure it is, in which edition. A business annexure is always that of the line of business now open.
struct AnnexureOwner {
    std::string code; ///< blanks around it do not count
    std::string_view type = kBusinessAnnexure;
    double minor = 0; ///< `GLminor`: a child whose income is clubbed, 0 for the assessee
    int year = 0;
    const AnnexureEdition& edition = kAnnexure;
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

/// The stored rows, in the order in which they were saved, amounts with the places of the edition.
std::vector<AnnexureRow> LoadAnnexure(const Connection& balance, const AnnexureOwner& owner);

/// Stores the annexure in place of what was stored before, with a gain for each empty block, all or nothing over both
/// files. From 2023 the rows are held against their blocks first (`ask` as in CheckBlockDifference), which may change
/// them. Stores nothing when RefusalOfSave has something against the rows. An edition that keeps a child's rows does
/// not store the ones that it shows to the parent again. Throws StoreError.
std::optional<AnnexureRefusal> SaveAnnexure(const Connection& company, const Connection& balance,
                                            const AnnexureOwner& owner, std::vector<AnnexureRow>& rows,
                                            const std::function<bool()>& ask);

/// A stored row with the line of business it belongs to; none while its line is not saved by number.
struct StoredAsset {
    AnnexureRow row{};
    Value line{};
};

/// The business annexures of all lines, children's rows among them, in the order in which they were saved.
std::vector<StoredAsset> LoadAllAssets(const Connection& balance, const std::string& code,
                                       const AnnexureEdition& edition);

/// Stores these in place of all of them; each keeps its line and its child. Throws StoreError.
void SaveAllAssets(const Connection& balance, const std::string& code, const std::vector<StoredAsset>& assets,
                   const AnnexureEdition& edition);

/// What the import from the preceding year takes over of a stored row: the closing value is the opening one. Whether
/// its block is empty is not said until the row is entered anew.
std::vector<AnnexureRow> LoadClosingValues(const Connection& balance, const std::string& code, std::string_view type,
                                           std::optional<double> line, const AnnexureEdition& edition);

/// The assets in the books of the accounts product, without groups: whoever saves them is asked for each group.
std::vector<AnnexureRow> LoadBooks(const Connection& books, const std::string& code, std::string_view type,
                                   const AnnexureEdition& edition);

} // namespace pgbp
