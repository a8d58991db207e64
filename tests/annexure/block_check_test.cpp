#include "annexure/block_check.h"

#include "services/format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

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

/// The check as the rule tells it, row by row and block by block: quadratic, and of no use for long annexures.
void CheckAsTold(std::vector<AnnexureRow>& rows, const std::function<bool()>& ask)
{
    std::set<std::size_t> marked;
    bool yes = false;
    for (std::size_t first = 0; first < rows.size(); ++first) {
        if (marked.contains(first))
            continue;
        double full = 0, half = 0, base1 = 0, base2 = 0;
        char flag = ' ';
        for (std::size_t i = first; i < rows.size(); ++i) {
            const AnnexureRow& row = rows[i];
            if (marked.contains(i) || row.group != rows[first].group || Amount(row.rate) != Amount(rows[first].rate))
                continue;
            marked.insert(i);
            full += row.depreciation1;
            half += row.depreciation2;
            base1 += row.opening + row.purchases1 - row.sales1;
            base2 += row.purchases2 - row.sales2;
            flag = !row.isEmpty ? ' ' : *row.isEmpty ? '1' : '0';
        }
        if (base1 < 0 && base2 > 0) {
            base2 += base1;
            base1 = 0;
        }
        AnnexureRow& target = rows[first];
        const double blockFull = std::max(0.0, Val(Rupees(RoundOff(target.rate * base1 / 100, 0))));
        const double blockHalf = std::max(0.0, Val(Rupees(RoundOff(target.rate / 2 * base2 / 100, 0))));
        if (flag != '0' || (blockFull == full && blockHalf == half))
            continue;
        if (!yes)
            yes = ask();
        if (!yes)
            continue;
        target.depreciation1 += blockFull - full;
        target.depreciation2 += blockHalf - half;
        target.depreciation += blockFull - full + blockHalf - half;
        target.closing -= blockFull - full + blockHalf - half;
    }
}

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

TEST(BlockCheck, AgreesWithTheRuleAsItIsTold)
{
    std::mt19937 random(5);
    const auto amount = [&] { return static_cast<double>(random() % 3 == 0 ? 0 : random() % 5000); };
    const char* const groups[] = {"Buildings", "Ships", "Machinery & Plant", ""};
    for (int round = 0; round < 200; ++round) {
        std::vector<AnnexureRow> rows(random() % 30);
        for (AnnexureRow& row : rows) {
            row = {.group = groups[random() % 4],
                   .rate = 5.0 * (random() % 4),
                   .opening = amount(),
                   .purchases1 = amount(),
                   .purchases2 = amount(),
                   .sales1 = amount(),
                   .sales2 = amount(),
                   .additional1 = amount()};
            row.isEmpty = random() % 5 == 0 ? std::nullopt : std::optional(random() % 4 == 0);
        }
        RecalculateAnnexure(rows);
        std::vector<AnnexureRow> asTold = rows;
        const std::vector<bool> given = {random() % 2 == 0, random() % 2 == 0, false, true};
        Answers answers{given};
        Answers answersAsTold{given};
        CheckBlockDifference(rows, std::ref(answers));
        CheckAsTold(asTold, std::ref(answersAsTold));
        EXPECT_EQ(answers.asked, answersAsTold.asked);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            EXPECT_EQ(rows[i].depreciation1, asTold[i].depreciation1) << round << ' ' << i;
            EXPECT_EQ(rows[i].depreciation2, asTold[i].depreciation2) << round << ' ' << i;
            EXPECT_EQ(rows[i].depreciation, asTold[i].depreciation) << round << ' ' << i;
            EXPECT_EQ(rows[i].closing, asTold[i].closing) << round << ' ' << i;
        }
    }
}
