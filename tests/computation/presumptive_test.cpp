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
        Line("3", {{"turnover", 1000000}, {"sec44", 800000}, {"net44", 790000}, {"NET", 5}, {"PNL", 6}});
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
    EXPECT_EQ(frame.TxtIntt.text() + ' ' + frame.lbl44adfinal.text(), "10000.00 790000.00");
    screen.Click(frame.cmdremu);
    // 270000 + 60 % of 800000 - 10000 - 300000
    EXPECT_EQ(screen.fra1.lblpart3Amount.text(), "564000.00");
    Type(screen, screen.fra1.txtname, "Charu");
    Type(screen, screen.fra1.txtamount, "25000");
    screen.Click(screen.fra1.add);
    screen.Click(screen.fra1.save);
    EXPECT_EQ(frame.txtremu.text() + ' ' + frame.lbl44adfinal.text(), "25000.00 765000.00");
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
    EXPECT_EQ(frame.lbl44adfinal.text(), "799480.00");
}

TEST_F(Presumptive, ShowsWhatIsStoredOfTheSection)
{
    struct Case {
        BusinessKind kind;
        const char* type;
        int firstCell;     ///< of the account
        double secondRate; ///< of the stored receipts: they count where it is not 0
        const char* shown;
    };
    constexpr Case kCases[] = {
        {kRetail44AF, "5", 269, 6, "Main works|second|1000000.00|0.00|5.00|0.00|0.00|0|0|0|0|1.00|2.00|3.00|4.00|"},
        {kPresumptive44AD, "3", 269, 6,
         "Main works|second|900000.00|100000.00|8.00|6.00|3000.00|72000|6000|9|270|1.00|2.00|3.00|4.00|"},
        {kProfession44ADA, "A", 1163, 6,
         "Main works|second|500000.00|20000.00|50.00|6.00|7000.00|250000|1200|0|0|1.00|2.00|3.00|4.00|"},
        {kProfession44ADA, "A", 1163, 0,
         "Main works|second|1000000.00|0.00|0.00|0.00|0.00|0|0|0|0|1.00|2.00|3.00|4.00|"},
        {kTransport44AE, "4", 269, 6, "Main works|second|1000000.00|0.00|0.00|0.00|0.00|0|0|0|0|1.00|2.00|3.00|4.00|"},
    };
    int year = 2009; // each case has a code of its own, that of section 44AF a year that knows it
    for (const auto& [kind, type, firstCell, secondRate, shown] : kCases) {
        run.reset();
        Year(++year);
        Line(type, {{"name2", "second"}, {"turnover", 1000000}, {"sec44", 80000}, {"books", true}});
        Item("PGBP3", {{"sno", kSno},
                       {"Am3", 900000},
                       {"am4", 100000},
                       {"amt1", 8},
                       {"amt2", secondRate},
                       {"intt", 3000},
                       {"tds", 72000},
                       {"sur", 6000},
                       {"cess", 9},
                       {"penal", 270}});
        Item("PGBPA", {{"Am3", 500000},
                       {"am4", 20000},
                       {"amt1", 50},
                       {"amt2", secondRate},
                       {"intt", 7000},
                       {"tds", 250000},
                       {"sur", 1200},
                       {"cess", 8},
                       {"penal", 560}});
        Item("PGBP5", {{"sno", kSno}, {"amt1", 5}});
        for (int i = 0; i < 4; ++i)
            Cell("NEWPL", firstCell + i, std::to_string(i + 1).c_str());
        const PresumptiveFrame& frame = OpenScreen(kind, "caption").presumptive;
        std::string texts;
        for (const TextControl* field : std::initializer_list<const TextControl*>{
                 &frame.txt44ad1, &frame.txt44ad2, &frame.txtrece, &frame.TxtRece6, &frame.TxtPer, &frame.TxtPer6,
                 &frame.TxtReceOth, &frame.TxtNetAd[0], &frame.TxtNetAd[1], &frame.TxtNetAd[2], &frame.TxtNetAd[3],
                 &frame.Txt[0], &frame.Txt[1], &frame.Txt[2], &frame.Txt[3]})
            texts += field->text() + '|';
        EXPECT_EQ(texts, shown) << type << ' ' << secondRate;
        EXPECT_TRUE(frame.chk44ad.value);
        EXPECT_EQ(frame.Lbl44AD.text(), "80000.00");
    }
}

TEST_F(Presumptive, PartnersAndAccountsFollowTheYear)
{
    for (const auto& [year, parts] :
         {std::pair(2006, ""), {2007, "Part Books "}, {2018, "Part Books "}, {2019, "Part "}}) {
        run.reset();
        Year(year);
        Line("4");
        const PresumptiveFrame& frame = OpenScreen(kTransport44AE, "caption").presumptive;
        EXPECT_EQ(std::string(frame.CmdPart.visible ? "Part " : "") + (frame.FraBooks.visible ? "Books " : ""), parts);
    }
}

TEST_F(Presumptive, SaveOfTheComputationZeroesWhatIsDeemed)
{
    struct Case {
        const char* type;
        BusinessKind kind;
        bool books;
        const char* stored; ///< PNL, dep1, NET, q10abc1, books, turnover, sec44, net44
    };
    constexpr Case kCases[] = {
        {"3", kPresumptive44AD, false, "0 0 0 0 0 90000 80000 70000 "},
        {"3", kPresumptive44AD, true, "600 50 650 1 1 90000 80000 70000 "},
        {"4", kTransport44AE, false, "0 0 0 0 0 90000 80000 70000 "},
        {"5", kRetail44AF, false, "0 0 0 0 0 90000 80000 70000 "},
        {"A", kProfession44ADA, false, "600 50 650 1 0 90000 80000 70000 "},
    };
    for (const auto& [type, kind, books, stored] : kCases) {
        run.reset();
        Year(2010);
        for (const char* table : {"business", "business1"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Line(type,
             {{"PNL", 600}, {"dep1", 50}, {"q10abc1", 1}, {"books", books}, {"turnover", 90000}, {"sec44", 80000}});
        Detail("intt", {{"amt1", 10000}});
        frmbusinesscal& screen = OpenScreen(kind, "caption");
        screen.framain.visible = true; // as after "Continued"
        screen.presumptive.fra44ad.visible = false;
        screen.Click(screen.header.CmdSave);
        EXPECT_TRUE(boxes.shown.empty());
        const Recordset line = Company().Query("select * from {business} where code = ?", handOver.Glcode);
        std::string columns;
        for (const char* column : {"PNL", "dep1", "NET", "q10abc1", "books", "turnover", "sec44", "net44"})
            columns += line.First()[column].Text() + ' ';
        EXPECT_EQ(columns, stored) << type;
        EXPECT_EQ(line.First()["Type"].Text(), type);
    }
}

} // namespace
} // namespace pgbp
