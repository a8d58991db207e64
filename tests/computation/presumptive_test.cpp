#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

class Presumptive : public LineUnderTest<frmbusinesscal> {
  public:
    /// A stored line u/s 44AD with a list of interest.
    frmbusinesscal& Eligible(const char* status = "06")
    {
        Year(2023, status);
        Line("3", {{"turnover", 1000000}, {"sec44", 80000}, {"net44", 70000}, {"NET", 5}, {"PNL", 6}});
        Detail("intt", {{"name1", "Asha"}, {"amt1", 6000}});
        Detail("intt", {{"name1", "Bela"}, {"amt1", 4000}});
        return OpenScreen(kPresumptive44AD, "Elegible business u/s 44AD");
    }
    std::string Listed(const char* type) const
    {
        std::string lines;
        for (const Row row : run->qeltemp.Query("select * from {temp1} where [Type] = ? order by rowid", type))
            lines += row["name1"].Text() + ' ' + row["amt1"].Text() + '\n';
        return lines;
    }
};

TEST_F(Presumptive, DeductionsAreListsWithTheirLimit)
{
    frmbusinesscal& screen = Eligible();
    PresumptiveFrame& frame = screen.presumptive;
    EXPECT_FALSE(screen.framain.visible);
    EXPECT_EQ(frame.TxtIntt.text() + ' ' + frame.lbl44adfinal.text(), "10000.00 70000.00");
    screen.Click(frame.cmdremu);
    // 90 % of 80000 - 10000 is less than the floor
    EXPECT_EQ(screen.fra1.lblpart3Amount.text(), "150000.00");
    Type(screen, screen.fra1.txtname, "Charu");
    Type(screen, screen.fra1.txtamount, "25000");
    screen.Click(screen.fra1.add);
    screen.Click(screen.fra1.save);
    EXPECT_EQ(frame.txtremu.text() + ' ' + frame.lbl44adfinal.text(), "25000.00 45000.00");
    EXPECT_EQ(screen.focused(), &frame.cmdremu);
    screen.Click(screen.presumptive.cmdintt);
    screen.Press(Key::Escape);
    EXPECT_EQ(screen.focused(), &frame.cmdintt);
}

TEST_F(Presumptive, AnAmountTypedTakesThePlaceOfTheList)
{
    frmbusinesscal& screen = Eligible();
    PresumptiveFrame& frame = screen.presumptive;
    screen.SetFocus(frame.TxtIntt);
    screen.Press(Key::Enter); // walking through leaves the list alone
    EXPECT_EQ(Listed("intt"), "Asha 6000\nBela 4000\n");
    Type(screen, frame.TxtIntt, "500");
    screen.Press(Key::Enter);
    EXPECT_EQ(Listed("intt"), "Interest to Pertners 500\n");
    Type(screen, frame.txtremu, "20");
    screen.Press(Key::Enter);
    EXPECT_EQ(Listed("remu"), "Remuneration to partners 20\n");
    EXPECT_EQ(frame.lbl44adfinal.text(), "79480.00");
}

TEST_F(Presumptive, SaveOfTheComputationZeroesWhatIsDeemed)
{
    struct Case {
        const char* type;
        BusinessKind kind;
        bool books;
        const char* stored; ///< PNL, dep1, NET, sec44
    };
    constexpr Case kCases[] = {
        {"3", kPresumptive44AD, false, "0 0 0 80000"},
        {"3", kPresumptive44AD, true, "600 50 650 80000"},
        {"4", kTransport44AE, false, "0 0 0 80000"},
        {"A", kProfession44ADA, false, "600 50 650 80000"},
    };
    for (const auto& [type, kind, books, stored] : kCases) {
        run.reset();
        Year(2018);
        Company().Execute("delete from {business}");
        Line(type, {{"PNL", 600}, {"dep1", 50}, {"books", books}, {"sec44", 80000}});
        frmbusinesscal& screen = OpenScreen(kind, "caption");
        screen.framain.visible = true; // as after "Continued"
        screen.presumptive.fra44ad.visible = false;
        screen.Click(screen.header.CmdSave);
        EXPECT_TRUE(boxes.shown.empty());
        const Recordset line = Company().Query("select * from {business} where code = ?", handOver.Glcode);
        std::string columns;
        for (const char* column : {"PNL", "dep1", "NET", "sec44"})
            columns += (columns.empty() ? "" : " ") + line.First()[column].Text();
        EXPECT_EQ(columns, stored) << type;
        EXPECT_EQ(line.First()["Type"].Text(), type);
    }
}

} // namespace
} // namespace pgbp
