#pragma once

#include "support/empty_practice.h"

#include <string>

namespace pgbp {

/// Adds a client with a return of the practice's year to it.
inline void AddClient(const EmptyPractice& practice, const std::string& code, double number, const std::string& name,
                      const char* status, const char* pan = "", bool isKept = true)
{
    const Connection company = practice.Company();
    company.Insert("assessee",
                   {{"company", number}, {"comp_name", name}, {"pan", pan}, {"Status", status}, {"flag", isKept}});
    company.Insert(
        "assessee1",
        {{"code", code}, {"company", number}, {"year", practice.handOver.Glyear}, {"comp_name", name}, {"pan", pan}});
}

/// Adds a firm's return with two partners. Gupta, who has the PAN, was paid 40000 of 100000 of allowable interest
/// (50000 in all) and 300000 of 400000 of remuneration; 50000 and 200000 are deducted, the income is 80000 and a
/// quarter of it his.
inline std::string AddFirm(const EmptyPractice& practice, double number, const std::string& name, const char* pan)
{
    const std::string code = 'F' + std::to_string(static_cast<int>(number)) + 'r' + practice.handOver.Glyear;
    AddClient(practice, code, number, name, "05", "AAAFV5512C");
    const Connection company = practice.Company();
    const auto add = [&](const char* type, const char* partner, const char* hisPan, double amt1, double ratio,
                         double amt3) {
        company.Insert("business1", {{"code", code},
                                     {"Type", type},
                                     {"SNO", 900 + number},
                                     {"name1", partner},
                                     {"name2", hisPan},
                                     {"amt1", amt1},
                                     {"amt2", ratio},
                                     {"amt3", amt3}});
    };
    add("PARTREMU", "Gupta", pan, 300000, 25, 0);
    add("PARTREMU", "Verma", "", 100000, 75, 0);
    add("PARTINTT", "Verma", "", 70000, 75, 60000);
    add("PARTINTT", " GUPTA", pan, 50000, 25, 40000);
    add("LESSINTT", "", "", 50000, 0, 0);
    add("LESSREMU", "", "", 200000, 0, 0);
    practice.Balance().Insert("compu", {{"code", code}, {"gross", 80000}});
    return code;
}

} // namespace pgbp
