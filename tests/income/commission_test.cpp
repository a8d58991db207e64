#include "income/commission_rules.h"

#include "support/empty_practice.h"
#include "support/failing_store.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

const std::vector<CommissionRate> kRates = {{"LIC1", 50},      {"LIC2", 15}, {" lic3 ", 25},
                                            {"LIC", 0, 20000}, {"UTI", 10},  {"MF", 40}};

class Agent : public testing::Test {
  protected:
    Agent() { Agree(1e6); }

    void Agree(double limit)
    {
        const Connection tax = practice.Tax();
        tax.Delete("from [system] where [Type] = 'LIC'");
        tax.Insert("system", {{"Type", "LIC"}, {"Amount", limit}, {"date", DateTime{1991, 2, 27}}});
        tax.Delete("from [misc]");
        for (const CommissionRate& rate : kRates)
            tax.Insert("misc", {{"type", rate.type}, {"Rate", rate.percent}, {"Max", rate.most}});
    }

    frmbusiness& Open()
    {
        frmbusiness& form = practice.run ? practice.Summary() : practice.Begin();
        form.Click(form.cmdlic);
        return form;
    }

    static void Enter(frmbusiness& form, const std::vector<const char*>& texts)
    {
        for (std::size_t i = 0; i < texts.size(); ++i)
            form.commission.lines[i].field = texts[i];
    }

    /// "LIC 1 2 3 4" for each row, in their order.
    std::string Rows() const
    {
        std::string lines;
        for (const Row row : practice.Company().Query("select * from {business1} order by rowid")) {
            lines += row["Type"].Text() + ": " + row["name1"].Text();
            for (const char* column : {"amt1", "amt2", "amt3", "amt4", "SNO"})
                lines += ' ' + row[column].Text();
            lines += '\n';
        }
        return lines;
    }
    std::string Cells() const
    {
        std::string lines;
        for (const Row row : practice.Balance().Query(
                 "select * from {qelgeneral} where [Type] = 'NEWPL' and amt2 = 99999999 order by rowid"))
            lines += row["amt1"].Text() + '=' + row["name8"].Text() + row["name9"].Text() + ' ';
        return lines;
    }

    EmptyPractice practice;
};

} // namespace

TEST(AdHocDeduction, IsCappedForLicAndEndsAboveTheLimit)
{
    struct {
        const char* what;
        Commissions commissions;
        double limit;
        double deduction;
    } const rows[] = {
        {"each at its rate", {100, 1000, 200, 4000, 500, 60, 80}, 1e6, 50 + 150 + 50 + 0 + 50 + 0 + 32},
        {"at the cap", {40000}, 1e6, 20000},
        {"above the cap", {40000, 100}, 1e6, 20000},
        {"the cap is that of LIC alone", {100000, 0, 0, 0, 1000}, 1e6, 20100},
        {"at the limit", {600.1, 0, 0, 0, 0, 0.2}, 600.3, 300.05},
        {"a paisa above it", {600.1, 0, 0, 0, 0, 0.21}, 600.3, 0},
        {"one below 0 deducts nothing", {-5000, 1000}, 1e6, 150},
        {"but counts for the limit", {-5000, 6000}, 1000, 900},
        {"no limit is known", {1}, 0, 0},
    };
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(AdHocDeduction(row.commissions, kRates, row.limit), row.deduction) << row.what;
    EXPECT_EQ(AdHocDeduction({1000, 0, 0, 0, 1000}, {}, 1e6), 0) << "no rates";
    EXPECT_EQ(AdHocDeduction({50000}, {{"LIC1", 50}}, 1e6), 25000) << "no cap in the table";
    EXPECT_EQ(AdHocDeduction({40000, 0, 0, 1000}, {{"LIC1", 50}, {"LIC4", 10}, {"LIC", 0, 20000}}, 1e6), 20000)
        << "the cap is over the bonus too";
}

TEST_F(Agent, SaveReplacesTheRowsAndTheCells)
{
    for (const char* type : {"LIC", "UTI", "SEC", "MF", "ZADHOC", "PARTREMU"})
        practice.Detail(type, {{"name1", "old"}, {"amt1", 7}, {"SNO", Value()}});
    practice.Note("NEWPL", {{"amt1", 269}, {"amt2", 99999999}, {"name8", "old"}});
    practice.Note("NEWPL", {{"amt1", 255}, {"amt2", 9999999}, {"name8", "of the firms"}});
    frmbusiness& form = Open();
    EXPECT_EQ(form.commission.lines[6].field.text(), "7.00");
    EXPECT_EQ(form.commission.lblded.text(), "7.00") << "3.50 of LIC, 0.70 of UTI, 2.80 of the funds";
    Enter(form, {"1000", "0", "0", "50.25", "0", "-10", "0"});
    form.Click(form.commission.cmdsavelic);
    EXPECT_EQ(Rows(), "PARTREMU: old 7    \n"
                      "LIC: Commission from LIC of India 1000 0 0 50.25 \n"
                      "SEC: Commission from Specified Securites -10    \n"
                      "ZADHOC: Ad hoc Deduction 500    \n");
    EXPECT_EQ(Cells(), "269=1040ASdf 270=540ASdf 271=0ASdf 272=540ASdf 1167=540ASdf ");
    EXPECT_EQ(form.lbllic.text(), "540.25");
    EXPECT_EQ(form.focused(), &form.cmdlic);
    EXPECT_FALSE(form.commission.fralic.visible);

    form.Click(form.cmdlic);
    Enter(form, {"0", "0", "0", "", "0", "0", "0"});
    form.Click(form.commission.cmdsavelic);
    EXPECT_EQ(Rows(), "PARTREMU: old 7    \n");
    EXPECT_EQ(Cells(), "269=0ASdf 270=0ASdf 271=0ASdf 272=0ASdf 1167=0ASdf ");
    form.Click(form.cmdlic);
    Enter(form, {"0", "0", "0", "0", "0", "10", "0"}); // the table has no rate for securities
    form.Click(form.commission.cmdsavelic);
    EXPECT_EQ(Rows(), "PARTREMU: old 7    \nLIC: Commission from LIC of India 0 0 0 0 \n"
                      "SEC: Commission from Specified Securites 10    \n");
    EXPECT_EQ(practice.Balance().Scalar("select name8 from {qelgeneral} where amt2 = 9999999").Text(), "of the firms");
}

TEST_F(Agent, CellsFollowTheYear)
{
    const std::pair<int, const char*> rows[] = {{2006, ""},
                                                {2007, "269=100ASdf 270=50ASdf 271=0ASdf 272=50ASdf "},
                                                {2016, "269=100ASdf 270=50ASdf 271=0ASdf 272=50ASdf "},
                                                {2017, "269=100ASdf 270=50ASdf 271=0ASdf 272=50ASdf 1167=50ASdf "}};
    for (const auto& [year, cells] : rows) {
        practice.run.reset();
        practice.Balance().Delete("from {qelgeneral}");
        practice.Year(year, "01");
        frmbusiness& form = Open();
        Enter(form, {"100"});
        form.Click(form.commission.cmdsavelic);
        EXPECT_EQ(Cells(), cells) << year;
    }
}

TEST_F(Agent, LeavingKeepsWhatIsStored)
{
    practice.Detail("LIC", {{"amt1", 7}});
    const std::string before = Rows();
    frmbusiness& form = Open();
    form.Click(form.CmdBack); // nothing is altered: no question
    EXPECT_FALSE(form.commission.fralic.visible);
    for (const bool byCross : {false, true}) {
        Open();
        Enter(form, {"9"});
        practice.boxes.answers = {Answer::No};
        byCross ? form.PressCross() : form.Click(form.CmdBack);
        EXPECT_TRUE(form.commission.fralic.visible);
        EXPECT_TRUE(practice.boxes.answers.empty());
        form.Click(form.commission.cmdbacklic);
    }
    EXPECT_EQ(Rows(), before);
    EXPECT_FALSE(practice.run->screens.Ended());
}

TEST_F(Agent, SaveThatFailsStoresNothing)
{
    practice.Detail("LIC", {{"amt1", 7}});
    const std::string before = Rows();
    frmbusiness& form = Open();
    Enter(form, {"100", "0", "0", "0", "5"});
    Refusal refusal;
    LetFail(*practice.run, refusal);
    int failures = 0;
    while (form.commission.fralic.visible && ++failures < 30) {
        EXPECT_EQ(Rows() + Cells(), before);
        refusal = {.write = failures};
        form.Click(form.commission.cmdsavelic);
    }
    EXPECT_EQ(failures, 13) << "begin, two deletes, three rows, five cells and commit were refused in turn";
    EXPECT_NE(Rows(), before);
}
