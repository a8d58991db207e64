#include "computation/frmbusinesscal1.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

using ShortLine = LineUnderTest<frmbusinesscal1>;

void AddItem(frmbusinesscal1& screen, cmd& list, const char* section, const char* description, const char* amount)
{
    screen.Click(list);
    ShortLine::Type(screen, screen.fra2.txtsec, section);
    ShortLine::Type(screen, screen.fra2.txtname1, description);
    ShortLine::Type(screen, screen.fra2.txtamount1, amount);
    screen.Click(screen.fra2.add);
    screen.Click(screen.fra2.save);
}

TEST_F(ShortLine, NewLineIsStoredUnderANumberOfTheWholeFile)
{
    Year(2006);
    Company().Insert("business", {{"code", "B0002r2006-07"}, {"Type", "1"}, {"SNO", 41}});
    frmbusinesscal1& screen = OpenScreen(kSpeculation, "Speculation Business");
    screen.Click(screen.header.CmdSave);
    EXPECT_EQ(boxes.Take().text, "Nothing to save....");
    Type(screen, screen.header.txtdescr1, "Shares \"B.S.E.\" & Sharma's");
    Type(screen, screen.header.txtpnl, "-1200.50");
    AddItem(screen, screen.cmd28a, "32", "Rent of 'A' block", "300"); // any section will do
    AddItem(screen, screen.cmd28l, "", "Brokerage", "99.75");
    EXPECT_EQ(screen.lbltot1.text(), "-900.50");
    EXPECT_EQ(screen.lblincome.text(), "-1000.25");
    screen.Click(screen.header.CmdSave);

    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(run->screens.OnDisplay()->name(), "frmbusiness");
    const Recordset line = Company().Query("select * from {business} where code = ?", handOver.Glcode);
    ASSERT_EQ(line.Size(), 1U);
    EXPECT_EQ(line.First()["Type"].Text(), "2");
    EXPECT_EQ(line.First()["SNO"].Number(), 42);
    EXPECT_EQ(line.First()["name1"].Text(), "Shares \"B.S.E.\" & Sharma's");
    EXPECT_EQ(line.First()["NET"].Number(), -1000.25);
    EXPECT_EQ(line.First()["dep1"].Number(), 0);
    EXPECT_EQ(Stored("select name2 from {business1} where [Type] = '28a' and sno = 42"), "Rent of 'A' block");
    EXPECT_EQ(Stored("select amt1 from {business1} where [Type] = '28l' and sno = 42"), "99.75");
}

TEST_F(ShortLine, EditReadsThePlainStatementAndLeavesRowsWithoutAmountBehind)
{
    Line("8", {{"PNL", 5}});
    Cell("NEWPL", 255, "0");
    Cell("NEWPL", 272, "70000");
    Cell("NEWPL", 254, "900");
    Detail("28a", {{"name1", "36"}, {"amt1", 500}});
    Detail("28a", {{"name1", "37"}, {"amt1", 0}});
    frmbusinesscal1& screen = OpenScreen(kSpecified, "Specified Business u/s 35AD");
    EXPECT_EQ(screen.header.txtpnl.text(), "70000.00");
    EXPECT_FALSE(screen.header.txtpnl.enabled);
    EXPECT_TRUE(screen.header.CmdPNL.visible);
    EXPECT_EQ(screen.lblincome.text(), "70500.00");
    screen.Click(screen.header.CmdSave);
    EXPECT_EQ(Stored("select [Type] from {business}"), "8");
    EXPECT_EQ(Stored("select count(*) from {business1}"), "1");
}

TEST_F(ShortLine, NewSpecifiedLineHasNoKind)
{
    Year(2006);
    frmbusinesscal1& screen = OpenScreen(kSpecified, "Specified Business u/s 35AD");
    Type(screen, screen.header.txtdescr2, "Cold chain");
    Type(screen, screen.header.txtpnl, "10");
    screen.Click(screen.header.CmdSave);
    EXPECT_TRUE(Company().Scalar("select [Type] from {business} where code = ?", handOver.Glcode).IsNull());
    EXPECT_EQ(Stored("select NET from {business}"), "10");
}

TEST_F(ShortLine, DeletionAsksAndTakesListsAndCellsAlong)
{
    Line("2");
    Detail("28l", {{"amt1", 5}});
    Cell("NEWPL", 255, "10");
    frmbusinesscal1& screen = OpenScreen(kSpeculation, "Speculation Business");
    boxes.answers = {Answer::No, Answer::Yes};
    screen.Click(screen.header.CmdDel);
    EXPECT_EQ(Stored("select count(*) from {business}"), "1");
    screen.Click(screen.header.CmdDel);
    EXPECT_EQ(boxes.shown.back().title, "Vorn - Deletion");
    EXPECT_EQ(Stored("select count(*) from {business}"), "0");
    EXPECT_EQ(Stored("select count(*) from {business1}"), "0");
    EXPECT_EQ(Balance().Scalar("select count(*) from {qelgeneral} where [Type] = 'NEWPL'").Number(), 0);
}

} // namespace
} // namespace pgbp
