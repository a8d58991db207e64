#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

class Other : public LineUnderTest<frmbusinesscal> {
  protected:
    frmbusinesscal& Begin(int year = 2023)
    {
        run.reset();
        Year(year);
        frmbusinesscal& screen = OpenScreen();
        screen.Click(screen.cmdother);
        return screen;
    }

    /// Sections of the suite's table; call before Begin.
    void Sections(std::initializer_list<std::pair<const char*, const char*>> sections)
    {
        int serial = 10; // the serial orders the sections and is no index
        for (const auto& [code, description] : sections)
            Tax().Insert("air", {{"type", "10ABC"}, {"srno", serial--}, {"code", code}, {"descr", description}});
    }

    /// A working row of the line that is open.
    void Work(const char* type, std::initializer_list<Field> more)
    {
        std::vector<Field> fields{{"code", run->Code()}, {"Type", type}};
        fields.insert(fields.end(), more);
        run->qeltemp.Insert("temp1", fields);
    }

    /// The working rows of a type, one a line: texts, then amounts.
    std::string Works(const char* type) const
    {
        std::string lines;
        for (const Row row : run->qeltemp.Query(
                 "select name1, name2, amt1, amt2, amt3, amt4 from {temp1} where [Type] = ? order by amt4, rowid",
                 type)) {
            for (std::size_t i = 0; i < row.Size(); ++i)
                lines += (i == 0 ? "" : "|") + row.At(i).Text();
            lines += '\n';
        }
        return lines;
    }

    /// The 10A to 10C frame of an assessee who claims it.
    static Section10abc& OpenSections(frmbusinesscal& form)
    {
        form.Click(form.other.section10abc.chk10abc1);
        form.Click(form.other.section10abc.cmd10abc);
        return form.other.section10abc;
    }
};

TEST_F(Other, Until2006ThereIsNoSection35AndAPlainListOf10A)
{
    for (const auto& [year, hasFrames] : {std::pair(2006, false), {2007, true}}) {
        SCOPED_TRACE(year);
        frmbusinesscal& form = Begin(year);
        for (const Control* control :
             std::initializer_list<Control*>{&form.other.Cmd35, &form.other.Lbl35c, &form.other.Lbl35})
            EXPECT_EQ(control->visible, hasFrames) << control->name();
        EXPECT_EQ(OpenSections(form).Fra10abc.visible, hasFrames);
        EXPECT_EQ(form.fra4.panel.visible, !hasFrames);
    }
}

TEST_F(Other, Section35ShowsWhatIsStoredAndAddsUp)
{
    frmbusinesscal& form = Begin();
    Section35& frame = form.other.section35;
    Work("35", {{"amt4", 0}, {"amt1", 100}, {"amt2", 150.255}, {"amt3", 1}});
    Work("35", {{"amt4", 5}, {"amt1", 40.5}, {"amt2", 10}});
    Work("568", {{"amt4", 1}, {"amt1", 7}, {"amt2", 7}});
    for (const Value& stray : {Value(6), Value(-1), Value(0.5), Value(1e300), Value()})
        Work("35", {{"amt4", stray}, {"amt1", 9}, {"amt2", 9}});
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
    Type(form, frame.lines[2].Txt_2, "1000.75");
    EXPECT_EQ(frame.LblTot_1.text(), "140.50");
    EXPECT_EQ(frame.LblTot_2.text(), "1161.01");
    EXPECT_EQ(frame.LblTot_3.text(), "1020.51");
    form.Click(frame.CmdCanc35);
    form.Click(form.other.Cmd35);
    EXPECT_EQ(frame.LblTot_2.text(), "160.26") << "a cancelled entry is forgotten";
}

TEST_F(Other, Section35IsSavedAsSixRowsEvenWhenAllAreZero)
{
    frmbusinesscal& form = Begin();
    Section35& frame = form.other.section35;
    Work("35", {{"name1", "stale"}, {"amt4", 17}, {"amt1", 3}});
    Work("568", {{"name1", "kept"}});
    run->qeltemp.Insert("temp1", {{"code", "other"}, {"Type", "35"}, {"name1", "of another"}, {"amt4", 99}});
    form.Click(form.other.Cmd35);
    form.Click(frame.CmdSave35);
    EXPECT_EQ(Works("35"), "35(1)(i)||0|0|0|0\n35(1)(ii)||0|0|0|1\n35(1)(iii)||0|0|0|2\n35(1)(iv)||0|0|0|3\n"
                           "35(2AA)||0|0|0|4\n35(2AB)||0|0|0|5\nof another|||||99\n");
    EXPECT_EQ(Works("568"), "kept|||||\n");
    form.Click(form.other.Cmd35);
    Type(form, frame.lines[4].Txt_1, "999999999999.99");
    form.Press(Key::Enter);
    TypeText(form, "0.01");
    form.Click(frame.CmdSave35);
    EXPECT_NE(Works("35").find("35(2AA)||999999999999.99|0.01|-999999999999.98|4\n"), std::string::npos);
}

TEST_F(Other, SectionsComeFromTheSuitesTable)
{
    Sections({{"10C", "North East"}, {"10B", "R&D exporter"}, {"10A", "Free trade zone"}});
    frmbusinesscal& form = Begin();
    Tax().Insert("air", {{"type", "other"}, {"srno", 0}, {"code", "12"}, {"descr", "not ours"}});
    Work("10ABC", {{"amt4", 2}, {"amt2", 10.25}});
    Work("10ABC", {{"amt4", 2}, {"amt2", 0.5}});
    Work("10abc", {{"amt4", 0}, {"amt2", 7}});
    for (const Value& stray : {Value(3), Value(8), Value(-1), Value()})
        Work("10ABC", {{"amt4", stray}, {"amt2", 99}});
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
    frmbusinesscal& form = Begin();
    EXPECT_EQ(OpenSections(form).lines.back().Lbl10.text(), "8");
}

} // namespace
} // namespace pgbp
