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
bool LineRules::HasWholeProfit() const { return year >= 2017; }
bool LineRules::DeemsAtRate() const { return kind == kPresumptive44AD || kind == kRetail44AF; }
bool LineRules::DeemsByReceipts() const { return kind == kPresumptive44AD && year >= 2017; }
bool LineRules::TakesBankReceipts() const { return DeemsByReceipts() || kind == kProfession44ADA; }
bool LineRules::NamesCashAndBank() const { return kind == kProfession44ADA && year >= 2024; }
bool LineRules::TakesOtherReceipts() const { return TakesBankReceipts() && year >= 2025; }
bool LineRules::HasSeveralBusinesses() const { return kind == kPresumptive44AD; }
bool LineRules::CountsVehicles() const { return kind == kTransport44AE; }

bool LineRules::StoresAccountOfReturn() const
{
    return !IsNormal() && year >= (kind == kProfession44ADA ? 2017 : kSchedulesOfTheReturn);
}

DeemingSection LineRules::Section() const
{
    switch (kind) {
    case kProfession44ADA:
        return DeemingSection::k44ADA;
    case kTransport44AE:
        return DeemingSection::k44AE;
    case kRetail44AF:
        return DeemingSection::k44AF;
    default:
        return DeemingSection::k44AD;
    }
}

bool LineRules::AsksForExemption() const
{
    return (!IsIndividual(status) && year >= 2021) || (IsCompany(status) && year >= 2013);
}

LineRules RulesOf(const Run& run) { return {run.Year(), run.Glstatus, static_cast<BusinessKind>(run.GlBusinessKind)}; }

} // namespace pgbp
