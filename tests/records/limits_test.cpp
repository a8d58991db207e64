#include "records/limits.h"

#include "support/empty_practice.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

class LimitsOf2024 : public EmptyPractice, public testing::Test {
  public:
    void Limit(const char* type, int from, double rupees)
    {
        Tax().Insert("system", {{"Type", type}, {"From", from}, {"Amount", rupees}});
    }
    /// The limits of 2024 and those of a profession, as "type from amount".
    std::string Planted()
    {
        PlantLimits2024(Start());
        std::string lines;
        for (const Row row : Tax().Query("select [Type], [From], Amount from {system} where [From] = 2024 or [Type] = "
                                         "'44ADA' order by [Type], [From]"))
            lines += row.At(0).Text() + ' ' + row.At(1).Text() + ' ' + row.At(2).Text() + '\n';
        return lines;
    }
};

constexpr const char* kRight = "44AD 2024 30000000\n44ADA 2017 20000000\n44ADA 2024 7500000\n";

TEST_F(LimitsOf2024, AreAddedOnce)
{
    EXPECT_EQ(Planted(), kRight); // the start has planted those of 2017
    EXPECT_EQ(Planted(), kRight);
}

TEST_F(LimitsOf2024, TheLatestThatHasBegunCounts)
{
    Limit("H_VEH", 2019, 1000);
    Limit("H_VEH", 2023, 2000);
    Limit("H_VEH", 2024, 3000);
    Start(); // of 2023-24
    EXPECT_EQ(YearLimit(*run, "H_VEH"), 2000);
    EXPECT_EQ(YearLimit(*run, "none"), std::nullopt);
}

TEST_F(LimitsOf2024, ChangedByThePracticeStay)
{
    Limit("44AD", 2024, 1);
    EXPECT_EQ(Planted(), "44AD 2024 1\n44ADA 2017 20000000\n");
}

TEST_F(LimitsOf2024, AProfessionsLimitThatIsThatOfABusinessIsPutRight)
{
    Limit("44AD", 2024, 30000000);
    Limit("44ADA", 2016, 5);
    Limit("44ADA", 2024, 30000000);
    EXPECT_EQ(Planted(), "44AD 2024 30000000\n44ADA 2017 5000000\n44ADA 2024 7500000\n");
}

} // namespace
} // namespace pgbp
