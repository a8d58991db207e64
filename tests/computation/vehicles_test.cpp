#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

/// A transport line, with the law's figures of each year.
class VehiclesUntil2018 : public LineUnderTest<frmbusinesscal> {
  public:
    VehiclesUntil2018()
    {
        for (const auto& [type, from, amount] : {std::tuple("H_VEH", 1994, 2000),
                                                 {"H_VEH", 2003, 3500},
                                                 {"H_VEH", 2011, 5000},
                                                 {"H_VEH", 2015, 7500},
                                                 {"O_VEH", 1994, 1800},
                                                 {"O_VEH", 2003, 3150},
                                                 {"O_VEH", 2011, 4500},
                                                 {"O_VEH", 2015, 7500},
                                                 {"L_VEH", 1994, 10},
                                                 {"44AE", 2017, 20000000}})
            Tax().Insert("system", {{"Type", type}, {"From", from}, {"Amount", amount}});
    }
    frmbusinesscal& Transport(int year)
    {
        run.reset();
        Year(year, "01");
        return OpenScreen(kTransport44AE, "Transport Business u/s 44AE");
    }
    static void Add(frmbusinesscal& screen, const char* kind, const char* number, const char* months,
                    const char* perMonth = "")
    {
        Vehicles& vehicles = screen.presumptive.vehicles;
        vehicles.cboveh = kind;
        vehicles.txtveh = number;
        vehicles.txtmonths = months;
        if (*perMonth)
            vehicles.TxtRate = perMonth;
        screen.Click(vehicles.cmdaddveh);
    }
    /// Deemed profit, that of heavy and of light vehicles, net profit.
    static std::string Deemed(const frmbusinesscal& screen)
    {
        const PresumptiveFrame& frame = screen.presumptive;
        return frame.Lbl44AD.text() + ' ' + frame.vehicles.heavy.text() + ' ' + frame.vehicles.light.text() + ' ' +
               frame.lbl44adfinal.text();
    }
    std::string Stored() const
    {
        std::string lines;
        for (const Row row :
             Company().Query("select name1, amt1, amt2, amt3 from {business1} where [Type] = 'VEH' order by rowid"))
            lines += row.At(0).Text() + ' ' + row.At(1).Text() + ' ' + row.At(2).Text() + ' ' +
                     (row.At(3).IsNull() ? "-" : row.At(3).Text()) + '\n';
        return lines;
    }
};

TEST_F(VehiclesUntil2018, CountByTheIncomeOfTheYear)
{
    struct Case {
        int year;
        const char* shown;
    };
    // two heavy ones for 12 months and one for 5 at 9000, three light ones for 4 months
    constexpr Case kCases[] = {
        {2002, "79600.00 58000 21600 79600.00"},    // 29 x 2000, 12 x 1800
        {2003, "139300.00 101500 37800 139300.00"}, // 29 x 3500, 12 x 3150
        {2011, "199000.00 145000 54000 199000.00"}, // 29 x 5000, 12 x 4500
        {2014, "199000.00 145000 54000 199000.00"}, //
        {2015, "315000.00 225000 90000 315000.00"}, // 24 x 7500 + 5 x 9000, 12 x 7500
        {2018, "315000.00 225000 90000 315000.00"},
    };
    for (const auto& [year, shown] : kCases) {
        frmbusinesscal& screen = Transport(year);
        EXPECT_EQ(screen.presumptive.vehicles.TxtRate.visible, year >= 2015);
        Add(screen, "Heavy Vehicle", "2", "12", "7000"); // less than the statute's counts as the statute's
        Add(screen, "Heavy Vehicle", "1", "5", "9000");
        Add(screen, "Light Vehicle", "3", "4", "9000"); // light ones count at the statute's
        EXPECT_EQ(Deemed(screen), shown) << year;
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VehiclesUntil2018, AreTenAtMost)
{
    frmbusinesscal& screen = Transport(2018);
    const Vehicles& vehicles = screen.presumptive.vehicles;
    Add(screen, "Heavy Vehicle", "7", "12");
    Add(screen, "Light Vehicle", "3", "12");
    EXPECT_EQ(vehicles.dbveh.Rows(), 2); // 120 months
    Add(screen, "Light Vehicle", "1", "1");
    EXPECT_EQ(boxes.Take().text, "No. of vehicles can not be more than 10...");
    EXPECT_EQ(vehicles.dbveh.Rows(), 2);
    screen.presumptive.vehicles.cboveh = "Heavy Vehicle"; // as it was filled: nothing is typed
    screen.presumptive.vehicles.txtveh = "0";
    screen.presumptive.vehicles.txtmonths = "0";
    screen.presumptive.vehicles.dbveh.DoubleClick(2);
    EXPECT_EQ(vehicles.cboveh.text() + vehicles.txtveh.text() + ' ' + vehicles.txtmonths.text() + ' ' +
                  vehicles.TxtRate.text(),
              "Light Vehicle3 12 7500");
    EXPECT_EQ(Deemed(screen), "630000.00 630000 0 630000.00"); // its months are free again
    screen.presumptive.vehicles.txtveh = "2";
    screen.Click(screen.presumptive.vehicles.cmdaddveh);
    EXPECT_EQ(Deemed(screen), "810000.00 630000 180000 810000.00");
}

TEST_F(VehiclesUntil2018, AreAddedWithNumberAndMonths)
{
    frmbusinesscal& screen = Transport(2018);
    for (const auto& [number, months, message] :
         {std::tuple("0", "5", "Please enter Vehicle Nos..."),
          {"1", "0", "Please enter Months for which vehicle is under possession of assessee..."},
          {"1", "13", "Please enter months correctly..."}}) {
        Add(screen, "Heavy Vehicle", number, months);
        EXPECT_EQ(boxes.Take().text, message);
    }
    Type(screen, screen.presumptive.vehicles.txtmonths, "3");
    screen.Press(Key::Enter);
    EXPECT_EQ(screen.presumptive.vehicles.dbveh.Shows(), "Heavy Vehicle\t1\t3\t7500");
    EXPECT_EQ(screen.focused(), &screen.presumptive.vehicles.cboveh);
    screen.SetFocus(screen.presumptive.vehicles.dbveh);
    screen.Press(Key::Delete);
    EXPECT_EQ(Deemed(screen), "0.00 0 0 0.00");
    screen.Press(Key::Undo);
    EXPECT_EQ(Deemed(screen), "22500.00 22500 0 22500.00");
}

TEST_F(VehiclesUntil2018, AreStoredWithTheIncomeByKind)
{
    for (const int year : {2014, 2018}) {
        for (const char* table : {"business", "business1", "misc_items"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Balance().Execute("delete from {misc_items}");
        frmbusinesscal& screen = Transport(year);
        PresumptiveFrame& frame = screen.presumptive;
        frame.txt44ad1 = "Lorries";
        frame.txtrece = "3900000";
        Add(screen, "Heavy Vehicle", "1", "12");
        frame.vehicles.cboveh = "Light Vehicle"; // typed and not added: the save adds it
        frame.vehicles.txtveh = "1";
        frame.vehicles.txtmonths = "2";
        screen.Click(frame.cmdsave44ad);
        const bool tellsIncome = year == 2018;
        EXPECT_EQ(Stored(), tellsIncome ? "Heavy Vehicle 1 12 7500\nLight Vehicle 1 2 7500\n"
                                        : "Heavy Vehicle 1 12 -\nLight Vehicle 1 2 -\n");
        const Recordset byKind = Balance().Query("select amt1, amt2 from {misc_items} where [Type] = '44AE'");
        ASSERT_EQ(byKind.Size(), 1u);
        EXPECT_EQ(byKind.First()["amt1"].Number(), tellsIncome ? 90000 : 60000);
        EXPECT_EQ(byKind.First()["amt2"].Number(), tellsIncome ? 15000 : 9000);
        EXPECT_EQ(EmptyPractice::Stored("select turnover from {business}"), "3900000");
        EXPECT_EQ(EmptyPractice::Stored("select net44 from {business}"), tellsIncome ? "105000" : "69000");
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(VehiclesUntil2018, AHigherProfitHasToBeToldByKind)
{
    Year(2018, "01");
    Line("4", {{"sec44", 90000}, {"net44", 90000}});
    Detail("VEH", {{"name1", "Heavy Vehicle"}, {"amt1", 1}, {"amt2", 12}, {"amt3", 7500}});
    frmbusinesscal& screen = Transport(2018);
    PresumptiveFrame& frame = screen.presumptive;
    frame.Lbl44AD = "100000";
    screen.Click(frame.cmdsave44ad);
    EXPECT_EQ(boxes.Take().text,
              "Please fill the details of deemed income as per vehicle type.\nThere is some difference in Details of "
              "vehicles and deemed profit claimed..");
    EXPECT_TRUE(frame.vehicles.Fr44AE.visible);
    Type(screen, frame.vehicles.heavy, "100000");
    screen.Click(frame.vehicles.CmdBack44AE);
    screen.Click(frame.cmdsave44ad);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(EmptyPractice::Stored("select net44 from {business}"), "100000");
    // opened again it stands as it was stored, and the months are counted
    frmbusinesscal& again = Transport(2018);
    EXPECT_EQ(Deemed(again), "100000.00 100000 0 100000.00");
    Add(again, "Light Vehicle", "9", "12.5");
    EXPECT_EQ(boxes.Take().text, "No. of vehicles can not be more than 10...");
}

} // namespace
} // namespace pgbp
