#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "support/test_boxes.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

class OtherControls : public testing::Test {
  protected:
    TestBoxes boxes;
    Form form{"F", "F", boxes, "Vorn"};
    Frame framain{form, "framain", "", FramePlace::Main};
};

} // namespace

TEST_F(OtherControls, ChecksAndOptionsRaiseTheirClick)
{
    CheckBox ticked(form, "ticked", "Ticked");
    Option first(form, "first", "First");
    Option second(form, "second", "Second");
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&ticked}}, {{&first}}, {{&second}}}});
    int clicks = 0;
    ticked.onClick = [&] { ++clicks; };
    ticked = true;
    ticked = true;
    form.SetFocus(ticked);
    form.Type(U' ');
    EXPECT_EQ(clicks, 2);
    EXPECT_FALSE(ticked.value);

    form.Click(first);
    form.Click(second);
    EXPECT_FALSE(first.value);
    EXPECT_TRUE(second.value);
    EXPECT_EQ(form.focused(), &second);
    EXPECT_FALSE(first.TakesFocus()) << "the walk stops at the chosen one";
    form.Press(Key::Right);
    EXPECT_EQ(form.focused(), &second) << "the last one";
    form.Press(Key::Left);
    EXPECT_EQ(form.focused(), &first);
    EXPECT_TRUE(first.value);
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &ticked) << "past the other options";
}

TEST_F(OtherControls, ADropDownFieldChoosesByKeys)
{
    combo status(form, "status");
    combo free(form, "free", true);
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&status}}, {{&free}}}});
    status.SetItems({"Individual", "HUF", "Firm", "Foreign Company"});
    form.SetFocus(status);
    form.Press(Key::Down);
    EXPECT_EQ(status.text(), "Individual");
    form.Type(U'f');
    EXPECT_EQ(status.text(), "Firm");
    form.Type(U'f');
    EXPECT_EQ(status.text(), "Foreign Company");
    form.Type(U'f');
    EXPECT_EQ(status.text(), "Firm") << "round to the first";
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &free);
    form.Type(U'x');
    EXPECT_EQ(free.text(), "x");
}

TEST_F(OtherControls, AListTellsEntriesFromTheEmptySpot)
{
    List titles(form, "titles");
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&titles}}}});
    std::string trace;
    titles.onClick = [&](int entry) { trace += "c" + std::to_string(entry); };
    titles.onDoubleClick = [&](int entry) { trace += "d" + std::to_string(entry); };
    titles.SetItems({"one", "two"});
    form.SetFocus(titles);
    form.Press(Key::Enter); // nothing chosen: the empty spot
    form.Press(Key::Down);
    form.Press(Key::Down);
    form.Press(Key::Enter);
    form.Press(Key::Down); // behind the last
    form.Press(Key::Enter);
    EXPECT_EQ(trace, "d0c2d0");
}

TEST_F(OtherControls, AGridCountsItsHeadingAsRowZero)
{
    Grid lines(form, "lines", {{"Name", GridColumnKind::Text}, {"Amount", GridColumnKind::Amount}});
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&lines}}}});
    EXPECT_EQ(lines.currentRow(), 0);
    lines.SetRows({{"a", "1.00"}, {"b"}});
    EXPECT_EQ(lines.Cell(0, 1), "Amount");
    EXPECT_EQ(lines.Cell(1, 0), "a");
    EXPECT_EQ(lines.Cell(2, 1), "") << "a short row is filled up";
    EXPECT_THROW(lines.Cell(3, 0), std::out_of_range);
    lines.SetFooter({"2 lines"});
    EXPECT_EQ(lines.Rows(), 2) << "the footer is none of the rows";
    EXPECT_EQ(lines.footer(), (std::vector<std::string>{"2 lines", ""}));

    int chosen = 0;
    lines.onDoubleClick = [&](int row) { chosen = row; };
    form.SetFocus(lines);
    form.Press(Key::Down);
    form.Press(Key::Down);
    form.Press(Key::Enter);
    EXPECT_EQ(chosen, 2);
    lines.Clear();
    chosen = 0;
    form.Press(Key::Enter);
    EXPECT_EQ(chosen, 0);
}
