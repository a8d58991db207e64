#include "income/summary_rules.h"

#include "services/format.h"
#include "startup/status.h"

namespace pgbp {

bool SummaryRules::ShowsPartnerLines() const { return IsFirm(status); }
bool SummaryRules::May44ADA() const { return IsIndividual(status) || IsFirm(status); }
bool SummaryRules::Shows44ADA() const { return Offers44ADA() && May44ADA(); }
bool SummaryRules::Offers44ADA() const { return year >= 2017; }
bool SummaryRules::Has44AF() const { return year < 2011; }
bool SummaryRules::HasSpecified() const { return year >= 2012; }
bool SummaryRules::ExemptsShares() const { return year >= 2013 && IsCompany(status); }
bool SummaryRules::PlantsLimits() const { return year >= 2017; }
bool SummaryRules::VehiclesByScreen() const { return year >= 2019; }
bool SummaryRules::FirmsByScreen() const { return year >= 2007; }
bool SummaryRules::AddsExemptToProfit() const { return year >= 2023; }
bool SummaryRules::GstIsOpen() const { return year >= (IsCompany(status) ? 2019 : 2018); }

std::string_view SummaryRules::GstCaption() const
{
    return year >= 2019 ? "GST Return Details" : "GST Details (Only for ITR - 4 & 6)";
}

std::string_view SummaryRules::Caption44AD() const
{
    return year >= 2011 ? "Elegible business u/s 44AD" : "Construction Business u/s 44AD :";
}

std::optional<double> PresumptiveIncome(double actual, std::optional<double> deemed)
{
    if (!deemed)
        return std::nullopt;
    return actual > *deemed && actual > 0 ? actual : *deemed;
}

std::string AfterCommissionRow(const std::string& shown, std::string_view type, double amounts)
{
    if (type == "LIC")
        return Amount(amounts);
    return Amount(type == "ZADHOC" ? Val(shown) - amounts : Val(shown) + amounts);
}

} // namespace pgbp
