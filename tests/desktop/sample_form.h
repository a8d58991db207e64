#pragma once

#include "controls/buttons.h"
#include "controls/date_control.h"
#include "controls/form.h"
#include "controls/frame.h"
#include "controls/grid.h"
#include "controls/lists.h"
#include "desktop/actions.h"
#include "desktop/form_view.h"
#include "support/test_boxes.h"

#include <QApplication>
#include <QTest>

namespace pgbp {

/// A form with every kind of control.
class SampleForm : public Form {
  public:
    explicit SampleForm(MessageBoxes& boxes) : Form("Sample", "Sample", boxes, "Vorn")
    {
        note.multiLine = true;
        kinds.SetItems({"Individual", "Firm", "Company"});
        place.SetItems({"Pune", "Surat"});
        titles.SetItems({"Audit", "Loans"});
        lines.SetRows({{"1", "Shop", "-1250.50", "x"}, {"2", "Mill", "300.00", "y"}, {"3", "Farm", "0.00", "z"}});
        framain.Lay({.columns = {LayoutColumn::Button, LayoutColumn::Caption, LayoutColumn::Field, LayoutColumn::Amount,
                                 LayoutColumn::Previous},
                     .rows = {{{nullptr, nullptr, nullptr, &heading, &headingP}, RowStyle::Heading},
                              {{&cmdopen, &caption, &name, &amount, &amountP}},
                              {{nullptr, nullptr, &day, &fixed}},
                              {{nullptr, nullptr, &kinds, &place}},
                              {{nullptr, nullptr, &tick, nullptr}},
                              {{nullptr, nullptr, &first, nullptr}},
                              {{nullptr, nullptr, &second, &help}},
                              {{nullptr, &totalCaption, nullptr, &total, &totalP}, RowStyle::Total},
                              {{&lines}},
                              {{&titles}},
                              {{&note}},
                              {{nullptr, &netCaption, nullptr, &net}, RowStyle::Final}},
                     .buttonsLeft = {&cmddetails}});
        side.Lay({.columns = {LayoutColumn::Field, LayoutColumn::Button},
                  .rows = {{{&sidetext}},
                           {.cells = {&sidenote}, .keepsPlace = true},
                           {{&sideamount, &cmdadd}},
                           {{&siderows}}},
                  .buttonsRight = {&cmdcancel}});
        side.onEscape = [this] { cmdcancel.Click(); };
        bar = {&CmdBack};
        cmdcancel.onClick = [this] { Lower(side); };
    }

    Frame framain{*this, "framain", "Lines", FramePlace::Main};
    Label heading{*this, "heading", "This year"};
    Label headingP{*this, "headingP", "Previous Year"};
    cmd cmdopen{*this, "cmdopen", "Normal Business"};
    Label caption{*this, "caption", "Profits && Gains :"};
    txt name{*this, "name"};
    txtn amount{*this, "amount"};
    Label amountP{*this, "amountP", "-5.00", LabelLook::Amount};
    txtdate day{*this, "day"};
    Txtn1 fixed{*this, "fixed"};
    combo kinds{*this, "kinds"};
    combo place{*this, "place", true};
    CheckBox tick{*this, "tick", "Audited"};
    Option first{*this, "first", "Cash"};
    Option second{*this, "second", "Mercantile"};
    Image help{*this, "help", "Topic"};
    Label totalCaption{*this, "totalCaption", "Total"};
    Label total{*this, "total", "0.00", LabelLook::Amount};
    Label totalP{*this, "totalP", "0.00", LabelLook::Amount};
    Grid lines{*this,
               "lines",
               {{"No", GridColumnKind::Serial},
                {"Description", GridColumnKind::Text},
                {"Profit", GridColumnKind::Amount},
                {"Key", GridColumnKind::Hidden}}};
    List titles{*this, "titles"};
    Txt1 note{*this, "note"};
    Label netCaption{*this, "netCaption", "Net"};
    Label net{*this, "net", "1049.50", LabelLook::Amount};
    cmd cmddetails{*this, "cmddetails", "&Details"};
    Frame side{*this, "side", "Side"};
    txt sidetext{*this, "sidetext"};
    txt sidenote{*this, "sidenote"};
    txtn sideamount{*this, "sideamount"};
    cmd cmdadd{*this, "cmdadd", "&Add"};
    Grid siderows{
        *this,
        "siderows",
        {{"No", GridColumnKind::Text}, {"Description", GridColumnKind::Text, 9}, {"%", GridColumnKind::Rate}}};
    cmd cmdcancel{*this, "cmdcancel", "&Cancel"};
    cmd CmdBack{*this, "CmdBack", "&Back"};
    cmd notLaidOut{*this, "notLaidOut", "&Hidden letter"};
};

/// The sample in a window.
class ShownForm : public testing::Test {
  protected:
    ShownForm()
    {
        view.resize(1100, 760);
        view.show();
        Settle();
    }

    /// Lets the window take in what was posted to it.
    static void Settle()
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }

    QWidget* KeyboardOf(const Control& control) { return view.Find(&control)->keyboard(); }
    template <typename Widget>
    Widget& WidgetOf(const Control& control)
    {
        return *qobject_cast<Widget*>(view.Find(&control)->keyboard());
    }
    void Focus(Control& control)
    {
        view.Act([&] { form.SetFocus(control); });
        ASSERT_TRUE(FormView::HasKeyboard(*KeyboardOf(control))) << control.name();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier)
    {
        QTest::keyClick(view.focusWidget(), key, held);
    }
    void Type(const char* keys)
    {
        for (const char32_t c : QString::fromUtf8(keys).toStdU32String())
            QTest::sendKeyEvent(QTest::Click, view.focusWidget(), Qt::Key_unknown, QString::fromUcs4(&c, 1), {});
    }

    TestBoxes boxes;
    SampleForm form{boxes};
    Actions actions;
    FormView view{form, actions};
};

} // namespace pgbp
