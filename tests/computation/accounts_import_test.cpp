// Figures of a line of business out of the books in the accounts product.
#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"
#include "services/text.h"

using namespace pgbp;

namespace {

class ImportFromBooks : public LineUnderTest<frmbusinesscal> {
  protected:
    ImportFromBooks()
    {
        CreateEmbeddedFile(folder.path() / "balancesheet.mdb", "balancesheet");
        Company().Insert("misc_items", {{"Type", "OVPATH"}, {"linking", folder.path().string()}});
        Item("OVLINK", {{"sno", 5}});
        Books().Insert("clientasst", {{"c_no", 5}, {"ass_yr", "2023-2024"}, {"actual", false}, {"code", "B5"}});
    }

    Connection Books() const { return File("balancesheet.mdb"); }
    void Account(const char* type, const char* relative, const char* name, double balance,
                 const char* code = "B5") const
    {
        Books().Insert("accounts", {{"code", code},
                                    {"ac_type", type},
                                    {"a_relative", relative},
                                    {"a_name", name},
                                    {"a_balance", balance},
                                    {"a_flag", true}});
    }
    void Group(const char* type, const char* relative, double amount, const Value& closingStock = {}) const
    {
        Books().Insert(
            "accgroup",
            {{"code", "B5"}, {"g_type", type}, {"g_relative", relative}, {"Amount", amount}, {"clstk", closingStock}});
    }
    void AssetOfBooks(const char* type, const char* name, const Value& depreciation, const char* code = "B5") const
    {
        Books().Insert("fassets", {{"code", code},
                                   {"Type", type},
                                   {"f_name", name},
                                   {"f_dep", depreciation},
                                   {"Desc", "Buildings"},
                                   {"REMARK", "note"}});
    }
    std::string Work() const
    {
        std::string rows;
        for (const Row row : run->qeltemp.Query("select [Type], name1, name2, amt1 from {temp1}"))
            rows += row.At(0).Text() + '|' + row.At(1).Text() + '|' + row.At(2).Text() + '|' + row.At(3).Text() + '\n';
        return rows;
    }
    std::string Annexure() const
    {
        std::string rows;
        for (const Row row : Balance().Query("select SNO, f_name, F_Dep, U_Desc, REMARK from {fassets} where code = ?",
                                             handOver.Glcode))
            rows += row.At(0).Text() + ' ' + row.At(1).Text() + ' ' + row.At(2).Text() + ' ' + row.At(3).Text() + ' ' +
                    row.At(4).Text() + '\n';
        return rows;
    }
};

constexpr const char* kDebit = "Expenditure\\Debit Appropriations\\Partners";
constexpr const char* kCredit = "Income\\Credit Appropriations";

} // namespace

TEST_F(ImportFromBooks, NetProfitIsWhatIsAppropriated)
{
    Account("E", kDebit, "to partners", 5000.5);
    Account("I", kDebit, "income among the debits", 1);
    Account("E", "Expenditure\\Rent", "Rent", 10);
    Account("E", kDebit, "of another client", 100, "B6");
    Account("I", kCredit, "brought forward", 700);
    Account("I", "Income\\Sales", "Sales", 10000);
    Group("E", kDebit, 60);
    Group("I", kCredit, 8);
    Group("I", "Income\\Sales", 900);
    frmbusinesscal& screen = OpenScreen();
    ASSERT_TRUE(screen.import.cmdovpnl.visible);
    screen.Click(screen.import.cmdovpnl);
    EXPECT_EQ(screen.header.txtpnl.text(), "4352.50"); // 5000.50 + 60 - 700 - 8
    EXPECT_EQ(screen.lblincome.text(), "4352.50");
    EXPECT_FALSE(screen.header.txtpnl.enabled);
}

TEST_F(ImportFromBooks, ClosingStockOfTheFirstGroupComesOff)
{
    Account("E", kDebit, "to partners", 5000);
    Group("E", "Expenditure\\Rent", 1, 300);
    Group("E", "Expenditure\\Rent", 1, 40);
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.import.cmdovpnl);
    EXPECT_EQ(screen.header.txtpnl.text(), "4700.00");
}

TEST_F(ImportFromBooks, MarkedAccountsGoToTheListsAndTheBooksDoNotLearnOfIt)
{
    Account("E", "Expenditure\\Misc", "Penalty", 500);
    Account("E", "Expenditure\\Misc", "Fine", 40.25);
    Account("E", "Expenditure\\Misc", "Settled", 0);
    Account("I", "Income\\Misc", "Refund", -7);
    frmbusinesscal& screen = OpenScreen();
    AccountsImport& import = screen.import;
    screen.Click(import.cmdovadd);
    ASSERT_TRUE(import.fra.visible);
    EXPECT_EQ(import.DbGrid31.Shows(), "Fine\t40.25\t\nPenalty\t500.00\t");
    screen.Click(import.cmdcont);
    EXPECT_EQ(Work(), "") << "the flags that the books have do not count";
    screen.Click(import.cmdovadd);
    screen.Do([&] { import.DbGrid31.ClickCell(1, 2); });
    screen.Do([&] { import.DbGrid31.ClickCell(2, 2); });
    screen.Do([&] { import.DbGrid31.ClickCell(1, 2); });
    screen.Do([&] { import.DbGrid31.ClickCell(1, 0); }); // the name alone does not mark
    EXPECT_EQ(import.DbGrid31.Shows(), "Fine\t40.25\t\nPenalty\t500.00\t.");
    EXPECT_EQ(import.DbGrid31.footer().at(1), "500.00");
    screen.Click(import.cmdcont);
    EXPECT_FALSE(import.fra.visible);
    screen.Click(import.cmdovless);
    screen.Type(U' ');
    screen.Click(import.cmdcont);
    EXPECT_EQ(Work(), "23a||Penalty|500\n23l||Refund|-7\n");
    EXPECT_EQ(screen.lbl23a.text() + ' ' + screen.lbl23l.text() + ' ' + screen.lblincome.text(), "500.00 -7.00 507.00");
    EXPECT_EQ(Books().Scalar("select count(*) from {accounts} where a_flag = ?", true).Number(), 4);
}

TEST_F(ImportFromBooks, MarksAreForgottenByBackAndAskedAboutByEscape)
{
    Account("E", "Expenditure\\Misc", "Penalty", 500);
    frmbusinesscal& screen = OpenScreen();
    AccountsImport& import = screen.import;
    screen.Click(import.cmdovless);
    EXPECT_EQ(boxes.Take().text, "No Account to import....");
    EXPECT_FALSE(import.fra.visible);
    screen.Click(import.cmdovadd);
    screen.Type(U' ');
    boxes.answers = {Answer::No};
    screen.Press(Key::Escape);
    EXPECT_TRUE(import.fra.visible);
    screen.Click(import.cmdbackfra1);
    EXPECT_EQ(Work(), "");
    screen.Click(import.cmdovadd);
    EXPECT_FALSE(import.Altered()) << "a list is opened without marks";
}

TEST_F(ImportFromBooks, DepreciationAndTheAssetsOfTheActComeTogether)
{
    Asset("Of the line before", 9, 90000);
    AssetOfBooks("G", "Press", 60.4);
    AssetOfBooks("G", "Van", 40);
    AssetOfBooks("I", "Block", 70);
    AssetOfBooks("I", "Land", Value());
    AssetOfBooks("I", "of another client", 5, "B6");
    Books().Insert("comassets", {{"code", "B5"}, {"f_depyear", 999}});
    frmbusinesscal& screen = OpenScreen();
    screen.Click(screen.import.cmdovdep);
    EXPECT_EQ(screen.txtadddep.text() + ' ' + screen.txtlessdep.text(), "100.40 70.00");
    EXPECT_FALSE(screen.txtlessdep.enabled);
    EXPECT_EQ(Annexure(), "90000 Block 70 Buildings note\n90000 Land  Buildings note\n");
    Type(screen, screen.header.txtdescr1, "Shop");
    screen.Click(screen.header.CmdSave);
    EXPECT_EQ(Annexure(), "1 Block 70 Buildings note\n1 Land  Buildings note\n");
    EXPECT_EQ(Stored("select dep1 from {business}") + ' ' + Stored("select dep2 from {business}"), "100.4 70");
}

TEST_F(ImportFromBooks, WithoutAssetsOfTheActTheDepreciationOfTheBooksIsOffered)
{
    AssetOfBooks("I", "Land", Value());
    Books().Insert("comassets", {{"code", "B5"}, {"f_depyear", 30}});
    Books().Insert("comassets", {{"code", "B5"}, {"f_depyear", 12.5}});
    Line("1");
    Asset("Stored", 9);
    frmbusinesscal& screen = OpenScreen();
    ASSERT_FALSE(screen.txtlessdep.enabled);
    screen.Click(screen.import.cmdovdep);
    EXPECT_EQ(screen.txtadddep.text() + ' ' + screen.txtlessdep.text(), "42.50 42.50");
    EXPECT_TRUE(screen.txtlessdep.enabled);
    EXPECT_EQ(Annexure(), "7 Stored 9  \n") << "the stored annexure goes with the save";
    screen.Click(screen.header.CmdSave);
    EXPECT_EQ(Annexure(), "");
}

TEST_F(ImportFromBooks, BooksThatFailMeanwhileChangeNothing)
{
    AssetOfBooks("I", "Block", 70);
    Asset("Stored", 9);
    Line("1");
    frmbusinesscal& screen = OpenScreen();
    const std::string before = screen.txtadddep.text() + ' ' + screen.txtlessdep.text();
    Books().Execute("drop table {fassets}");
    screen.Click(screen.import.cmdovdep);
    EXPECT_NE(boxes.Take().text.find("balancesheet.mdb"), std::string::npos);
    EXPECT_EQ(screen.txtadddep.text() + ' ' + screen.txtlessdep.text(), before);
    EXPECT_EQ(Annexure(), "7 Stored 9  \n90000 Stored 9  \n");
}
