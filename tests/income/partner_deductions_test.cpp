#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// A firm of 2023-24 that lets the program calculate the remuneration.
class Firm : public testing::Test {
  protected:
    Firm() { practice.Line("1", {{"NET", 500000}}); }

    std::vector<std::string> Stored(const char* type) const
    {
        std::vector<std::string> rows;
        for (const Row row :
             practice.Company().Query("select amt1, minor from {business1} where [Type] = ? order by rowid", type))
            rows.push_back(row.At(0).Text() + (row.At(1).IsNull() ? "" : " of " + row.At(1).Text()));
        return rows;
    }
    EmptyPractice practice;
};

using Rows = std::vector<std::string>;

} // namespace

TEST_F(Firm, DeductsTheLimitOrWhatWasPaid)
{
    struct {
        const char* what;
        int year;
        double paid;
        double exempt;
        double otherHeads;
        const char* deducted;
        const char* last;
    } const rows[] = {
        // 270000 + 60 % of 200000; the exempt income of 100000 adds 60000, other heads of 50000 add 30000
        {"limit", 2023, 900000, 0, 0, "390000.00", "110000.00"},
        {"limit with exempt income", 2023, 900000, 100000, 0, "450000.00", "50000.00"},
        {"limit with other heads", 2023, 900000, 0, 50000, "420000.00", "80000.00"},
        {"none of them before 2023", 2022, 900000, 100000, 50000, "390000.00", "110000.00"},
        {"what was paid", 2023, 250000.5, 0, 0, "250001.00", "249999.00"},
        {"nothing paid", 2023, 0, 0, 0, "0.00", "500000.00"},
    };
    for (const auto& row : rows) {
        EmptyPractice firm;
        firm.Year(row.year);
        firm.Line("1", {{"NET", 500000}});
        firm.Automatic();
        firm.Detail("PARTREMU", {{"amt1", row.paid}});
        firm.Detail("544", {{"amt1", row.exempt}});
        firm.Detail("less", {{"amt1", row.otherHeads}});
        auto& form = firm.Begin();
        EXPECT_EQ(form.partners.txtlesspart2.text(), row.deducted) << row.what;
        EXPECT_EQ(form.lbllast.text(), row.last) << row.what;
    }
}

TEST_F(Firm, RefreshesTheRemunerationOnceAfterALineWasOpen)
{
    practice.Automatic();
    practice.Detail("PARTREMU", {{"amt1", 900000}});
    auto& form = practice.Begin(2023, "06");
    EXPECT_EQ(practice.run->GLrep, "New");
    form.partners.txtlesspart2 = "1.00";
    practice.run->company.Execute("update {business1} set amt1 = 1 where [Type] = 'LESSREMU'");
    form.Do([&] { form.Activate(); });
    EXPECT_EQ(form.partners.txtlesspart2.text(), "1.00") << "not again by itself";
    form.Click(form.cmd1); // the list comes up; the line was looked at
    form.Do([&] { form.Activate(); });
    EXPECT_EQ(form.partners.txtlesspart2.text(), "390000.00");
}

TEST_F(Firm, KeepsTheRemunerationByHandUnlessToldToCalculate)
{
    practice.Detail("PARTREMU", {{"amt1", 900000}});
    practice.Detail("LESSREMU", {{"amt1", 1234}});
    auto& form = practice.Begin(2023, "06");
    EXPECT_EQ(form.partners.txtlesspart2.text(), "1234.00");
    form.Click(form.partners.cmdmax);
    EXPECT_EQ(form.partners.txtlesspart2.text(), "390000.00");
    EXPECT_EQ(Stored("LESSREMU"), Rows{"390000"});
}

TEST_F(Firm, StoresWhatIsTypedOnLeaving)
{
    practice.Detail("LESSINTT", {{"amt1", 5}, {"Minor", 0}});
    practice.Detail("LESSINTT", {{"amt1", 7}, {"Minor", 2}});
    practice.Detail("LESSREMU", {{"amt1", 6}, {"Minor", 0}});
    practice.Detail("PARTINTT", {{"amt1", 9}, {"amt3", 0}}); // interest of which nothing is allowed
    auto& form = practice.Begin(2023, "06");
    EXPECT_EQ(form.partners.txtlesspart1.text(), "5.00") << "the assessee's own row before the child's";
    practice.Type(form, form.partners.txtlesspart1, "120000");
    form.Press(Key::Enter);
    EXPECT_EQ(form.lblinc.text(), "379994.00");
    practice.Type(form, form.partners.txtlesspart2, "1000");
    form.Press(Key::Enter);
    EXPECT_EQ(form.lbllast.text(), "379000.00");
    EXPECT_EQ(Stored("LESSINTT"), (Rows{"7 of 2", "120000"}));
    EXPECT_EQ(Stored("LESSREMU"), (Rows{"6 of 0", "1000"})) << "a stored minor of 0 is not removed here";
    form.Do([&] { form.Activate(); });
    EXPECT_EQ(form.partners.txtlesspart2.text(), "1000.00") << "the row without a minor counts";
    form.Do([&] { form.SetFocus(form.partners.txtlesspart2); });
    form.Press(Key::Delete);
    form.Press(Key::Enter);
    EXPECT_EQ(Stored("LESSREMU"), (Rows{"6 of 0", "0"})) << "an emptied field is 0.00";
}

TEST_F(Firm, CalculatingReplacesAChildsRowOfTheSameAmount)
{
    practice.Detail("PARTREMU", {{"amt1", 900000}});
    practice.Detail("LESSREMU", {{"amt1", 390000}, {"name1", "Remuneration to partners"}, {"Minor", 3}});
    auto& form = practice.Begin(2023, "06");
    form.Click(form.partners.cmdmax);
    EXPECT_EQ(Stored("LESSREMU"), Rows{"390000"});
}

TEST_F(Firm, WalkingThroughTheFieldsWritesNothing)
{
    practice.Detail("LESSINTT", {{"amt1", 5}, {"name1", "Interest to partners"}});
    practice.Detail("LESSREMU", {{"amt1", 6}, {"name1", "Remuneration to partners"}});
    auto& form = practice.Begin(2023, "06");
    practice.Company().Execute("create trigger fail before insert on business1 begin select raise(abort, 'no'); end");
    form.Do([&] { form.SetFocus(form.partners.txtlesspart1); });
    form.Press(Key::Enter);
    form.Do([&] { form.SetFocus(form.partners.txtlesspart2); });
    form.Press(Key::Enter);
    EXPECT_TRUE(practice.boxes.shown.empty());
}

TEST_F(Firm, TakesTheInterestFromThePartners)
{
    practice.Detail("PARTINTT", {{"amt1", 90000}, {"amt3", 60000.004}});
    practice.Detail("PARTINTT", {{"amt1", 50000}, {"amt3", 40000.004}});
    practice.Detail("PARTINTT", {{"amt1", 10000}, {"amt3", 0}});
    auto& form = practice.Begin(2023, "06");
    EXPECT_EQ(form.partners.txtlesspart1.text(), "100000.00") << "rounded at each partner";
    EXPECT_FALSE(form.partners.txtlesspart1.enabled);
    EXPECT_EQ(form.lbllast.text(), "400000.00");
    EXPECT_EQ(Stored("LESSINTT"), Rows{"100000"});
}

TEST_F(Firm, AnotherStatusHasNoPartnerLines)
{
    practice.Detail("LESSINTT", {{"amt1", 5}});
    practice.Detail("PARTINTT", {{"amt3", 60000}});
    auto& form = practice.Begin(2023, "07");
    EXPECT_FALSE(form.partners.txtlesspart1.Shown());
    EXPECT_FALSE(form.partners.cmdmax.Shown());
    EXPECT_EQ(form.lbllast.text(), "500000.00");
}
