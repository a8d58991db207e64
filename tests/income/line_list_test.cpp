#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

class ListOfLines : public testing::Test {
  protected:
    void TwoLines()
    {
        practice.Line("1", {{"SNO", 4}, {"name1", "Zari"}, {"name2", "Works"}, {"PNL", 10.5}, {"NET", 20}});
        practice.Line("1", {{"SNO", 9}, {"name1", "asha"}, {"PNL", -1}, {"NET", -2}, {"Minor", 2}});
        practice.Line("2", {{"SNO", 5}, {"name1", "Shares"}, {"PNL", 3}, {"NET", 3}});
    }
    EmptyPractice practice;
};

} // namespace

TEST_F(ListOfLines, ComesUpSortedByName)
{
    TwoLines();
    auto& form = practice.Begin(2023, "06");
    form.Click(form.cmd1);
    EXPECT_TRUE(form.lines.fra1.visible);
    EXPECT_EQ(form.lines.fra1.caption.get(), "Normal Business");
    EXPECT_EQ(form.focused(), &form.lines.DBGrid1);
    EXPECT_EQ(form.lines.DBGrid1.Shows(), "asha\t-1.00\t-2.00\t2\t9\nZari Works\t10.50\t20.00\t\t4");
    EXPECT_EQ(practice.run->GlBusinessKind, kNormal);
    EXPECT_EQ(practice.run->GLrep, "ASDF");
}

TEST_F(ListOfLines, OpensTheChosenLine)
{
    TwoLines();
    auto& form = practice.Begin(2023, "06");
    form.Click(form.cmd1);
    form.Press(Key::Down);
    form.Press(Key::Enter);
    ASSERT_EQ(practice.openings.size(), 1U);
    const auto& [screen, opening] = practice.openings.front();
    EXPECT_EQ(screen, "frmbusinesscal");
    EXPECT_EQ(opening.caption, "Normal Business");
    ASSERT_TRUE(opening.business);
    EXPECT_EQ((*opening.business)["SNO"].Number(), 4);
    EXPECT_FALSE(form.lines.fra1.visible);
}

TEST_F(ListOfLines, AddsALineWhereItsKindAllows)
{
    TwoLines();
    practice.Line("8", {{"SNO", 7}});
    auto& form = practice.Begin(2023, "06");
    form.Click(form.cmd2);
    EXPECT_NE(practice.run->GLrep, "ASDF");
    form.Click(form.lines.CmdAdd);
    ASSERT_EQ(practice.openings.size(), 1U);
    EXPECT_EQ(practice.openings[0].first, "frmbusinesscal1");
    EXPECT_EQ(practice.openings[0].second.caption, "Speculation Business");
    EXPECT_FALSE(practice.openings[0].second.business);
    practice.run->screens.Return();

    form.Click(form.CmdSp);
    EXPECT_EQ(form.lines.fra1.caption.get(), "Specified Business u/s 35AD");
    form.Click(form.lines.CmdAdd);
    EXPECT_EQ(practice.openings.size(), 1U) << "a second specified line can not be added from the list";
    EXPECT_TRUE(form.lines.fra1.visible);
}

TEST_F(ListOfLines, OpensTheScreenAtOnceWhenNothingIsStored)
{
    auto& form = practice.Begin(2023, "06");
    form.Click(form.CmdSp);
    ASSERT_EQ(practice.openings.size(), 1U);
    EXPECT_EQ(practice.openings[0].first, "frmbusinesscal1");
    EXPECT_EQ(practice.openings[0].second.caption, "Specified Business u/s 35AD");
}

TEST_F(ListOfLines, KeepsTheRowsOfOtherAssesseesInTheWorkingTable)
{
    TwoLines();
    practice.File("client/data/qeltemp.mdb").Insert("misc", {{"code1", "other"}, {"Name", "kept"}});
    auto& form = practice.Begin(2023, "06");
    form.Click(form.cmd1);
    form.Click(form.CmdBack);
    form.Click(form.cmd1);
    EXPECT_EQ(form.lines.DBGrid1.Rows(), 2);
    EXPECT_EQ(practice.run->qeltemp.Query("select * from {misc}").Size(), 3U);
}
