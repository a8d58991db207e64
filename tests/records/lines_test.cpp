#include "records/lines.h"

#include "records/keys.h"
#include "records/limits.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace pgbp;

namespace {

constexpr const char* kCode = "A0001r2023-24";

/// One row that a deletion may take, under a name.
struct Planted {
    const char* name;
    const char* file;
    const char* table;
    const char* type;
    double sno;
    const char* code = kCode;
    double amt2 = 0;
};

// Two lines of the assessee, 5 and 6, rows of the assessee as a whole, and rows of another assessee.
const Planted kPlanted[] = {
    {"line", "company", "business", "1", 5},
    {"detail", "company", "business1", "511", 5},
    {"annexure", "balance", "fassets", "P", 5},
    {"gain", "company", "capital1", "Sec50", 0},
    {"no books", "company", "misc_items", "PLNew3_23", 5},
    {"bad debt", "company", "misc_items", "ITR6PLQ47", 6},
    {"presumptive", "company", "misc_items", "PGBP3", 5},
    {"presumptive A", "company", "misc_items", "PGBPA", 5},
    {"other amount", "company", "misc_items", "BusOth", 5},
    {"cell", "balance", "qelgeneral", "NEWPL", 0, kCode, 5},
    {"adjustment cell", "balance", "qelgeneral", "NEWPLA", 0, kCode, 6},
    {"44AD detail", "company", "business1", "44AD", 6},
    {"carriage", "balance", "misc_items", "44AE", 6},
    {"other line", "company", "business", "1", 6},
    {"other detail", "company", "business1", "511", 6},
    {"other presumptive", "company", "misc_items", "PGBP3", 6},
    {"other annexure", "balance", "fassets", "P", 6},
    {"other cell", "balance", "qelgeneral", "NEWPL", 0, kCode, 6},
    {"reminder", "company", "misc_items", "SPRO", 5},
    {"neighbour line", "company", "business", "1", 5, "B0002r2023-24"},
    {"neighbour cell", "balance", "qelgeneral", "NEWPL", 0, "B0002r2023-24", 5},
    {"neighbour bad debt", "company", "misc_items", "ITR6PLQ47", 5, "B0002r2023-24"},
};

class Lines : public testing::Test {
  protected:
    Lines()
    {
        practice.Start();
        for (const Planted& row : kPlanted) {
            std::vector<Field> fields{{"code", row.code}, {"Type", row.type}};
            const std::string table = row.table;
            if (table != "qelgeneral" && table != "capital1")
                fields.push_back({"SNO", row.sno});
            if (table == "qelgeneral")
                fields.push_back({"amt2", row.amt2});
            fields.push_back({table == "fassets" ? "f_name" : table == "business" ? "name2" : "name1", row.name});
            On(row.file).Insert(table, fields);
        }
    }

    const Connection& On(const std::string& file) const
    {
        return file == "company" ? practice.run->company : practice.run->balance;
    }

    /// Names of the planted rows that are gone.
    std::set<std::string> Gone() const
    {
        std::set<std::string> gone;
        for (const Planted& row : kPlanted) {
            const std::string table = row.table;
            const std::string name = table == "fassets" ? "f_name" : table == "business" ? "name2" : "name1";
            if (On(row.file).Query("select * from {" + table + "} where " + name + " = ?", row.name).Empty())
                gone.insert(row.name);
        }
        return gone;
    }

    EmptyPractice practice;
};

using Names = std::set<std::string>;

} // namespace

TEST_F(Lines, DeletingANormalLineTakesItsRowsAndThoseOfTheWholeAssessee)
{
    DeleteLine(*practice.run, kNormal, 5);
    EXPECT_EQ(Gone(), (Names{"line", "detail", "annexure", "gain", "no books", "bad debt", "presumptive",
                             "presumptive A", "other amount", "cell", "adjustment cell"}));
}

TEST_F(Lines, DeletingAReducedLineTakesOnlyItsOwnRows)
{
    DeleteLine(*practice.run, kSpecified, 5);
    EXPECT_EQ(Gone(), (Names{"line", "detail", "cell"}));
}

TEST_F(Lines, DeletingAPresumptiveOrTransportLineTakesItsDetail)
{
    DeleteLine(*practice.run, kPresumptive44AD, 5);
    EXPECT_EQ(Gone().count("44AD detail"), 1U);
    EXPECT_EQ(Gone().count("carriage"), 0U);
    DeleteLine(*practice.run, kTransport44AE, 77); // no such line: the rows of the whole assessee go all the same
    EXPECT_EQ(Gone().count("carriage"), 1U);
}

TEST_F(Lines, WithoutAnAnnexureTheCapitalGainStays)
{
    practice.run->balance.Delete("from {fassets} where sno = 5");
    DeleteLine(*practice.run, kNormal, 5);
    EXPECT_EQ(Gone().count("gain"), 0U);
}

TEST_F(Lines, AFailureInTheMiddleLeavesEverything)
{
    practice.Balance().Execute("create trigger fail before delete on qelgeneral begin select raise(abort, 'no'); end");
    EXPECT_THROW(DeleteLine(*practice.run, kNormal, 5), StoreError);
    EXPECT_TRUE(Gone().empty());
}

TEST_F(Lines, OrphanCellsGoAndThoseOfScreensStay)
{
    const Connection& balance = practice.run->balance;
    for (const double owner : {77.0, double{kFirmCells}, double{kCommissionCells}})
        balance.Insert("qelgeneral", {{"code", kCode}, {"Type", "NEWPL"}, {"amt2", owner}});
    balance.Insert("qelgeneral", {{"code", kCode}, {"Type", "NEWPL"}, {"amt2", nullptr}});
    DeleteOrphanCells(*practice.run);
    std::vector<std::string> owners;
    for (const Row row : balance.Query("select amt2 from {qelgeneral} where code = ? and [Type] = 'NEWPL'", kCode))
        owners.push_back(row.At(0).Text());
    std::sort(owners.begin(), owners.end());
    EXPECT_EQ(owners, (std::vector<std::string>{"", "5", "6", "9999999", "99999999"}));
}

TEST_F(Lines, NumbersAreUniqueOverTheFileAndSkipTheUnsavedOne)
{
    EXPECT_EQ(NextSno(*practice.run), 7);
    practice.run->company.Insert("business", {{"code", "B"}, {"SNO", kUnsavedLine - 1}});
    EXPECT_EQ(NextSno(*practice.run), kUnsavedLine + 1);
    practice.run->company.Delete("from {business}");
    EXPECT_EQ(NextSno(*practice.run), 1);
}

TEST(Limits, TakeTheLastRowUpToTheEndOfThePreviousYear)
{
    EmptyPractice practice;
    const Connection tax = practice.Tax();
    pgbp::Run& run = practice.Start();
    EXPECT_EQ(CommissionLimit(run), 0);
    tax.Insert("system", {{"Type", "LIC"}, {"Amount", 90000}, {"date", DateTime{2023, 4, 1}}});
    tax.Insert("system", {{"Type", "LIC"}, {"Amount", 60000}, {"date", DateTime{2023, 3, 31}}});
    tax.Insert("system", {{"Type", "LIC"}, {"Amount", 40000}, {"date", DateTime{1990, 4, 1}}});
    EXPECT_EQ(CommissionLimit(run), 60000);
}

TEST(Limits, ArePlantedOnceWhereTheyAreMissing)
{
    EmptyPractice practice;
    pgbp::Run& run = practice.Start(); // the first display plants those of 2017
    for (int times = 0; times < 2; ++times) {
        PlantLimits2017(run);
        PlantVehicleLimits2015(run);
    }
    std::set<std::string> rows;
    for (const Row row : run.tax.Query("select [Type], amount, [from] from {system}"))
        rows.insert(row.At(0).Text() + ' ' + row.At(1).Text() + ' ' + row.At(2).Text());
    EXPECT_EQ(rows, (std::set<std::string>{"44AD 20000000 2017", "44ADA 20000000 2017", "44AE 20000000 2017",
                                           "H_VEH 7500 2015", "O_VEH 7500 2015"}));
}
