#include "check/practice_check.h"

#include "check/client_check.h"
#include "services/error_log.h"
#include "services/fault.h"

#include <stdexcept>

namespace pgbp::check {
namespace {

/// That are looked at as of one moment: some hundredths of a second, which who stores meanwhile waits.
constexpr int kBatch = 200;

void RefuseChanges(const Practice& practice)
{
    for (const Connection* file : {&practice.company, &practice.balance, &practice.tax})
        file->engine()->beforeChange = [] { throw std::logic_error("The check of the practice stores nothing."); };
}

/// One that can not be read is told among the others.
void CheckOne(const Practice& practice, ClientCheck& check, const AssesseeYear& year, const Found& found)
try {
    for (Finding& finding : check.Check(year))
        found(std::move(finding));
} catch (const std::exception& error) {
    LogError(practice.folders.Client(), Now(), error);
    const std::string words = PreparersWords(error);
    found({year.code, year.name, year.year, "Can not be checked", words.substr(0, words.find('\n')), {}, {}});
}

} // namespace

void CheckPractice(const Practice& practice, const Found& found, const Progress& progress)
{
    RefuseChanges(practice);
    const long all = static_cast<long>(practice.company.Scalar("select count(*) from {assessee1}").Number());
    FindRowsWithoutCode(practice, found);
    ClientCheck check(practice);
    long done = 0;
    std::string from;
    for (bool isRest = false; !isRest;) {
        const Reading reading(practice.company);
        const std::vector<AssesseeYear> years = AssesseeYearsBehind(practice, from, kBatch);
        isRest = years.size() < kBatch;
        for (const AssesseeYear& year : years)
            CheckOne(practice, check, year, found);
        FindRowsOfNobody(practice, from, years, isRest, found);
        if (!years.empty())
            from = years.back().code;
        done += static_cast<long>(years.size());
        progress(done, all);
    }
}

void CheckCodes(const Practice& practice, std::span<const std::string> codes, const Found& found)
{
    RefuseChanges(practice);
    ClientCheck check(practice);
    for (const std::string& code : codes)
        CheckOne(practice, check, FindAssesseeYear(practice, code), found);
}

} // namespace pgbp::check
