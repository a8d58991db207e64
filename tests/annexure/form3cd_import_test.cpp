#include "annexure/form3cd_import.h"

#include "annexure/annexure_rules.h"
#include "support/empty_practice.h"
#include "support/new_data_files.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// The tables as the sibling program leaves them, with one block "1" of Machinery & Plant.
class Form3cdTables : public testing::Test {
  protected:
    void Block(const Value& number, const char* name = "Lathe", double opening = 0)
    {
        tables.Insert("Form3cdDeprAllw", {{"Form3cdDeprAllw_Id", ++blocks},
                                          {"DescBlockAssets", number},
                                          {"AssetsName", name},
                                          {"OpeningWDV", opening}});
    }
    /// Of the block added last.
    void Addition(std::vector<Field> fields)
    {
        fields.push_back({"Form3cdDeprAllw_Id", blocks});
        tables.Insert("Additions", fields);
    }
    void Deduction(const Value& category, double amount)
    {
        tables.Insert("Deductions",
                      {{"Form3cdDeprAllw_Id", blocks}, {"SaleCata", category}, {"PurchaseOrSaleValue", amount}});
    }
    Form3cdSchedule Read(int year = 2023) const { return ReadForm3cdTables(tables, year); }

    TemporaryFolder folder;
    const Connection tables = OpenNewDataFiles(folder, {"TempXML"}).front();
    int blocks = 0;
};

Value Day(const char* text)
{
    const auto date = FromDayText(text);
    return date ? Value(*date) : Value();
}

} // namespace

TEST_F(Form3cdTables, NumberTellsGroupAndRate)
{
    std::string told;
    for (int number = 1; number <= 13; ++number)
        Block(std::to_string(number));
    for (const Form3cdBlock& block : Read().blocks)
        told += std::string(block.heading->group.substr(0, 4)) + ' ' + Value(block.heading->rate).Text() + ", ";
    EXPECT_EQ(told, "Mach 15, Mach 30, Mach 40, Mach 50, Mach 60, Mach 80, Mach 100, Buil 5, Buil 10, Buil 100, "
                    "Furn 10, Inta 25, Ship 20, ");
    for (const Form3cdBlock& block : Read().blocks)
        EXPECT_NE(std::ranges::find(kAssetGroups, block.heading->group), kAssetGroups.end());
}

TEST_F(Form3cdTables, AnotherNumberLeavesNameGroupAndRate)
{
    for (const Value& number : {Value("0"), Value("14"), Value("48"), Value("1.5"), Value("Computers"), Value()})
        Block(number, "Press", 700);
    const Form3cdSchedule schedule = Read();
    EXPECT_EQ(schedule.unknownNumbers, (std::vector<std::string>{"0", "14", "48", "1.5", "Computers", ""}));
    AnnexureRow entry{.name = "Lathe", .group = "Ships", .rate = 20, .opening = 1, .depreciation = 9, .closing = 8};
    PutInto(entry, schedule.blocks.at(2));
    EXPECT_EQ(entry.name + entry.group, "LatheShips");
    EXPECT_EQ(entry.rate, 20);
    EXPECT_EQ(entry.opening, 700);
    EXPECT_EQ(entry.depreciation, 9) << "the depreciation is not worked out here";
}

// 180 days from 3-10-2022 to 31-3-2023: 29 + 30 + 31 + 31 + 28 + 31; 181 where February has 29.
TEST_F(Form3cdTables, LaterOfPurchaseAndUseTellsTheHalf)
{
    const struct {
        const char* purchased;
        const char* used;
        int year;
        int half;
    } cases[] = {
        {"02-10-2022", "02-10-2022", 2023, 1}, {"03-10-2022", "", 2023, 1},
        {"04-10-2022", "", 2023, 2},           {"04-10-2023", "", 2024, 1},
        {"05-10-2023", "", 2024, 2},           {"01-06-2021", "10-11-2022", 2023, 2},
        {"10-12-2022", "01-05-2022", 2023, 2}, {"", "04-10-2022", 2023, 2},
        {"31-03-2023", "", 2023, 2},           {"01-05-2023", "", 2023, 2},
        {"03-10-2009", "03-10-2009", 2010, 1}, {"", "", 2023, 1},
    };
    for (const auto& each : cases) {
        tables.Execute("delete from {Additions}");
        tables.Execute("delete from {Form3cdDeprAllw}");
        Block("1");
        Addition({{"PurchaseOrSaleDate1", Day(each.purchased)},
                  {"Date1PutToUse", Day(each.used)},
                  {"PurchaseOrSaleValue", 100}});
        const Form3cdBlock block = Read(each.year).blocks.at(0);
        EXPECT_EQ(block.purchases1, each.half == 1 ? 100 : 0) << each.purchased << ' ' << each.used;
        EXPECT_EQ(block.purchases2, each.half == 2 ? 100 : 0) << each.purchased << ' ' << each.used;
    }
    EXPECT_EQ(Read().undatedAdditions, 1);
}

TEST_F(Form3cdTables, SumsAreKeptByBlockAndHalf)
{
    const Value first = Day("01-05-2022");
    const Value second = Day("01-12-2022");
    Block("1", "Lathe", 1000.5);
    Addition({{"PurchaseOrSaleDate1", first},
              {"PurchaseOrSaleValue", 5000},
              {"Modvat", 400},
              {"ExchangeRateChange", 30},
              {"subsidyGrant", 2}});
    Addition({{"PurchaseOrSaleDate1", first}, {"PurchaseOrSaleValue", 100}, {"ExchangeRateChange", -50}});
    Addition({{"PurchaseOrSaleDate1", second}, {"PurchaseOrSaleValue", 70.4}});
    Addition({{"PurchaseOrSaleDate1", second}, {"PurchaseOrSaleValue", 0.1}});
    Deduction("S1", 11);
    Deduction("S2", 22);
    Deduction("S1", 33);
    Deduction(Value(), 44);
    Block("11", "Desk \"यंत्र\"");
    Deduction("S1", 5);
    const auto read = Read().blocks;
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0], (Form3cdBlock{.heading = {{"Lathe", "Machinery & Plant", 15}},
                                     .opening = 1001,
                                     .purchases1 = 4718, // 5000 - 400 - 30 - 2, and 100 + 50
                                     .purchases2 = 71,   // 70.5, rounded once
                                     .sales1 = 44,
                                     .sales2 = 66}));
    EXPECT_EQ(read[1], (Form3cdBlock{.heading = {{"Desk \"यंत्र\"", "Furniture & Fittings", 10}}, .sales1 = 5}));
}

TEST(Form3cdTablesOfAnotherKind, DatesAndKeysMayBeTextsAndTablesMissing)
{
    const TemporaryFolder folder;
    const Connection tables = OpenNewDataFiles(folder, {"misc"}).front();
    EXPECT_TRUE(ReadForm3cdTables(tables, 2023).blocks.empty());
    tables.Execute("create table Form3cdDeprAllw (Form3cdDeprAllw_Id text, DescBlockAssets int, AssetsName text)");
    tables.Insert("Form3cdDeprAllw", {{"Form3cdDeprAllw_Id", "7"}, {"DescBlockAssets", 12}, {"AssetsName", "Patent"}});
    EXPECT_EQ(ReadForm3cdTables(tables, 2023).blocks.at(0).heading->name, "Patent");
    tables.Execute(
        "create table Additions (Form3cdDeprAllw_Id int, PurchaseOrSaleDate1 text, PurchaseOrSaleValue int)");
    tables.Insert("Additions",
                  {{"Form3cdDeprAllw_Id", 7}, {"PurchaseOrSaleDate1", "04-10-2022"}, {"PurchaseOrSaleValue", 90}});
    EXPECT_EQ(ReadForm3cdTables(tables, 2023).blocks.at(0).purchases2, 90);
}

TEST(Form3cdOfARun, IsWhatTheSiblingLeft)
{
    EmptyPractice practice;
    pgbp::Run& run = practice.Start();
    const auto place = practice.folder.path() / "client/data/TempXML.mdb";
    EXPECT_TRUE(ReadForm3cd(run).blocks.empty()) << "cancelled: it left nothing";
    practice.processes.whileRunning = [&] {
        CreateEmbeddedFile(place, "TempXML");
        OpenFile({place, {}}).Insert("Form3cdDeprAllw", {{"Form3cdDeprAllw_Id", 1}, {"DescBlockAssets", "13"}});
    };
    EXPECT_EQ(ReadForm3cd(run).blocks.at(0).heading->group, "Ships");
    EXPECT_EQ(practice.processes.started, std::vector<std::string>(2, "Audit3CDReader.exe"));

    practice.processes.whileRunning = [&] { practice.folder.Write("client/data/TempXML.mdb", "no data file"); };
    EXPECT_TRUE(ReadForm3cd(run).blocks.empty());
    EXPECT_NE(practice.folder.Read("client/" + std::string(kErrorLog)).find("TempXML.mdb"), std::string::npos);
    practice.processes.whileRunning = [] { throw std::runtime_error("The program could not be started."); };
    EXPECT_THROW(ReadForm3cd(run), std::runtime_error);
}

TEST(Form3cdOfARun, JetFileIsOpenedThroughTheClientFolder)
{
    EXPECT_EQ(JetConnectionString(Form3cdFile("C:/Vorn/client")),
              "DBQ=C:\\Vorn\\client\\data\\TempXML.mdb;DefaultDir=C:\\Vorn\\client;"
              "Driver={Microsoft Access Driver (*.mdb)};DriverId=25;FIL=MS Access;FILEDSN=C:\\Vorn\\client\\Temp.dsn;"
              "MaxBufferSize=2048;MaxScanRows=8;PageTimeout=5;SafeTransactions=0;Threads=3;UID=admin;"
              "UserCommitSync=Yes;");
}

TEST(Form3cdNotice, TellsWhatThePreparerCannotSee)
{
    EXPECT_EQ(NoticeOfImport({}, 0), "Nothing was read from the audit report.");
    const std::vector<Form3cdBlock> three(3);
    EXPECT_EQ(NoticeOfImport({three, {}, 0}, 3), "3 blocks were taken from the audit report.");
    EXPECT_EQ(NoticeOfImport({three, {"48", ""}, 1}, 1),
              "1 block was taken from the audit report, 2 refused. No group and rate is known for block 48, (none): "
              "please check. 1 purchase has no date and went to the first half.");
}
