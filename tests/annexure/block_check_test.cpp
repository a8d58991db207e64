#include "annexure/block_check.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

AnnexureRow Asset(const char* group, double rate, double opening)
{
    AnnexureEntry entry{.row = {.name = "asset", .group = group, .rate = rate, .opening = opening, .isEmpty = false}};
    CalcEntry(entry);
    return entry.row;
}

/// Answers from a list, Yes when it has run out, and counts the questions.
struct Answers {
    std::vector<bool> given;
    int asked = 0;
    bool operator()()
    {
        const auto at = static_cast<std::size_t>(asked++);
        return at >= given.size() || given[at];
    }
};

} // namespace

TEST(BlockCheck, WorkedExamples)
{
    std::vector<AnnexureRow> agrees = {Asset("Machinery & Plant", 15, 333), Asset("Machinery & Plant", 15, 333)};
    Answers answers;
    CheckBlockDifference(agrees, std::ref(answers));
    EXPECT_EQ(answers.asked, 0) << "50 + 50 against 99.90";

    std::vector<AnnexureRow> differs = {Asset("Machinery & Plant", 15, 1003), Asset("Ships", 20, 77),
                                        Asset("Machinery & Plant", 15, 1003)};
    CheckBlockDifference(differs, std::ref(answers));
    EXPECT_EQ(answers.asked, 1) << "150 + 150 against 300.90";
    EXPECT_EQ(differs[0].depreciation1, 151);
    EXPECT_EQ(differs[0].depreciation, 151);
    EXPECT_EQ(differs[0].closing, 852);
    EXPECT_EQ(differs[2].depreciation1, 150);
}

TEST(BlockCheck, AsksUntilTheFirstYesAndCorrectsTheRestUnasked)
{
    std::vector<AnnexureRow> rows;
    for (const auto* group : {"Buildings", "Ships", "Machinery & Plant", "Intangible Assets"})
        rows.insert(rows.end(), 2, Asset(group, 15, 1003));
    Answers answers{{false, true}};
    CheckBlockDifference(rows, std::ref(answers));
    EXPECT_EQ(answers.asked, 2);
    EXPECT_EQ(rows[0].depreciation, 150) << "refused";
    for (const std::size_t corrected : {2u, 4u, 6u})
        EXPECT_EQ(rows[corrected].depreciation, 151);
}

TEST(BlockCheck, BlocksThatAreEmptyOrDoNotSayArePassedOver)
{
    for (const std::optional<bool> last : {std::optional<bool>(true), std::optional<bool>()}) {
        std::vector<AnnexureRow> rows(2, Asset("Ships", 15, 1003));
        rows[1].isEmpty = last;
        Answers answers;
        CheckBlockDifference(rows, std::ref(answers));
        EXPECT_EQ(answers.asked, 0);
        std::swap(rows[0], rows[1]); // the block is what its last row is
        CheckBlockDifference(rows, std::ref(answers));
        EXPECT_EQ(answers.asked, 1);
    }
}
