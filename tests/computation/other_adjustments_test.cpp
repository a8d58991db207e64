#include "computation/other_adjustments.h"

#include "computation/Frm10ABC.h"
#include "support/empty_practice.h"
#include "support/typing.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// A screen with nothing but the frame and the button that opens it.
class Owner : public Screen {
  public:
    explicit Owner(pgbp::Run& itsRun) : Screen(itsRun, "owner", "Normal Business")
    {
        framain.Lay({.columns = {LayoutColumn::Button}, .rows = {{{&cmdother}}}});
        cmdother.onClick = [this] { other.Open(); };
    }

    Frame framain{*this, "framain", "", FramePlace::Main};
    cmd cmdother{*this, "cmdother", "&Other"};
    std::vector<std::string> listsOpened;
    int balances = 0;
    OtherAdjustments other{*this,
                           {.openList = [this](std::string_view type) { listsOpened.emplace_back(type); },
                            .balance = [this] { ++balances; }}};
};

class Other : public testing::Test {
  protected:
    Owner& Begin(const char* year = "2023-24")
    {
        practice.handOver.Glyear = year;
        practice.handOver.Glcode = std::string("A0001r") + year;
        auto& run = practice.Start();
        constexpr ScreenName<NoOpening> kOwner{"owner"};
        run.screens.Register<Owner>(kOwner);
        run.screens.Show(kOwner);
        auto& owner = static_cast<Owner&>(*run.screens.OnDisplay());
        owner.Click(owner.cmdother);
        return owner;
    }

    /// Sections of the suite's table; call before Begin.
    void Sections(std::initializer_list<std::pair<const char*, const char*>> sections)
    {
        int serial = 10; // the serial orders the sections and is no index
        for (const auto& [code, description] : sections)
            practice.Tax().Insert("air",
                                  {{"type", "10ABC"}, {"srno", serial--}, {"code", code}, {"descr", description}});
    }

    void Detail(const char* type, std::initializer_list<Field> more)
    {
        std::vector<Field> fields{{"code", practice.run->Code()}, {"Type", type}};
        fields.insert(fields.end(), more);
        practice.run->qeltemp.Insert("temp1", fields);
    }

    /// The working rows of a type, one a line: texts, then amounts.
    std::string Details(const char* type) const
    {
        std::string lines;
        for (const Row row : practice.run->qeltemp.Query(
                 "select name1, name2, amt1, amt2, amt3, amt4 from {temp1} where [Type] = ? order by amt4, rowid",
                 type)) {
            for (std::size_t i = 0; i < row.Size(); ++i)
                lines += (i == 0 ? "" : "|") + row.At(i).Text();
            lines += '\n';
        }
        return lines;
    }

    static void TypeInto(Form& form, TextBox& field, const std::string& text)
    {
        form.Do([&] { form.SetFocus(field); });
        TypeText(form, text);
    }

    /// The 10A to 10C frame of an assessee who claims it.
    Section10abc& OpenSections(Owner& owner)
    {
        owner.Click(owner.other.section10abc.chk10abc1);
        owner.Click(owner.other.section10abc.cmd10abc);
        return owner.other.section10abc;
    }

    Frm10ABC& OpenSection(Owner& owner, std::size_t index)
    {
        owner.Click(owner.other.section10abc.lines[index].Cmd10A);
        return dynamic_cast<Frm10ABC&>(*practice.run->screens.OnDisplay());
    }

    static void AddItem(Frm10ABC& form, const std::string& description, const std::string& amount)
    {
        TypeInto(form, form.TxtDescr, description);
        TypeInto(form, form.TxtAmt, amount);
        form.Click(form.CmdAdd);
    }

    EmptyPractice practice;
};

} // namespace

TEST_F(Other, OneFrameAtATimeAndTheFocusGoesBack)
{
    Sections({{"10A", "Free trade zone"}});
    Owner& form = Begin();
    OtherAdjustments& other = form.other;
    EXPECT_EQ(form.focused(), &other.cmd564);
    form.Click(other.section10abc.chk10abc1);
    struct {
        const char* name;
        cmd& button;
        Frame& opened;
        cmd& back;
        const Control& focus;
    } const rows[] = {
        {"section 35", other.Cmd35, other.section35.Fra35, other.section35.CmdCanc35, other.section35.lines[0].Txt_1},
        {"section 35 saved", other.Cmd35, other.section35.Fra35, other.section35.CmdSave35,
         other.section35.lines[0].Txt_1},
        {"10A to 10C", other.section10abc.cmd10abc, other.section10abc.Fra10abc, other.section10abc.CmdBack10,
         other.section10abc.lines[0].Cmd10A},
    };
    for (const auto& row : rows)
        for (const bool byEscape : {false, true}) {
            SCOPED_TRACE(std::string(row.name) + (byEscape ? ", Escape" : ""));
            form.Click(row.button);
            EXPECT_EQ(form.Card(), &row.opened);
            EXPECT_EQ(form.focused(), &row.focus);
            const int before = form.balances;
            byEscape ? form.Press(Key::Escape) : form.Click(row.back);
            EXPECT_EQ(form.Card(), &other.fra3);
            EXPECT_FALSE(row.opened.visible);
            EXPECT_EQ(form.focused(), &row.button);
            EXPECT_EQ(form.balances, before + 1);
        }
    const int before = form.balances;
    form.Press(Key::Escape);
    EXPECT_EQ(form.Card(), nullptr);
    EXPECT_EQ(form.focused(), &form.cmdother);
    EXPECT_EQ(form.balances, before + 1);
}

TEST_F(Other, Until2006ThereIsNoSection35AndAPlainListOf10A)
{
    for (const auto& [year, hasFrames] : {std::pair("2006-07", false), std::pair("2007-08", true)}) {
        SCOPED_TRACE(year);
        Owner& form = Begin(year);
        for (const Control* control :
             std::initializer_list<Control*>{&form.other.Cmd35, &form.other.Lbl35c, &form.other.Lbl35})
            EXPECT_EQ(control->visible, hasFrames) << control->name();
        EXPECT_EQ(OpenSections(form).Fra10abc.visible, hasFrames);
        EXPECT_EQ(form.listsOpened, hasFrames ? std::vector<std::string>{} : std::vector<std::string>{"10abc"});
    }
}

TEST_F(Other, Section35ShowsWhatIsStoredAndAddsUp)
{
    Owner& form = Begin();
    Section35& frame = form.other.section35;
    Detail("35", {{"amt4", 0}, {"amt1", 100}, {"amt2", 150.255}, {"amt3", 1}});
    Detail("35", {{"amt4", 5}, {"amt1", 40.5}, {"amt2", 10}});
    Detail("568", {{"amt4", 1}, {"amt1", 7}, {"amt2", 7}});
    for (const Value& stray : {Value(6), Value(-1), Value(0.5), Value(1e300), Value()})
        Detail("35", {{"amt4", stray}, {"amt1", 9}, {"amt2", 9}});
    form.Click(form.other.Cmd35);
    struct {
        std::size_t index;
        const char* clause;
        const char* debited;
        const char* allowable;
        const char* deducted;
    } const rows[] = {{0, "35(1)(i)", "100.00", "150.26", "50.26"},
                      {1, "35(1)(ii)", "0.00", "0.00", "0.00"},
                      {5, "35(2AB)", "40.50", "10.00", "-30.50"}};
    for (const auto& row : rows) {
        const Section35::Line& line = frame.lines[row.index];
        EXPECT_EQ(line.Label34.text(), row.clause);
        EXPECT_EQ(line.Txt_1.text(), row.debited) << row.clause;
        EXPECT_EQ(line.Txt_2.text(), row.allowable) << row.clause;
        EXPECT_EQ(line.Txt_3.text(), row.deducted) << row.clause;
    }
    TypeInto(form, frame.lines[2].Txt_2, "1000.75");
    EXPECT_EQ(frame.LblTot_1.text(), "140.50");
    EXPECT_EQ(frame.LblTot_2.text(), "1161.01");
    EXPECT_EQ(frame.LblTot_3.text(), "1020.51");
    form.Click(frame.CmdCanc35);
    form.Click(form.other.Cmd35);
    EXPECT_EQ(frame.LblTot_2.text(), "160.26") << "a cancelled entry is forgotten";
}

TEST_F(Other, Section35IsSavedAsSixRowsEvenWhenAllAreZero)
{
    Owner& form = Begin();
    Section35& frame = form.other.section35;
    Detail("35", {{"name1", "stale"}, {"amt4", 17}, {"amt1", 3}});
    Detail("568", {{"name1", "kept"}});
    practice.run->qeltemp.Insert("temp1", {{"code", "other"}, {"Type", "35"}, {"name1", "of another"}, {"amt4", 99}});
    form.Click(form.other.Cmd35);
    form.Click(frame.CmdSave35);
    EXPECT_EQ(Details("35"), "35(1)(i)||0|0|0|0\n35(1)(ii)||0|0|0|1\n35(1)(iii)||0|0|0|2\n35(1)(iv)||0|0|0|3\n"
                             "35(2AA)||0|0|0|4\n35(2AB)||0|0|0|5\nof another|||||99\n");
    EXPECT_EQ(Details("568"), "kept|||||\n");
    form.Click(form.other.Cmd35);
    TypeInto(form, frame.lines[4].Txt_1, "999999999999.99");
    form.Press(Key::Enter);
    TypeText(form, "0.01");
    form.Click(frame.CmdSave35);
    EXPECT_NE(Details("35").find("35(2AA)||999999999999.99|0.01|-999999999999.98|4\n"), std::string::npos);
}

TEST_F(Other, SectionsComeFromTheSuitesTable)
{
    Sections({{"10C", "North East"}, {"10B", "R&D exporter"}, {"10A", "Free trade zone"}});
    Owner& form = Begin();
    practice.Tax().Insert("air", {{"type", "other"}, {"srno", 0}, {"code", "12"}, {"descr", "not ours"}});
    Detail("10ABC", {{"amt4", 2}, {"amt2", 10.25}});
    Detail("10ABC", {{"amt4", 2}, {"amt2", 0.5}});
    Detail("10abc", {{"amt4", 0}, {"amt2", 7}});
    for (const Value& stray : {Value(3), Value(8), Value(-1), Value()})
        Detail("10ABC", {{"amt4", stray}, {"amt2", 99}});
    const Section10abc& claim = OpenSections(form);
    EXPECT_EQ(claim.lines[0].Lbl10.text(), "10A") << "by serial";
    EXPECT_EQ(claim.lines[1].Lbl10_1.text(), "R&&D exporter") << "the sign itself, not a mnemonic";
    EXPECT_EQ(claim.lines[0].LblAmt.text(), "7.00");
    EXPECT_EQ(claim.lines[1].LblAmt.text(), "0.00");
    EXPECT_EQ(claim.lines[2].LblAmt.text(), "10.75");
    EXPECT_TRUE(claim.lines[2].Cmd10A.visible);
    EXPECT_FALSE(claim.lines[3].Cmd10A.visible);
    EXPECT_FALSE(claim.lines[3].LblAmt.visible);
}

TEST_F(Other, MoreSectionsThanThereIsRoomForAreLeftOut)
{
    Sections({{"9", ""}, {"8", ""}, {"7", ""}, {"6", ""}, {"5", ""}, {"4", ""}, {"3", ""}, {"2", ""}, {"1", ""}});
    Owner& form = Begin();
    EXPECT_EQ(OpenSections(form).lines.back().Lbl10.text(), "8");
}

TEST_F(Other, ItemsOfASectionAreKeptUnderItsIndex)
{
    Sections({{"10B", "R&D exporter"}, {"10A", "Free trade zone"}});
    Owner& owner = Begin();
    Detail("10ABC", {{"name1", "10A"}, {"name2", "of the other section"}, {"amt2", 4}, {"amt4", 0}});
    OpenSections(owner);
    Frm10ABC& form = OpenSection(owner, 1);
    EXPECT_EQ(form.caption.get(), "Deduction u/s 10B-R&D exporter");
    EXPECT_EQ(form.LBLSNO.text(), "1");
    EXPECT_EQ(form.LblDescr.text(), "R&&D exporter");
    EXPECT_EQ(form.MSH.Shows(), "\t\t\t\t") << "one blank row";

    for (const char* refused : {"0", "-5"}) {
        AddItem(form, "Unit", refused);
        EXPECT_EQ(practice.boxes.Take().text, "Please fill Amount...");
        EXPECT_EQ(form.focused(), &form.TxtAmt);
    }
    AddItem(form, "Unit I", "100");
    EXPECT_EQ(form.focused(), &form.TxtDescr);
    EXPECT_EQ(form.TxtAmt.text(), "0.00");
    AddItem(form, "Unit II", "50.5");
    EXPECT_EQ(form.MSH.Shows(), "1\tR&D exporter\t10B\tUnit I\t100.00\n1\tR&D exporter\t10B\tUnit II\t50.50");
    form.Click(form.CmdSave);
    EXPECT_EQ(practice.run->screens.OnDisplay(), &owner);
    EXPECT_EQ(Details("10ABC"), "10A|of the other section||4||0\n10B|Unit I||100||1\n10B|Unit II||50.5||1\n");
    const Section10abc& claim = owner.other.section10abc;
    EXPECT_EQ(claim.lines[0].LblAmt.text(), "4.00");
    EXPECT_EQ(claim.lines[1].LblAmt.text(), "150.50");
    EXPECT_EQ(owner.focused(), &claim.lines[1].Cmd10A);
}

TEST_F(Other, AnItemIsTakenBackAndTheLastOneLeavesABlankRow)
{
    Sections({{"10A", "Free trade zone"}});
    Owner& owner = Begin();
    Detail("10ABC", {{"name1", "10A"}, {"name2", "Unit I"}, {"amt2", 100}, {"amt4", 0}});
    Detail("10ABC", {{"name1", "10A"}, {"name2", "Unit II"}, {"amt2", 50.5}, {"amt4", 0}});
    OpenSections(owner);
    Frm10ABC& form = OpenSection(owner, 0);
    form.Do([&] { form.MSH.DoubleClick(2); });
    EXPECT_EQ(form.TxtDescr.text(), "Unit II");
    EXPECT_EQ(form.TxtAmt.text(), "50.50");
    EXPECT_EQ(form.MSH.Shows(), "0\tFree trade zone\t10A\tUnit I\t100.00");
    form.Do([&] { form.MSH.DoubleClick(1); });
    EXPECT_EQ(form.MSH.Shows(), "0\tFree trade zone\t10A\tUnit II\t50.50") << "what was only looked at returns";
    form.SetFocus(form.MSH);
    form.Press(Key::Delete);
    EXPECT_EQ(form.MSH.Shows(), "\t\t\t\t");
    form.Do([&] { form.MSH.DoubleClick(1); });
    EXPECT_EQ(form.TxtDescr.text(), "Unit I") << "the blank row is no item";
    practice.boxes.answers = {Answer::Yes};
    form.Do([&] { form.Close(); });
    EXPECT_EQ(Details("10ABC"), "10A|Unit I||100||0\n10A|Unit II||50.5||0\n") << "nothing is written before Save";

    Frm10ABC& again = OpenSection(owner, 0);
    again.SetFocus(again.MSH);
    again.Press(Key::Delete);
    again.Do([&] { again.MSH.DoubleClick(1); });
    again.Click(again.CmdSave);
    EXPECT_EQ(Details("10ABC"), "");
    EXPECT_EQ(owner.notice.get(), "Deduction u/s 10A-Free trade zone: 0 items (removed: Unit I, 100.00, taken back and "
                                  "not added again), stored when the line is saved.");
}
