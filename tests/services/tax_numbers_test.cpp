#include "services/tax_numbers.h"

#include <gtest/gtest.h>

using namespace pgbp;

// The first two are the department's and a large company's own numbers, as they print them.
TEST(TaxNumbers, GstinIsHeldAgainstItsCheckCharacter)
{
    const std::pair<const char*, const char*> rows[] = {
        {"27AAPFU0939F1ZV", ""},
        {"29AAGCB7383J1Z4", ""},
        {"27AAPFU0939F1ZW", "has a wrong check character"},
        {"27AAPFU0993F1ZV", "has a wrong check character"}, // two digits changed places
        {"72AAPFU0939F1ZV", "has a wrong check character"},
        {"27AAPFU0939F1Z", "has 14 characters in place of 15"},
        {"27AAPFU0939F1ZVV", "has 16 characters in place of 15"},
        {"27aapfu0939f1zv", "is not built as a GSTIN is"},
        {"2AAAPFU0939F1ZV", "is not built as a GSTIN is"},
        {"27AAPF00939F1ZV", "is not built as a GSTIN is"},
        {"27AAPFU0939F1Z-", "is not built as a GSTIN is"},
    };
    for (const auto& [number, fault] : rows)
        EXPECT_EQ(FaultOfGstin(number), fault) << number;
}

TEST(TaxNumbers, PanIsKnownByItsShape)
{
    EXPECT_TRUE(IsPan("ABQPG4821K"));
    for (const char* other : {"", "ABQPG4821", "ABQPG4821KK", "abqpg4821k", "ABQP94821K", "ABQPG48211", "ABQPGA821K"})
        EXPECT_FALSE(IsPan(other)) << other;
}
