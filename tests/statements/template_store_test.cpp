#include "statements/template_store.h"

#include "support/new_data_files.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

using namespace pgbp;

namespace {

/// A practice's tax.mdb, and the program's folder with its reference templates.
class TemplateStore : public testing::Test {
    TemporaryFolder practice_;

  protected:
    const TemporaryFolder program;
    const Connection tax = OpenNewDataFiles(practice_, {"tax"})[0];

    Connection Reference() const
    {
        const auto path = program.path() / "qel.mmm";
        if (!exists(path))
            CreateEmbeddedFile(path, "qel");
        return OpenFile({.path = path, .dsn = {}});
    }

    void PutReference(std::string_view dType, int rows) { Put(Reference(), dType, rows, "reference"); }

    void Put(const Connection& file, std::string_view dType, int rows, const char* caption, int firstSlno = 1)
    {
        Transaction transaction({file});
        for (int i = rows; i > 0; --i)
            file.Insert("taxaudit", {{"d_type", dType},
                                     {"pslno", i},
                                     {"slno", firstSlno + i - 1},
                                     {"Descr2", caption},
                                     {"flag", false},
                                     {"text_numeric", true},
                                     {"blocked", true}});
        transaction.Commit();
    }

    std::vector<StatementRow> Load(std::string_view dType) { return LoadTemplate(tax, kTemplates, dType); }
};

} // namespace

TEST_F(TemplateStore, LoadsTheLinesInTheirOrder)
{
    tax.Insert("taxauditjson",
               {{"d_type", "INDAS"}, {"pslno", 9}, {"slno", 7502}, {"s_2", "ii"}, {"Descr4", "__"}, {"flag", true}});
    tax.Insert("taxauditjson", {{"d_type", "INDAS"}, {"pslno", 2}, {"slno", 7501}, {"head1", "1"}, {"blocked", true}});
    tax.Insert("taxauditjson", {{"d_type", "INDASPL"}, {"pslno", 1}, {"slno", 7001}});
    tax.Insert("taxauditjson", {{"d_type", "INDAS"}, {"pslno", 9}, {"slno", 7502}, {"Descr1", "number given twice"}});
    const auto rows = LoadTemplate(tax, kIndTemplates, "INDAS");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], (StatementRow{"1", "", "", "", "7501", "", "", ""}));
    EXPECT_EQ(rows[1], (StatementRow{"ii", "         __", "", "CBO", "7502", "", "=>", "         __"}));
    EXPECT_EQ(rows[2], (StatementRow{"", "number given twice", "", "TXT", "7502", "", "=>", "number given twice"}));
    EXPECT_TRUE(Load("INDAS").empty()) << "an unknown template is empty";
}

/// How many rows a template has after the repair: 300 stand in the reference.
TEST_F(TemplateStore, MissingTemplatesAreTakenOver)
{
    struct Case {
        const char* dType;
        int year, before;
        std::size_t after;
    };
    const Case cases[] = {
        {"PL_5_2015", 2014, 0, 0},     {"PL_5_2015", 2015, 0, 300},   {"PL_5_2017", 2016, 0, 0},
        {"PL_5_2017", 2017, 0, 300},   {"PL_5_2", 2016, 0, 0},        {"PL_5_2", 2017, 0, 300},
        {"PL_5_2018", 2017, 0, 0},     {"PL_5_2018", 2018, 0, 300},   {"PL_5_2018a", 2017, 0, 0},
        {"PL_5_2018a", 2018, 0, 300},  {"PL_6_2018", 2017, 0, 0},     {"PL_6_2018", 2018, 0, 300},
        {"PL_6_2019", 2018, 0, 0},     {"PL_6_2019", 2026, 0, 300},   {"PL_3_2019", 2018, 0, 0},
        {"PL_3_2019", 2019, 0, 300},   {"PL_5_2019", 2018, 0, 0},     {"PL_5_2019", 2019, 0, 300},
        {"PL_3_2019", 2019, 1, 1},     {"PL_5_2019", 2019, 196, 300}, {"PL_5_2019", 2019, 197, 197},
        {"PL_5_2019", 2019, 500, 500}, {"PL_5_1", 2016, 0, 0},        {"BS_4", 2020, 0, 0},
    };
    std::set<std::string> referred;
    for (const Case& c : cases) {
        tax.Delete("from {taxaudit}");
        if (referred.insert(c.dType).second)
            PutReference(c.dType, 300);
        Put(tax, c.dType, c.before, "own");
        RepairTemplate(tax, program.path(), c.dType, c.year);
        const auto rows = Load(c.dType);
        EXPECT_EQ(rows.size(), c.after) << c.dType << ' ' << c.year << ' ' << c.before;
        if (rows.size() == 300) {
            EXPECT_EQ(rows[299][kSlno], "300");
            EXPECT_EQ(rows[0][kDescription], "   reference");
            EXPECT_EQ(rows[0][kType], "");
        }
    }
}

TEST_F(TemplateStore, AReferenceWithFewerLinesChangesNothing)
{
    Put(tax, "PL_5_2019", 150, "own");
    for (const int reference : {0, 149}) {
        PutReference("PL_5_2019", reference);
        RepairTemplate(tax, program.path(), "PL_5_2019", 2020);
        const auto rows = Load("PL_5_2019");
        ASSERT_EQ(rows.size(), 150U);
        EXPECT_EQ(rows[0][kDescription], "   own");
    }
}

TEST_F(TemplateStore, BadDebtsAreOpenedInEveryTemplateByThoseOf2019)
{
    const auto isClosed = [&](const char* dType) { return Load(dType).at(0)[kType].empty(); };
    for (const auto& [dType, rows, opens] : {std::tuple("PL_6_2018", 1, false),
                                             {"PL_3_2019", 1, true},
                                             {"PL_6_2019", 1, true},
                                             {"PL_5_2019", 197, true}}) {
        tax.Delete("from {taxaudit}");
        Put(tax, dType, rows, "own", 1000);
        Put(tax, "PL_5_2017", 1, "own", 540);
        Put(tax, "PL_5_2015", 1, "own", 541);
        RepairTemplate(tax, program.path(), dType, 2026);
        EXPECT_EQ(isClosed("PL_5_2017"), !opens) << dType;
        EXPECT_TRUE(isClosed("PL_5_2015")) << dType;
    }
}

TEST_F(TemplateStore, FieldsAreTakenOverByTheirPlaceWhateverTheirNames)
{
    PutReference("PL_3_2019", 2);
    for (const auto* renaming : {"s_1 to x", "s_2 to s_1", "x to s_2", "Descr2 to Caption"})
        Reference().Execute("alter table {taxaudit} rename column " + std::string(renaming));
    Reference().Execute("update {taxaudit} set s_2 = 'first', s_1 = 'second'");
    RepairTemplate(tax, program.path(), "PL_3_2019", 2020);
    const Recordset rows = tax.Query("select s_1, s_2, Descr2 from {taxaudit} where d_type = 'PL_3_2019'");
    ASSERT_EQ(rows.Size(), 2u);
    EXPECT_EQ(rows[1].At(0).Text(), "first");
    EXPECT_EQ(rows[1].At(1).Text(), "second");
    EXPECT_EQ(rows[1].At(2).Text(), "reference");
}

TEST_F(TemplateStore, AReferenceOfOtherColumnsIsRefused)
{
    PutReference("PL_5_2019", 197);
    Put(tax, "PL_5_2019", 3, "own");
    Reference().Execute("alter table {taxaudit} add column more text");
    EXPECT_THROW(RepairTemplate(tax, program.path(), "PL_5_2019", 2020), StoreError);
    EXPECT_EQ(Load("PL_5_2019").size(), 3u) << "what stood is not deleted";
}

TEST_F(TemplateStore, AFailedRepairLeavesTheTemplateAsItWas)
{
    Put(tax, "PL_5_2019", 100, "own", 500);
    EXPECT_THROW(RepairTemplate(tax, program.path(), "PL_5_2019", 2020), StoreError) << "no qel.mmm";
    program.Write("qel.mmm", "not a data file");
    EXPECT_THROW(RepairTemplate(tax, program.path(), "PL_5_2019", 2020), StoreError);
    EXPECT_EQ(Load("PL_5_2019").size(), 100u);
    EXPECT_TRUE(Load("PL_5_2019").at(40)[kType].empty()) << "not even line 540 was opened";
    std::filesystem::remove(program.path() / "qel.mmm");
    PutReference("PL_5_2019", 200);
    RepairTemplate(tax, program.path(), "PL_5_2019", 2020);
    EXPECT_EQ(Load("PL_5_2019").size(), 200u);
}
