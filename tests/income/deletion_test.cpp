#include "records/deletion.h"

#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// A firm of 2023-24 that keeps its remuneration by hand, with one line of business and one partner.
class DeletedLineOfAFirm : public testing::Test {
  protected:
    DeletedLineOfAFirm()
    {
        practice.Line("1", {{"SNO", 3}, {"name1", "Main"}, {"name2", "works"}, {"NET", 500000}});
        practice.Detail("PARTINTT", {{"SNO", 3}, {"amt1", 90000}, {"amt3", 60000}});
        practice.Detail("PARTREMU", {{"SNO", 3}, {"amt1", 900000}});
        practice.Detail("LESSREMU", {{"amt1", 1234}, {"name1", "Remuneration to partners"}});
    }

    /// The line is opened from the list and deleted.
    void Delete(frmbusiness& form)
    {
        form.Click(form.cmd1);
        form.Press(Key::Enter);
        Screen* line = practice.run->screens.OnDisplay();
        ASSERT_NE(line, &form);
        line->Do([&] {
            DeleteLine(*practice.run, kNormal, 3);
            practice.run->screens.Return();
        });
    }

    static void Expect(const frmbusiness& form, const char* line, const char* interest, const char* remuneration,
                       const char* last)
    {
        EXPECT_EQ(form.lbl1.text(), line);
        EXPECT_EQ(form.partners.txtlesspart1.text(), interest);
        EXPECT_EQ(form.partners.txtlesspart2.text(), remuneration);
        EXPECT_EQ(form.lbllast.text(), last);
    }

    EmptyPractice practice;
};

} // namespace

TEST_F(DeletedLineOfAFirm, LeavesNothingOnTheSummary)
{
    auto& form = practice.Begin(2023, "06");
    Expect(form, "500000.00", "60000.00", "1234.00", "438766.00");
    Delete(form);
    Expect(form, "0.00", "0.00", "0.00", "0.00");
    EXPECT_TRUE(form.partners.txtlesspart1.enabled) << "without partners it is typed";
    form.Click(form.CmdBack);
    EXPECT_EQ(practice.HeadOfIncome(), 0);
}

TEST_F(DeletedLineOfAFirm, ComesBackWithTheRemunerationThatTheProgramCalculates)
{
    practice.Automatic();
    auto& form = practice.Begin(2023, "06");
    form.Press(Key::Undo);
    EXPECT_EQ(form.notice.get(), "") << "nothing was deleted";
    Expect(form, "500000.00", "60000.00", "354000.00", "86000.00"); // 270000 + 60 % of 140000
    Delete(form);
    Expect(form, "0.00", "0.00", "0.00", "0.00");
    form.Press(Key::Undo);
    Expect(form, "500000.00", "60000.00", "354000.00", "86000.00");
    EXPECT_EQ(form.notice.get(), "Main works is back, with all its rows");
    form.Press(Key::Undo);
    EXPECT_EQ(practice.Company().Query("select * from {business}").Size(), 1U);
    EXPECT_EQ(practice.Company().Query("select * from {business1} where [Type] = 'LESSREMU'").Size(), 1U);
}

TEST_F(DeletedLineOfAFirm, ComesBackIntoTheListThatIsUp)
{
    practice.Line("1", {{"SNO", 4}, {"name1", "Other"}, {"NET", 1}});
    auto& form = practice.Begin(2023, "06");
    Delete(form);
    form.Click(form.cmd1);
    EXPECT_EQ(form.lines.DBGrid1.Rows(), 1);
    form.Press(Key::Undo);
    EXPECT_EQ(form.lines.DBGrid1.Rows(), 2);
    EXPECT_EQ(form.lbl1.text(), "500001.00");
}

TEST_F(DeletedLineOfAFirm, StaysDeletedOnceSomethingWasSaved)
{
    auto& form = practice.Begin(2023, "06");
    Delete(form);
    form.Do([&] { form.SetFocus(form.partners.txtlesspart2); });
    form.Press(Key::Enter);
    EXPECT_TRUE(practice.run->deletion) << "a field that was walked through saves nothing";
    form.Do([&] { form.SetFocus(form.partners.txtlesspart2); });
    form.Type(U'7');
    form.Press(Key::Enter);
    EXPECT_EQ(form.notice.get(), "Remuneration to partners saved, 7.00, 10:30");
    form.Press(Key::Undo);
    EXPECT_EQ(form.lbl1.text(), "0.00");
}

TEST_F(DeletedLineOfAFirm, IsLoadedAfreshWhenAnotherRunDeletedIt)
{
    auto& form = practice.Begin(2023, "06");
    form.Click(form.cmd1);
    practice.Company().Execute("delete from {business} where sno = 3");
    practice.Company().Execute("delete from {business1} where sno = 3");
    form.Press(Key::Enter);
    EXPECT_EQ(practice.run->screens.OnDisplay(), &form);
    EXPECT_EQ(form.lbl1.text(), "0.00");
}
