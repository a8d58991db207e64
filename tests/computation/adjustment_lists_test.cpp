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
    double TempRows() const { return run->qeltemp.Scalar("select count(*) from {temp}").Number(); }
};

struct OneList {
    const char* type;
    cmd frmbusinesscal::*button;
    Label frmbusinesscal::*total;
    const char* caption;
    double sign; ///< how it enters the net income
};

TEST_F(AdjustmentLists, EachOpensAddsSavesAndEntersTheIncome)
{
    const OneList kLists[] = {
        {"511", &frmbusinesscal::cmd511, &frmbusinesscal::lbl511,
         "Adj. on account of change in method of accounting and/or valuation of stock :", 1},
        {"544", &frmbusinesscal::cmd17, &frmbusinesscal::lbl17, "Exempt Income Included in NP :", -1},
        {"less", &frmbusinesscal::cmdless, &frmbusinesscal::lblless,
         "Incomes chargeable under any other head of Income :", -1},
        {"560", &frmbusinesscal::cmd560, &frmbusinesscal::lbl560,
         "Income specified in Sec 28(ii) to 28(vi) not included in NP :", 1},
        {"23a", &frmbusinesscal::cmd23a, &frmbusinesscal::lbl23a,
         "Other Adj. in accordance with Sec. 28 to Sec 44D :", 1},
        {"23l", &frmbusinesscal::cmd23l, &frmbusinesscal::lbl23l,
         "Other Adj. in accordance with Sec. 28 to Sec 44D :", -1},
    };
    frmbusinesscal& screen = OpenScreen();
    for (const auto& [type, button, total, caption, sign] : kLists) {
        SCOPED_TRACE(type);
        const double before = Val(screen.lblincome);
        screen.Click(screen.*button);
        const bool ofSections = screen.fra2.panel.visible;
        ListFrame& list = ofSections ? static_cast<ListFrame&>(screen.fra2) : screen.fra1;
        EXPECT_EQ(list.panel.caption.get(), caption);
        EXPECT_EQ(list.type(), type);
        EXPECT_FALSE(screen.cmd511.Reachable());
        for (const char* amount : {"1000", "250.50"}) {
            Type(screen, ofSections ? static_cast<TextBox&>(screen.fra2.txtname1) : screen.fra1.txtname, "Item");
            Type(screen, ofSections ? screen.fra2.txtamount1 : screen.fra1.txtamount, amount);
            screen.Click(list.add);
        }
        EXPECT_EQ(list.rows.Rows(), 2);
        EXPECT_EQ(Kept(type), "");
        screen.Click(list.save);
        EXPECT_EQ((screen.*total).text(), "1250.50");
        EXPECT_EQ(Val(screen.lblincome), before + sign * 1250.5);
        EXPECT_EQ(screen.focused(), &(screen.*button));
        EXPECT_EQ(TempRows(), 0);
        EXPECT_FALSE(list.panel.visible);
    }
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(AdjustmentLists, CancelForgetsAndAnEmptyGridDeletesTheList)
{
    Line("1");
    Detail("511", {{"name1", "Stock"}, {"amt1", 40}});
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.cmd511);
    EXPECT_EQ(screen.fra1.rows.Cell(1, 1), "40.00");
    screen.fra1.rows.DoubleClick(1);
    EXPECT_EQ(screen.fra1.txtname.text(), "Stock");
    EXPECT_EQ(screen.fra1.txtamount.text(), "40.00");
    EXPECT_EQ(screen.fra1.rows.Rows(), 0);
    screen.Press(Key::Escape);
    EXPECT_EQ(screen.lbl511.text(), "40.00");
    EXPECT_EQ(TempRows(), 0);
    screen.Click(screen.cmd511);
    EXPECT_EQ(screen.fra1.txtname.text(), "");
    screen.fra1.rows.DoubleClick(1);
    screen.Click(screen.fra1.save);
    EXPECT_EQ(screen.lbl511.text(), "0.00");
    EXPECT_EQ(Kept("511"), "");
}

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

TEST_F(AdjustmentLists, ChecksOfAddInTheirOrder)
{
    struct Case {
        cmd& button;
        const char* section;
        const char* amount;
        const char* message; ///< empty: the item is taken
    };
    frmbusinesscal& screen = OpenScreen();
    const char* const kSection32 = "In case of profit on sale of fixed asset, leave section field blank.\n"
                                   "Section 32 is allowed only in case of power generation usit, Please check";
    const char* const kOnly44B =
        "In this option, Section can not be other than 44BB, 44BBA, 44BBB and 12G, Plesae check";
    const char* const kAmount = "Please fill Amount...";
    const Case kCases[] = {
        {screen.cmd560, "32", "0", kSection32},       {screen.cmd560, "28(ii)", "0", kAmount},
        {screen.cmd560, "28(ii)", "-5", kAmount},     {screen.cmd23a, "44BB", "5", ""},
        {screen.other.cmd570, "32", "5", kSection32}, {screen.other.cmd570, "44B", "0", kAmount},
        {screen.other.cmd570, "44B", "5", kOnly44B},  {screen.other.cmd570, "", "5", kOnly44B},
        {screen.other.cmd570, "44BBA", "5", ""},      {screen.other.cmd570, "12G", "5", ""},
        {screen.other.cmd564, "41", "5", ""},
    };
    for (const auto& [button, section, amount, message] : kCases) {
        SCOPED_TRACE(std::string(section) + ' ' + amount);
        if (!button.Reachable())
            screen.Click(screen.cmdother);
        screen.Click(button);
        Type(screen, screen.fra2.txtsec, section);
        Type(screen, screen.fra2.txtamount1, amount);
        screen.Click(screen.fra2.add);
        const bool taken = *message == 0;
        EXPECT_EQ(screen.fra2.rows.Rows(), taken ? 1 : 0);
        EXPECT_EQ(taken ? "" : boxes.Take().text, message);
        screen.Click(screen.fra2.back);
        if (screen.other.fra3.visible)
            screen.Click(screen.other.cmdbackother);
    }
    screen.Click(screen.cmd511);
    screen.Click(screen.fra1.add);
    EXPECT_EQ(boxes.Take().text, kAmount);
    Type(screen, screen.fra1.txtamount, "-5");
    screen.Click(screen.fra1.add);
    EXPECT_EQ(screen.fra1.rows.Cell(1, 1), "-5.00");
}

TEST_F(AdjustmentLists, AllowancesAskForYearInstalmentAndAmount)
{
    struct Case {
        const char* section;
        const char* year;
        const char* instalment;
        const char* allowable;
        const char* message;
    };
    const Case kCases[] = {
        {"35D", "0", "0", "0", "Please fill year no..."},
        {"35D", "2", "0", "0", "Please fill Instalment..."},
        {"35D", "2", "10", "0", "Please fill Allowable Amount..."},
        {"35D", "2", "10", "50", ""},
        {"35A", "0", "0", "0", "Please fill year no..."},
        {"35A", "1", "0", "0", "Please fill Allowable Amount..."},
        {"35A", "1", "0", "70", ""},
        {"35AC", "0", "0", "0", ""},
    };
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.cmdother);
    screen.Click(screen.other.cmd568);
    AllowanceList& list = screen.fra4;
    int taken = 0;
    for (const auto& [section, year, instalment, allowable, message] : kCases) {
        SCOPED_TRACE(std::string(section) + ' ' + year + ' ' + instalment + ' ' + allowable);
        Type(screen, list.txtseca, section);
        Type(screen, list.txtamt1, year);
        EXPECT_EQ(list.lblamt2.text(), std::string(section) == "35AC" ? "Dr. in P && L" : "Instalment :");
        Type(screen, list.txtamt2, instalment);
        Type(screen, list.txtamt3, allowable);
        screen.Click(list.add);
        taken += *message == 0;
        EXPECT_EQ(list.rows.Rows(), taken);
        EXPECT_EQ(*message == 0 ? "" : boxes.Take().text, message);
    }
    list.rows.DoubleClick(1);
    EXPECT_EQ(list.txtamt1.text() + '|' + list.txtamt2.text() + '|' + list.txtamt3.text(), "2|10.00|50.00");
    screen.Click(list.add);
    screen.Click(list.save);
    EXPECT_TRUE(screen.other.fra3.visible);
    EXPECT_EQ(screen.focused(), &screen.other.cmd568);
    EXPECT_EQ(screen.other.lbl568.text(), "110.00"); // 70 - 0, 0 - 0, 50 - 10
    EXPECT_EQ(screen.lblother.text(), "-110.00");
    EXPECT_EQ(list.lblamt2.text(), "Installment :");
    EXPECT_EQ(run->qeltemp.Scalar("select sum(amt4) from {temp1} where [Type] = '568'").Number(), 110);
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
    Year(2017);
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
    for (const Row row : Balance().Query("select * from {qelgeneral} where [Type] = 'NEWPLA' order by amt1"))
        stored += row["amt1"].Text() + ' ' + row["name8"].Text() + ' ' + row["name9"].Text() + '\n';
    EXPECT_EQ(stored, "269 1000 ASdf\n270 0 ASdf\n271 0 ASdf\n272 100 ASdf\n1167 100 ASdf\n");
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

TEST_F(AdjustmentLists, OddTextsComeBackAsTyped)
{
    const std::string odd = "O'Neil \"& Sons\"; 50% -- drop table ' x";
    const std::string longest(255, 'w');
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.cmd23l);
    for (const std::string& text : {odd, longest + "w"}) {
        Type(screen, screen.fra2.txtsec, text);
        Type(screen, screen.fra2.txtname1, text);
        Type(screen, screen.fra2.txtamount1, "99999999999999.99");
        screen.Click(screen.fra2.add);
    }
    screen.fra2.rows.DoubleClick(1);
    EXPECT_EQ(screen.fra2.txtsec.text(), odd);
    EXPECT_EQ(screen.fra2.rows.Rows(), 1);
    screen.Click(screen.fra2.save);
    EXPECT_EQ(Kept("23l").substr(0, 512), longest + '|' + longest + '|');
    EXPECT_EQ(screen.lbl23l.text(), "99999999999999.90"); // fifteen digits can be typed
    screen.Click(screen.cmd511);
    Type(screen, screen.fra1.txtname, "O'Neil \"Stock\"");
    EXPECT_EQ(screen.fra1.txtname.text(), "ONeil Stock");
}

} // namespace
} // namespace pgbp
