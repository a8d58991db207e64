#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"
#include "store/files.h"
#include "support/without_rights.h"

namespace pgbp {
namespace {

class PartnersFrame : public LineUnderTest<frmbusinesscal> {
  public:
    frmbusinesscal& OpenPartners()
    {
        frmbusinesscal& screen = OpenScreen();
        screen.Click(screen.CmdPartner);
        return screen;
    }

    /// Keys a whole partner; the PAN stays empty.
    static void Enter(frmbusinesscal& screen, const char* name, const char* ratio, const char* interest = "0",
                      const char* remuneration = "0")
    {
        Partners& partners = screen.partners;
        const std::pair<TextBox*, const char*> kTexts[] = {
            {&partners.txtpartner, name},    {&partners.TxtPart_Add, "12 Mall Road"},
            {&partners.TxtCity, "Ludhiana"}, {&partners.txtstate, "punjab"},
            {&partners.TxtPIN, "141003"},    {&partners.txtratio, ratio},
            {&partners.txtpart1, interest},  {&partners.txtpart2, remuneration},
        };
        partners.CboStatus.Choose(0);
        for (const auto& [field, text] : kTexts)
            if (field->enabled)
                Type(screen, *field, text);
    }
    static void Add(frmbusinesscal& screen, const char* name, const char* ratio, const char* interest = "0",
                    const char* remuneration = "0")
    {
        Enter(screen, name, ratio, interest, remuneration);
        screen.Click(screen.partners.cmdaddpart);
    }

    static std::string Totals(const Partners& partners)
    {
        return partners.lblratio.text() + ' ' + partners.lblin.text() + ' ' + partners.lblre.text();
    }

    /// The rows of the working copy, as "type name amt1 amt2 amt3 amt4".
    std::string Details() const
    {
        std::string lines;
        for (const Row row : run->qeltemp.Query("select * from {temp1} order by rowid")) {
            lines += row["Type"].Text();
            for (const char* column : {"name1", "amt1", "amt2", "amt3", "amt4"})
                lines += ' ' + row[column].Text();
            lines += row["flag1"].Flag() ? " left\n" : "\n";
        }
        return lines;
    }
};

TEST_F(PartnersFrame, InterestAndRemunerationOfAPartnerAreOneRow)
{
    Line("1");
    Detail("PARTINTT", {{"name1", "asha"},
                        {"amt1", 12000},
                        {"amt2", 99},
                        {"amt3", 11000},
                        {"amt4", 12},
                        {"flag1", 1},
                        {"PIN", "2"},
                        {"name2", "AAAPA1111B"}});
    Detail("PARTINTT", {{"name1", "Bela"}, {"amt1", 500}, {"amt2", 30}, {"amt3", 400}, {"flag1", 1}});
    Detail("PARTREMU", {{"name1", "Asha"},
                        {"amt1", 240000},
                        {"amt2", 60},
                        {"amt3", 1},
                        {"name2", "AAAPA1111A"},
                        {"name3", "Individual"},
                        {"utn", "0099"}});
    Detail("PARTREMU", {{"name1", "Charu"}, {"amt1", 0}, {"amt2", 40}});
    frmbusinesscal& screen = OpenPartners();
    const Partners& partners = screen.partners;
    EXPECT_FALSE(screen.cmd511.Reachable());
    EXPECT_EQ(partners.DbPart.Shows(),
              "Asha\t60.00\t12000.00\t240000.00\t11000.00\tFalse\t\t\t2\tIndividual\t0099\t12.00\tAAAPA1111B\n"
              "Charu\t40.00\t0.00\t0.00\t0.00\tFalse\t\t\t\t\t\t0.00\t\n"
              "Bela\t30.00\t500.00\t0.00\t400.00\tTrue\t\t\t\t\t\t0.00\t");
    EXPECT_EQ(Totals(partners), "100.00 12500.00 240000.00"); // who left has no share
}

TEST_F(PartnersFrame, OlderYearsAskForLess)
{
    const char* const kStatus = "Please fill Status of Partner...";
    const char* const kAddress = "Please fill Address....";
    const std::tuple<int, std::size_t, const char*> kCases[] = {
        {2011, 12, ""},       {2012, 12, kStatus},  {2015, 12, kStatus}, {2016, 16, kStatus},
        {2017, 16, kAddress}, {2018, 16, kAddress}, {2019, 19, kAddress}};
    for (const auto& [year, kinds, message] : kCases) {
        run.reset();
        Year(year, "09");
        frmbusinesscal& screen = OpenPartners();
        Partners& partners = screen.partners;
        EXPECT_EQ(partners.CboStatus.items().size(), kinds) << year;
        const std::pair<TextBox*, const char*> kTexts[] = {{&partners.txtpartner, "Asha"},
                                                           {&partners.TxtCity, "Agra"},
                                                           {&partners.txtstate, "Delhi"},
                                                           {&partners.TxtPIN, "1"},
                                                           {&partners.txtratio, "-5"}};
        for (const auto& [field, text] : kTexts)
            Type(screen, *field, text);
        screen.Click(partners.cmdaddpart);
        EXPECT_EQ(*message ? boxes.Take().text : "", message) << year;
        if (*message)
            continue;
        screen.Click(partners.cmdsavepart); // members may share in any way
        EXPECT_TRUE(boxes.shown.empty());
        EXPECT_EQ(Details(), "PARTREMU Asha 0 -5 0 0\n");
    }
}

TEST_F(PartnersFrame, RemunerationOfOneWhoLeft)
{
    struct Case {
        int year;
        bool asks;
    };
    constexpr Case kCases[] = {{2015, true}, {2016, false}, {2018, false}, {2019, true}};
    for (const auto& [year, asks] : kCases) {
        run.reset();
        Year(year);
        frmbusinesscal& screen = OpenPartners();
        Enter(screen, "Asha", "30", "0", "1");
        screen.Click(screen.partners.ChkCurrent);
        boxes.answers.assign(asks ? 2 : 0, Answer::No);
        screen.Click(screen.partners.cmdaddpart);
        const Message message = boxes.Take();
        EXPECT_EQ(message.title, asks ? "Vorn - Confirmation" : "");
        EXPECT_EQ(message.text.ends_with("P & L Account..\nDo you still want to save this ?"), asks);
        EXPECT_EQ(message.text.ends_with("P & L Account..."), !asks);
        EXPECT_EQ(screen.partners.DbPart.Rows(), 0);
        EXPECT_TRUE(screen.partners.ChkCurrent.value);
        if (!asks)
            continue;
        EXPECT_EQ(message.byDefault, Answer::No);
        boxes.answers = {Answer::Yes};
        screen.Click(screen.partners.cmdaddpart);
        boxes.shown.clear();
        EXPECT_EQ(screen.partners.DbPart.Cell(1, 5), "True");
        EXPECT_EQ(Totals(screen.partners), "0.00 0.00 1.00");
        EXPECT_FALSE(screen.partners.ChkCurrent.value);
    }
}

TEST_F(PartnersFrame, RatiosMustBeAHundredToTheLastPlace)
{
    struct Case {
        std::vector<double> ratios;
        bool passes;
    };
    const Case kCases[] = {
        {{33.3333, 33.3333, 33.3333}, false}, // 99.9999
        {{33.3333, 33.3333, 33.3334}, true},
        {{14.3, 14.3, 14.3, 14.3, 14.3, 14.3, 14.2}, true}, // as doubles they come to a little less or more
        {{99.99999}, false},
    };
    for (const auto& [ratios, passes] : kCases) {
        run.reset();
        Company().Execute("delete from {business}");
        Company().Execute("delete from {business1}");
        Line("1");
        for (std::size_t i = 0; i < ratios.size(); ++i)
            Detail("PARTREMU", {{"name1", "P" + std::to_string(i)}, {"amt2", ratios[i]}, {"State", "PUNJAB"}});
        frmbusinesscal& screen = OpenPartners();
        screen.Click(screen.partners.cmdsavepart);
        EXPECT_EQ(screen.partners.frapartner.visible, !passes) << ratios.front();
        EXPECT_EQ(boxes.shown.size(), passes ? 0U : 1U);
        boxes.shown.clear();
    }
}

// By hand: the book profit is 470000 + 30000 + 400000 before the payments, less 30000 of interest, 870000; the limit is
// 270000 + 60 % of 570000 = 612000. The net income is 470000 with both payments added back.
TEST_F(PartnersFrame, SaveKeepsARowForEveryPartnerAndEntersTheIncome)
{
    Line("1");
    Cell("NEWPL", 255, "470000");
    frmbusinesscal& screen = OpenPartners();
    Partners& partners = screen.partners;
    Enter(screen, "O'Neil", "60", "30000", "400000");
    EXPECT_EQ(partners.txtAllow.text(), "30000.00"); // follows the interest
    Type(screen, partners.txtAllow, "25000");
    Type(screen, partners.TxtInttRate, "12.5");
    screen.Click(partners.cmdaddpart);
    EXPECT_EQ(partners.lblallowremu.text(), "612000.00");
    Add(screen, "Bela", "40");
    Enter(screen, "Charu", "7");
    screen.Click(partners.ChkCurrent);
    screen.Click(partners.cmdaddpart);
    EXPECT_EQ(Totals(partners), "100.00 30000.00 400000.00");
    screen.Click(partners.cmdsavepart);
    EXPECT_EQ(Details(), "PARTINTT O Neil 30000 60 25000 12.5\nPARTREMU O Neil 400000 60 25000 12.5\n"
                         "PARTREMU Bela 0 40 0 0\nPARTREMU Charu 0 7 0 0 left\n");
    EXPECT_EQ(screen.lbladdintt.text() + ' ' + screen.lbladdremu.text(), "30000.00 400000.00");
    EXPECT_EQ(screen.lblincome.text(), "900000.00");
    EXPECT_EQ(screen.focused(), &screen.CmdPartner);
    EXPECT_EQ(run->qeltemp.Scalar("select count(*) from {temp}").Number(), 0);
    screen.Click(screen.CmdPartner);
    EXPECT_EQ(partners.lblallowremu.text(), "612000.00");
}

// Each field holds a text of its own, as odd as it can be typed; the longest one fills its column.
TEST_F(PartnersFrame, EveryFieldIsStoredInItsColumnAndComesBack)
{
    Line("1");
    frmbusinesscal& screen = OpenPartners();
    Partners& partners = screen.partners;
    const std::string odd = R"(50% "Sons"; -- _)";
    const std::pair<TextBox*, std::string> kTexts[] = {
        {&partners.txtpartner, odd + " name"}, {&partners.TxtPart_PAN, odd + " PAN"},
        {&partners.CboStatus, "Individual"},   {&partners.TxtPart_Add, odd + std::string(239, 'x')},
        {&partners.TxtCity, odd + " city"},    {&partners.txtstate, "Punjab"},
        {&partners.TxtPIN, odd + " PIN"},      {&partners.TXTDin, odd + " DIN"},
        {&partners.txtratio, "100.00"},        {&partners.txtpart1, "12000.00"},
        {&partners.txtAllow, "11000.00"},      {&partners.TxtInttRate, "12.50"},
        {&partners.txtpart2, "240000.00"},
    };
    partners.CboStatus.Choose(0);
    for (const auto& [field, text] : kTexts)
        if (field != &partners.CboStatus)
            Type(screen, *field, text);
    screen.Click(partners.cmdaddpart);
    screen.Click(partners.cmdsavepart);
    screen.Click(screen.header.CmdSave);
    EXPECT_TRUE(boxes.shown.empty());
    for (const auto& [type, amount] : {std::pair("PARTINTT", "12000"), {"PARTREMU", "240000"}}) {
        const std::string row = std::string(type) + '|' + kTexts[0].second + '|' + kTexts[1].second + "|Individual|" +
                                kTexts[3].second + '|' + kTexts[4].second + "|Punjab|" + kTexts[6].second + '|' +
                                kTexts[7].second + '|' + amount + "|100|11000|12.5|0|";
        std::string stored;
        for (const char* column : {"[Type]", "name1", "name2", "name3", "AD1", "CITY", "State", "PIN", "utn", "amt1",
                                   "amt2", "amt3", "amt4", "flag1"})
            stored +=
                Stored(std::string("select ") + column + " from {business1} where [Type] = '" + type + '\'') + '|';
        EXPECT_EQ(stored, row);
    }
    frmbusinesscal& again = OpenPartners();
    ASSERT_EQ(again.partners.DbPart.Rows(), 1);
    again.partners.DbPart.DoubleClick(1);
    EXPECT_EQ(Totals(again.partners), "0.00 0.00 0.00");
    for (const auto& [field, text] : kTexts)
        EXPECT_EQ(dynamic_cast<TextBox&>(*again.Find(field->name())).text(), text) << field->name();
    again.Click(again.partners.cmdbackpartner);
    EXPECT_EQ(again.lbladdremu.text(), "240000.00") << "Cancel forgets";
}

TEST_F(PartnersFrame, PayOnLinesWhoseIncomeIsDeemed)
{
    struct Case {
        BusinessKind kind;
        const char* type;
        int year;
        bool deducts; ///< the line has interest to partners
        bool canBeEntered;
        bool refused;
    };
    constexpr Case kCases[] = {
        {kPresumptive44AD, "3", 2023, false, false, false}, {kTransport44AE, "4", 2022, false, false, false},
        {kPresumptive44AD, "3", 2016, true, true, false},   {kPresumptive44AD, "3", 2017, true, true, true},
        {kTransport44AE, "4", 2021, true, true, false},     {kProfession44ADA, "A", 2020, false, true, true},
    };
    for (const auto& [kind, type, year, deducts, canBeEntered, refused] : kCases) {
        run.reset();
        Year(year);
        Line(type);
        Detail("intt", {{"amt1", deducts ? 700 : 0}});
        frmbusinesscal& screen = OpenScreen(kind, "Deemed");
        screen.Click(screen.presumptive.CmdPart);
        Partners& partners = screen.partners;
        Enter(screen, "Asha", "100");
        ASSERT_EQ(partners.txtpart2.enabled, canBeEntered) << type << year;
        ASSERT_EQ(partners.txtpart1.enabled, canBeEntered) << type << year;
        if (canBeEntered)
            Type(screen, partners.txtpart2, "1");
        screen.Click(partners.cmdaddpart);
        EXPECT_EQ(partners.DbPart.Rows(), refused ? 0 : 1) << type << year;
        EXPECT_EQ(refused ? boxes.Take().text : "",
                  refused ? "Remuneration and Interest are not allowed u/s 44AD and ADA, Please correct the details "
                            "to save..."
                          : "");
        EXPECT_TRUE(boxes.shown.empty()) << type << year;
    }
}

TEST_F(PartnersFrame, PartnersComeFromTheClientsWithTheAddressForLetters)
{
    const auto client = [this](const char* name, const char* pan, const char* status, const char* comm) {
        Company().Insert("assessee", {{"comp_name", name},
                                      {"pan", pan},
                                      {"Status", status},
                                      {"comm", comm},
                                      {"add_o1", "Office 1"},
                                      {"add_o3", "Office 3"},
                                      {"city_o", "Pune"},
                                      {"state_o", "MAHARASHTRA"},
                                      {"pin_o", "411001"},
                                      {"add_r1", "Home"},
                                      {"city_r", "Agra"},
                                      {"state_r", "DELHI"},
                                      {"pin_r", "282001"}});
    };
    client("Zubin's \"Daughter\"", "AAAPZ1111A", "01", "R");
    client("Amar", "", "03", "O");
    client("Some Firm", "AAAFS1111A", "06", "O");
    frmbusinesscal& screen = OpenPartners();
    Partners& partners = screen.partners;
    const std::pair<const char*, bool> kTaken[] = {{"Amar||Office 1 Office 3|Pune|MAHARASHTRA|411001", false},
                                                   {"Zubin's \"Daughter\"|AAAPZ1111A|Home|Agra|DELHI|282001", true}};
    for (int row = 1; row <= 2; ++row) {
        screen.Click(partners.ImgHelp);
        ASSERT_EQ(partners.search.MSH.Rows(), 2) << "no firms";
        partners.search.MSH.DoubleClick(row);
        std::string texts = partners.txtpartner.text();
        for (const TextBox* field : {&partners.TxtPart_PAN, &partners.TxtPart_Add})
            texts += '|' + field->text();
        texts += '|' + partners.TxtCity.text() + '|' + partners.txtstate.text() + '|' + partners.TxtPIN.text();
        EXPECT_EQ(texts, kTaken[row - 1].first);
        EXPECT_EQ(partners.txtpartner.locked, kTaken[row - 1].second) << "with a PAN he is known";
    }
}

TEST_F(PartnersFrame, PartnersComeFromThePrecedingYear)
{
    const auto earlier = [this](const char* type, const char* name, double ratio) {
        Company().Insert("business1", {{"code", handOver.GlPrCode},
                                       {"Type", type},
                                       {"SNO", 3},
                                       {"name1", name},
                                       {"amt1", 900},
                                       {"amt2", ratio},
                                       {"name2", "AAAPA1111A"},
                                       {"AD1", "1 Mall"},
                                       {"CITY", "Agra"},
                                       {"State", "DELHI"},
                                       {"PIN", "282001"}});
    };
    earlier("PARTREMU", "Bela", 40);
    earlier("PARTINTT", "Asha", 60);
    earlier("PARTREMU", "ASHA", 60);
    frmbusinesscal& screen = OpenPartners();
    Partners& partners = screen.partners;
    ASSERT_TRUE(partners.previous.CmdImp.visible);
    screen.Click(partners.previous.CmdImp);
    EXPECT_EQ(partners.previous.MSHPart.Rows(), 2);
    EXPECT_FALSE(partners.txtpartner.Reachable());
    screen.Click(partners.previous.Command2);
    EXPECT_EQ(Totals(partners), "100.00 0.00 0.00");
    EXPECT_EQ(partners.DbPart.Rows(), 2);
    screen.Click(partners.previous.CmdImp);
    partners.previous.MSHPart.DoubleClick(2);
    EXPECT_EQ(partners.txtpartner.text() + ' ' + partners.txtratio.text() + ' ' + partners.TxtPart_PAN.text() + ' ' +
                  partners.TxtPart_Add.text() + ' ' + partners.TxtCity.text() + ' ' + partners.txtstate.text() + ' ' +
                  partners.TxtPIN.text(),
              "Bela 40.00 AAAPA1111A 1 Mall Agra DELHI 282001");
    screen.Click(partners.cmdsavepart);
    EXPECT_EQ(boxes.Take().text, "Total Ratio can not be greater than 100....") << "what is typed is added first";
    for (TextBox* field :
         std::initializer_list<TextBox*>{&partners.txtpartner, &partners.TxtPart_PAN, &partners.TxtPart_Add,
                                         &partners.TxtCity, &partners.txtstate, &partners.TxtPIN, &partners.txtratio})
        *field = "";
    screen.Click(partners.cmdsavepart);
    EXPECT_EQ(Details(), "PARTREMU Asha 0 60 0 0\nPARTREMU Bela 0 40 0 0\n");
}

TEST_F(PartnersFrame, PartnersComeFromTheBooksFrom2007)
{
    Year(2007);
    frmbusinesscal& before = OpenPartners();
    EXPECT_FALSE(before.partners.cmdImport.visible);
    EXPECT_FALSE(before.partners.previous.CmdImp.visible);
    const auto books = folder.path() / "orvane";
    std::filesystem::create_directory(books);
    CreateEmbeddedFile(books / "balancesheet.mdb", "balancesheet");
    Company().Insert("misc_items", {{"Type", " OVPATH "}, {"linking", books.string()}});
    Item("OVLINK", {{"sno", 5}});
    Company().Insert("misc_items", {{"code", "A0001r2006-07"}, {"Type", "OVLINK"}, {"sno", 5}});
    {
        const Connection file = OpenFile({.path = books / "balancesheet.mdb", .dsn = {}});
        for (const char* year : {"2006-07", "2007-08"})
            file.Insert("clientasst", {{"c_no", 5}, {"ass_yr", year}, {"actual", false}, {"code", "OV5"}});
        file.Insert(
            "capital",
            {{"code", "OV5"}, {"p_name", "Charu"}, {"p_interest", 1200}, {"p_remuneration", 500}, {"p_share", 55}});
    }
    before.Click(before.header.CmdBack);
    before.Click(before.CmdPartner);
    ASSERT_TRUE(before.partners.cmdImport.visible);
    before.Click(before.partners.cmdImport);
    EXPECT_EQ(Totals(before.partners), "55.00 1200.00 500.00");
    EXPECT_EQ(before.partners.DbPart.Cell(1, 4), "1200.00");
    before.Click(before.partners.cmdsavepart);
    EXPECT_EQ(boxes.Take().text, "Please fill state correctly for Charu");
    before.Click(before.partners.cmdbackpartner);

    auto of2007 = std::move(run);
    Year(2006);
    EXPECT_FALSE(OpenPartners().partners.cmdImport.visible);
    run = std::move(of2007);
    LetEverybodyIn(folder.path());
    const WithoutRights without(books, std::filesystem::perms::all);
    before.Click(before.CmdPartner);
    EXPECT_TRUE(before.partners.frapartner.visible) << "the partners open without the link";
    EXPECT_FALSE(before.partners.cmdImport.visible);
    EXPECT_TRUE(boxes.shown.empty());
}

} // namespace
} // namespace pgbp
