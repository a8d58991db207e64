#include "computation/FrmMulti.h"
#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

/// A line u/s 44AD of 2023-24 with the list of its businesses open over it.
class SeveralBusinesses : public LineUnderTest<frmbusinesscal> {
  public:
    FrmMulti& OpenList()
    {
        line = &OpenScreen(kPresumptive44AD, "Elegible business u/s 44AD");
        return ListAgain();
    }
    FrmMulti& ListAgain()
    {
        line->Click(line->presumptive.CmdMulti);
        return static_cast<FrmMulti&>(*run->screens.OnDisplay());
    }
    static void Add(FrmMulti& list, const char* description, const char* receipts, const char* percent)
    {
        list.txtDesc = description;
        list.TxtPer = percent;
        list.txtrece = receipts;
        list.Click(list.cmdaddveh);
    }
    static std::string Totals(const FrmMulti& list)
    {
        return list.TxtBal1.text() + ' ' + list.TxtBal2.text() + ' ' + list.TxtBal3.text();
    }

    frmbusinesscal* line = nullptr;
};

TEST_F(SeveralBusinesses, AreAddedUpAndTakenBack)
{
    FrmMulti& list = OpenList();
    Add(list, "Roads", "1000000", "8");
    EXPECT_EQ(list.txtDesc.text() + list.txtrece.text() + ' ' + list.Txt44AD.text() + ' ' + list.TxtPer.text(),
              "0.00 0.00 8");
    Add(list, "Bridges", "500006", "10"); // 50000.60
    EXPECT_EQ(list.MSH.Shows(), "1\tRoads\t1000000.00\t8.00\t80000.00\n2\tBridges\t500006.00\t10.00\t50001.00");
    EXPECT_EQ(Totals(list), "1500006.00 8.67 130001.00");
    list.MSH.DoubleClick(1);
    EXPECT_EQ(Totals(list), "500006.00 10.00 50001.00");
    EXPECT_EQ(list.Txt44AD.text(), "80000.00");
    list.txtrece = "0";
    EXPECT_EQ(list.Txt44AD.text(), "80000.00"); // receipts of 0 compute nothing
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(SeveralBusinesses, AreRefusedWithoutDescriptionReceiptsOrProfit)
{
    FrmMulti& list = OpenList();
    Add(list, "", "5", "8");
    EXPECT_EQ(boxes.Take().text, "Please fill the Decription....");
    EXPECT_EQ(list.focused(), &list.txtDesc);
    Add(list, "Roads", "-5", "8");
    EXPECT_EQ(boxes.Take().text, "Please fill the Gross Receipt....");
    EXPECT_EQ(list.focused(), &list.txtrece);
    Add(list, "Roads", "5", "0");
    EXPECT_EQ(boxes.Take().text, "Please fill the Gross Receipt....");
    EXPECT_EQ(list.focused(), &list.Txt44AD);
}

TEST_F(SeveralBusinesses, BackSplitsThemAtEightPercent)
{
    FrmMulti& list = OpenList();
    Add(list, "Roads", "1000000", "8");
    Add(list, "Bridges", "500000", "10");
    Add(list, "Survey", "2000000", "7.99");
    list.txtDesc = "Levelling"; // typed and not added: Back adds it
    list.TxtPer = "6";
    list.txtrece = "100000";
    list.Click(list.CmdBack);
    PresumptiveFrame& frame = line->presumptive;
    EXPECT_EQ(frame.txt44ad1.text(), "Various Business");
    EXPECT_EQ(frame.txtrece.text() + ' ' + frame.TxtNetAd[0].text() + ' ' + frame.TxtPer.text(),
              "1500000.00 130000 8.67");
    EXPECT_EQ(frame.TxtRece6.text() + ' ' + frame.TxtNetAd[1].text() + ' ' + frame.TxtPer6.text(),
              "2100000.00 165800 7.90"); // 159800 + 6000
    EXPECT_EQ(frame.Lbl44AD.text() + ' ' + frame.lbl44adfinal.text(), "295800.00 295800.00");

    frame.TxtNetAd[1] = "170000"; // no longer what the businesses deem
    line->Click(frame.cmdsave44ad);
    EXPECT_EQ(boxes.Take().text,
              "Please correct the deemed profit in Multiple Business option as the same is different "
              "in above box...");
    EXPECT_EQ(Stored("select count(*) from {business1}"), "0");
    FrmMulti& again = ListAgain();
    EXPECT_EQ(again.MSH.Rows(), 4); // they stay with the line
    again.Click(again.CmdBack);
    line->Click(frame.cmdsave44ad);
    EXPECT_TRUE(boxes.shown.empty());
    std::string stored;
    for (const Row row : Company().Query("select name1, amt1, amt2, amt3 from {business1} where [Type] = '44AD'"))
        stored += row.At(0).Text() + ' ' + row.At(1).Text() + ' ' + row.At(2).Text() + ' ' + row.At(3).Text() + '\n';
    EXPECT_EQ(stored, "Roads 1000000 8 80000\nBridges 500000 10 50000\nSurvey 2000000 7.99 159800\nLevelling 100000 6 "
                      "6000\n");
    EXPECT_EQ(OpenList().MSH.Rows(), 4); // and come back from the store
}

TEST_F(SeveralBusinesses, AnEmptyListLeavesNothingOfTheLine)
{
    line = &OpenScreen(kPresumptive44AD, "Elegible business u/s 44AD");
    line->presumptive.txtrece = "500000";
    ListAgain().Press(Key::Escape); // leaves the line as it was
    EXPECT_EQ(line->presumptive.txtrece.text(), "500000");
    FrmMulti& list = ListAgain();
    list.Click(list.CmdBack);
    EXPECT_EQ(line->presumptive.txtrece.text() + ' ' + line->presumptive.Lbl44AD.text() + ' ' +
                  line->presumptive.txt44ad1.text(),
              "0.00 0.00 Various Business");
}

} // namespace
} // namespace pgbp
