#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"
#include "support/failing_store.h"

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
        double secondRate; ///< of the stored receipts: without it those u/s 44AD count as one
        const char* shown;
    };
    constexpr Case kCases[] = {
        {kRetail44AF, "5", 269, 6, "Main works|second|1000000.00|0.00|5.00|0.00|0.00|0|0|0|0|1.00|2.00|3.00|4.00|"},
        {kPresumptive44AD, "3", 269, 6,
         "Main works|second|900000.00|100000.00|8.00|6.00|3000.00|72000|6000|9|270|1.00|2.00|3.00|4.00|"},
        {kProfession44ADA, "A", 1163, 6,
         "Main works|second|500000.00|20000.00|50.00|6.00|7000.00|250000|1200|8|560|1.00|2.00|3.00|4.00|"},
        {kProfession44ADA, "A", 1163, 0,
         "Main works|second|500000.00|20000.00|50.00|0.00|7000.00|250000|1200|8|560|1.00|2.00|3.00|4.00|"},
        {kPresumptive44AD, "3", 269, 0,
         "Main works|second|1000000.00|0.00|8.00|0.00|0.00|0|0|0|0|1.00|2.00|3.00|4.00|"},
        {kTransport44AE, "4", 269, 6, "Main works|second|1000000.00|0.00|5.00|0.00|0.00|0|0|0|0|1.00|2.00|3.00|4.00|"},
    };
    int year = 2009; // each case has a code of its own, that of section 44AF a year that knows it
    for (const auto& [kind, type, firstCell, secondRate, shown] : kCases) {
        run.reset();
        Year(++year);
        Line(type, {{"name2", "second"}, {"turnover", 1000000}, {"sec44", 80000}, {"net44", 80000}, {"books", true}});
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
        Item("PGBPA", {{"sno", kSno},
                       {"Am3", 500000},
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

TEST_F(Presumptive, ShowsTheReceiptsThatTheYearTellsApart)
{
    struct Case {
        BusinessKind kind;
        int year;
        const char* shown;
    };
    constexpr Case kCases[] = {
        {kPresumptive44AD, 2016, "Gross Receipts : 8.00|rate|several|deemed typed"},
        {kPresumptive44AD, 2017, "Cash Receipts (8%) : 8.00|rate profit|Bank Receipts (6%) : 6.00|several|"},
        {kPresumptive44AD, 2024, "Cash Receipts (8%) : 8.00|rate profit|Bank Receipts (6%) : 6.00|several|"},
        {kPresumptive44AD, 2025,
         "Cash Receipts (8%) : 8.00|rate profit|Bank Receipts (6%) : 6.00|Others : 8.00 profit|several|"},
        {kProfession44ADA, 2023, "Gross Receipts : 5.00|Gross Receipts (6%) : 0.00|deemed typed"},
        {kProfession44ADA, 2024, "Gross Receipts (Cash) : 5.00|Gross Receipts (Bank) : 0.00|deemed typed"},
        {kProfession44ADA, 2025, "Gross Receipts (Cash) : 5.00|Gross Receipts (Bank) : 0.00|Others : 0|deemed typed"},
        {kRetail44AF, 2010, "Gross Receipts : 5.00|rate|deemed typed"},
        {kTransport44AE, 2018, "Gross Receipts : 5.00|vehicles|deemed typed"},
    };
    for (const auto& [kind, year, shown] : kCases) {
        run.reset();
        Year(year, "01");
        const PresumptiveFrame& frame = OpenScreen(kind, "caption").presumptive;
        std::string texts = frame.lblrece.text() + ' ' + frame.TxtPer.text() + '|';
        if (frame.TxtPer.visible)
            texts += frame.TxtNetAd[0].visible ? "rate profit|" : "rate|";
        if (frame.TxtRece6.visible)
            texts += frame.lblrece6.text() + ' ' + frame.TxtPer6.text() + '|';
        if (frame.TxtReceOth.visible)
            texts += frame.lblreceoth.text() + ' ' + frame.TxtNetAd[2].text() +
                     (frame.TxtNetAd[3].visible ? " profit|" : "|");
        texts += frame.CmdMulti.visible ? "several|" : "";
        texts += frame.vehicles.fra442.visible ? "vehicles|" : "";
        EXPECT_EQ(texts + (frame.Lbl44AD.enabled ? "deemed typed" : ""), shown) << kind << ' ' << year;
        EXPECT_FALSE(frame.lbl44adfinal.enabled || frame.CmdPart.visible || frame.TxtIntt.visible);
    }
}

TEST_F(Presumptive, DeductionsAreForPartnersAndWhereThereAreSome)
{
    for (const auto& [kind, year, deducted, shows] : {std::tuple(kRetail44AF, 2010, 0, true),
                                                      {kPresumptive44AD, 2010, 0, false},
                                                      {kPresumptive44AD, 2010, 5, true}}) {
        run.reset();
        Year(year, "05");
        for (const char* table : {"business", "business1"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Line(std::string(TypeOf(kind)).c_str());
        if (deducted)
            Detail("intt", {{"amt1", deducted}});
        const PresumptiveFrame& frame = OpenScreen(kind, "caption").presumptive;
        EXPECT_EQ(frame.TxtIntt.visible && frame.cmdremu.visible, shows) << kind << deducted;
        EXPECT_TRUE(frame.lbl44adfinal.enabled && frame.CmdPart.visible);
    }
}

/// What is set one after the other, and what is shown behind it: rates, profits, deemed profit, net profit, receipts of
/// the return's account, its net profit.
TEST_F(Presumptive, ProfitFollowsReceiptsAndRates)
{
    struct Step {
        const char* field;
        const char* text;
        const char* shown;
    };
    struct Case {
        BusinessKind kind;
        int year;
        std::vector<Step> steps;
    };
    const Case cases[] = {
        {kPresumptive44AD,
         2025,
         {{"txtrece", "1000000", "8.00 80000|6.00 0|8.00 0|80000 80000.00|1000000.00 80000.00"},
          {"TxtRece6", "2000009", "8.00 80000|6.00 120001|8.00 0|200001 200001.00|3000009.00 200001.00"},
          {"TxtReceOth", "500000", "8.00 80000|6.00 120001|8.00 40000|240001 240001.00|3500009.00 240001.00"},
          {"TxtNetAd(2)", "10", "8.00 80000|6.00 120001|10 50000|250001 250001.00|3500009.00 250001.00"},
          {"TxtNetAd(0)", "100000", "10.00 100000|6.00 120001|10 50000|270001 270001.00|3500009.00 270001.00"},
          {"TxtNetAd(1)", "150001", "10.00 100000|7.50 150001|10 50000|300001 300001.00|3500009.00 300001.00"},
          {"TxtNetAd(3)", "60000", "10.00 100000|7.50 150001|12.00 60000|310001 310001.00|3500009.00 310001.00"},
          {"TxtPer6", "8", "10.00 100000|8 160001|12.00 60000|320001 320001.00|3500009.00 320001.00"},
          {"TxtPer", "8", "8 80000|8 160001|12.00 60000|300001 300001.00|3500009.00 300001.00"}}},
        {kPresumptive44AD,
         2012,
         {{"txtrece", "1234567", "8.00 0|0.00 0|0 0|98765 98765.00|1234567.00 98765.00"},
          {"Lbl44AD", "111111", "9.00 0|0.00 0|0 0|111111 111111.00|1234567.00 111111.00"},
          {"TxtPer", "10", "10 0|0.00 0|0 0|123457 123457.00|1234567.00 123457.00"}}},
        {kRetail44AF,
         2010,
         {{"txtrece", "1000010", "5.00 0|0.00 0|0 0|50001 50001.00|1000010.00 50001.00"},
          {"Lbl44AD", "60000.50", "6.00 0|0.00 0|0 0|60000.50 60000.50|1000010.00 60000.50"}}},
        {kProfession44ADA,
         2025,
         {{"txtrece", "33", "5.00 0|0.00 0|0 0|17 17.00|33.00 17.00"},
          {"TxtRece6", "33", "5.00 0|0.00 0|0 0|33 33.00|66.00 33.00"},
          {"TxtReceOth", "33", "5.00 0|0.00 0|0 0|50 50.00|99.00 50.00"},
          {"Lbl44AD", "70", "5.00 0|0.00 0|0 0|70 70.00|99.00 70.00"}}},
    };
    for (const auto& [kind, year, steps] : cases) {
        run.reset();
        Year(year, "01");
        frmbusinesscal& screen = OpenScreen(kind, "caption");
        const PresumptiveFrame& frame = screen.presumptive;
        for (const auto& [field, text, shown] : steps) {
            static_cast<txtn&>(*screen.Find(field)) = text;
            const auto pair = [](const TextControl& one, const TextControl& other) {
                return one.text() + ' ' + other.text();
            };
            EXPECT_EQ(pair(frame.TxtPer, frame.TxtNetAd[0]) + '|' + pair(frame.TxtPer6, frame.TxtNetAd[1]) + '|' +
                          pair(frame.TxtNetAd[2], frame.TxtNetAd[3]) + '|' + pair(frame.Lbl44AD, frame.lbl44adfinal) +
                          '|' + pair(frame.Txt[0], frame.Txt[3]),
                      shown)
                << kind << ' ' << field << ' ' << text;
        }
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(Presumptive, ExpensesSetTheNetProfitOfTheAccount)
{
    Year(2016, "01");
    PresumptiveFrame& frame = OpenScreen(kPresumptive44AD, "caption").presumptive;
    frame.txtrece = "1000000";
    frame.Txt[1] = "300000";
    frame.Txt[2] = "190000";
    EXPECT_EQ(frame.Txt[3].text(), "110000.00");
    frame.TxtPer = "9";
    EXPECT_EQ(frame.Txt[1].text() + ' ' + frame.Txt[3].text(), "280000.00 90000.00"); // 90000 + 190000
}

/// Limits of the law by first year, as the rows of a new practice have them.
class PresumptiveLimits : public Presumptive {
  public:
    PresumptiveLimits()
    {
        for (const auto& [type, from, rupees] : {std::tuple("44AD", 1994, 4000000),
                                                 {"44AD", 2011, 6000000},
                                                 {"44AD", 2013, 10000000},
                                                 {"44AD", 2017, 20000000},
                                                 {"44AD", 2024, 30000000},
                                                 {"44ADA", 2017, 5000000},
                                                 {"44ADA", 2024, 7500000},
                                                 {"44AE", 2017, 20000000}})
            Tax().Insert("system", {{"Type", type}, {"From", from}, {"Amount", rupees}});
    }
    /// Opens a new line with these receipts and saves it; gives the messages.
    std::string Saved(BusinessKind kind, int year, double cash, double bank)
    {
        run.reset();
        boxes.shown.clear();
        for (const char* table : {"business", "business1", "misc_items"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Year(year, "01");
        frmbusinesscal& screen = OpenScreen(kind, "caption");
        screen.presumptive.txt44ad1 = "Main works";
        screen.presumptive.txtrece = Amount(cash);
        screen.presumptive.TxtRece6 = Amount(bank);
        const std::string typed = Messages();
        screen.Click(screen.presumptive.cmdsave44ad);
        EXPECT_EQ(Stored("select count(*) from {business}"), boxes.shown.empty() ? "1" : "0");
        EXPECT_EQ(Stored("select count(*) from {misc_items}"), boxes.shown.empty() ? "1" : "0");
        return typed + Messages();
    }

  private:
    std::string Messages()
    {
        std::string texts;
        for (const Message& message : boxes.shown) {
            EXPECT_EQ(message.title, "Vorn - Information");
            texts += message.text + '\n';
        }
        return texts;
    }
};

TEST_F(PresumptiveLimits, HoldBelowAtAndAboveInEachYearThatChangedThem)
{
    struct Case {
        BusinessKind kind;
        int year;
        double limit;
        const char* text;
    };
    constexpr Case kCases[] = {
        {kPresumptive44AD, 2010, 4000000, "4000000.00"},   {kPresumptive44AD, 2011, 6000000, "6000000.00"},
        {kPresumptive44AD, 2012, 6000000, "6000000.00"},   {kPresumptive44AD, 2013, 10000000, "10000000.00"},
        {kPresumptive44AD, 2016, 10000000, "10000000.00"}, {kPresumptive44AD, 2017, 20000000, "20000000.00"},
        {kPresumptive44AD, 2023, 20000000, "20000000.00"}, {kPresumptive44AD, 2024, 30000000, "30000000.00"},
        {kPresumptive44AD, 2026, 30000000, "30000000.00"}, {kProfession44ADA, 2017, 5000000, "5000000.00"},
        {kProfession44ADA, 2023, 5000000, "5000000.00"},   {kProfession44ADA, 2024, 7500000, "7500000.00"},
        {kProfession44ADA, 2026, 7500000, "7500000.00"},   {kRetail44AF, 2010, 4000000, "40,00,000"},
    };
    for (const auto& [kind, year, limit, text] : kCases) {
        SCOPED_TRACE(std::to_string(kind) + ' ' + std::to_string(year));
        const bool isSplit = year >= 2017;
        const auto saved = [&](double receipts) {
            return Saved(kind, year, isSplit ? 1000000 : receipts, isSplit ? receipts - 1000000 : 0);
        };
        EXPECT_EQ(saved(limit - 1), "");
        EXPECT_EQ(saved(limit), "");
        const std::string message = "Value exceeding Rs. " + std::string(text) + " not allowed...\n";
        // a profession's limit is looked at when the line is saved; elsewhere the message comes at the key as well
        EXPECT_EQ(saved(limit + 1), kind == kProfession44ADA ? message : message + message + message);
    }
}

TEST_F(PresumptiveLimits, OfAProfessionsCashHoldFrom2023)
{
    const std::string plain = "Value exceeding Rs. 50,00,000 not allowed...\n";
    const std::string inCash = "Value exceeding Rs. 50,00,000 not allowed in cash...\n";
    EXPECT_EQ(Saved(kProfession44ADA, 2022, 5000000, 0), "");
    EXPECT_EQ(Saved(kProfession44ADA, 2023, 4999999.99, 0), "");
    EXPECT_EQ(Saved(kProfession44ADA, 2023, 5000000, 0), plain);
    EXPECT_EQ(Saved(kProfession44ADA, 2024, 4999999.99, 2500000.01), "");
    EXPECT_EQ(Saved(kProfession44ADA, 2024, 5000000, 0), inCash);
}

TEST_F(PresumptiveLimits, ALimitPassedWhileTypingLeavesTheFigures)
{
    Year(2023, "01");
    frmbusinesscal& screen = OpenScreen(kPresumptive44AD, "caption");
    PresumptiveFrame& frame = screen.presumptive;
    frame.txtrece = "15000000";
    Type(screen, frame.TxtRece6, "5000001"); // the last digit passes it
    EXPECT_EQ(boxes.Take().text, "Value exceeding Rs. 20000000.00 not allowed...");
    EXPECT_EQ(frame.TxtRece6.text() + ' ' + frame.TxtNetAd[1].text(), "5000001 30000"); // 6 % of 500000
    EXPECT_EQ(frame.Lbl44AD.text(), "1230000");
    EXPECT_EQ(screen.focused(), &frame.TxtRece6);
    screen.Click(frame.cmdsave44ad);
    EXPECT_EQ(boxes.Take().text, "Value exceeding Rs. 20000000.00 not allowed...");
    EXPECT_EQ(screen.focused(), &frame.txtrece);
}

/// Everything that a save leaves, in the order of the tables.
class PresumptiveSave : public PresumptiveLimits {
  public:
    std::string Rows(const Connection& file, const std::string& columns, const std::string& from) const
    {
        std::string lines;
        for (const Row row : file.Query("select " + columns + " from " + from + " order by rowid")) {
            for (std::size_t i = 0; i < row.Size(); ++i)
                lines += (i == 0 ? "" : " ") + (row.At(i).IsNull() ? "-" : row.At(i).Text());
            lines += '\n';
        }
        return lines;
    }
    std::string Business() const
    {
        return Rows(Company(), "Type, SNO, name1, PNL, dep1, dep2, NET, books, turnover, sec44, net44", "{business}");
    }
    std::string Receipts() const
    {
        return Rows(Company(), "[Type], sno, amt1, amt2, Am3, am4, tds, sur, intt, cess, penal", "{misc_items}");
    }
    std::string Cells() const { return Rows(Balance(), "[Type], amt1, amt2, name8, name9", "{qelgeneral}"); }
    std::string Details() const { return Rows(Company(), "SNO, [Type], name1, amt1, amt2, amt3", "{business1}"); }
};

TEST_F(PresumptiveSave, WritesTheLineItsReceiptsAndTheReturnsAccount)
{
    struct Case {
        BusinessKind kind;
        int year;
        const char* business;
        const char* receipts;
        const char* cells;
    };
    constexpr Case kCases[] = {
        {kPresumptive44AD, 2006, "3 7 Main works 0 0 0 0 0 1000000 80000 80000\n", "PGBP3 7 8 0 1000000 0 0 0 0 0 0\n",
         "NEWPL 269 7 5 -\n"},
        {kPresumptive44AD, 2016, "3 7 Main works 0 0 0 0 0 1000000 80000 80000\n", "PGBP3 7 8 0 1000000 0 0 0 0 0 0\n",
         "NEWPL 269 7 1000000 ASdf\nNEWPL 270 7 80000 ASdf\nNEWPL 271 7 0 ASdf\nNEWPL 272 7 80000 ASdf\n"},
        {kRetail44AF, 2010, "5 7 Main works 0 0 0 0 0 1000000 50000 50000\n", "PGBP5 7 5 0 1000000 0 0 0 0 0 0\n",
         "NEWPL 269 7 1000000 ASdf\nNEWPL 270 7 50000 ASdf\nNEWPL 271 7 0 ASdf\nNEWPL 272 7 50000 ASdf\n"},
        {kPresumptive44AD, 2017, "3 7 Main works 0 0 0 0 0 1200000 92000 92000\n",
         "PGBP3 7 8 6 1000000 200000 80000 12000 0 0 0\n",
         "NEWPL 269 7 1200000 ASdf\nNEWPL 270 7 92000 ASdf\nNEWPL 271 7 0 ASdf\nNEWPL 272 7 92000 ASdf\nNEWPL 1167 7 "
         "92000 ASdf\n"},
        {kProfession44ADA, 2018, "A 7 Main works 0 0 0 0 0 1200000 600000 600000\n",
         "PGBPA 7 5 0 1000000 200000 0 0 0 0 0\n",
         "NEWPL 1163 7 1200000 ASdf\nNEWPL 1164 7 600000 ASdf\nNEWPL 1165 7 0 ASdf\nNEWPL 1166 7 600000 ASdf\nNEWPL "
         "1167 7 600000 ASdf\n"},
        {kPresumptive44AD, 2019, "3 7 Main works 0 0 0 0 0 1200000 92000 92000\n",
         "PGBP3 7 8 6 1000000 200000 80000 12000 0 0 0\n", ""},
        {kProfession44ADA, 2019, "A 7 Main works 0 0 0 0 0 1200000 600000 600000\n",
         "PGBPA 7 5 0 1000000 200000 0 0 0 0 0\n", ""},
        {kPresumptive44AD, 2025, "3 7 Main works 0 0 0 0 0 1300000 100000 100000\n",
         "PGBP3 7 8 6 1000000 200000 80000 12000 100000 8 8000\n", ""},
        {kProfession44ADA, 2025, "A 7 Main works 0 0 0 0 0 1300000 650000 650000\n",
         "PGBPA 7 5 0 1000000 200000 0 0 100000 0 0\n", ""},
    };
    for (const auto& [kind, year, business, receipts, cells] : kCases) {
        SCOPED_TRACE(std::to_string(kind) + ' ' + std::to_string(year));
        run.reset();
        for (const char* table : {"business", "business1", "misc_items"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Balance().Execute("delete from {qelgeneral}");
        Year(year, "01");
        Line(std::string(TypeOf(kind)).c_str(), {{"PNL", 9}, {"NET", 9}, {"dep1", 9}, {"dep2", 9}});
        Cell("NEWPL", 269, "5"); // of an earlier save
        frmbusinesscal& screen = OpenScreen(kind, "caption");
        PresumptiveFrame& frame = screen.presumptive;
        if (frame.TxtPer6.visible)
            frame.TxtPer6 = "6";
        if (frame.TxtNetAd[2].visible)
            frame.TxtNetAd[2] = "8";
        frame.txtrece = "1000000";
        if (frame.TxtRece6.visible)
            frame.TxtRece6 = "200000";
        if (frame.TxtReceOth.visible)
            frame.TxtReceOth = "100000";
        screen.Click(frame.cmdsave44ad);
        EXPECT_TRUE(boxes.shown.empty());
        EXPECT_EQ(run->screens.OnDisplay()->name(), "frmbusiness");
        EXPECT_EQ(Business(), business);
        EXPECT_EQ(Receipts(), receipts);
        EXPECT_EQ(Cells(), cells);
    }
}

TEST_F(PresumptiveSave, RefusesWithNothingWritten)
{
    Year(2018, "01");
    frmbusinesscal& screen = OpenScreen(kPresumptive44AD, "caption");
    PresumptiveFrame& frame = screen.presumptive;
    const auto refused = [&] {
        boxes.shown.clear();
        screen.Click(frame.cmdsave44ad);
        return boxes.Take().text;
    };
    frame.txtrece = "4000000";
    EXPECT_EQ(refused(), "Description can not be left blank...");
    EXPECT_EQ(screen.focused(), &frame.txt44ad1);
    frame.txt44ad2 = "the second is enough";
    frame.TxtNetAd[0] = "319999";
    EXPECT_EQ(refused(), "Deemed profit can not be less than 8% of Gross Receipts..., Please check...");
    EXPECT_EQ(screen.focused(), &frame.TxtNetAd[0]);
    frame.txtrece = "20000001";
    EXPECT_EQ(refused(), "Value exceeding Rs. 20000000.00 not allowed...");
    frame.Txt[1] = "1";
    EXPECT_EQ(refused(), "Please check the Gross Profit, Expense and New Profit");
    frame.Txt[3] = "2";
    EXPECT_EQ(refused(),
              "Please check the Net Profit as Net Profit as per P & L account can not be other than Profit as "
              "per Business Income..");
    EXPECT_EQ(Business() + Receipts() + Cells() + Details(), "");
}

TEST_F(PresumptiveSave, FloorsSpeakOfTheirSection)
{
    for (const auto& [kind, year, percent] :
         {std::tuple(kRetail44AF, 2010, "5"), {kProfession44ADA, 2018, "50"}, {kPresumptive44AD, 2010, "8"}}) {
        run.reset();
        Year(year, "01");
        frmbusinesscal& screen = OpenScreen(kind, "caption");
        screen.presumptive.txt44ad1 = "Shop";
        screen.presumptive.txtrece = "200000";
        screen.presumptive.Lbl44AD = "9999";
        screen.Click(screen.presumptive.cmdsave44ad);
        EXPECT_EQ(boxes.Take().text, "Deemed profit can not be less than " + std::string(percent) +
                                         "% of Gross Receipts..., Please check...");
    }
}

TEST_F(PresumptiveSave, WithBooksLeadsOnToTheAccountsAndBack)
{
    Year(2018, "01");
    Line("3", {{"turnover", 500000}, {"sec44", 40000}, {"net44", 40000}});
    Item("PGBP3", {{"sno", kSno}, {"amt1", 8}, {"amt2", 6}, {"Am3", 500000}});
    Detail("44AD", {{"name1", "Shop"}, {"amt1", 500000}, {"amt2", 8}, {"amt3", 40000}});
    const std::string before = Business() + Receipts() + Details();
    frmbusinesscal& screen = OpenScreen(kPresumptive44AD, "caption");
    PresumptiveFrame& frame = screen.presumptive;
    EXPECT_EQ(frame.cmdsave44ad.caption.get(), "&Save");
    screen.Click(frame.chk44ad);
    EXPECT_EQ(frame.cmdsave44ad.caption.get(), "Continued");
    frame.TxtRece6 = "100000";
    frame.txt44ad2 = "Main road";
    screen.Click(frame.cmdsave44ad);
    EXPECT_EQ(Business() + Receipts() + Details(), before);
    EXPECT_TRUE(screen.framain.visible && screen.header.CmdBack.visible && !frame.fra44ad.visible);
    EXPECT_EQ(screen.header.txtdescr2.text(), "Main road");
    EXPECT_EQ(screen.focused(), &screen.header.txtdescr1);
    screen.Click(screen.header.CmdBack);
    EXPECT_TRUE(frame.fra44ad.visible && !screen.header.CmdBack.visible);
    screen.Click(frame.cmdsave44ad);
    screen.header.txtpnl = "70000";
    screen.Click(screen.header.CmdSave);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Business(), "3 7 Main works 70000 0 0 70000 1 600000 46000 46000\n");
    EXPECT_EQ(Receipts(), "PGBP3 7 8 6 500000 100000 40000 6000 0 0 0\n");
    EXPECT_EQ(Details(), "7 44AD Shop 500000 8 40000\n");
    EXPECT_EQ(Cells(), "");
}

TEST_F(PresumptiveSave, ASecondLineOfAKindKeepsItsRows)
{
    Year(2018, "01");
    Line("3", {{"turnover", 500000}, {"sec44", 40000}, {"net44", 40000}});
    for (const double sno : {kSno, kSno + 1}) {
        Item("PGBP3", {{"sno", sno}, {"amt1", 8}, {"amt2", 6}, {"Am3", 500000 * sno}});
        Detail("44AD", {{"SNO", sno}, {"name1", "Shop"}, {"amt3", 40000}});
    }
    frmbusinesscal& screen = OpenScreen(kPresumptive44AD, "caption");
    EXPECT_EQ(screen.presumptive.txtrece.text(), "3500000.00");
    screen.presumptive.txtrece = "500000";
    screen.Click(screen.presumptive.cmdsave44ad);
    EXPECT_EQ(Receipts(), "PGBP3 8 8 6 4000000 - - - - - -\nPGBP3 7 8 6 500000 0 40000 0 0 0 0\n");
    EXPECT_EQ(Details(), "8 44AD Shop - - 40000\n7 44AD Shop 0 0 40000\n");
}

TEST_F(PresumptiveSave, ARefusedWriteLeavesEveryRow)
{
    for (Refusal refusal;; refusal.writes = 0) {
        ++refusal.write;
        SCOPED_TRACE(refusal.write);
        run.reset();
        for (const char* table : {"business", "business1", "misc_items"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Balance().Execute("delete from {qelgeneral}");
        Year(2018, "01");
        Line("3", {{"turnover", 500000}, {"sec44", 40000}, {"net44", 40000}});
        Item("PGBP3", {{"sno", kSno}, {"amt1", 8}, {"amt2", 6}, {"Am3", 500000}});
        Detail("44AD", {{"name1", "Shop"}, {"amt3", 40000}});
        Cell("NEWPL", 269, "500000");
        const auto rows = [this] { return Business() + Receipts() + Details() + Cells(); };
        const std::string before = rows();
        frmbusinesscal& screen = OpenScreen(kPresumptive44AD, "caption");
        screen.presumptive.txt44ad2 = "changed";
        LetFail(*run, refusal);
        screen.Click(screen.presumptive.cmdsave44ad);
        if (!refusal.HasBegun())
            break;
        ASSERT_EQ(run->screens.OnDisplay(), &screen);
        EXPECT_NE(boxes.Take().text.find("refused"), std::string::npos);
        ASSERT_EQ(rows(), before);
        EXPECT_EQ(screen.presumptive.txt44ad2.text(), "changed");
        screen.Click(screen.presumptive.cmdsave44ad);
        ASSERT_NE(run->screens.OnDisplay(), &screen);
        boxes.shown.clear();
    }
    EXPECT_EQ(Stored("select name2 from {business}"), "changed");
    EXPECT_EQ(Stored("select count(*) from {business1}"), "1");
}

TEST_F(PresumptiveSave, AKeyAsksTheStoreNothing)
{
    Year(2026, "01");
    frmbusinesscal& screen = OpenScreen(kPresumptive44AD, "caption");
    Refusal everything{.write = 1, .once = false, .writes = 1};
    LetFail(*run, everything);
    for (txtn* field : {&screen.presumptive.txtrece, &screen.presumptive.TxtRece6, &screen.presumptive.TxtReceOth,
                        &screen.presumptive.TxtPer6, &screen.presumptive.TxtNetAd[0]})
        Type(screen, *field, "20");
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(screen.presumptive.Lbl44AD.text(), "26"); // 20 keyed, 20 % of 20, 8 % of 20
}

} // namespace
} // namespace pgbp
