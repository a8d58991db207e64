#include "suite/head_of_income.h"
#include "suite/new_practice.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

TEST(HeadsOfIncome, OfSeveralYearsAreThoseOfEachOne)
{
    const NewPractice made;
    const Practice practice = made.Open();
    practice.balance.Execute("update {qelgeneral} set name7 = '2' where code = '1027r2020-21' and [Type] = 'BUSI'");
    NoteRun(practice, "1027r2019-20", 1); // has not written yet
    struct Case {
        const char* code;
        std::optional<double> head;
        double writtenFor;
    };
    constexpr Case kCases[] = {
        {"1027R2021-22", -286400, 0}, {"1027r2020-21", 405200, 2}, {"1027r2024-25", {}, 0},
        {"1003r2022-23", 1177397, 0}, {"1027r2019-20", 312500, 0},
    };
    std::vector<AssesseeYear> years;
    std::vector<AssesseeYear*> asked;
    for (const Case& each : kCases)
        years.push_back({.code = each.code,
                         .name = {},
                         .pan = {},
                         .status = {},
                         .year = {},
                         .headOfIncome = 1, // what was read before
                         .writtenFor = 3});
    for (AssesseeYear& year : years)
        asked.push_back(&year);
    ReadHeads(practice, asked);
    for (std::size_t i = 0; i < years.size(); ++i) {
        EXPECT_EQ(years[i].headOfIncome, kCases[i].head) << kCases[i].code;
        EXPECT_EQ(years[i].writtenFor, kCases[i].writtenFor) << kCases[i].code;
    }
}

} // namespace
} // namespace pgbp
