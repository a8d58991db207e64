#include "audit_report/tables.h"

#include "store/files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

using Texts = std::vector<std::pair<const char*, std::string>>;

Members MembersOf(const Texts& texts)
{
    Members members;
    for (const auto& [name, text] : texts)
        members.Add(name, text);
    return members;
}

ReportedBlock Block(const Texts& texts) { return {MembersOf(texts), {}, {}}; }

std::string Refused(const ReportedBlock& block)
{
    try {
        TablesOf({Block({}), block});
    } catch (const ReportError& error) {
        return error.what();
    }
    return "taken";
}

/// A block with this member in its one addition.
ReportedBlock WithAddition(const char* name, const std::string& text)
{
    ReportedBlock block = Block({});
    block.additions.push_back(MembersOf({{name, text}}));
    return block;
}

/// A row's values in a line.
std::string Told(const ReportTables::Row& row)
{
    std::string told;
    for (const Field& field : row)
        told += (told.empty() ? "" : "|") + field.value.Text();
    return told;
}

std::string AllOf(const Connection& file, const std::string& table)
{
    return AsText(file.Query("select * from {" + table + '}'));
}

} // namespace

TEST(ReportTables, TakeDatesAndAmountsAsReportsWriteThem)
{
    const struct {
        const char* member;
        const char* text;
        const char* row;
    } cases[] = {
        {"PurchaseOrSaleDate", "2022-10-02", "2|2022-10-02 00:00:00|||||"},
        {"PurchaseOrSaleDate1", "02-10-2022", "2|2022-10-02 00:00:00|||||"},
        {"DatePutToUse", "02/10/2022", "2||2022-10-02 00:00:00||||"},
        {"DatePutToUse", "2024-02-29+05:30", "2||2024-02-29 00:00:00||||"},
        {"Date1PutToUse", "2022-10-02T00:00:00Z", "2||2022-10-02 00:00:00||||"},
        {"PurchaseOrSaleValue", "12,34,567.50", "2|||1234567.5|||"},
        {"Modvat", "-5", "2||||-5||"},
        {"ExchangeRateChange", "999999999999999", "2|||||999999999999999|"},
        {"subsidyGrant", "0", "2||||||0"},
        {"SomethingElse", "x", "2||||||"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(Told(TablesOf({Block({}), WithAddition(each.member, each.text)}).additions.at(0)), each.row)
            << each.member << ' ' << each.text;
}

TEST(ReportTables, RefuseWhatCannotBeReadWithItsPlace)
{
    for (const char* text : {"2023-02-29", "30-02-2022", "2022-13-01", "2022-10-02x", "x", "02-10-22", "0000-00-00"})
        EXPECT_EQ(Refused(WithAddition("DatePutToUse", text)),
                  std::string("Block 2 of the depreciation schedule, DatePutToUse: \"") + text + "\" is no date.");
    for (const char* text : {"x", "1x", "1e3", "inf", "nan", "1 000", "1000000000000000", "--1"})
        EXPECT_EQ(Refused(Block({{"OpeningWDV", text}})),
                  std::string("Block 2 of the depreciation schedule, OpeningWDV: \"") + text + "\" is no amount.");
    EXPECT_EQ(Refused(Block({{"AssetsName", std::string(255, 'x')}})), "taken");
    EXPECT_EQ(Refused(Block({{"AssetsName", std::string(256, 'x')}})),
              "Block 2 of the depreciation schedule, AssetsName: the text is longer than a name can be.");
}

TEST(ReportTables, BlockWithoutANameGetsTheFormsWords)
{
    const struct {
        Texts texts;
        const char* name;
    } cases[] = {
        {{{"AssetsName", "Lathe\nno. 2"}, {"DescBlockAssets", "1"}}, "Lathe no. 2"},
        {{{"DescBlockAssets", "7"}, {"RateOfDep", "100"}}, "Machinery & Plant 100%"},
        {{{"DescBlockAssets", "48"}, {"RateOfDep", "45"}}, "Machinery & Plant 45%"},
        {{{"DescBlockAssets", "10"}}, "Buildings"},
        {{{"DescBlockAssets", "47"}}, "Buildings"},
        {{{"DescBlockAssets", "11"}}, "Furniture & Fittings"},
        {{{"DescBlockAssets", "12"}}, "Intangible Assets"},
        {{{"DescBlockAssets", "13"}, {"RateOfDep", "20"}}, "Ships 20%"},
        {{{"DescBlockAssets", "14"}, {"RateOfDep", "30"}}, "Block 14 30%"},
    };
    for (const auto& each : cases)
        EXPECT_EQ(TablesOf({Block(each.texts)}).blocks.at(0).at(2).value.Text(), each.name);
}

TEST(ReportTables, SaleIsOfTheFirstHalfUnlessTheReportTells)
{
    ReportedBlock block = Block({});
    block.deductions = {MembersOf({{"PurchaseOrSaleValue", "40"}}),
                        MembersOf({{"PurchaseOrSaleValue", "50"}, {"SaleCata", "S2"}})};
    const auto rows = TablesOf({block}).deductions;
    EXPECT_EQ(Told(rows.at(0)), "1|S1|40");
    EXPECT_EQ(Told(rows.at(1)), "1|S2|50");
}

TEST(ReportTables, WarnWherePurchasesOrSalesDifferFromTheirTotal)
{
    const auto warnings = [](const char* purchases, const char* sales, const Texts& addition) {
        ReportedBlock block = Block({{"DescBlockAssets", "1"},
                                     {"RateOfDep", "15"},
                                     {"TotalPurchaseValue", purchases},
                                     {"TotalDeduction", sales}});
        if (!addition.empty())
            block.additions.push_back(MembersOf(addition));
        block.deductions.push_back(MembersOf({{"PurchaseOrSaleValue", "40"}}));
        std::string told;
        for (const std::string& warning : TablesOf({WithAddition("PurchaseOrSaleValue", "9"), block}).warnings)
            told += warning + '\n';
        return told;
    };
    const Texts whole = {
        {"PurchaseOrSaleValue", "100"}, {"Modvat", "10"}, {"ExchangeRateChange", "-5"}, {"SubsidyGrant", "1"}};
    EXPECT_EQ(warnings("94", "40", whole), "");
    EXPECT_EQ(warnings("", "", whole), "");
    EXPECT_EQ(warnings("106", "40", whole),
              "Machinery & Plant 15%: the purchases in the file come to 94, their total is 106. Please check.\n");
    EXPECT_EQ(warnings("70000", "0", {}),
              "Machinery & Plant 15%: the purchases in the file come to 0, their total is 70000. Please check.\n"
              "Machinery & Plant 15%: the sales in the file come to 40, their total is 0. Please check.\n");
}

TEST(ReportTables, TakeThePlaceOfThoseLeftLast)
{
    const TemporaryFolder folder;
    const auto path = folder.path() / "TempXML.mdb";
    ReportedBlock first = WithAddition("PurchaseOrSaleValue", "5");
    first.deductions.push_back(MembersOf({{"PurchaseOrSaleValue", "6"}}));
    WriteTables(path, TablesOf({first, first, Block({{"AssetsName", "O'Hara's \"यंत्र\""}})}));
    {
        const Connection file = OpenFile({path, {}});
        EXPECT_EQ(file.Query("select * from {Form3cdDeprAllw}").Size(), 3u);
        EXPECT_EQ(file.Scalar("select AssetsName from {Form3cdDeprAllw} where Form3cdDeprAllw_Id = 3").Text(),
                  "O'Hara's \"यंत्र\"");
        EXPECT_EQ(file.Query("select * from {Additions} where Form3cdDeprAllw_Id = 2").Size(), 1u);
        EXPECT_EQ(file.Query("select * from {Deductions}").Size(), 2u);
    }
    WriteTables(path, TablesOf({Block({})}));
    EXPECT_EQ(OpenFile({path, {}}).Query("select * from {Form3cdDeprAllw}").Size(), 1u);
    EXPECT_EQ(AllOf(OpenFile({path, {}}), "Additions"), "");
    folder.Write("TempXML.mdb-journal", "of a writer that was killed");
    RemoveTables(path);
    RemoveTables(path);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}
