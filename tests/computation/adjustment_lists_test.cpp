#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

class AdjustmentLists : public LineUnderTest<frmbusinesscal> {
  public:
    /// Rows of the working copy of a list, as "name1|name2|name3|amt1".
    std::string Kept(const std::string& type) const
    {
        std::string lines;
        for (const Row row : run->qeltemp.Query("select * from {temp1} where [Type] = ? order by rowid", type))
            lines += row["name1"].Text() + '|' + row["name2"].Text() + '|' + row["name3"].Text() + '|' +
                     row["amt1"].Text() + '\n';
        return lines;
    }
};

TEST_F(AdjustmentLists, RowsThatAreAlikeAreTakenBackTogether)
{
    Line("1");
    for (const double amount : {10.0, 10.0, 10.004, 20.0})
        Detail("less", {{"name1", "Rent"}, {"amt1", amount}});
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.cmdless);
    screen.fra1.rows.DoubleClick(2);
    ASSERT_EQ(screen.fra1.rows.Rows(), 2);
    EXPECT_EQ(screen.fra1.rows.Cell(2, 1), "20.00");
    EXPECT_EQ(screen.notice.get(), "2 items that are alike were taken back: Rent, 10.00");
    screen.fra1.rows.DoubleClick(1); // what was only looked at returns; more places than are shown tell apart
    ASSERT_EQ(screen.fra1.rows.Rows(), 3);
    EXPECT_EQ(screen.fra1.rows.Cell(2, 1), "10.00");
}

TEST_F(AdjustmentLists, OfferWhatWasUsedBefore)
{
    Line("1");
    Detail("560", {{"name1", "28(iv)"}, {"name2", "Machine"}, {"amt1", 1}});
    Detail("23a", {{"name1", "37"}, {"name2", "Fine"}, {"amt1", 1}});
    for (const char* code : {handOver.GlPrCode.c_str(), "B0002r2023-24"})
        for (const char* text : {"Machine", "Gift of a dealer"})
            Company().Insert("business1", {{"code", code}, {"Type", "560"}, {"SNO", 3}, {"name2", text}});
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.cmd560);
    screen.SetFocus(screen.fra2.txtname1);
    screen.fra2.txtname1.OpenOffers();
    EXPECT_EQ(screen.fra2.txtname1.offers().shown(), (std::vector<std::string>{"Machine", "Gift of a dealer"}));
    screen.Press(Key::Escape);
    screen.SetFocus(screen.fra2.txtamount1);
    screen.Press(Key::Down);
    EXPECT_EQ(screen.focused(), &screen.fra2.rows) << "Down passes over Add";
    screen.Press(Key::Delete);
    screen.Click(screen.fra2.save);
    EXPECT_EQ(screen.notice.get(), "Income specified in Sec 28(ii) to 28(vi) not included in NP : 0 items, stored when "
                                   "the line is saved.");
}

TEST_F(AdjustmentLists, ClaimsUpTo2006AskForOneAmount)
{
    Year(2006);
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.cmdother);
    screen.Click(screen.other.section10abc.chk10abc1);
    screen.Click(screen.other.section10abc.cmd10abc);
    EXPECT_EQ(screen.fra4.lblamt2.text(), "Amount :");
    EXPECT_EQ(screen.fra4.rows.Cell(0, 3), "Amount");
    EXPECT_FALSE(screen.fra4.txtamt3.Reachable());
    Type(screen, screen.fra4.txtseca, "10A");
    Type(screen, screen.fra4.txtamt1, "3");
    screen.Click(screen.fra4.add);
    EXPECT_EQ(boxes.Take().text, "Please fill Amount...");
    Type(screen, screen.fra4.txtamt2, "400");
    screen.Click(screen.fra4.add);
    screen.Click(screen.fra4.save);
    EXPECT_EQ(screen.other.section10abc.lbl10abc.text(), "400.00");
    EXPECT_EQ(screen.lblother.text(), "-400.00");
}

TEST_F(AdjustmentLists, ExemptIncomeAsksForTheKindByStatusAndYear)
{
    struct Case {
        int year;
        const char* status;
        bool asks;
    };
    constexpr Case kCases[] = {{2020, "06", false}, {2021, "06", true}, {2021, "01", false},
                               {2012, "12", false}, {2013, "13", true}, {2013, "15", true}};
    for (const auto& [year, status, asks] : kCases) {
        run.reset();
        Year(year, status);
        frmbusinesscal& screen = OpenScreen();
        screen.Click(screen.cmd17);
        EXPECT_EQ(screen.fra1.CboExType.Reachable(), asks) << year << ' ' << status;
        EXPECT_EQ(screen.fra1.lblname.text(), asks ? "Desc./PAN" : "Description :");
        if (!asks)
            continue;
        Type(screen, screen.fra1.txtname, "ABCDE1234F");
        screen.fra1.CboExType.Choose(1);
        Type(screen, screen.fra1.txtamount, "10");
        screen.Click(screen.fra1.add);
        screen.Click(screen.fra1.save);
        EXPECT_EQ(Kept("544"), "ABCDE1234F|Share from AOP/BOI||10\n");
        screen.Click(screen.cmd511);
        EXPECT_FALSE(screen.fra1.CboExType.Reachable());
    }
}

TEST_F(AdjustmentLists, DescriptionsOfferTheOtherHeads)
{
    struct Case {
        int year;
        const char* status;
        std::vector<std::string> deductions;
    };
    const Case kCases[] = {
        {2022, "06", {"House Property", "Capital Gains", "Other Sources"}},
        {2023, "01", {"Salaries", "House Property", "Capital Gains", "Other Sources", "VDA"}},
    };
    for (const auto& [year, status, deductions] : kCases) {
        run.reset();
        Year(year, status);
        frmbusinesscal& screen = OpenScreen();
        screen.Click(screen.cmdless);
        EXPECT_EQ(screen.fra1.txtname.items(), deductions);
        screen.Click(screen.fra1.back);
        screen.Click(screen.cmd23a);
        EXPECT_EQ(screen.fra2.txtname1.items().front(), "");
        EXPECT_EQ(screen.fra2.txtname1.items().back(), "Other Sources");
        screen.Click(screen.fra2.back);
        screen.Click(screen.cmd23l);
        EXPECT_TRUE(screen.fra2.txtname1.items().empty());
    }
}

TEST_F(AdjustmentLists, AccountsOf44BBAreStoredWithTheirListAlone)
{
    for (const int year : {2016, 2017}) {
        run.reset();
        Year(year);
        Note("NEWPLA", {{"amt1", 271}, {"name8", "5"}});
        frmbusinesscal& screen = OpenScreen();
        screen.Click(screen.cmd23l);
        EXPECT_FALSE(screen.accounts.Command3.visible);
        screen.Click(screen.fra2.back);
        screen.Click(screen.cmdother);
        screen.Click(screen.other.cmd570);
        screen.Click(screen.accounts.Command3);
        EXPECT_EQ(boxes.Take().text, "Fill Information in this option only in case of 44BB");
        EXPECT_FALSE(screen.fra2.txtsec.Reachable());
        Type(screen, screen.accounts.txtn2, "1000.49");
        Type(screen, screen.accounts.txtn5, "99.50");
        screen.Click(screen.accounts.CmdBFrame1);
        screen.Click(screen.fra2.save);
        std::string stored;
        for (const Row row :
             Balance().Query("select * from {qelgeneral} where code = ? order by amt1", handOver.Glcode))
            stored += row["amt1"].Text() + ' ' + row["name8"].Text() + ' ' + row["name9"].Text() + '\n';
        EXPECT_EQ(stored, std::string("269 1000 ASdf\n270 0 ASdf\n271 0 ASdf\n272 100 ASdf\n") +
                              (year == 2016 ? "" : "1167 100 ASdf\n"));
    }
}

TEST_F(AdjustmentLists, AccountsOf44BBThatAreRefusedKeepTheirListOpen)
{
    Line("1");
    Detail("570", {{"name1", "44BB"}, {"name2", " Rigs  hired "}, {"amt1", 5}});
    frmbusinesscal& screen = OpenScreen();
    EXPECT_EQ(Kept("570"), "44BB|Rigs  hired||5\n") << "blanks around the second text are dropped";
    screen.Click(screen.cmdother);
    screen.Click(screen.other.cmd570);
    screen.SetFocus(screen.fra2.rows);
    screen.Press(Key::Delete);
    screen.accounts.txtn2 = "1000";
    run->balance.Execute("create trigger [balance].refuse before insert on qelgeneral begin select raise(abort, 'no'); "
                         "end");
    screen.Click(screen.fra2.save);
    boxes.Take();
    EXPECT_TRUE(screen.fra2.panel.visible);
    EXPECT_EQ(Kept("570"), "44BB|Rigs  hired||5\n") << "the list and its accounts are one";
    run->balance.Execute("drop trigger [balance].refuse");
    screen.Click(screen.fra2.save);
    EXPECT_EQ(Kept("570"), "");
}

} // namespace
} // namespace pgbp
