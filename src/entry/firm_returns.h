#pragma once

#include "law/partner_shares.h"
#include "startup/run.h"

#include <string>
#include <vector>

namespace pgbp {

/// The assessee-year of a firm among the practice's clients.
struct FirmReturn {
    std::string name;
    std::string pan;
    std::string code;
};

/// The returns of the run's year that name the person with this PAN as a partner.
std::vector<std::string> ReturnsWithPartner(const Run& run, const std::string& pan);

/// The firms of the practice that have a return of the run's year, by name.
std::vector<FirmReturn> FirmsOfTheYear(const Run& run);
/// Those of them whose return is one of these.
std::vector<FirmReturn> FirmsAmong(const Run& run, const std::vector<std::string>& codes);
/// The practice has a firm, whatever the year.
bool HasAnyFirm(const Run& run);

/// The partners of a firm's return with what counts in theirs. One who has rows under several lines of the firm is one
/// partner, with the sums of them.
std::vector<PartnerShare> PartnersOfFirm(const Run& run, const std::string& code);

} // namespace pgbp
