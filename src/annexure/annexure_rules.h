#pragma once

#include "annexure/annexure_row.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pgbp {

/// The groups of the annexure, in the order of the list. The old annexure has no ships.
inline constexpr std::array<std::string_view, 5> kAssetGroups = {"Buildings", "Furniture & Fittings",
                                                                 "Machinery & Plant", "Intangible Assets", "Ships"};

/// The message that refuses the rate, in percent, for the group in the assessment year; nothing for a rate that the
/// rules (Appendix I of the Income-tax Rules) have, and for a group that is none of the five.
std::optional<std::string_view> RefusalOfRate(std::string_view group, int year, double rate,
                                              AnnexureRates rates = AnnexureRates::OfTheYear);

/// What the screen tells beside the rates in the assessment year, or nothing: for 2018-19 that computers went from 60%
/// to 40% (New Appendix I, Part A, III(5)).
std::optional<std::string_view> RateNotice(int year);

/// Why a row may not be added, or an annexure not be saved.
struct AnnexureRefusal {
    std::string message;
    std::string_view titleTail{}; ///< behind the program's title; empty: a plain box
    std::string_view focus{};     ///< field to go to; empty: the focus stays

    bool operator==(const AnnexureRefusal&) const = default;
};

/// What a row is held against.
struct AnnexureCase {
    int year = 0;
    bool isCapitalGain = false;  ///< captioned "Capital Gain Annexure"
    bool asksDateOfSale = false; ///< the date field is shown
    AnnexureRates rates = AnnexureRates::OfTheYear;
};

/// The first thing wrong with the row, or nothing.
std::optional<AnnexureRefusal> RefusalOfRow(const AnnexureRow& row, const AnnexureCase& its);

/// The first row with a name whose group is none of the five, which stops the save; or nothing.
std::optional<AnnexureRefusal> RefusalOfSave(std::span<const AnnexureRow> rows);

} // namespace pgbp
