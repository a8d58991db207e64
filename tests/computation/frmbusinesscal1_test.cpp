#include "computation/frmbusinesscal1.h"
#include "computation/line_under_test.h"

namespace pgbp {
namespace {

using ShortLine = LineUnderTest<frmbusinesscal1>;

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

} // namespace
} // namespace pgbp
