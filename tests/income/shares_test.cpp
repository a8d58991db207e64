#include "income/shares.h"

#include "support/empty_practice.h"
#include "support/failing_store.h"
#include "support/stored_firm.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

class Member : public testing::Test {
  protected:
    /// A stored line with one amount, of a child where `minor` is not 0.
    void Stored(const char* kind, const char* type, double sno, const char* name, double amount, double minor = 0)
    {
        const Value its = minor == 0 ? Value() : Value(minor);
        practice.Line(kind, {{"SNO", sno}, {"NET", amount}, {"Minor", its}});
        practice.Detail(type, {{"SNO", sno}, {"name1", name}, {"amt1", amount}, {"Minor", its}});
    }

    frmbusiness& Open(cmd frmbusiness::*button)
    {
        frmbusiness& form = practice.run ? practice.Summary() : practice.Begin();
        form.Click(form.*button);
        return form;
    }

    static void Add(frmbusiness& form, const char* name, const char* amount)
    {
        EmptyPractice::Type(form, form.shares.txtname, name);
        EmptyPractice::Type(form, form.shares.txtamount, amount);
        form.Click(form.shares.add);
    }

    static std::string Listed(const Grid& grid)
    {
        std::string lines;
        for (int row = 1; row <= grid.Rows(); ++row)
            lines += grid.Cell(row, 0) + ' ' + grid.Cell(row, 1) + '\n';
        return lines;
    }

    std::string Rows(const char* sql) const
    {
        std::string lines;
        for (const Row row : practice.Company().Query(sql)) {
            for (std::size_t i = 0; i < row.Size(); ++i)
                lines += row.At(i).Text() + (i + 1 < row.Size() ? "|" : "\n");
        }
        return lines;
    }
    std::string Lines() const { return Rows("select [Type], SNO, name1, NET, Minor from {business} order by rowid"); }
    std::string Details() const
    {
        return Rows("select [Type], SNO, name1, amt1, Minor from {business1} where [Type] in ('PART', 'AOP') order by "
                    "rowid");
    }
    std::string Exempt() const
    {
        return Rows("select code, [Type], name1, name2, amt1 from {misc_items} order by rowid");
    }

    EmptyPractice practice;
};

} // namespace

TEST_F(Member, AssociationsReplaceOnlyTheRunsOwnRows)
{
    practice.Line("1", {{"SNO", 40}, {"NET", 5}});
    Stored("7", "AOP", 11, "Club", 100);
    Stored("7", "AOP", 12, "Child's club", 30, 2);
    Stored("7", "AOP", 13, "Club", 100, 3);
    Stored("6", "PART", 14, "Firm", 9);
    frmbusiness& form = Open(&frmbusiness::cmd7);
    EXPECT_EQ(form.shares.panel.caption.get(), "Share from AOP/BOI");
    EXPECT_EQ(Listed(form.shares.rows), "Club 100.00\nChild's club 30.00\nClub 100.00\n");
    EXPECT_FALSE(form.shares.cmdImport.enabled || form.shares.CmdPro.enabled);
    EXPECT_TRUE(form.shares.CmdAOP.enabled);
    form.shares.rows.DoubleClick(2);
    EXPECT_EQ(practice.boxes.Take().text, "This item belongs to minor & can not be changed from here.");
    form.shares.rows.DoubleClick(1);
    EXPECT_EQ(Listed(form.shares.rows), "Child's club 30.00\nClub 100.00\n") << "a child's amount is not alike";
    EXPECT_EQ(form.shares.txtname.text(), "Club");
    EmptyPractice::Type(form, form.shares.txtamount, "0");
    form.Click(form.shares.add);
    EXPECT_EQ(practice.boxes.Take().text, "Please fill Amount...");
    EXPECT_EQ(form.focused(), &form.shares.txtamount);
    EmptyPractice::Type(form, form.shares.txtamount, "120.10");
    form.Click(form.shares.add);
    Add(form, "B\"O'I", "0.20");
    form.Click(form.shares.save);
    EXPECT_EQ(Lines(), "1|40|Main works|5|\n7|12|Main works|30|2\n7|13|Main works|100|3\n6|14|Main works|9|\n"
                       "7|41|Share from AOP/BOI|120.3|\n");
    EXPECT_EQ(Details(), "AOP|12|Child's club|30|2\nAOP|13|Club|100|3\nPART|14|Firm|9|\nAOP|41|Club|120.1|\n"
                         "AOP|41|BOI|0.2|\n");
    EXPECT_EQ(form.Txt7.text(), "250.30") << "the children's count in the parent's summary";
    EXPECT_EQ(form.focused(), &form.cmd7);
    EXPECT_FALSE(form.shares.panel.visible || form.shares.CmdAOP.enabled);
}

TEST_F(Member, ChildsRunSeesAndReplacesTheChildsAlone)
{
    Stored("7", "AOP", 11, "Club", 100);
    Stored("7", "AOP", 12, "Child's club", 30, 2);
    practice.handOver.GLminor = 2;
    frmbusiness& form = Open(&frmbusiness::cmd7);
    EXPECT_EQ(Listed(form.shares.rows), "Child's club 30.00\n");
    form.shares.rows.onDelete(1);
    form.Click(form.shares.save);
    EXPECT_EQ(Lines(), "7|11|Main works|100|\n") << "no item, no line";
    form.Click(form.cmd7);
    Add(form, "New club", "-7");
    form.Click(form.shares.save);
    EXPECT_EQ(Lines(), "7|11|Main works|100|\n7|12|Share from AOP/BOI|-7|2\n");
    EXPECT_EQ(Details(), "AOP|11|Club|100|\nAOP|12|New club|-7|2\n");
}

TEST_F(Member, ImportAsksForTheAllowablePortion)
{
    practice.Year(2006, "01");
    AddFirm(practice, 21, "Zeta & Co", "ABQPG4821K");
    AddFirm(practice, 22, "Alpha", "ABQPG4821K");
    AddClient(practice, "C23r2006-07", 23, "A person", "01");
    AddClient(practice, "C24r2006-07", 24, "A firm that left", "06", "", false);
    AddClient(practice, "C25r2006-07", 25, "No partner known", "06");
    practice.Item("SPRO", {{"name1", "old"}, {"name2", "PAN"}, {"amt1", 3}});
    frmbusiness& form = Open(&frmbusiness::cmd6);
    Shares& shares = form.shares;
    EXPECT_EQ(shares.panel.caption.get(), "Rem./Intt. from Partnership Firm");
    EXPECT_FALSE(shares.CmdAOP.enabled);
    form.Click(shares.cmdImport);
    EXPECT_EQ(Listed(shares.firms.DBFirm), "Alpha F22r2006-07\nNo partner known C25r2006-07\nZeta & Co F21r2006-07\n");
    shares.firms.DBFirm.DoubleClick(2);
    EXPECT_EQ(practice.boxes.Take().text, "No data of any partner exists....");
    shares.firms.DBFirm.DoubleClick(3);
    EXPECT_EQ(Listed(shares.firms.DbPart), "Gupta 25.00\nVerma 75.00\n");
    EXPECT_EQ(shares.firms.DbPart.Cell(1, 2) + ' ' + shares.firms.DbPart.Cell(1, 3), "50000.00 300000.00");
    form.Click(shares.firms.back);
    EXPECT_EQ(form.focused(), &shares.firms.DBFirm);
    form.Click(shares.firms.back);
    EXPECT_FALSE(shares.firms.Fratemp.visible);
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        form.Click(shares.cmdImport);
        shares.firms.DBFirm.DoubleClick(answer == Answer::Yes ? 3 : 1);
        practice.boxes.answers = {answer};
        practice.boxes.shown.clear();
        shares.firms.DbPart.DoubleClick(1);
        EXPECT_EQ(practice.boxes.Take().text, "Import allowable portion only....");
    }
    // 40000 of 100000 of 50000; 300000 of 400000 of 200000
    EXPECT_EQ(Listed(shares.rows), "Interest - Zeta & Co 20000.00\nRemuneration - Zeta & Co 150000.00\n"
                                   "Interest - Alpha 50000.00\nRemuneration - Alpha 300000.00\n");
    EXPECT_EQ(Exempt(), "A0001r2006-07|SPRO|old|PAN|3\n") << "nothing is stored before the save";
    form.Click(shares.save);
    EXPECT_EQ(Exempt(), "A0001r2006-07|SPRO|old|PAN|3\nA0001r2006-07|SPRO|Profit Share from Zeta & Co||20000\n"
                        "A0001r2006-07|SPRO|Profit Share from Alpha||20000\n");
    EXPECT_EQ(form.Txt6.text(), "520000.00");
}

TEST_F(Member, NoFirmOfTheYearIsTold)
{
    practice.Year(2006, "01");
    AddClient(practice, "C23r2006-07", 23, "A person", "01");
    frmbusiness& form = Open(&frmbusiness::cmd6);
    form.Click(form.shares.cmdImport);
    const Message message = practice.boxes.Take();
    EXPECT_EQ(message.text, "No firm are entered for the assessment year - 2006-07");
    EXPECT_EQ(message.title, "Vorn - Infoamation");
}

TEST_F(Member, ExemptSharesHaveListsOfTheirOwn)
{
    practice.Year(2006, "01");
    practice.Item("SPRO", {{"name1", "Alpha "}, {"name2", "PAN"}, {"amt1", 3}});
    practice.Item("SAOP", {{"amt1", 15000}});
    frmbusiness& form = Open(&frmbusiness::cmd6);
    ProfitList& profits = form.shares.profits;
    form.Click(form.shares.CmdPro);
    EmptyPractice::Type(form, profits.TxtDescProfit, "B'eta");
    form.Click(profits.add);
    EXPECT_EQ(practice.boxes.Take().text, "Please fill Amount...");
    EmptyPractice::Type(form, profits.TxtAmtProfit, "12.5");
    form.Click(profits.add);
    profits.rows.DoubleClick(1);
    EmptyPractice::Type(form, profits.TxtAmtProfit, "4");
    form.Click(profits.save); // what is typed is added first
    EXPECT_EQ(Exempt(), "A0001r2006-07|SAOP|||15000\nA0001r2006-07|SPRO|Alpha|PAN|4\nA0001r2006-07|SPRO|Beta||12.5\n");
    EXPECT_TRUE(form.shares.panel.visible);
    form.Click(form.shares.back);

    form.Click(form.cmd7);
    AopProfit& aop = form.shares.aopProfit;
    for (const auto& [typed, stored] : {std::pair{"20000.5", "SAOP|||20000.5\n"}, {"0", ""}}) {
        form.Click(form.shares.CmdAOP);
        EmptyPractice::Type(form, aop.TXTAopS, typed);
        form.Click(aop.CmdSaveAOP);
        EXPECT_FALSE(aop.FraAOP.visible);
        EXPECT_EQ(Rows("select [Type], name1, name2, amt1 from {misc_items} where [Type] = 'SAOP'"), stored);
    }
}

TEST_F(Member, LeavingAsksForWhatWasNotSaved)
{
    Stored("7", "AOP", 11, "Club", 100);
    const std::string before = Lines() + Details();
    frmbusiness& form = Open(&frmbusiness::cmd7);
    form.Click(form.shares.CmdAOP);
    EmptyPractice::Type(form, form.shares.aopProfit.TXTAopS, "5");
    practice.boxes.answers = {Answer::Yes};
    form.Click(form.CmdBack);
    EXPECT_FALSE(form.shares.aopProfit.FraAOP.visible);
    EXPECT_TRUE(form.shares.panel.visible) << "the one that is up is left alone";
    EmptyPractice::Type(form, form.shares.txtname, "X");
    practice.boxes.answers = {Answer::No, Answer::No, Answer::Yes};
    form.PressCross();
    form.Click(form.CmdBack);
    EXPECT_TRUE(form.shares.panel.visible);
    form.Press(Key::Escape);
    EXPECT_FALSE(form.shares.panel.visible);
    EXPECT_EQ(Lines() + Details() + Exempt(), before);
}

TEST_F(Member, SaveThatFailsStoresNothing)
{
    Stored("7", "AOP", 11, "Club", 100);
    const std::string before = Lines() + Details();
    frmbusiness& form = Open(&frmbusiness::cmd7);
    Add(form, "Second", "5");
    Refusal refusal;
    LetFail(*practice.run, refusal);
    int failures = 0;
    while (form.shares.panel.visible && ++failures < 30) {
        EXPECT_EQ(Lines() + Details(), before);
        refusal = {.write = failures};
        form.Click(form.shares.save);
    }
    EXPECT_EQ(failures, 8) << "begin, two deletes, line, two details and commit were refused in turn";
    EXPECT_EQ(form.Txt7.text(), "105.00");
}
