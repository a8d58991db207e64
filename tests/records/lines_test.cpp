#include "records/deletion.h"

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

    /// All rows of the tables that a deletion touches, each as one text.
    std::multiset<std::string> Everything() const
    {
        std::multiset<std::string> rows;
        for (const auto& [file, table] : std::set<std::pair<std::string, std::string>>{{"company", "business"},
                                                                                       {"company", "business1"},
                                                                                       {"company", "capital1"},
                                                                                       {"company", "misc_items"},
                                                                                       {"balance", "fassets"},
                                                                                       {"balance", "misc_items"},
                                                                                       {"balance", "qelgeneral"}})
            for (const Row row : On(file).Query("select * from {" + table + "}")) {
                std::string text = file + ' ' + table;
                for (std::size_t i = 0; i < row.Size(); ++i)
                    text += '|' + (row.At(i).IsNull() ? "Null" : row.At(i).Text());
                rows.insert(text);
            }
        return rows;
    }

    EmptyPractice practice;
};

using Names = std::set<std::string>;

} // namespace

TEST_F(Lines, DeletionTakesWhatBelongsToTheKindOfLine)
{
    const Names whole{"line",        "detail",        "annexure",     "gain", "no books",       "bad debt",
                      "presumptive", "presumptive A", "other amount", "cell", "adjustment cell"};
    Names eligible = whole;
    eligible.insert("44AD detail");
    Names carriage = eligible;
    carriage.insert("carriage");
    const std::pair<BusinessKind, Names> kTaken[] = {
        {kSpecified, {"line", "detail", "cell"}}, {kNormal, whole}, {kPresumptive44AD, eligible}};
    practice.run->company.Execute("update {business} set sno = 4 where name2 = 'neighbour line'"); // 5 stays free
    for (const auto& [kind, names] : kTaken) {
        DeleteLine(*practice.run, kind, 5);
        EXPECT_EQ(Gone(), names) << kind;
        practice.run->deletion->bringBack();
    }
    DeleteLine(*practice.run, kPresumptive44AD, 5);
    DeleteLine(*practice.run, kTransport44AE, 77); // no such line: the rows of the whole assessee go all the same
    EXPECT_EQ(Gone(), carriage);
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

TEST_F(Lines, TheWayBackStoresEveryRowAsItWas)
{
    // another program keeps a column of its own there
    practice.Company().Execute("alter table business1 add column remark text");
    practice.Company().Execute("update business1 set remark = 'seen', amt3 = 0.1, flag1 = 1 where sno = 5");
    practice.Balance().Execute("update fassets set f_date = '2023-04-01 00:00:00', f_block = 1 where sno = 5");
    practice.StartWithFilesAsTheyAre();
    practice.run->company.Delete("from {business} where name2 = 'neighbour line'"); // its number is the line's own
    for (const char* partners : {"PARTINTT", "PARTREMU"})
        practice.run->company.Insert("business1",
                                     {{"code", kCode}, {"Type", partners}, {"SNO", 5}, {"amt1", 70}, {"amt3", 60}});
    for (const char* deduction : {"LESSINTT", "LESSREMU"})
        practice.run->company.Insert("business1", {{"code", kCode}, {"Type", deduction}, {"amt1", 60}});
    for (const BusinessKind kind : {kNormal, kSpecified, kPresumptive44AD, kTransport44AE}) {
        const auto before = Everything();
        DeleteLine(*practice.run, kind, 5);
        ASSERT_TRUE(practice.run->deletion);
        EXPECT_NE(Everything(), before);
        practice.run->deletion->bringBack();
        EXPECT_EQ(Everything(), before) << kind;
    }
}

TEST_F(Lines, ALineComesBackUnderAnotherNumberWhereItsOwnIsTaken)
{
    practice.run->company.Insert("business1", {{"code", kCode}, {"Type", "560"}, {"SNO", 5}, {"name1", "second"}});
    DeleteLine(*practice.run, kNormal, 5);
    practice.run->company.Insert("business", {{"code", "C0003r2023-24"}, {"SNO", 5}});
    practice.run->balance.Insert("qelgeneral", {{"code", kCode}, {"Type", "NEWPLA"}, {"name1", "newer"}});
    practice.run->deletion->bringBack();
    const auto& company = practice.run->company;
    const double sno = company.Scalar("select sno from {business} where name2 = 'line'").Number();
    EXPECT_EQ(sno, 7);
    const Recordset details =
        company.Query("select name1 from {business1} where code = ? and sno = ? order by rowid", kCode, sno);
    ASSERT_EQ(details.Size(), 2U);
    EXPECT_EQ(details[0].At(0).Text(), "detail") << "in the order in which they were added";
    EXPECT_EQ(practice.run->balance.Scalar("select amt2 from {qelgeneral} where name1 = 'cell'").Number(), sno);
    EXPECT_EQ(company.Scalar("select sno from {misc_items} where name1 = 'bad debt'").Number(), 6)
        << "a row of the assessee as a whole keeps its number";
    EXPECT_EQ(Gone(), Names{"adjustment cell"}) << "what was stored since is newer";
}

TEST_F(Lines, AWayBackThatFailsStoresNothingAndStaysOpen)
{
    DeleteLine(*practice.run, kNormal, 5);
    const auto gone = Gone();
    practice.Balance().Execute("create trigger fail before insert on qelgeneral begin select raise(abort, 'no'); end");
    EXPECT_THROW(practice.run->deletion->bringBack(), StoreError);
    EXPECT_EQ(Gone(), gone);
    practice.Balance().Execute("drop trigger fail");
    practice.run->deletion->bringBack();
    EXPECT_TRUE(Gone().empty());
}

TEST_F(Lines, TheDeductionsGoWithTheLastPartners)
{
    struct {
        const char* what;
        double interestOfLine, payOfLine;   ///< of the partners of the line that is deleted
        double interestOfOther, payOfOther; ///< of those of another line
        bool interestStays, remunerationStays;
    } const rows[] = {
        {"the only partners", 10, 20, 0, 0, false, false},
        {"partners of another line", 10, 20, 10, 20, true, true},
        {"others without pay", 10, 20, 10, 0, true, false},
        {"typed, no partners", 0, 0, 0, 0, true, true},
        {"partners without interest", 0, 20, 0, 0, true, false},
    };
    for (const auto& row : rows) {
        const auto& company = practice.run->company;
        company.Delete("from {business1}");
        company.Delete("from {business} where sno = 5");
        company.Insert("business", {{"code", kCode}, {"Type", "1"}, {"SNO", 5}});
        const auto partner = [&](double sno, double interest, double pay) {
            company.Insert("business1",
                           {{"code", kCode}, {"Type", "PARTINTT"}, {"SNO", sno}, {"amt1", 90}, {"amt3", interest}});
            company.Insert("business1", {{"code", kCode}, {"Type", "PARTREMU"}, {"SNO", sno}, {"amt1", pay}});
        };
        partner(5, row.interestOfLine, row.payOfLine);
        partner(6, row.interestOfOther, row.payOfOther);
        for (const char* deduction : {"LESSINTT", "LESSREMU"})
            company.Insert("business1", {{"code", kCode}, {"Type", deduction}, {"amt1", 5}});
        DeleteLine(*practice.run, kNormal, 5);
        const auto stands = [&](const char* type) {
            return !company.Query("select code from {business1} where [Type] = ?", type).Empty();
        };
        EXPECT_EQ(stands("LESSINTT"), row.interestStays) << row.what;
        EXPECT_EQ(stands("LESSREMU"), row.remunerationStays) << row.what;
    }
}

TEST_F(Lines, NumbersAreUniqueOverTheFileAndSkipTheUnsavedOne)
{
    const Transaction transaction({practice.run->company});
    EXPECT_EQ(NextSno(*practice.run, transaction), 7);
    practice.run->company.Insert("business", {{"code", "B"}, {"SNO", kUnsavedLine - 1}});
    EXPECT_EQ(NextSno(*practice.run, transaction), kUnsavedLine + 1);
    practice.run->company.Delete("from {business}");
    EXPECT_EQ(NextSno(*practice.run, transaction), 1);
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
