#include "drive/interpreter.h"

#include "controls/buttons.h"
#include "controls/date_control.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "drive/key_script.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// Every kind of control that a script can act on.
class Board : public Screen {
  public:
    explicit Board(Run& itsRun) : Screen(itsRun, "Board", "A & B")
    {
        framain.Lay(
            {.columns = {LayoutColumn::Field},
             .rows = {
                 {{&txtname}}, {{&amount}}, {{&sold}}, {{&status}}, {{&titles}}, {{&lines}}, {{&ask}}, {{&link}}}});
        status.SetItems({"Individual", "Firm"});
        titles.SetItems({"one", "two"});
        lines.SetRows({{"a", "1.00"}, {"b", "2.00"}});
        lines.SetFooter({"2 lines", "3.00"});
        amount.onChange = [this] { sum = Val(amount) > 100 ? "large" : "small"; };
        ask.onClick = [this] {
            const bool yes = boxes().Show({"Line one\nline two", "Vorn - Deletion", Icon::Question, Buttons::YesNo,
                                           Answer::No}) == Answer::Yes;
            sum = yes ? "yes" : "no";
        };
        lines.onDoubleClick = [this](int row) { sum = lines.Cell(row, 0); };
        titles.onDoubleClick = [this](int entry) { sum = "entry " + std::to_string(entry); };
        lines.SetEditors({&cell});
        lines.onEnterCell = [this](int row, int column) {
            if (column == 1)
                lines.PlaceEditor(cell, row, column);
        };
        cell.onChange = [this] { lines.SetCell(lines.currentRow(), 1, cell.text()); };
        link.onClick = [this] { sum = "followed"; };
        secret.visible = false;
        frozen.enabled = false;
    }
    Frame framain{*this, "framain", "", FramePlace::Main};
    txt txtname{*this, "txtname"};
    txtn amount{*this, "TxtNetAd(0)"};
    txtdate sold{*this, "sold"};
    combo status{*this, "status"};
    List titles{*this, "titles"};
    Grid lines{*this, "lines", {{"Name", GridColumnKind::Text}, {"Amount", GridColumnKind::Amount}}};
    txtn cell{*this, "cell"};
    cmd ask{*this, "ask", "&Ask"};
    Label link{*this, "link", "Details"};
    Label sum{*this, "sum"};
    cmd secret{*this, "secret", "Secret"};
    cmd frozen{*this, "frozen", "Frozen"};
    Frame fra1{*this, "fra1", "", FramePlace::Card};
};

class Driver : public testing::Test {
  protected:
    Driver()
    {
        constexpr ScreenName<NoOpening> kBoard{"Board"};
        run.screens.Register<Board>(kBoard);
        run.screens.Show(kBoard);
    }

    /// What the script printed, or its error behind "error: ".
    std::string Play(const std::string& text)
    {
        std::istringstream script(text);
        std::ostringstream out;
        try {
            Interpreter(run, boxes, files, transcript).ExecuteScript(script, out);
        } catch (const DriveError& error) {
            return out.str() + "error: " + error.what();
        }
        return out.str();
    }

    EmptyPractice practice;
    std::ostringstream transcript;
    DrivenBoxes boxes{transcript};
    DrivenFiles files;
    pgbp::Run run{{boxes, files, practice.processes, practice.folder.path()}};
};

} // namespace

TEST_F(Driver, DoesWhatAPersonDoes)
{
    EXPECT_EQ(Play("show\n"
                   "get Board.caption\n"
                   "set Board.txtname O'Brien & Sons, 100%; \"best\"\n"
                   "get Board.txtname\n"
                   "set Board.TxtNetAd(0) 12x5.678\n" // the filter drops the letter and the third place
                   "get Board.TxtNetAd(0)\n"
                   "keys Board.TxtNetAd(0) {SELECTALL}-7{ENTER}\n"
                   "get Board.TxtNetAd(0)\n"
                   "get Board.sum\n"
                   "set Board.TxtNetAd(0)\n"
                   "get Board.TxtNetAd(0)\n"
                   "set Board.sold 31032024\n"
                   "get Board.sold\n"
                   "select Board.status \"Firm\"\n"
                   "get Board.status\n"
                   "dblclick Board.titles 0\n"
                   "get Board.sum\n"
                   "rows Board.titles\n"
                   "cell Board.titles 2\n"
                   "rows Board.lines\n"
                   "cell Board.lines 0 1\n"
                   "cell Board.lines 2 1\n"
                   "get Board.lines.footer\n"
                   "dblclick Board.lines 2\n"
                   "get Board.sum\n"),
              "Board A & B\nA & B\nO'Brien & Sons, 100%; \"best\"\n125.67\n-7\nsmall\n\n31-03-2024\nFirm\nentry "
              "0\n2\ntwo\n2\nAmount\n2.00\n2 lines\t3.00\nb\n");
}

TEST_F(Driver, EntersCells)
{
    auto& lines = dynamic_cast<Board&>(*run.screens.Find("Board")).lines;
    lines.SetRows({{"a", "1.00"}, {"b", "2.00"}, {"c", "3.00"}});
    lines.HideRow(2);
    lines.SetRowLook(3, CellLook::Computed);
    EXPECT_EQ(Play("rows Board.lines\n"
                   "look Board.lines 1 0\n"
                   "look Board.lines 2 0\n"
                   "look Board.lines 3 1\n"
                   "enter Board.lines 1 1\n"
                   "keys Board 250{DOWN}12{ESC}\n"
                   "get Board.cell.visible\n"
                   "enter Board.lines 3 1\n"
                   "enter Board.lines 3 1\n"
                   "set Board.cell 40\n"
                   "get Board.lines\n"
                   "click Board.link\n"
                   "get Board.sum\n"
                   "set Board.cell 5\n"),
              "2\nplain\nhidden\ncomputed\nfalse\na\t250\\nc\t40\nfollowed\nerror: line 14: Board.cell is hidden");
    EXPECT_EQ(Play("enter Board.lines 2 1\n"), "error: line 1: the cell 2 1 of Board.lines is hidden");
}

TEST_F(Driver, KeepsTheBlanksOfAQuotedText)
{
    EXPECT_EQ(Play("set Board.txtname \" a \"\nget Board.txtname\n"), " a \n");
    EXPECT_EQ(Play("keys Board.txtname \"{END} b{BACKSPACE}c \"\nget Board.txtname\n"), " a  c \n");
    EXPECT_EQ(Play("set Board.txtname \"\"Mall\"\"\nget Board.txtname\n"), "\"Mall\"\n");
}

TEST_F(Driver, SaysThatTheRunHasEnded)
{
    EXPECT_EQ(Play("say a word\nshow\ncross\nshow\n"), "a word\nBoard A & B\nended\n");
    run.screens.End();
    EXPECT_EQ(Play("show\nget Board.sum\n"), "ended\nerror: line 2: the run has ended");
}

TEST_F(Driver, AnswersBoxesAndPrintsThem)
{
    const std::string box = "message | Vorn - Deletion | Yes, No | Line one\\nline two\n";
    EXPECT_EQ(Play("click Board.ask\nget Board.sum\n"), box + "no\n") << "the default button";
    EXPECT_EQ(Play("answer Yes\nkeys Board {ALT+A}\nget Board.sum\n"), box + "yes\n");
    EXPECT_EQ(Play("answer OK\nclick Board.ask\n"),
              box + "error: line 2: the box has no button OK: Line one\nline two");
    EXPECT_EQ(Play("answer Yes\n"), "error: an answer was left over: its box never came");
}

TEST_F(Driver, RefusesWhatAPersonCouldNotDo)
{
    const std::pair<const char*, const char*> rows[] = {
        {"fly", "there is no command fly"},
        {"get Nowhere.txt", "there is no form Nowhere now"},
        {"get Board.nothing", "the form Board has no control nothing"},
        {"get Board.sum.colour", "there is no property colour"},
        {"get Board.sum.footer", "there is no property footer"},
        {"click Board.secret", "Board.secret is hidden"},
        {"click Board.frozen", "Board.frozen is disabled"},
        {"click Board.txtname", "txtname is no button"},
        {"set Board.ask 5", "ask is no text field"},
        {"cell Board.txtname 0 0", "txtname is no grid or list"},
        {"cell Board.titles 3", "titles has no entry 3"},
        {"cell Board.lines one 0", "a number is wanted, not \"one\""},
        {"cell Board.lines 1 9", "lines has no cell 1 9"},
        {"dblclick Board.titles 99999999999", "a number is wanted, not \"99999999999\""},
        {"dblclick Board.lines 3", "Board.lines has no row 3"},
        {"select Board.status \"Trust\"", "Board.status has no entry \"Trust\""},
        {"keys Board.txtname {F99}", "there is no key {F99}"},
        {"keys Board.txtname {ENTER", "a brace is not closed"},
        {"keys Board {ALT+Z}", "no button in front has the letter Z"},
        {"answer Maybe", "an answer is Yes, No or OK, not \"Maybe\""},
        {"sql nowhere select 1", "there is no data file nowhere"},
    };
    for (const auto& [command, complaint] : rows)
        EXPECT_EQ(Play(std::string("\n") + command + '\n'), std::string("error: line 2: ") + complaint);
}

TEST_F(Driver, HoldsTheScriptToItsExpectations)
{
    EXPECT_EQ(Play("get Board.status\n\n# empty\n>\nshow\n> Board A & B\n"), "\nBoard A & B\n");
    EXPECT_EQ(Play("show\n> Board\n"),
              "Board A & B\nerror: line 2: expected \"Board\", but \"Board A & B\" was printed");
    EXPECT_EQ(Play("# nothing\n> more\n"), "error: line 2: expected \"more\", but nothing more was printed");
    EXPECT_EQ(Play("dump Board\n> framain =\nshow\n"),
              Play("dump Board\n") + "error: line 3: also printed: \"txtname =\"");
}

TEST_F(Driver, GoesOnBehindAnErrorWhereToldTo)
{
    std::istringstream script("click Board.secret\nget Board.status\n");
    std::ostringstream out;
    Interpreter interpreter(run, boxes, files, transcript);
    EXPECT_THROW(interpreter.ExecuteScript(script, out, OnError::GoOn), DriveError);
    EXPECT_EQ(out.str(), "error | line 1: Board.secret is hidden\n\n");
}

TEST(KeyScript, ReadsCharactersAndNames)
{
    EXPECT_EQ(ReadKeys("a{{b{ENTER}\xE0\xA4\x95").size(), 5U);
    EXPECT_EQ(std::get<Key>(ReadKeys("{backtab}")[0]), Key::BackTab);
    EXPECT_EQ(std::get<char32_t>(ReadKeys("{{")[0]), U'{');
    EXPECT_EQ(std::get<AltKey>(ReadKeys("{ALT+r}")[0]).letter, U'R');
}
