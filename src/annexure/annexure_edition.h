#pragma once

#include <string_view>

namespace pgbp {

/// Which rates a group may have.
enum class AnnexureRates {
    OfTheYear,
    Before2018, ///< those of the assessment years up to 2017-18, in every year
    Before2007  ///< those of the assessment years up to 2006-07, in every year
};

/// The annexure as it stood at a time: one screen, and what differs between its editions.
struct AnnexureEdition {
    std::string_view screen; ///< its name
    int places = 2;          ///< behind the point of an amount
    bool hasHalves = true;   ///< sales and depreciation by halves of the year, additional depreciation, empty blocks
    bool carriesShortfall = true;   ///< what the first half lacks is taken from the second
    bool followsTheYear = false;    ///< holds the block against its rows, reads Form 3CD, knows section 38(2)
    bool keepsChildrensRows = true; ///< the assessee's save leaves a child's rows as they are
    AnnexureRates rates = AnnexureRates::Before2018;
};

inline constexpr AnnexureEdition kAnnexure{.screen = "frmfassetsNew",
                                           .places = 0,
                                           .followsTheYear = true,
                                           .keepsChildrensRows = false,
                                           .rates = AnnexureRates::OfTheYear};

/// As it was before the rates and the checks went by the year. No button opens it.
inline constexpr AnnexureEdition kAnnexureBeforeYears{.screen = "frmfassetsNew_1"};

/// The rows of all lines in one grid, edited in place. No button opens it.
inline constexpr AnnexureEdition kAnnexureInGrid{.screen = "frmEditfassetsNew", .carriesShortfall = false};

/// The annexure of the assessment years up to 2006-07.
inline constexpr AnnexureEdition kOldAnnexure{
    .screen = "frmfassets", .hasHalves = false, .rates = AnnexureRates::Before2007};

} // namespace pgbp
