#include "suite/new_practice.h"

#include <gtest/gtest.h>
#include <map>
#include <set>
#include <tuple>

// Transcribed from the Acts and circulars a second time, without looking at the data files. When a figure changes it is
// changed here from the source as well.
namespace pgbp {
namespace {

constexpr double kLakh = 100000;
constexpr double kCrore = 100 * kLakh;

TEST(LawFigures, PresumptiveLimitsByFirstYear)
{
    const std::set<std::tuple<std::string, int, double>> expected = {
        // section 44AD: civil construction, then any eligible business
        {"44AD", 1994, 40 * kLakh},
        {"44AD", 2011, 60 * kLakh},
        {"44AD", 2013, 1 * kCrore},
        {"44AD", 2017, 2 * kCrore},
        {"44AD", 2024, 3 * kCrore},
        // section 44ADA: professions
        {"44ADA", 2017, 50 * kLakh},
        {"44ADA", 2024, 75 * kLakh},
        // section 44AF: retail trade
        {"44AF", 1998, 40 * kLakh},
        // section 44AE: rupees a month for a heavy and any other goods vehicle, and how many vehicles
        {"H_VEH", 1994, 2000},
        {"H_VEH", 2003, 3500},
        {"H_VEH", 2011, 5000},
        {"H_VEH", 2015, 7500},
        {"O_VEH", 1994, 1800},
        {"O_VEH", 2003, 3150},
        {"O_VEH", 2011, 4500},
        {"O_VEH", 2015, 7500},
        {"L_VEH", 1994, 10},
        // no limit of the law on receipts; the year's common one stands in
        {"44AE", 2017, 2 * kCrore},
    };
    const NewPractice made;
    std::set<std::tuple<std::string, int, double>> found;
    for (const Row row : made.Open().tax.Query("select [Type], [From], Amount from {system} where [Type] <> 'LIC'"))
        found.emplace(row["Type"].Text(), static_cast<int>(row["From"].Number()), row["Amount"].Number());
    EXPECT_EQ(found, expected);
}

TEST(LawFigures, CommissionOfAgents)
{
    const std::map<std::string, double> rates = {{"LIC1", 50}, {"LIC2", 15}, {"LIC4", 0},
                                                 {"UTI", 50},  {"SEC", 50},  {"MF", 50}};
    const NewPractice made;
    const Practice practice = made.Open();
    const auto rate = [&](const std::string& type) {
        return practice.tax.Scalar("select Rate from {misc} where type = ?", type).Number();
    };
    for (const auto& [type, percent] : rates)
        EXPECT_EQ(rate(type), percent) << type;
    EXPECT_NEAR(rate("LIC3"), 100.0 / 3, 1e-9); // one third
    EXPECT_EQ(practice.tax.Scalar("select [Max] from {misc} where type = 'LIC'").Number(), 20000);
    EXPECT_EQ(practice.tax.Query("select * from {misc}").Size(), rates.size() + 2);

    const Recordset limit = practice.tax.Query("select Amount, date from {system} where [Type] = 'LIC'");
    ASSERT_EQ(limit.Size(), 1u);
    EXPECT_EQ(limit.First()["Amount"].Number(), 60000);
    EXPECT_EQ(limit.First()["date"].Date(), (DateTime{1991, 2, 27}));
}

} // namespace
} // namespace pgbp
