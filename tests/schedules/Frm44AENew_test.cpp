#include "schedules/Frm44AENew.h"

#include "support/empty_practice.h"
#include "support/failing_store.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

/// A transport business of 2023-24.
class GoodsCarriages : public EmptyPractice, public testing::Test {
  protected:
    GoodsCarriages() { Year(2023, "01"); }

    Frm44AENew& OpenScreen()
    {
        if (!run)
            Start();
        run->screens.Show(screens::Frm44AENew);
        return static_cast<Frm44AENew&>(*run->screens.OnDisplay());
    }
    static void Add(Frm44AENew& form, const char* number, const char* tons, const char* months)
    {
        form.TxtRegNo = number;
        form.TxtCapacity = tons;
        form.TxtPeriod = months;
        form.Click(form.CmdAdd);
    }
    static std::string Figures(const Frm44AENew& form)
    {
        return form.Lbl44AD.text() + ' ' + form.lblRemu.text() + ' ' + form.LblIntt.text() + ' ' +
               form.lbl44adfinal.text();
    }
    std::string Rows(const Connection& file, const std::string& columns, const std::string& from) const
    {
        std::string lines;
        for (const pgbp::Row row : file.Query("select " + columns + " from " + from + " order by rowid")) {
            for (std::size_t i = 0; i < row.Size(); ++i)
                lines += (i == 0 ? "" : "|") + row.At(i).Text();
            lines += '\n';
        }
        return lines;
    }
    std::string Carriages() const
    {
        return Rows(Company(), "Type, Name1, Name2, Amt1, Amt2, Am3", "{misc_items} where [Type] <> 'Fast2018'");
    }
    std::string Business() const
    {
        return Rows(Company(), "SNO, Type, name1, name2, PNL, books, NET, turnover, sec44, net44, loss", "{business}");
    }
    std::string Details() const { return Rows(Company(), "SNO, Type, name1, name3, amt1", "{business1}"); }
};

TEST_F(GoodsCarriages, CountByWeightAndMonths)
{
    Frm44AENew& form = OpenScreen();
    EXPECT_FALSE(form.CmdPartner.visible || form.lblRemu.visible || form.LblIntt.visible);
    Add(form, "PB02'AX", "12", "12");
    form.Click(form.OptLease);
    Add(form, "PB02BD", "12.5", "12");
    EXPECT_EQ(form.MSH.Shows(), "1\tPB02 AX\tOWN\t12.00\t12\t90000\n2\tPB02BD\tLEASE\t12.50\t12\t150000");
    EXPECT_EQ(Figures(form), "240000 0 0 240000");
    EXPECT_EQ(form.TxtIncome.text() + form.TxtRegNo.text(), "0.00");
    EXPECT_TRUE(form.OptOwn.value);
    form.MSH.DoubleClick(2);
    EXPECT_TRUE(form.OptLease.value && !form.OptOwn.value);
    EXPECT_EQ(Figures(form), "90000 0 0 90000");
    form.Click(form.OptHired); // only the option is another: the carriage is added again
    form.Click(form.CmdAdd);
    EXPECT_EQ(form.MSH.Cell(2, 2) + ' ' + Figures(form), "HIRED 240000 0 0 240000");
}

TEST_F(GoodsCarriages, AreRefusedUntilAllIsThere)
{
    Frm44AENew& form = OpenScreen();
    Add(form, " ", "9", "12");
    EXPECT_EQ(boxes.Take().text, "Please Fill Registration No.");
    Add(form, "A", "0", "12");
    EXPECT_EQ(boxes.Take().text, "Please Fill Capacity...");
    Add(form, "A", "9", "0");
    EXPECT_EQ(boxes.Take().text, "Please Fill Period...");
    for (const char* months : {"0", "13"}) {
        Type(form, form.TxtPeriod, months);
        form.Press(Key::Tab);
        EXPECT_EQ(boxes.Take().text, "Please Enter Period from 1 - 12 ");
        EXPECT_EQ(form.focused(), &form.TxtPeriod);
    }
    for (const auto& [months, income] : {std::pair("1", "7500"), {"12", "90000"}}) {
        form.SetFocus(form.TxtRegNo);
        Type(form, form.TxtPeriod, months);
        form.Press(Key::Tab);
        EXPECT_EQ(form.TxtIncome.text(), income);
        EXPECT_NE(form.focused(), &form.TxtPeriod);
    }
}

TEST_F(GoodsCarriages, AFieldOfAnEmptyEntryCanBeLeft)
{
    Frm44AENew& form = OpenScreen();
    form.SetFocus(form.TxtPeriod);
    form.Click(form.CmdBack);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(run->screens.OnDisplay()->name(), "frmbusiness");
}

TEST_F(GoodsCarriages, AreTenForTwelveMonthsAtMost)
{
    Frm44AENew& form = OpenScreen();
    for (int i = 0; i < 9; ++i)
        Add(form, "A", "9", "12");
    for (int i = 0; i < 3; ++i)
        Add(form, "B", "9", "4");
    Add(form, "C", "9", "1");
    form.Click(form.CmdSave); // 121 months
    EXPECT_EQ(boxes.Take().text, "As per Section 44AE, nnot more than 10 vehicles are not allowed..., Please check.");
    EXPECT_EQ(Carriages() + Business(), "");
    form.MSH.SetCurrentRow(13);
    form.SetFocus(form.MSH);
    form.Press(Key::Delete);
    form.Click(form.CmdSave); // 120 months, though twelve carriages
    EXPECT_EQ(boxes.Take().text, "Saved");
    EXPECT_EQ(Business(), "1|4|Transport Business||0|0|0|0|900000|900000|\n");
}

TEST_F(GoodsCarriages, SaveReplacesTheLineAndWhatOlderScreensLeft)
{
    Line("4", {{"name2", "x"}, {"NET", 5}, {"turnover", 800000}, {"sec44", 100000}, {"net44", 95000}, {"loss", 3}});
    Item("44AE_N", {{"Name1", "A"}, {"Name2", "LEASE"}, {"Amt1", 9}, {"Amt2", 12}, {"Am3", 90000}});
    Detail("VEH", {{"name1", "Heavy Vehicle"}, {"amt1", 1}});
    Detail("PARTINTT", {{"name1", "Asha"}, {"name3", "Individual"}, {"amt1", 5000}});
    Detail("PARTCHANGE", {{"amt1", 1}});
    Balance().Insert("misc_items", {{"code", handOver.Glcode}, {"Type", "44AE"}, {"amt1", 5}});
    for (const auto& [cell, amount] : {std::pair(1163, "700000"), {1164, "300000"}, {1165, "200000"}, {1166, "100000"}})
        Cell("NEWPL", cell, amount);
    handOver.Glstatus = "06";
    Frm44AENew& form = OpenScreen();
    EXPECT_TRUE(form.CmdPartner.visible && form.partners.ChkChange.value);
    EXPECT_EQ(Figures(form), "100000 0 5000 95000"); // as stored, not as the carriage would give
    EXPECT_EQ(form.Txt[0].text() + ' ' + form.Txt[3].text(), "700000.00 100000.00");
    Type(form, form.Txt[2], "250000");
    form.Press(Key::Tab);
    EXPECT_EQ(form.Txt[3].text(), "50000.00");
    Add(form, "B", "16", "1");
    EXPECT_EQ(Figures(form), "106000 0 5000 101000");
    form.Click(form.CmdSave);
    EXPECT_EQ(boxes.Take().text, "Saved");
    EXPECT_EQ(Business(), "7|4|Transport Business||0|0|0|700000|106000|101000|3\n");
    EXPECT_EQ(Carriages(), "44AE_N|A|LEASE|9|12|90000\n44AE_N|B|OWN|16|1|16000\n");
    EXPECT_EQ(Details(), "7|PARTCHANGE|||1\n7|PARTINTT|Asha|Individual|5000\n");
    EXPECT_EQ(Rows(Balance(), "Type", "{misc_items}") + Rows(Balance(), "Type", "{qelgeneral}"), "");
    // the screen stays, and the figures are those that are stored
    EXPECT_EQ(run->screens.OnDisplay(), &form);
    EXPECT_EQ(Figures(form) + ' ' + form.Txt[0].text(), "106000 0 5000 101000 700000.00");
    form.Click(form.CmdBack);
    EXPECT_EQ(run->screens.OnDisplay()->name(), "frmbusiness");
}

TEST_F(GoodsCarriages, WithoutAProfitTheLineGoesAndTheCarriagesStay)
{
    Line("4", {{"sec44", 90000}, {"net44", 90000}});
    Item("44AE_N", {{"Name1", "A"}, {"Name2", "OWN"}, {"Amt1", 9}, {"Amt2", 12}, {"Am3", 90000}});
    Detail("PARTREMU", {{"name1", "Asha"}, {"amt1", 90000}});
    Detail("PARTCHANGE", {{"amt1", 1}});
    Cell("NEWPL", 269, "5");
    Asset("Lorry", 0);
    handOver.Glstatus = "06";
    Frm44AENew& form = OpenScreen();
    EXPECT_EQ(Figures(form), "90000 90000 0 0");
    form.Click(form.CmdSave);
    EXPECT_EQ(Business() + Details() + Rows(Balance(), "Type", "{qelgeneral}"), "");
    EXPECT_EQ(Carriages(), "44AE_N|A|OWN|9|12|90000\n");
    EXPECT_EQ(Rows(Balance(), "f_name, SNO", "{fassets}"), "Lorry|7\n"); // gains on what was sold are not lost
    EXPECT_EQ(Figures(form), "90000 0 0 90000");
    form.Click(form.CmdSave);
    EXPECT_EQ(Business(), "1|4|Transport Business||0|0|0|5|90000|90000|\n"); // receipts as they stood
}

TEST_F(GoodsCarriages, PartnersAreThoseOfTheLine)
{
    for (const char* state : {"PUNJAB"})
        Tax().Insert("statecode", {{"nm", state}});
    handOver.Glstatus = "06";
    Frm44AENew& form = OpenScreen();
    Add(form, "A", "25", "12");
    form.Click(form.CmdPartner);
    Partners& partners = form.partners;
    EXPECT_EQ(partners.lblallowremu.text(), "270000.00"); // 90 % of 300000
    EXPECT_TRUE(partners.txtpart1.enabled);
    partners.txtpartner = "Asha";
    partners.TxtPart_Add = "12 Mall";
    partners.TxtCity = "Amritsar";
    partners.txtstate = "PUNJAB";
    partners.TxtPIN = "143001";
    partners.CboStatus = "Individual";
    partners.txtratio = "100";
    partners.txtpart1 = "20000.60";
    partners.txtpart2 = "50000.40";
    form.Click(partners.cmdaddpart);
    form.Click(partners.cmdsavepart);
    EXPECT_TRUE(boxes.shown.empty()); // a carrier may pay his partners
    EXPECT_EQ(Figures(form), "300000 50000 20001 229999");
    form.Click(form.CmdSave);
    EXPECT_EQ(Details(), "1|PARTINTT|Asha|Individual|20000.6\n1|PARTREMU|Asha|Individual|50000.4\n");
}

TEST_F(GoodsCarriages, LeavingAsksWhereSomethingIsKeyed)
{
    Frm44AENew& form = OpenScreen();
    form.Txt[0] = "5";
    boxes.answers = {Answer::No};
    form.Click(form.CmdBack);
    EXPECT_EQ(run->screens.OnDisplay(), &form);
    form.Txt[0] = "0";
    Add(form, "A", "25", "12");
    boxes.answers = {Answer::Yes};
    form.Click(form.CmdBack);
    EXPECT_EQ(Carriages(), "");
}

TEST_F(GoodsCarriages, TheAnnexureIsOpenedForThisScreen)
{
    screensKnown = [](pgbp::Run& its) {
        its.screens.Register<AnnexureOpening>(
            screens::frmfassetsNew, [](pgbp::Run& made, const AnnexureOpening& opening) {
                return std::make_unique<Screen>(made, "frmfassetsNew", opening.caption);
            });
    };
    Line("4", {{"sec44", 90000}, {"net44", 90000}});
    Frm44AENew& form = OpenScreen();
    form.Click(form.CmdF);
    EXPECT_EQ(run->GLwhere, 112);
    EXPECT_EQ(run->screens.OnDisplay()->caption.get(), "Capital Gain Annexure");
    Asset("Lorry", 0, 90000);
    run->screens.Return();
    EXPECT_EQ(run->GLwhere, 0);
    form.Click(form.CmdSave);
    Add(form, "A", "25", "12"); // and it stays with the line when that is saved again
    form.Click(form.CmdSave);
    form.Click(form.CmdBack);
    EXPECT_EQ(Rows(Balance(), "f_name, SNO", "{fassets}"), "Lorry|7\n");
}

TEST_F(GoodsCarriages, ARefusedWriteLeavesEveryRow)
{
    for (Refusal refusal;; refusal.writes = 0) {
        ++refusal.write;
        SCOPED_TRACE(refusal.write);
        run.reset();
        for (const char* table : {"business", "business1", "misc_items"})
            Company().Execute("delete from {" + std::string(table) + "}");
        Line("4", {{"sec44", 90000}, {"net44", 90000}});
        Item("44AE_N", {{"Name1", "A"}, {"Name2", "OWN"}, {"Amt1", 9}, {"Amt2", 12}, {"Am3", 90000}});
        Detail("PARTREMU", {{"name1", "Asha"}});
        const auto rows = [this] { return Business() + Carriages() + Details(); };
        const std::string before = rows();
        Frm44AENew& form = OpenScreen();
        Add(form, "B", "16", "1");
        LetFail(*run, refusal);
        form.Click(form.CmdSave);
        const std::string told = boxes.shown.front().text;
        boxes.shown.clear();
        if (told == "Saved") // what is refused behind that is not the save
            break;
        ASSERT_EQ(rows(), before);
        EXPECT_EQ(form.MSH.Rows(), 2);
        form.Click(form.CmdSave);
        ASSERT_EQ(boxes.Take().text, "Saved");
        EXPECT_EQ(Business(), "7|4|Transport Business||0|0|0|0|106000|106000|\n");
    }
}

} // namespace
} // namespace pgbp
