#include "annexure/annexure_store.h"
#include "support/new_data_files.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// The two files that an annexure touches.
class AnnexureStore : public testing::Test {
    TemporaryFolder folder_;
    const std::vector<Connection> files_ = OpenNewDataFiles(folder_, {"company", "balance"});

  protected:
    const Connection& company = files_[0];
    const Connection& balance = files_[1];

    std::optional<AnnexureRefusal> Save(std::vector<AnnexureRow> rows, AnnexureOwner owner)
    {
        return SaveAnnexure(company, balance, owner, rows, [] { return false; });
    }
    double Count(std::string_view sql) { return balance.Scalar(sql).Number(); }
};

const AnnexureOwner kOwner{.code = "A2023-24", .year = 2023};

AnnexureRow Block(std::string name)
{
    return {.name = std::move(name), .group = "Ships", .rate = 20, .opening = 1000, .isEmpty = false};
}

} // namespace

TEST_F(AnnexureStore, GivesBackWhatWasSaved)
{
    AnnexureRow full{.name = "Tug \"O'Hara\"; 100%",
                     .group = "Ships",
                     .rate = 20,
                     .opening = 1,
                     .purchases1 = 2,
                     .purchases2 = 3,
                     .sales1 = 4,
                     .sales2 = 5,
                     .sales = 9,
                     .depreciation1 = 6,
                     .depreciation2 = 7,
                     .additional1 = 8,
                     .additional2 = 9,
                     .depreciation = 30,
                     .disallowed = 12,
                     .netDepreciation = 18,
                     .closing = 13,
                     .expenses = 14,
                     .isEmpty = true,
                     .dateOfSale = DateTime{2022, 9, 30}};
    EXPECT_FALSE(Save({full, Block(" "), Block("Barge")}, kOwner));
    const auto rows = LoadAnnexure(balance, kOwner);
    ASSERT_EQ(rows.size(), 2u) << "the row without a name is not stored";
    const AnnexureRow& row = rows[0];
    EXPECT_EQ(row.name, full.name);
    EXPECT_EQ(row.group, full.group);
    EXPECT_EQ((std::vector{row.rate, row.opening, row.purchases1, row.purchases2, row.sales1, row.sales2, row.sales}),
              (std::vector<double>{20, 1, 2, 3, 4, 5, 9}));
    EXPECT_EQ((std::vector{row.depreciation1, row.depreciation2, row.additional1, row.additional2, row.depreciation,
                           row.closing, row.expenses}),
              (std::vector<double>{6, 7, 8, 9, 30, 13, 14}));
    EXPECT_EQ(row.disallowed, 0) << "never stored";
    EXPECT_EQ(row.netDepreciation, 30) << "always the total";
    EXPECT_EQ(row.isEmpty, true);
    EXPECT_EQ(row.dateOfSale, full.dateOfSale);
    EXPECT_EQ(rows[1].name, "Barge");
    EXPECT_FALSE(rows[1].dateOfSale);
    EXPECT_EQ(Count("select count(*) from {fassets} where SNO = 90000 and [Type] = 'P' and Minor is null"), 2);
}

TEST_F(AnnexureStore, AnEmptyBlockLeavesItsGain)
{
    AnnexureRow sold = Block("Sold");
    sold.isEmpty = true;
    sold.purchases1 = 200, sold.purchases2 = 300, sold.expenses = 50, sold.sales = 2000;
    AnnexureRow lost = sold;
    lost.name = "Lost";
    lost.sales = 100;
    lost.dateOfSale = DateTime{2022, 5, 1};
    for (int save = 0; save < 2; ++save)
        EXPECT_FALSE(Save({sold, Block("Kept"), lost}, kOwner));
    const auto gains =
        company.Query("select * from {capital1} where code = ? and [Type] = 'Sec50' order by name1 desc", kOwner.code);
    ASSERT_EQ(gains.Size(), 2u) << "a second save replaces the first";
    EXPECT_EQ(gains[0]["amt1"].Number(), 1550);
    EXPECT_EQ(gains[0]["amt2"].Number(), 2000);
    EXPECT_EQ(gains[0]["amt3"].Number(), 450);
    EXPECT_EQ(gains[0]["date1"].Date(), (DateTime{2023, 3, 31}));
    EXPECT_EQ(gains[1]["amt3"].Number(), -1450);
    EXPECT_EQ(gains[1]["date1"].Date(), (DateTime{2022, 5, 1}));
    EXPECT_FALSE(Save({}, kOwner));
    EXPECT_EQ(company.Scalar("select count(*) from {capital1}").Number(), 0);
}

TEST_F(AnnexureStore, RefusesARowWithoutAGroup)
{
    EXPECT_FALSE(Save({Block("Barge")}, kOwner));
    AnnexureRow odd = Block("Odd");
    for (const char* group : {"", "ships", "Live stock"}) {
        odd.group = group;
        EXPECT_EQ(Save({Block("New"), odd}, kOwner), (AnnexureRefusal{"Please fill group for Odd", " - Information"}));
    }
    EXPECT_EQ(LoadAnnexure(balance, kOwner).at(0).name, "Barge") << "nothing was written";
}

TEST_F(AnnexureStore, BlocksAreCheckedFrom2023On)
{
    AnnexureRow row = Block("Barge");
    row.opening = 1003;
    row.rate = 15;
    row.depreciation = row.depreciation1 = 150;
    for (const auto& [year, asked] : {std::pair(2022, 0), {2023, 1}}) {
        std::vector<AnnexureRow> rows(2, row);
        int questions = 0;
        SaveAnnexure(company, balance, {.code = "A", .year = year}, rows, [&] { return ++questions > 0; });
        EXPECT_EQ(questions, asked) << year;
        EXPECT_EQ(LoadAnnexure(balance, {.code = "A"})[0].depreciation, 150 + asked) << year;
    }
}

/// Whose rows a save replaces: rows of code A stand in the file, each under one type, number and child.
TEST_F(AnnexureStore, ReplacesItsOwnRowsOnly)
{
    struct Stored {
        const char* name;
        const char* type;
        int sno;
        int minor;
    };
    const Stored stored[] = {{"P work", "P", 90000, 0},
                             {"P work of child 1", "P", 90000, 1},
                             {"P work of child 2", "P", 90000, 2},
                             {"P line", "P", 7, 0},
                             {"O", "O", 0, 0},
                             {"O of child 1", "O", 0, 1}};
    struct Case {
        std::string_view type;
        double minor;
        std::vector<std::string> left;
    };
    const Case cases[] = {
        {"P", 0, {"P line", "O", "O of child 1"}},
        {"P", 1, {"P work", "P work of child 2", "P line", "O", "O of child 1"}},
        {"O", 0, {"P work", "P work of child 1", "P work of child 2", "P line", "O of child 1"}},
        {"O", 1, {"P work", "P work of child 1", "P work of child 2", "P line", "O"}},
    };
    for (const Case& c : cases) {
        balance.Delete("from {fassets}");
        for (const Stored& row : stored)
            balance.Insert("fassets", {{"code", "A"},
                                       {"f_name", row.name},
                                       {"Type", row.type},
                                       {"SNO", row.sno},
                                       {"Minor", row.minor == 0 ? Value() : Value(row.minor)}});
        balance.Insert("fassets",
                       {{"code", "B"}, {"f_name", "another's"}, {"Type", c.type}, {"SNO", 90000}, {"Minor", 0}});
        const AnnexureOwner owner{.code = "A", .type = c.type, .minor = c.minor, .year = 2023};
        EXPECT_FALSE(Save({Block("New")}, owner));
        std::vector<std::string> names;
        for (const Row row : balance.Query("select f_name from {fassets} order by rowid"))
            names.push_back(row["f_name"].Text());
        auto expected = c.left;
        expected.insert(expected.end(), {"another's", "New"});
        EXPECT_EQ(names, expected) << c.type << ' ' << c.minor;
        EXPECT_EQ(Count("select Minor from {fassets} where f_name = 'New'"), c.minor);
        EXPECT_EQ(Count("select SNO from {fassets} where f_name = 'New'"), c.type == "P" ? 90000 : 0);
    }
}

TEST_F(AnnexureStore, GainsOfAChildAndOfTheAssesseeAreKeptApart)
{
    AnnexureRow sold = Block("Sold");
    sold.isEmpty = true;
    AnnexureOwner child = kOwner;
    child.minor = 2;
    EXPECT_FALSE(Save({sold}, kOwner));
    EXPECT_FALSE(Save({sold, sold}, child));
    EXPECT_FALSE(Save({sold}, kOwner));
    EXPECT_EQ(company.Scalar("select count(*) from {capital1} where Minor = 2").Number(), 2);
    EXPECT_EQ(company.Scalar("select count(*) from {capital1} where Minor is null").Number(), 1);
}

/// The store refuses a text that its column does not take; by then the old rows and gains are deleted in both files.
TEST_F(AnnexureStore, AFailureInTheMiddleLeavesTheFilesAsTheyWere)
{
    AnnexureRow sold = Block("Sold");
    sold.isEmpty = true;
    EXPECT_FALSE(Save({sold}, kOwner));
    EXPECT_THROW(Save({Block("New"), Block(std::string(256, 'x'))}, kOwner), StoreError);
    ASSERT_EQ(LoadAnnexure(balance, kOwner).size(), 1u);
    EXPECT_EQ(LoadAnnexure(balance, kOwner)[0].name, "Sold");
    EXPECT_EQ(company.Scalar("select count(*) from {capital1}").Number(), 1);
    EXPECT_FALSE(Save({Block("New")}, kOwner)) << "and the next save works";
}
