#include "computation/line_rules.h"

#include "startup/status.h"

namespace pgbp {
namespace {

/// The returns without annexures: their schedules hold what was a paper beside the form before.
constexpr int kSchedulesOfTheReturn = 2007;

} // namespace

bool LineRules::IsNormal() const { return kind == kNormal; }
bool LineRules::ProfitIsOfStatement() const { return year >= kSchedulesOfTheReturn; }
bool LineRules::TakesOtherIncome() const { return year >= kSchedulesOfTheReturn; }
bool LineRules::HasSection35() const { return year >= kSchedulesOfTheReturn; }
bool LineRules::ListsSections10() const { return year >= kSchedulesOfTheReturn; }
bool LineRules::HasOldAnnexure() const { return year < kSchedulesOfTheReturn; }
bool LineRules::OffersStatementsDepreciation() const { return year >= 2019; }
bool LineRules::AddsProfessionWithoutBooks() const { return year >= 2017; }
bool LineRules::MayReportUnderIndAS() const { return year >= 2018 && IsCompany(status); }
bool LineRules::DeductsOtherHeadsOfVDA() const { return year >= 2023; }
bool LineRules::ShowsPartners() const { return HasPartners(status); }
bool LineRules::PartnersOfDeemedIncome() const { return ShowsPartners() && year >= kSchedulesOfTheReturn; }
bool LineRules::ShowsAccountOfReturn() const { return year >= kSchedulesOfTheReturn && year < 2019; }

bool LineRules::AsksForExemption() const
{
    return (!IsIndividual(status) && year >= 2021) || (IsCompany(status) && year >= 2013);
}

LineRules RulesOf(const Run& run) { return {run.Year(), run.Glstatus, static_cast<BusinessKind>(run.GlBusinessKind)}; }

} // namespace pgbp
