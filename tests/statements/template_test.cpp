#include "statements/template_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace pgbp;
using namespace pgbp::test;

TEST(Templates, EveryLineOfEveryFileIsOneOfFourKinds)
{
    ASSERT_EQ(TemplateFiles().size(), 20u);
    for (const auto& file : TemplateFiles()) {
        std::set<int> numbers;
        for (std::size_t i = 0; i < file.rows.size(); ++i) {
            const TemplateRow& row = file.rows[i];
            SCOPED_TRACE(file.name + " line " + std::to_string(i + 1));
            EXPECT_EQ(file.pslno[i], static_cast<int>(i) + 1);
            EXPECT_TRUE(numbers.insert(row.slno).second) << "number " << row.slno << " twice";
            EXPECT_EQ(std::ranges::count_if(row.captions, [](auto& c) { return !c.empty(); }), 1);
            EXPECT_LE(std::ranges::count_if(row.serials, [](auto& s) { return !s.empty(); }), 1);
            EXPECT_TRUE(row.isChoice ? !row.isNumber && !row.isBlocked : row.isNumber || row.isBlocked);
            EXPECT_TRUE(CaptionOf(row) != kWrittenByPreparer || !row.isBlocked);
        }
    }
}

/// Numbers that rules of other screens look up, in every profit and loss template of a form from `firstYear` on.
TEST(Templates, NumbersWithAFixedRoleAreWhereTheyAreLookedUp)
{
    for (const auto& file : TemplateFiles()) {
        SCOPED_TRACE(file.name);
        for (const int slno : {167, 184, 185, 187, 252, 254, 255, 258, 260, 262})
            EXPECT_TRUE(!file.name.starts_with("PL_") || file.Line(slno) != 0) << slno;
        if (const auto open = file.Line(540)) {
            EXPECT_FALSE(file.At(open).isBlocked);
            EXPECT_EQ(CaptionOf(file.At(open)), "Other (More than 1 lakh) where PAN is not available");
        }
        for (const int grossProfit : {270, 1164})
            if (const auto line = file.Line(grossProfit)) {
                EXPECT_EQ(file.At(line - 1).slno, grossProfit - 1) << "gross receipts stand above gross profit";
            }
        for (const int choice : {1, 5, 6})
            EXPECT_EQ(file.Line(choice), 0u) << "kept for a choice";
    }
    for (const auto* name : {"PL_3_2019", "PL_5_2019", "PL_6_2019", "INDASPL"})
        EXPECT_NE(TemplateNamed(name).Line(8015), 0u) << name;
    EXPECT_EQ(TemplateNamed("INDASPL").Line(7149), 149u);
}

TEST(TemplateRow, BecomesAGridRow)
{
    struct Case {
        const char* what;
        TemplateRow row;
        StatementRow cells;
    };
    const Case cases[] = {
        {"number",
         {.slno = 8001, .serials = {"", "", "i"}, .captions = {"", "", "Raw material"}, .isNumber = true},
         {"i", "      Raw material", "", "NUM", "8001", "", "=>", "      Raw material"}},
        {"heading",
         {.slno = 2, .serials = {"1"}, .captions = {"Debits"}, .isBlocked = true},
         {"1", "Debits", "", "", "2", "", "", "Debits"}},
        {"blocked choice",
         {.slno = 3, .captions = {"", "x"}, .isChoice = true, .isBlocked = true},
         {"", "   x", "", "", "3", "", "", "   x"}},
        {"choice before number",
         {.slno = 4, .captions = {"", "", "", "x"}, .isChoice = true, .isNumber = true},
         {"", "         x", "", "CBO", "4", "", "=>", "         x"}},
        {"text", {.slno = 5, .captions = {"x"}}, {"", "x", "", "TXT", "5", "", "=>", "x"}},
        {"blank serials are passed over, the first of several wins",
         {.slno = 6, .serials = {"  ", "B", "i"}, .captions = {"wide", "deep"}, .isNumber = true},
         {"B", "wide", "", "NUM", "6", "", "=>", "wide"}},
        {"written by the preparer",
         {.slno = 7, .captions = {"", "", "", "__"}, .isNumber = true},
         {"", "         __", "", "NUM", "7", "", "=>", "         __"}},
        {"nothing at all", {}, {"", "", "", "TXT", "0", "", "=>", ""}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ToStatementRow(c.row), c.cells) << c.what;
}

TEST(ChoiceLine, OffersItsListAndSelectsWhatTheCellHolds)
{
    EXPECT_EQ(ChoiceItems(1).back(), "Cash System");
    EXPECT_EQ(ChoiceItems(5).size(), 3u);
    EXPECT_EQ(ChoiceItems(6).data(), ChoiceItems(5).data());
    EXPECT_EQ(ChoiceItems(522).front(), "Yes");
    for (const int slno : {1, 5, 522})
        for (int item = 0; item < static_cast<int>(ChoiceItems(slno).size()); ++item) {
            const auto text = std::string(ChoiceItems(slno)[static_cast<std::size_t>(item)]) + std::string(100, ' ');
            EXPECT_EQ(ChoiceOnOpening(text), text.starts_with("Cash") ? -1 : item) << text;
        }
    EXPECT_EQ(ChoiceOnOpening(""), -1);
    EXPECT_EQ(ChoiceOnOpening("1,234"), -1);
}
