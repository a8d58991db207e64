#include "controls/form.h"

#include "controls/buttons.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/text_controls.h"
#include "support/test_boxes.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace pgbp;

namespace {

/// A main frame, a side frame over it and a bar.
class Hub : public Form {
  public:
    explicit Hub(MessageBoxes& boxes) : Form("Hub", "Hub", boxes, "Vorn")
    {
        framain.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Field},
                     .rows = {{{&cmdopen, &txtone}}, {{nullptr, &txttwo, &help}}},
                     .buttonsLeft = {&cmddetails}});
        side.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Field, LayoutColumn::Button},
                  .rows = {{{nullptr, &txtside}}, {{&cmdlookup, &txtamount, &cmdadd}}, {{nullptr, &rows}}},
                  .buttonsRight = {&cmdsave, &cmdcancel}});
        cmdsave.isDefault = true;
        side.onEscape = [this] { Lower(side); };
        bar = {&CmdBack};
        cmdopen.onClick = [this] { Raise(side, txtside); };
        lookup.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&txtlookup}}}});
        cmdcancel.onClick = [this] { Lower(side); };
        help.onClick = [this] { ++helped; };
    }
    Frame lookup{*this, "lookup"}; ///< declared before the frame that it is opened over
    txt txtlookup{*this, "txtlookup"};
    Frame framain{*this, "framain", "", FramePlace::Main};
    cmd cmdopen{*this, "cmdopen", "Normal Business"};
    cmd cmdbeside{*this, "cmdbeside", "Find"};
    txtn txtone{*this, "txtone"};
    txtn txttwo{*this, "txttwo"};
    Image help{*this, "help", "Topic"};
    int helped = 0;
    cmd cmddetails{*this, "cmddetails", "&Details"};
    Frame side{*this, "side"};
    txt txtside{*this, "txtside"};
    cmd cmdlookup{*this, "cmdlookup", "&Look up"};
    txtn txtamount{*this, "txtamount"};
    cmd cmdadd{*this, "cmdadd", "&Add"};
    Grid rows{*this, "rows", {{"Amount", GridColumnKind::Amount}}};
    cmd cmdsave{*this, "cmdsave", "&Save"};
    cmd cmdcancel{*this, "cmdcancel", "&Cancel"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    cmd cmdr{*this, "cmdr", "&R"};
};

class Forms : public testing::Test {
  protected:
    TestBoxes boxes;
    Hub form{boxes};
};

} // namespace

TEST_F(Forms, WalkRowByRowAndPassOverWhatCanNotBeReached)
{
    EXPECT_EQ(form.Stops(),
              (std::vector<Control*>{&form.cmdopen, &form.txtone, &form.txttwo, &form.cmddetails, &form.CmdBack}));
    form.txtone.enabled = false;
    form.cmddetails.visible = false;
    EXPECT_EQ(form.Stops(), (std::vector<Control*>{&form.cmdopen, &form.txttwo, &form.CmdBack}));
}

TEST_F(Forms, WalkByEnterFromFieldToFieldAndThenToTheMainButton)
{
    form.cmddetails.isDefault = true;
    form.SetFocus(form.txtone);
    form.framain.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Amount, LayoutColumn::Button},
                      .rows = {{{&form.cmdopen, &form.txtone, &form.cmdbeside}}, {{nullptr, &form.txttwo}}},
                      .buttonsLeft = {&form.cmddetails}});
    const auto expectWalk = [&](std::initializer_list<Control*> stops) {
        for (Control* stop : stops) {
            form.Press(Key::Enter);
            EXPECT_EQ(form.focused(), stop) << stop->name();
        }
    };
    expectWalk({&form.txttwo, &form.cmddetails}); // on a page every button beside an amount is passed over
    form.SetFocus(form.txttwo);
    form.cmddetails.enabled = false;
    expectWalk({&form.txtone}); // no main button: round to the first field
    form.Press(Key::Down);
    EXPECT_EQ(form.focused(), &form.cmdbeside) << "the arrow stops at each";

    form.Click(form.cmdopen);
    expectWalk({&form.txtamount, &form.cmdadd});
    form.cmdadd.enabled = false;
    form.SetFocus(form.txtamount);
    expectWalk({&form.rows});
    form.rows.visible = false;
    form.SetFocus(form.txtamount);
    expectWalk({&form.cmdsave});
}

TEST_F(Forms, CloseTheMainFrameWhileASideFrameIsUp)
{
    form.Click(form.cmdopen);
    EXPECT_EQ(form.focused(), &form.txtside);
    EXPECT_FALSE(form.txtone.Reachable());
    EXPECT_FALSE(form.SetFocus(form.txtone));
    EXPECT_TRUE(form.CmdBack.Reachable());
    form.Click(form.cmddetails); // behind the side frame: nothing happens
    EXPECT_EQ(form.focused(), &form.txtside);
    form.Press(Key::Escape);
    EXPECT_FALSE(form.side.visible);
    EXPECT_EQ(form.focused(), &form.cmdopen) << "the focus returns to where it was";
}

TEST_F(Forms, StackSideFramesInAnyOrderOfOpening)
{
    struct Step {
        Frame& card;
        Control& first;
    };
    const Step side{form.side, form.txtside};
    const Step lookup{form.lookup, form.txtlookup};
    for (const auto& [below, over] : {std::pair(side, lookup), std::pair(lookup, side)}) {
        form.SetFocus(form.txttwo);
        form.Raise(below.card, below.first);
        form.Raise(over.card, over.first);
        EXPECT_EQ(form.Card(), &over.card);
        EXPECT_TRUE(over.first.Reachable());
        EXPECT_FALSE(below.first.Reachable());
        form.Lower(over.card);
        EXPECT_EQ(form.focused(), &below.first);
        EXPECT_TRUE(below.first.Reachable());
        form.Raise(over.card, over.first);
        form.Lower(below.card); // takes along what lies over it
        EXPECT_FALSE(over.card.visible);
        EXPECT_EQ(form.focused(), &form.txttwo);
    }
}

TEST_F(Forms, GiveEveryButtonALetterOfItsOwn)
{
    auto letters = form.Mnemonics();
    EXPECT_EQ(letters.at(&form.cmddetails), 'D');
    EXPECT_EQ(letters.at(&form.CmdBack), 'B');
    EXPECT_EQ(letters.at(&form.cmdr), 'R') << "laid out nowhere, yet its hot key reaches it";
    EXPECT_EQ(letters.at(&form.cmdopen), 'N');
    EXPECT_EQ(letters.count(&form.cmdcancel), 0U);

    bool reminded = false;
    form.cmdr.onClick = [&] { reminded = true; };
    form.SetFocus(form.txtone);
    EXPECT_TRUE(form.Mnemonic(U'r'));
    EXPECT_TRUE(reminded);
    EXPECT_EQ(form.focused(), &form.txtone) << "a button out of sight does not take the focus";
    EXPECT_FALSE(form.Mnemonic(U'z'));
    form.cmddetails.enabled = false;
    EXPECT_FALSE(form.Mnemonic(U'd'));
}

TEST_F(Forms, OpenTheHelpOfTheFieldWithTheFocus)
{
    form.SetFocus(form.txtone);
    form.Press(Key::F1);
    EXPECT_EQ(form.helped, 0); // none in this row
    form.SetFocus(form.txttwo);
    form.Press(Key::F1);
    EXPECT_EQ(form.helped, 1);
    form.help.enabled = false;
    form.Press(Key::F1);
    EXPECT_EQ(form.helped, 1);
}

TEST_F(Forms, RunLostFocusBeforeAClick)
{
    std::string trace;
    form.txtone.onLostFocus = [&] { trace += "left "; };
    form.cmddetails.onClick = [&] { trace += "clicked"; };
    form.SetFocus(form.txtone);
    form.Click(form.cmddetails);
    EXPECT_EQ(trace, "left clicked");
}

TEST_F(Forms, LetAHandlerOfLeavingDecideWhereTheFocusGoes)
{
    form.txtone.onLostFocus = [&] { form.SetFocus(form.cmddetails); };
    form.SetFocus(form.txtone);
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &form.cmddetails);
    form.txtone.onLostFocus = [&] { form.SetFocus(form.txtone); };
    form.SetFocus(form.txtone);
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &form.txtone) << "a field may keep the focus";
}

TEST_F(Forms, ShowAnErrorOfAHandlerAndGoOn)
{
    form.cmddetails.onClick = [] { throw std::runtime_error("the store is gone"); };
    form.Click(form.cmddetails);
    const Message message = boxes.Take();
    EXPECT_EQ(message.text, "the store is gone");
    EXPECT_EQ(message.title, "Vorn");
    EXPECT_EQ(message.icon, Icon::Critical);
    form.Click(form.cmdopen);
    EXPECT_TRUE(form.side.visible);
}
