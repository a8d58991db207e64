#include "schedules/FrmGST.h"

#include "support/empty_practice.h"
#include "support/failing_store.h"
#include "support/typing.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

class Gst : public testing::Test {
  protected:
    FrmGST& Open()
    {
        pgbp::Run& run = practice.run ? *practice.run : practice.Start();
        run.screens.Show(screens::FrmGST);
        return dynamic_cast<FrmGST&>(*run.screens.OnDisplay());
    }

    /// "3: 08X 100" for each pair that holds something.
    static std::string Shown(const FrmGST& form)
    {
        std::string lines;
        for (const FrmGST::Pair& pair : form.pairs)
            if (!(pair.gstin.text() + pair.turnover.text()).empty())
                lines += std::to_string(pair.number) + ": " + pair.gstin.text() + ' ' + pair.turnover.text() + '\n';
        return lines;
    }

    std::string Stored() const
    {
        std::string lines;
        for (const Row row : practice.Company().Query("select * from {misc_items} where [Type] like 'CGST%'"))
            lines += row["code"].Text() + ' ' + row["Type"].Text() + ' ' + row["Name1"].Text() + ' ' +
                     row["Amt1"].Text() + '\n';
        return lines;
    }

    bool IsOpen() const { return practice.run->screens.Find("FrmGST") != nullptr; }

    EmptyPractice practice;
};

} // namespace

TEST_F(Gst, GapStaysAGapAndEveryPlaceHasItsType)
{
    practice.Item("CGST3", {{"Name1", "third"}, {"Amt1", 99.5}});
    practice.Item("CGST20", {{"Name1", "last"}});
    practice.Item("CGST3", {{"Name1", "of another program"}, {"Amt1", 7}});
    practice.Item("CGST21", {{"Name1", "beyond"}, {"Amt1", 8}});
    FrmGST& form = Open();
    EXPECT_EQ(Shown(form), "3: third 100\n20: last 0\n");
    practice.Type(form, form.pairs[0].gstin, "08abq");
    practice.Type(form, form.pairs[0].turnover, "2500000");
    practice.Type(form, form.pairs[9].gstin, "  ");
    practice.Type(form, form.pairs[9].turnover, "77");
    practice.Type(form, form.pairs[10].gstin, " x");
    form.Click(form.CmdSave);
    EXPECT_EQ(practice.boxes.Take().text, "Saved...");
    EXPECT_EQ(form.notice.get(), "GST Details (not turnover 10: no GSTIN) saved, 25,00,100.00, 10:30");
    EXPECT_EQ(Stored(),
              "A0001r2023-24 CGST21 beyond 8\nA0001r2023-24 CGST 08ABQ 2500000\nA0001r2023-24 CGST3 third 100\n"
              "A0001r2023-24 CGST11  X 0\nA0001r2023-24 CGST20 last 0\n");
    form.Click(form.CmdBack);
    EXPECT_FALSE(IsOpen()) << "nothing was altered since";
}

TEST_F(Gst, ImportsOverwriteNoMoreThanTheyBring)
{
    practice.Item("CGST2", {{"Name1", "old2"}, {"Amt1", 2}});
    practice.Item("CGST4", {{"Name1", "old4"}, {"Amt1", 4}});
    practice.Item("CGST2", {{"code", "A0001r2022-23"}, {"Name1", "before2"}, {"Amt1", 22}});
    practice.Item("CGST5", {{"code", "A0001r2022-23"}, {"Name1", "before5"}, {"Amt1", 55}});
    const Connection company = practice.Company();
    for (const char* year : {"2022-23", "2023-24"}) {
        company.Insert("misc", {{"type", "YEAR"}, {"name", year}});
        company.Insert("assessee1", {{"code", std::string("A0001r") + year}, {"company", 1}, {"year", year}});
    }
    FrmGST& form = Open();
    form.Click(form.Command1);
    EXPECT_EQ(Shown(form), "2: before2 2\n4: old4 4\n5: before5 \n");
    form.Click(form.Cmd26AS);
    EXPECT_EQ(practice.boxes.Take().text, "Please Import From 26AS in Tax Paid section to Import GST Detail...");
    EXPECT_EQ(Shown(form), "2: before2 2\n4: old4 4\n5: before5 \n");

    for (const auto& [gstin, amount] : {std::pair{"bb", 10.3}, {"aa", 1.0}, {"BB", 20.3}, {"cc", 0.0}})
        practice.Item("GST26AS", {{"Name1", gstin}, {"Amt2", amount}, {"Amt1", 1000}});
    practice.Item("GST26AS", {{"code", "A0002r2023-24"}, {"Name1", "aa"}, {"Amt2", 5}});
    form.Click(form.Cmd26AS);
    EXPECT_EQ(Shown(form), "1: aa 1\n2: bb 31\n3: cc 0\n4: old4 4\n5: before5 \n");

    for (int i = 10; i < 29; ++i)
        practice.Item("GST26AS", {{"Name1", "d" + std::to_string(i)}, {"Amt2", i}});
    form.Click(form.Cmd26AS);
    EXPECT_EQ(form.pairs[19].gstin.text() + ' ' + form.pairs[19].turnover.text(), "d26 26");
    EXPECT_EQ(form.notice.get(), "2 more in 26AS than there are places for");
}

TEST_F(Gst, NoYearBeforeLeavesTheScreenAsItIs)
{
    practice.Item("CGST", {{"Name1", "one"}});
    FrmGST& form = Open();
    form.Click(form.Command1);
    EXPECT_EQ(Shown(form), "1: one 0\n");
    EXPECT_TRUE(practice.boxes.shown.empty());
}

TEST_F(Gst, TellsWhatIsWrongWithoutRefusing)
{
    FrmGST& form = Open();
    struct {
        const char* gstin;
        const char* turnover;
        const char* notice;
    } const rows[] = {
        {"27AAPFU0939F1ZV", "5", ""},
        {"27AAPFU0939F1ZA", "5", "GSTIN 2 has a wrong check character."},
        {"", "5", "Turnover 2 has no GSTIN: it is not stored so."},
        {"", "", ""},
    };
    for (const auto& row : rows) {
        form.pairs[1].gstin = row.gstin;
        form.pairs[1].turnover = row.turnover;
        form.notice = "";
        form.Do([&] { form.SetFocus(form.pairs[1].turnover); });
        form.Press(Key::Enter);
        EXPECT_EQ(form.focused(), &form.pairs[2].gstin);
        EXPECT_EQ(form.notice.get(), row.notice);
    }
}

TEST_F(Gst, SaveThatFailsStoresNothingAndKeepsWhatWasKeyed)
{
    practice.Item("CGST", {{"Name1", "old"}, {"Amt1", 5}});
    FrmGST& form = Open();
    practice.Type(form, form.pairs[0].gstin, "NEW");
    const std::string before = Stored();
    Refusal refusal;
    LetFail(*practice.run, refusal);
    int failures = 0;
    while (Stored() == before && ++failures < 20) {
        refusal = {.write = failures};
        practice.boxes.shown.clear();
        form.Click(form.CmdSave);
    }
    EXPECT_EQ(failures, 5) << "begin, delete, row and commit were refused in turn";
    EXPECT_EQ(Stored(), "A0001r2023-24 CGST NEW 5\n");
}

TEST_F(Gst, LeavingAsksAndALockedYearCanBeReadAlone)
{
    FrmGST& form = Open();
    practice.Type(form, form.pairs[4].turnover, "1");
    practice.boxes.answers = {Answer::No, Answer::Yes};
    form.Click(form.CmdBack);
    EXPECT_TRUE(IsOpen());
    form.Press(Key::Escape);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Stored(), "");

    practice.run->GLlock = 1;
    FrmGST& locked = Open();
    EXPECT_FALSE(locked.CmdSave.enabled || locked.Command1.enabled || locked.Cmd26AS.enabled ||
                 locked.pairs[0].gstin.enabled || locked.pairs[19].turnover.enabled);
    EXPECT_TRUE(locked.CmdBack.enabled);
}

} // namespace pgbp
