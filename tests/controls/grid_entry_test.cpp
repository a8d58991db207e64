#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "support/test_boxes.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

enum { kSerial, kWords, kAmount, kPrevious, kDetail };

/// A statement in small: amounts, a choice and a text in the preparer's own words are keyed in place.
class Statement : public testing::Test {
  protected:
    Statement()
    {
        framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&before}}, {{&link}}, {{&lines}}, {{&after}}}});
        lines.SetRows({{"A", "Income"},
                       {"1", "Sales", "1,250", "9", "=>"},
                       {"2", "No books", "7"},
                       {"3", "Fees", "", "", "=>"},
                       {"4", "my own", "5"},
                       {"", "Total", "1,255"},
                       {"5", "Audited", "Yes   "}});
        lines.HideRow(3);
        lines.ShowColumn(kPrevious, false);
        lines.SetEditors({&number, &words, &choice});
        choice.SetItems({"Yes", "No"});
        after.isDefault = true;
        link.onClick = [this] { clicked = "link"; };
        lines.canEnter = [](int row, int column) {
            return (column == kAmount && row != 1 && row != 6) || (column == kWords && row == 5);
        };
        lines.onEnterCell = [this](int row, int column) {
            TextBox& amount = row == 7 ? static_cast<TextBox&>(choice) : number;
            if (lines.canEnter(row, column))
                lines.PlaceEditor(column == kWords ? words : amount, row, column);
        };
        lines.onClickCell = [this](int row, int column) { clicked = lines.Cell(row, column); };
        number.onChange = [this] { lines.SetCell(lines.currentRow(), kAmount, number.text()); };
    }

    /// The current cell and the control with the focus, with its text where it is an editor.
    std::string Where() const
    {
        const Control* at = form.focused();
        return std::to_string(lines.currentRow()) + ' ' + std::to_string(lines.currentColumn()) + ' ' + at->name() +
               (at == lines.editor() ? " " + at->Shows() : "");
    }

    TestBoxes boxes;
    Form form{"F", "F", boxes, "Vorn"};
    Frame framain{form, "framain", "", FramePlace::Main};
    txt before{form, "before"};
    Label link{form, "link", "Details"};
    Grid lines{form,
               "lines",
               {{"Serial", GridColumnKind::Serial},
                {"Description"},
                {"Amount", GridColumnKind::Amount},
                {"Prev. Year", GridColumnKind::Amount},
                {"Detail", GridColumnKind::Mark}}};
    Txtn1 number{form, "number"};
    Txt1 words{form, "words"};
    combo choice{form, "choice"};
    cmd after{form, "after", "After"};
    std::string clicked;
};

} // namespace

TEST_F(Statement, WalksFromCellToCell)
{
    struct {
        const char* name;
        int row, column;
        std::vector<Key> keys;
        const char* at;
    } const rows[] = {
        {"down past the hidden row", 2, kAmount, {Key::Down}, "4 2 number "},
        {"up past it, to an amount without its groups", 4, kAmount, {Key::Up}, "2 2 number 1250"},
        {"up to a heading, and not beyond", 2, kAmount, {Key::Up, Key::Up}, "1 2 lines"},
        {"back from it", 2, kAmount, {Key::Up, Key::Down}, "2 2 number 1250"},
        {"Enter to the next cell that takes input", 2, kAmount, {Key::Enter}, "4 2 number "},
        {"to a text", 4, kAmount, {Key::Enter}, "5 1 words my own"},
        {"then its amount, and past a total", 5, kWords, {Key::Enter, Key::Enter}, "7 2 choice Yes"},
        {"out behind the last one", 7, kAmount, {Key::Enter}, "7 2 after"},
        {"arrows in a choice choose", 7, kAmount, {Key::Down}, "7 2 choice No"},
        {"to the first row that takes input", 7, kAmount, {Key::Home}, "2 2 number 1250"},
        {"to the last one from a text", 5, kWords, {Key::End}, "7 2 choice Yes"},
        {"a page down and up", 2, kAmount, {Key::PageDown, Key::PageUp}, "2 2 number 1250"},
        {"Tab", 4, kAmount, {Key::Tab}, "4 2 after"},
        {"Tab back, to a link", 4, kAmount, {Key::BackTab}, "4 2 link"},
        {"past which Enter goes", 4, kAmount, {Key::BackTab, Key::BackTab, Key::Enter}, "4 2 lines"},
        {"Escape to the grid, Enter into the cell", 4, kAmount, {Key::Escape, Key::Enter}, "4 2 number "},
        {"over a column that is not shown", 6, kAmount, {Key::Right, Key::Right}, "6 4 lines"},
    };
    for (const auto& row : rows) {
        form.SetFocus(before);
        choice = "Yes";
        form.Do([&] { lines.EnterCell(row.row, row.column); });
        for (const Key key : row.keys)
            form.Press(key);
        EXPECT_EQ(Where(), row.at) << row.name;
        for (const TextBox* editor : lines.editors())
            EXPECT_EQ(editor->visible, editor == lines.editor()) << row.name;
    }
}

TEST_F(Statement, TakesWhatIsTypedAndPasted)
{
    std::vector<std::string> pasted;
    int all = 0;
    lines.changed.Add([&] { ++all; });
    lines.onPaste = [&](int, int, const std::vector<std::string>& texts) { return !(pasted = texts).empty(); };
    lines.onType = [this](char32_t character) { return character == U'f' && !(clicked = "find").empty(); };
    lines.EnterCell(2, kAmount);
    number.Paste("5\r\n6\r\n");
    EXPECT_EQ(pasted, (std::vector<std::string>{"5", "6"}));
    number.Paste("12,000\n");
    EXPECT_EQ(lines.Cell(2, kAmount), "12000");
    form.Press(Key::Escape);
    form.Type(U'f');
    EXPECT_EQ(clicked, "find");
    form.Type(U'4');
    EXPECT_EQ(Where(), "2 2 number 4") << "a digit is keyed over the amount";
    form.Press(Key::Down);
    EXPECT_EQ(all, 0) << "each key told its cell alone";
    form.Press(Key::Escape);
    form.Press(Key::Right);
    form.Press(Key::Right);
    form.Type(U' ');
    EXPECT_EQ(clicked, "=>");

    lines.EnterCell(2, kAmount);
    form.Type(U'=');
    form.Type(U'x');
    form.Press(Key::Down);
    EXPECT_EQ(Where(), "2 2 number 4") << "a line of arithmetic without a result does not let go";
    form.Do([&] { lines.SetRows({{"1", "Rent", "3"}}); });
    EXPECT_EQ(Where(), "1 2 lines") << "the cell is gone";
}
