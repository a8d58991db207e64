#include "annexure/annexure_screen.h"

#include "annexure/frmEditfassetsNew.h"
#include "support/empty_practice.h"
#include "support/failing_store.h"
#include "support/typing.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

class AnnexureOnScreen : public testing::Test, protected EmptyPractice {
  protected:
    AnnexureScreen& Open(ScreenName<AnnexureOpening> screen = screens::frmfassetsNew,
                         const char* caption = "Depreciation Annexure")
    {
        if (!run)
            Start();
        run->screens.Show(screen, {.caption = caption, .left = [this](const AnnexureTotal& its) { total = its; }});
        return static_cast<AnnexureScreen&>(*run->screens.OnDisplay());
    }

    /// Keys the fields, each left by the next one, and presses Add. Gives the message, if any.
    std::string Add(AnnexureScreen& form, const std::vector<std::pair<TextBox*, const char*>>& texts)
    {
        for (const auto& [field, text] : texts)
            Type(form, *field, text);
        form.Click(form.CmdAdd);
        return boxes.shown.empty() ? "" : boxes.Take().text;
    }

    void Working(const char* name, const std::vector<Field>& more)
    {
        std::vector<Field> fields = {{"code", handOver.Glcode}, {"Type", "P"}, {"SNO", 90000}, {"f_name", name}};
        fields.insert(fields.end(), more.begin(), more.end());
        Balance().Insert("fassets", fields);
    }

    static std::vector<std::string> Row(const Grid& grid, int row, std::initializer_list<int> columns)
    {
        std::vector<std::string> cells;
        for (const int column : columns)
            cells.push_back(grid.Cell(row, column));
        return cells;
    }

    AnnexureTotal total;
};

using Texts = std::vector<std::string>;

TEST_F(AnnexureOnScreen, FiguresFollowTheFieldThatWasLeft)
{
    Year(2024);
    AnnexureScreen& form = Open();
    const auto figures = [&] {
        return Texts{form.txtsales.text(), form.lbltotal.text(), form.TxtDep1.text(),   form.TxtDep2.text(),
                     form.txtdep.text(),   form.Txt382.text(),   form.TxtNetDep.text(), form.lblclbal.text()};
    };
    Type(form, form.txtdeprate, "15");
    Type(form, form.txtopbal, "1000");
    Type(form, form.TxtSales1, "1500");
    Type(form, form.txtpur2, "2000");
    form.SetFocus(form.TxtDep1);
    // what the first half lacks comes out of the second: 1500 * 7.5 % = 112.5
    EXPECT_EQ(figures(), (Texts{"1500", "1500", "0", "113", "113", "0", "113", "1387"}));
    Type(form, form.TxtAdd1, "400"); // overtyped parts leave the halves alone
    Type(form, form.TxtDep2, "100");
    Type(form, form.Txt382, "50");
    form.SetFocus(form.TxtExps);
    EXPECT_EQ(figures(), (Texts{"1500", "1500", "0", "100", "500", "50", "450", "1000"}));
    Type(form, form.txtdep, "1600"); // the closing value is not cut here
    form.SetFocus(form.TxtExps);
    EXPECT_EQ(figures(), (Texts{"1500", "1500", "0", "100", "1600", "50", "1550", "-100"}));
    Type(form, form.txtname, "Van");
    form.CBOGRP.Choose(2);
    form.Click(form.ChkEmpty); // all anew
    EXPECT_EQ(figures(), (Texts{"1500", "1500", "0", "0", "400", "50", "350", "0"}));
    EXPECT_TRUE(form.txtdate1.Reachable());
    EXPECT_EQ(Add(form, {}), "Please fill date of sale...");
    Type(form, form.txtopbal, "-12.50"); // neither sign nor paise
    EXPECT_EQ(form.txtopbal.text(), "1250");
}

TEST_F(AnnexureOnScreen, RefusesWithTheFieldToMend)
{
    Year(2018);
    AnnexureScreen& form = Open();
    EXPECT_EQ(form.Label20.text(), "Dep. Rate on Computer has  been changed to 40% from AY 2018-19 ");
    EXPECT_TRUE(form.Label20.visible);
    EXPECT_FALSE(form.Txt382.enabled);
    EXPECT_EQ(Add(form, {}), "Name can not be left blank...");
    EXPECT_EQ(form.focused(), &form.txtname);
    EXPECT_EQ(Add(form, {{&form.txtname, "Tug"}}), "Group Name can not be left blank...");
    form.CBOGRP.Choose(4);
    EXPECT_EQ(Add(form, {{&form.txtopbal, "100"}}), "Depreciation Rate can not be Zero...");
    EXPECT_EQ(Add(form, {{&form.txtdeprate, "15"}}), "Only allowed Depreciation Rate is 20 in this group...");
    EXPECT_EQ(form.focused(), &form.txtdeprate);
    EXPECT_EQ(Add(form, {{&form.txtdeprate, "20"}, {&form.TxtSales2, "5"}}),
              "You have entered sales ag. 2nd Half purchase but there is no 2nd half Purchase.");
    EXPECT_EQ(Add(form, {{&form.TxtSales2, "0"}}), "");
    EXPECT_EQ(form.DBGrid1.Cell(1, 0), "Tug");
    EXPECT_EQ(form.focused(), &form.txtname);
    EXPECT_EQ(form.CBOGRP.text(), "Ships") << "for the next asset";
    // an annexure of gains on depreciable assets has no depreciation
    AnnexureScreen& gains = Open(screens::frmfassetsNew, "Capital Gain Annexure");
    gains.CBOGRP.Choose(4);
    EXPECT_EQ(Add(gains, {{&gains.txtname, "Tug"}, {&gains.txtdeprate, "20"}, {&gains.txtopbal, "100"}}),
              "Only STCG on Depreciable Assets can be entered here...");
}

TEST_F(AnnexureOnScreen, AParentLeavesAChildsRowsAlone)
{
    Year(2023);
    Working("Own", {{"F_Dep", 10}, {"U_Desc", "Ships"}, {"f_deprate", 20}});
    Working("Child's", {{"F_Dep", 5}, {"U_Desc", "Ships"}, {"f_deprate", 20}, {"Minor", 2}});
    {
        AnnexureScreen& form = Open();
        form.DBGrid1.DoubleClick(2);
        EXPECT_EQ(form.txtname.text(), "");
        form.DBGrid1.onDelete(2);
        EXPECT_EQ(form.LblTot.text(), "15");
        form.Click(form.cmdmain);
    }
    Company().Insert("capital1", {{"code", handOver.Glcode}, {"Type", "Sec50"}});
    // in the older annexure a parent's save leaves them in the store, too, and does not write them again
    AnnexureScreen& old = Open(screens::frmfassets);
    EXPECT_EQ(old.LblTot.text(), "15.00");
    old.Click(old.CmdSave);
    EXPECT_EQ(Balance().Scalar("select count(*) from {fassets}").Number(), 2);
    EXPECT_EQ(Balance().Scalar("select sum(Minor) from {fassets}").Number(), 2);
    EXPECT_EQ(Company().Scalar("select count(*) from {capital1}").Number(), 1) << "it knows no gains";
    // a child's run sees and replaces its own
    run->GLminor = 2;
    AnnexureScreen& child = Open();
    EXPECT_EQ(child.LblTot.text(), "5");
    child.DBGrid1.DoubleClick(1);
    EXPECT_EQ(child.txtname.text(), "Child's");
}

TEST_F(AnnexureOnScreen, LeavesTheTotalOfTheGridSavedOrNot)
{
    Working("Lathe", {{"F_Dep", 10}, {"U_Desc", "Ships"}, {"f_deprate", 20}});
    {
        AnnexureScreen& form = Open();
        form.Click(form.cmdmain);
        EXPECT_EQ(total.rupees, "10");
        EXPECT_TRUE(total.isOfRows);
    }
    AnnexureScreen& form = Open();
    form.DBGrid1.DoubleClick(1);
    form.Click(form.cmdmain); // only looked at
    EXPECT_EQ(total.rupees, "0");
    EXPECT_FALSE(total.isOfRows);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(Balance().Scalar("select count(*) from {fassets}").Number(), 1);

    AnnexureScreen& typed = Open();
    Type(typed, typed.txtname, "Drill");
    boxes.answers = {Answer::No};
    typed.PressCross();
    EXPECT_EQ(run->screens.OnDisplay(), &typed) << "what was typed is not lost unasked";
}

TEST_F(AnnexureOnScreen, TheDateOfSaleIsThatOfAnEmptyBlock)
{
    for (const bool isEmpty : {false, true})
        Working("Van",
                {{"U_Desc", "Ships"}, {"f_deprate", 20}, {"f_date", DateTime{2022, 9, 30}}, {"f_block", isEmpty}});
    AnnexureScreen& form = Open();
    form.DBGrid1.DoubleClick(1);
    EXPECT_EQ(form.txtdate1.text(), "");
    EXPECT_FALSE(form.txtdate1.Reachable());
    form.DBGrid1.DoubleClick(2);
    EXPECT_EQ(form.txtdate1.text(), "30-09-2022");
    EXPECT_TRUE(form.txtdate1.Reachable());
}

TEST_F(AnnexureOnScreen, TheBlockTakesTheDifferenceOnlyOnYes)
{
    Year(2023);
    const auto answered = [&](Answer answer) {
        AnnexureScreen& form = Open();
        for (const char* name : {"One", "Two"}) {
            form.CBOGRP.Choose(2);
            Add(form, {{&form.txtname, name}, {&form.txtdeprate, "15"}, {&form.txtopbal, "1003"}});
        }
        boxes.answers = {answer};
        form.Click(form.CmdSave);
        EXPECT_EQ(boxes.Take().text,
                  "There is some difference of depreciation between individual asset calculation and "
                  "block calculation.\nDo you want to correct it ?");
        return total.rupees;
    };
    // each 150.45, the block 300.9
    EXPECT_EQ(answered(Answer::No), "300");
    Balance().Execute("delete from {fassets}");
    EXPECT_EQ(answered(Answer::Yes), "301");
    EXPECT_EQ(Balance().Scalar("select F_Dep from {fassets} where f_name = 'One'").Number(), 151);
}

TEST_F(AnnexureOnScreen, AskedForEachGroupBeforeAnythingIsStored)
{
    handOver.Glstatus = "12";
    Company().Insert("misc_items", {{"Type", " OVPATH "}, {"linking", folder.path().string()}});
    Company().Insert("misc_items", {{"Type", "OVLINK"}, {"code", handOver.Glcode}, {"SNO", 7}});
    CreateEmbeddedFile(folder.path() / "balancesheet.mdb", "balancesheet");
    {
        const Connection books = File("balancesheet.mdb");
        books.Insert("clientasst", {{"c_no", 7}, {"ass_yr", "2023-2024"}, {"actual", false}, {"code", "B7"}});
        books.Insert("fassets", {{"Code", "B7"},
                                 {"Type", "I"},
                                 {"f_name", "Press"},
                                 {"f_deprate", 15},
                                 {"f_opbal", 1000.6},
                                 {"F_Dep", 150},
                                 {"f_clbal", 851}});
        books.Insert("fassets", {{"Code", "B7"}, {"Type", "G"}, {"f_name", "Of another status"}});
    }
    AnnexureScreen& form = Open();
    ASSERT_TRUE(form.CmdImp.enabled);
    form.Click(form.CmdImp);
    ASSERT_EQ(form.DBGrid1.Rows(), 1);
    EXPECT_EQ(Row(form.DBGrid1, 1, {0, 1, 2, 5, 6, 7}), (Texts{"Press", "15", "1001", "0", "150", "851"}));
    form.Click(form.CmdSave);
    EXPECT_EQ(boxes.Take().text, "Please fill group for Press");
    EXPECT_EQ(Balance().Scalar("select count(*) from {fassets}").Number(), 0);
    form.DBGrid1.DoubleClick(1);
    form.CBOGRP.Choose(2);
    form.Click(form.CmdAdd);
    boxes.answers = {Answer::No}; // of its depreciation nothing stands at the full rate
    form.Click(form.CmdSave);
    EXPECT_EQ(Balance().Scalar("select U_Desc from {fassets}").Text(), "Machinery & Plant");
}

TEST_F(AnnexureOnScreen, BooksThatAreNotThereAreNamedAndChangeNothing)
{
    Company().Insert("misc", {{"Type", "YEAR"}, {"name", "2022-23"}});
    Company().Insert("misc", {{"Type", "YEAR"}, {"name", "2023-24"}});
    for (const char* year : {"2022-23", "2023-24"})
        Company().Insert("assessee1", {{"code", std::string("A0001r") + year}, {"company", 7}, {"year", year}});
    Company().Insert("misc_items", {{"Type", "OVPATH"}, {"linking", (folder.path() / "gone").string()}});
    Working("Lathe", {{"F_Dep", 10}});
    AnnexureScreen& form = Open();
    ASSERT_TRUE(form.CmdImp.enabled) << "the assessee was there last year";
    form.Click(form.CmdImp);
    EXPECT_NE(boxes.Take().text.find("balancesheet.mdb"), std::string::npos);
    EXPECT_EQ(form.DBGrid1.Cell(1, 0), "Lathe");
    form.Click(form.Command1);
    EXPECT_EQ(boxes.Take().text, "Nothing to import....");
    EXPECT_EQ(form.DBGrid1.Cell(1, 0), "Lathe");
}

TEST_F(AnnexureOnScreen, ALockedYearCanBeReadAndLeft)
{
    handOver.GLlock = 1;
    Working("Lathe", {{"F_Dep", 10}});
    AnnexureScreen& form = Open();
    EXPECT_EQ(form.LblTot.text(), "10");
    for (const Control* control : form.controls()) {
        const bool acts = dynamic_cast<const TextBox*>(control) || dynamic_cast<const PushControl*>(control);
        EXPECT_EQ(control->enabled, !acts || control == &form.cmdmain) << control->name();
    }
    form.DBGrid1.DoubleClick(1);
    EXPECT_EQ(form.DBGrid1.Cell(1, 0), "Lathe");
    form.Press(Key::Escape);
    EXPECT_EQ(total.rupees, "10");
}

/// Each write of a save fails in turn: nothing of it is stored, the screen keeps the rows, and the next try stores all.
TEST_F(AnnexureOnScreen, ASaveThatFailsKeepsWhatWasKeyed)
{
    Working("Old", {{"F_Dep", 1}, {"U_Desc", "Ships"}, {"f_deprate", 20}});
    AnnexureScreen& form = Open();
    form.CBOGRP.Choose(4);
    Add(form, {{&form.txtname, "O'Hara's \"tug\" 100% \xe0\xa4\xa8\xe0\xa4\xbe\xe0\xa4\xb5"},
               {&form.txtdeprate, "20"},
               {&form.txtopbal, "1000"}});
    for (const char* table : {"capital1", "fassets"}) {
        const std::string file = std::string(table) == "fassets" ? "[balance]" : "main";
        run->company.Execute("create trigger " + file + ".refuse before " +
                             (std::string(table) == "fassets" ? "insert" : "delete") + " on " + table +
                             " begin select raise(abort, 'full'); end");
        if (std::string(table) == "capital1")
            run->company.Execute("insert into capital1 (code, Type) values ('" + handOver.Glcode + "', 'Sec50')");
        form.Click(form.CmdSave);
        EXPECT_FALSE(boxes.Take().text.empty());
        EXPECT_EQ(form.DBGrid1.Rows(), 2);
        EXPECT_EQ(Balance().Scalar("select f_name from {fassets}").Text(), "Old");
        run->company.Execute("drop trigger " + file + ".refuse");
    }
    form.Click(form.CmdSave);
    EXPECT_EQ(total.rupees, "201");
    EXPECT_EQ(Balance().Scalar("select count(*) from {fassets}").Number(), 2);
    EXPECT_EQ(Company().Scalar("select count(*) from {capital1}").Number(), 0);
}

TEST_F(AnnexureOnScreen, TheEditionBeforeTheYearsKeepsItsRatesAndPaise)
{
    Year(2023);
    AnnexureScreen& form = Open(screens::frmfassetsNew_1);
    EXPECT_FALSE(form.CmdImportXML.visible);
    EXPECT_FALSE(form.Txt382.visible);
    form.CBOGRP.Choose(2);
    EXPECT_EQ(Add(form, {{&form.txtname, "Plant"}, {&form.txtdeprate, "45"}, {&form.txtopbal, "1000.50"}}),
              "Only allowed Depreciation Rates are: 15, 30, 40, 50, 60, 80 and 100 in this group..");
    EXPECT_EQ(Add(form, {{&form.txtdeprate, "60"}}), "");
    // 600.3 rounds to the rupee
    EXPECT_EQ(Row(form.DBGrid1, 1, {2, 6, 7}), (Texts{"1000.50", "600.00", "400.50"}));
    for (const char* name : {"One", "Two"}) // 150.45 each, the block 300.9: nobody asks
        EXPECT_EQ(Add(form, {{&form.txtname, name}, {&form.txtdeprate, "15"}, {&form.txtopbal, "1003"}}), "");
    form.Click(form.CmdSave);
    EXPECT_TRUE(Balance().Scalar("select ded382 from {fassets}").IsNull());
}

TEST_F(AnnexureOnScreen, TheGridEditorKeepsLineAndChildOfEachRow)
{
    Working("Press", {{"f_opbal", 1000}, {"f_deprate", 15}, {"U_Desc", "Machinery & Plant"}, {"Minor", 2}});
    Asset("Van", 7);
    Start();
    run->screens.Show(screens::frmEditfassetsNew);
    auto& form = static_cast<frmEditfassetsNew&>(*run->screens.OnDisplay());
    form.MSH.EnterCell(1, 6); // purchases of the second half
    form.TxtNum.SelectAll();
    TypeText(form, "501");
    form.MSH.EnterCell(1, 8); // sales of the first half
    form.TxtNum.SelectAll();
    TypeText(form, "1200");
    // the shortfall of the first half is not taken from the second: 501 * 7.5 % = 37.575
    EXPECT_EQ(Row(form.MSH, 1, {7, 10, 11, 12, 13, 16, 17}),
              (Texts{"501.00", "1200.00", "301.00", "0.00", "38.00", "38.00", "263.00"}));
    form.MSH.EnterCell(1, 2);
    form.TxtNum.SelectAll();
    TypeText(form, "17");
    form.MSH.EnterCell(1, 1);
    EXPECT_NE(boxes.Take().text.find("15, 30, 40, 50, 60, 80 and 100"), std::string::npos);
    form.MSH.ClickCell(1, 19);
    EXPECT_EQ(Row(form.MSH, 1, {12, 13, 17, 19}), (Texts{"0.00", "0.00", "0.00", "T"}));
    boxes.answers = {Answer::No};
    form.PressCross();
    EXPECT_FALSE(boxes.Take().text.empty());
    form.Click(form.cmbsave);
    const Recordset kept = Balance().Query("select f_name, SNO, Minor from {fassets} order by f_name");
    ASSERT_EQ(kept.Size(), 2u);
    EXPECT_EQ((std::vector{kept[0].At(1).Number(), kept[0].At(2).Number()}), (std::vector{90000.0, 2.0}));
    EXPECT_EQ(kept[1].At(1).Number(), kSno);
    EXPECT_TRUE(kept[1].At(2).IsNull());
}

} // namespace
} // namespace pgbp
