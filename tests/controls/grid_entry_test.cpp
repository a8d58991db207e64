#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "support/test_boxes.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

enum Columns { Serial, Words, Amount, Previous, Detail };

/// A statement in small: amounts, a choice and a text in the preparer's own words are keyed in place.
class Statement : public testing::Test {
  protected:
    Statement()
    {
        framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&before}}, {{&link}}, {{&lines}}, {{&after}}}});
        lines.SetRows({{"A", "Income", "", "", ""},
                       {"1", "Sales", "1,250", "9", "=>"},
                       {"2", "No books", "7", "", ""},
                       {"3", "Fees", "", "", "=>"},
                       {"4", "my own", "5", "", ""},
                       {"", "Total", "1,255", "", ""},
                       {"5", "Audited", "Yes   ", "", ""}});
        lines.HideRow(3);
        lines.ShowColumn(Previous, false);
        lines.SetEditors({&number, &words, &choice});
        choice.SetItems({"Yes", "No"});
        lines.canEnter = [](int row, int column) {
            return (column == Amount && row != 1 && row != 6) || (column == Words && row == 5);
        };
        lines.onEnterCell = [this](int row, int column) {
            ++entered;
            if (column == Words && row == 5)
                lines.PlaceEditor(words, row, column);
            else if (lines.canEnter(row, column))
                lines.PlaceEditor(row == 7 ? static_cast<TextBox&>(choice) : number, row, column);
        };
        lines.onClickCell = [this](int row, int column) { clicked = lines.Cell(row, column); };
        number.onChange = [this] { lines.SetCell(lines.currentRow(), Amount, number.text()); };
        after.isDefault = true;
        framain.onEscape = [this] { clicked = "escape of the frame"; };
    }

    /// "row column control", the text behind it where an editor stands.
    std::string Where() const
    {
        const Control* at = form.focused();
        return std::to_string(lines.currentRow()) + ' ' + std::to_string(lines.currentColumn()) + ' ' + at->name() +
               (at == lines.editor() ? " " + at->Shows() : "");
    }
    void EnterCell(int row, int column)
    {
        form.Do([&] { lines.EnterCell(row, column); });
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
    int entered = 0;
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
        {"an amount without its groups", 2, Amount, {}, "2 2 number 1250"},
        {"down past the hidden row", 2, Amount, {Key::Down}, "4 2 number "},
        {"up past it", 4, Amount, {Key::Up}, "2 2 number 1250"},
        {"up to a heading, and not beyond", 2, Amount, {Key::Up, Key::Up}, "1 2 lines"},
        {"back from it", 2, Amount, {Key::Up, Key::Down}, "2 2 number 1250"},
        {"Enter to the next cell that takes input", 2, Amount, {Key::Enter}, "4 2 number "},
        {"to a text, then its amount", 4, Amount, {Key::Enter}, "5 1 words my own"},
        {"past a total, to a choice", 4, Amount, {Key::Enter, Key::Enter, Key::Enter}, "7 2 choice Yes"},
        {"from a total", 6, Amount, {Key::Enter}, "7 2 choice Yes"},
        {"out behind the last one", 7, Amount, {Key::Enter}, "7 2 after"},
        {"arrows in a choice choose", 7, Amount, {Key::Down}, "7 2 choice No"},
        {"to the first row that takes input", 7, Amount, {Key::Home}, "2 2 number 1250"},
        {"to the last one", 2, Amount, {Key::End}, "7 2 choice Yes"},
        {"a page down and up", 2, Amount, {Key::PageDown, Key::PageUp}, "2 2 number 1250"},
        {"to the last one from a text", 5, Words, {Key::End}, "7 2 choice Yes"},
        {"Tab", 4, Amount, {Key::Tab}, "4 2 after"},
        {"Tab back", 4, Amount, {Key::BackTab}, "4 2 link"},
        {"Escape to the grid", 4, Amount, {Key::Escape}, "4 2 lines"},
        {"and into the cell again", 4, Amount, {Key::Escape, Key::Enter}, "4 2 number "},
        {"to the left of a text", 5, Words, {Key::Escape, Key::Left, Key::Left}, "5 0 lines"},
        {"over a column that is not shown", 6, Amount, {Key::Right, Key::Right}, "6 4 lines"},
    };
    link.onClick = [] {};
    for (const auto& row : rows) {
        form.SetFocus(before);
        choice = "Yes";
        EnterCell(row.row, row.column);
        for (const Key key : row.keys)
            form.Press(key);
        EXPECT_EQ(Where(), row.at) << row.name;
        for (const TextBox* editor : lines.editors())
            EXPECT_EQ(editor->visible, editor == lines.editor()) << row.name;
    }
}

TEST_F(Statement, TellsOneCellAtAKey)
{
    int cells = 0;
    int all = 0;
    lines.cellChanged.Add([&](int, int) { ++cells; });
    lines.changed.Add([&] { ++all; });
    EnterCell(4, Amount);
    EXPECT_EQ(cells, 0) << "placing is no change";
    form.Type(U'8');
    form.Type(U'0');
    form.Press(Key::Down);
    EXPECT_EQ(lines.Cell(4, Amount), "80");
    EXPECT_EQ(cells, 2);
    EXPECT_EQ(all, 0);
}

TEST_F(Statement, ActsAgainOnTheSameCellAndOnAClick)
{
    EnterCell(2, Detail);
    EnterCell(2, Detail);
    EXPECT_EQ(entered, 2);
    EXPECT_EQ(clicked, "");
    form.SetFocus(lines);
    form.Type(U' ');
    EXPECT_EQ(clicked, "=>");
    EnterCell(3, Amount);
    EXPECT_EQ(lines.currentRow(), 2) << "a hidden row";
}

TEST_F(Statement, LeavesTheEditorWhereItIsToLeave)
{
    EnterCell(2, Amount);
    form.Press(Key::Escape);
    EXPECT_EQ(clicked, "");
    form.Press(Key::Escape);
    EXPECT_EQ(clicked, "escape of the frame");

    EnterCell(2, Amount);
    form.Type(U'=');
    form.Type(U'x');
    form.Press(Key::Down);
    EXPECT_EQ(Where(), "2 2 number 1250") << "an open line of arithmetic holds the keys";
    form.Do([&] { lines.SetRows({{"1", "Rent", "3"}}); });
    EXPECT_EQ(Where(), "1 2 lines") << "the cell is gone";

    Frame card(form, "card", "Card");
    txt inCard(form, "inCard");
    card.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&inCard}}}});
    EnterCell(1, Amount);
    EnterCell(1, Words);
    EXPECT_EQ(Where(), "1 1 lines");
    form.Do([&] { lines.PlaceEditor(number, 1, Amount); });
    form.Do([&] { form.Raise(card, inCard); });
    EXPECT_FALSE(number.visible);
    form.Do([&] { form.Lower(card); });
    EXPECT_EQ(Where(), "1 2 lines");
}

TEST_F(Statement, TypesAndPastesFromTheGrid)
{
    std::vector<std::string> pasted;
    std::string looked;
    lines.onPaste = [&](int, int column, const std::vector<std::string>& texts) {
        pasted = texts;
        return column == Amount;
    };
    lines.onType = [&](char32_t character) {
        const bool isLetter = character >= U'a';
        looked += isLetter ? static_cast<char>(character) : '\0';
        return isLetter;
    };
    lines.onFind = [&] { looked += "find"; };
    EnterCell(2, Amount);
    form.Press(Key::Find);
    form.Do([&] { number.Paste("5\r\n6\r\n"); });
    EXPECT_EQ(pasted, (std::vector<std::string>{"5", "6"}));
    EXPECT_EQ(number.text(), "1250") << "the screen took the lines";
    form.Do([&] { number.Paste("12,000\n"); });
    EXPECT_EQ(lines.Cell(2, Amount), "12000");
    form.Press(Key::Escape);
    form.Type(U'f');
    EXPECT_EQ(looked, "findf");
    form.Type(U'4');
    EXPECT_EQ(Where(), "2 2 number 4") << "a digit is keyed over the amount";
    form.Press(Key::Escape);
    form.Do([&] { lines.Paste("77"); });
    EXPECT_EQ(Where(), "2 2 number 77");
}

TEST_F(Statement, KeepsLooksAndTheTextsOfHiddenRows)
{
    lines.SetRowLook(5, CellLook::Computed);
    lines.SetCellLook(5, Words, CellLook::Own);
    EXPECT_EQ(lines.Look(5, Words), CellLook::Own);
    EXPECT_EQ(lines.Look(5, Amount), CellLook::Computed);
    lines.SetCellLook(5, Words, CellLook::Plain);
    EXPECT_EQ(lines.Look(5, Words), CellLook::Computed);
    EXPECT_EQ(lines.ShownRows(), 6);
    EXPECT_EQ(lines.Shows().find("No books"), std::string::npos);
    EXPECT_EQ(lines.Cell(3, Amount), "7");
}

TEST_F(Statement, HasLinksThatEnterPassesBy)
{
    int clicks = 0;
    link.onClick = [&] { ++clicks; };
    form.SetFocus(before);
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &lines);
    form.SetFocus(before);
    form.Press(Key::Tab);
    form.Press(Key::Enter);
    form.Type(U' ');
    form.Click(link);
    EXPECT_EQ(clicks, 3);
}
