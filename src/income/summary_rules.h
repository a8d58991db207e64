#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pgbp {

/// Rules of the summary that turn on the assessment year and the status of the assessee.
struct SummaryRules {
    int year;
    std::string_view status;

    bool ShowsPartnerLines() const;  ///< interest and remuneration of partners: firms only
    bool May44ADA() const;           ///< section 44ADA is for individuals and firms
    bool Shows44ADA() const;         ///< section 44ADA, from assessment year 2017-18
    bool Offers44ADA() const;        ///< the year alone allows section 44ADA
    bool Has44AF() const;            ///< section 44AF ended with assessment year 2010-11
    bool HasSpecified() const;       ///< line of section 35AD, from 2012 in the place of section 44AF
    bool ExemptsShares() const;      ///< companies from 2013 keep exempt shares with the normal business
    bool PlantsLimits() const;       ///< the presumptive limits of 2017 must be there
    bool VehiclesByScreen() const;   ///< section 44AE is kept vehicle by vehicle, from 2019
    bool FirmsByScreen() const;      ///< income from firms is kept on a screen of its own, from 2007
    bool AddsExemptToProfit() const; ///< book profit of the remuneration counts exempt and other incomes, from 2023
    bool GstIsOpen() const;          ///< GST details: others from 2018, companies from 2019
    std::string_view GstCaption() const;
    std::string_view Caption44AD() const;
};

/// Income of a presumptive line, rupees: the actual profit where it is positive and higher, else the deemed one.
/// Nothing when no deemed income is stored.
std::optional<double> PresumptiveIncome(double actual, std::optional<double> deemed);

/// The commission line after one more stored row; each step works on the shown text. `amounts` is the sum of a "LIC"
/// row's four amounts, of any other row its one amount.
std::string AfterCommissionRow(const std::string& shown, std::string_view type, double amounts);

} // namespace pgbp
