#include "check/practice_check.h"
#include "suite/fill.h"
#include "suite/new_practice.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

using namespace pgbp;
using Texts = std::vector<std::string>;

namespace {

Texts FoundIn(const std::filesystem::path& practice)
{
    Texts found;
    check::CheckPractice(
        Practice(practice),
        [&](const Finding& finding) {
            found.push_back((finding.code.empty() ? "" : finding.code + ' ') + InWords(finding));
        },
        [](long, long) {});
    return found;
}

std::string BytesOf(const std::filesystem::path& file)
{
    std::stringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

/// A client with one line of business in which all agrees: a net profit of 50,000 of its statement, of which 4,000 of
/// depreciation are in the annexure, and 46,000 of income.
class OneClient : public EmptyPractice {
  public:
    explicit OneClient(const char* status = "01")
    {
        Year(2023, status);
        Company().Insert("assessee", {{"company", 1}, {"comp_name", "Asha Traders"}, {"Status", status}});
        Company().Insert(
            "assessee1",
            {{"code", handOver.Glcode}, {"company", 1}, {"comp_name", "Asha Traders"}, {"year", handOver.Glyear}});
        Line("1", {{"PNL", 50000}, {"dep1", 0}, {"dep2", 4000}, {"NET", 46000}});
        Cell("NEWPL", 255, "50000");
        Asset("Machine", 4000);
        Note("BUSI", {{"amt1", 46000}, {"amt9", 46000}, {"amt12", 46000}, {"amt14", 46000}});
    }

    void Change(const std::string& sql) const { Company().Execute(sql); }
    void ChangeBalance(const std::string& sql) const { Balance().Execute(sql); }

    Texts Found() const
    {
        Texts texts = FoundIn(folder.path());
        const std::string code = handOver.Glcode + ' ';
        for (std::string& text : texts)
            if (text.starts_with(code))
                text.erase(0, code.size());
        return texts;
    }
};

struct Disagreement {
    const char* what;
    void (*change)(OneClient&);
    Texts found;
};

const Disagreement kDisagreements[] = {
    {"all agrees", [](OneClient&) {}, {}},
    {"the line gives another income than the head",
     [](OneClient& client) { client.Change("update {business} set NET = 47000"); },
     {"Head of income (Normal business; Total; Income after partners): stored 46,000.00, follows 47,000.00"}},
    {"an amount of the head alone",
     [](OneClient& client) { client.ChangeBalance("update {qelgeneral} set amt2 = 500 where [Type] = 'BUSI'"); },
     {"Head of income (Speculation business): stored 500.00, follows 0.00"}},
    {"a paisa",
     [](OneClient& client) { client.ChangeBalance("update {qelgeneral} set amt14 = 46000.01 where [Type] = 'BUSI'"); },
     {"Head of income: stored 46,000.01, follows 46,000.00"}},
    {"less than a paisa",
     [](OneClient& client) {
         client.ChangeBalance("update {qelgeneral} set amt14 = 46000.0001 where [Type] = 'BUSI'");
     },
     {}},
    {"a child's run wrote the head",
     [](OneClient& client) {
         client.ChangeBalance("update {qelgeneral} set amt1 = 300, amt9 = 300, amt12 = 300, amt14 = 300, name7 = '2' "
                              "where [Type] = 'BUSI'");
     },
     {"Head of income of minor 2 (Normal business; Total; Income after partners): stored 300.00, follows 46,000.00"}},
    {"the head was never written",
     [](OneClient& client) { client.ChangeBalance("delete from {qelgeneral} where [Type] = 'BUSI'"); },
     {"Head of income not written: follows 46,000.00"}},
    {"the statement was saved alone",
     [](OneClient& client) { client.ChangeBalance("update {qelgeneral} set name8 = '60,000.00' where amt1 = 255"); },
     {"Net profit of the statement (Main works): stored 50,000.00, follows 60,000.00"}},
    {"the statement has a depreciation that the line does not",
     [](OneClient& client) { client.Cell("NEWPL", 254, "7000"); },
     {"Depreciation of the statement (Main works): stored 0.00, follows 7,000.00"}},
    {"the annexure has another depreciation",
     [](OneClient& client) { client.Asset("Lathe", 500); },
     {"Depreciation of the annexure (Main works): stored 4,000.00, follows 4,500.00"}},
    {"a line without an annexure may have any",
     [](OneClient& client) { client.ChangeBalance("delete from {fassets}"); },
     {}},
    {"a speculation takes its profit from the plain statement",
     [](OneClient& client) { client.Change("update {business} set [Type] = '2', PNL = 46000"); },
     {"Head of income (Normal business; Speculation business): stored 46,000.00, follows 0.00",
      "Net profit of the statement (Main works): stored 46,000.00, follows 50,000.00"}},
    {"rows of a line that is gone",
     [](OneClient& client) {
         client.Detail("544", {{"SNO", 99}, {"amt1", 10}});
         client.Detail("511", {{"SNO", 99}, {"amt1", 10}});
         client.Asset("Van", 1, 98);
     },
     {"Rows of no line (business1: 2 of a line numbered 99)", "Rows of no line (fassets: 1 of a line numbered 98)"}},
    {"rows that stand for no line",
     [](OneClient& client) {
         client.Asset("Of a line that is open now", 1, 90000);
         client.Note("NEWPL", {{"amt1", 1}, {"amt2", 9999999}});
         client.Note("NEWPL", {{"amt1", 1}, {"amt2", 99999999}});
         client.Detail("LIC", {{"SNO", Value()}});
     },
     {}},
    {"ratios count for a firm alone",
     [](OneClient& client) {
         client.Detail("PARTREMU", {{"name1", "Ravi"}, {"amt2", 60}});
     },
     {}},
};

} // namespace

TEST(PracticeCheck, FindsWhatDoesNotAgree)
{
    for (const Disagreement& each : kDisagreements) {
        SCOPED_TRACE(each.what);
        OneClient client;
        each.change(client);
        EXPECT_EQ(client.Found(), each.found);
    }
}

TEST(PracticeCheck, RatiosOfThePartnersAreThoseWhoHaveNotLeft)
{
    OneClient firm("05");
    const auto partner = [&](const char* name, double ratio, bool left, double interest) {
        firm.Detail(interest != 0 ? "PARTINTT" : "PARTREMU",
                    {{"name1", name}, {"amt1", interest}, {"amt2", ratio}, {"flag1", left}});
    };
    partner("Ravi", 60, false, 0);
    partner("Mohan", 40, true, 0);
    partner("Sita", 30, false, 1200);
    EXPECT_EQ(firm.Found(), Texts{"Ratios of the partners (Main works): stored 90.00, follows 100.00"});
    partner("Hari", 10, false, 0);
    EXPECT_EQ(firm.Found(), Texts{});
}

/// A firm whose remuneration the program calculates: on 46,000 the law allows more than the 20,000 that were paid, and
/// 45,000 are what the stored row still says.
TEST(PracticeCheck, TheRemunerationIsThatOfTheNextOpening)
{
    OneClient firm("05");
    firm.Automatic();
    firm.Detail("PARTREMU", {{"name1", "Ravi"}, {"amt1", 20000}, {"amt2", 100}});
    firm.Detail("LESSREMU", {{"SNO", Value()}, {"amt1", 45000}});
    firm.ChangeBalance("update {qelgeneral} set amt11 = 45000, amt12 = 1000, amt14 = 1000 where [Type] = 'BUSI'");
    EXPECT_EQ(firm.Found(), Texts{"Head of income (Less: remuneration to partners; Income after partners): stored "
                                  "1,000.00, follows 26,000.00"});
    EXPECT_EQ(firm.Stored("select amt1 from {business1} where [Type] = 'LESSREMU'"), "45000") << "nothing is stored";
}

TEST(PracticeCheck, ACompanyThatReportsUnderIndAsIsHeldAgainstThatStatement)
{
    OneClient company("12");
    company.Item("FRMCHK", {{"add1", "Yes"}});
    EXPECT_EQ(company.Found(), Texts{"Net profit of the statement (Main works): stored 50,000.00, follows 0.00"});
    company.Cell("NEWINDPL", 255, "50000");
    EXPECT_EQ(company.Found(), Texts{});
}

TEST(PracticeCheck, NothingIsStored)
{
    OneClient client;
    client.Note("NEWPL", {{"amt1", 1}, {"amt2", 99}}); // the module would delete it
    std::map<std::string, std::string> before;
    const auto files = [&](const auto& work) {
        for (const char* name : {"company", "balance", "tax"})
            work(std::string(name), BytesOf(client.folder.path() / "server" / (std::string(name) + ".mdb")));
    };
    files([&](const std::string& name, const std::string& bytes) { before[name] = bytes; });
    EXPECT_EQ(client.Found(), Texts{"Rows of no line (qelgeneral: 1 of a line numbered 99)"});
    files([&](const std::string& name, const std::string& bytes) { EXPECT_TRUE(bytes == before[name]) << name; });
}

/// The assessee-years are looked at two hundred at a time.
TEST(PracticeCheck, RowsOfNobodyAreFoundBeforeBetweenAndBehindTheClients)
{
    const NewPractice made;
    {
        const Practice practice = made.Open();
        FillPractice(practice, PGBP_DATA, 450);
        for (const char* code : {"0", "1003r2023-2", "1300x", "zz"})
            practice.company.Insert("business", {{"code", code}, {"Type", "1"}, {"SNO", 1e6}});
        practice.balance.Insert("qelgeneral", {{"code", "1300X"}, {"Type", "BUSI"}});
        practice.balance.Insert("qelgeneral", {{"code", "1300X"}, {"Type", "NEWPL"}});
        practice.company.Insert("capital1", {{"Type", "Sec50"}});
        practice.company.Insert("setup", {{"code", "*****"}, {"newov", true}}); // holds for all clients
        practice.company.Insert("assessee1", {{"code", "ZZZ"}, {"company", 77}, {"year", "2023-24"}});
    }
    Texts nobodys;
    for (const std::string& text : FoundIn(made.folder()))
        if (text.find("of nobody") != std::string::npos || text.find("no client") != std::string::npos)
            nobodys.push_back(text);
    EXPECT_EQ(nobodys, (Texts{"Rows of nobody (capital1: 1)", "ZZZ Year of no client (assessee1)",
                              "0 Rows of nobody (business: 1)", "1003r2023-2 Rows of nobody (business: 1)",
                              "1300x Rows of nobody (business: 1)", "zz Rows of nobody (business: 1)",
                              "1300X Rows of nobody (qelgeneral: 2)"}));
}

/// The closed years of the demonstration clients were worked out by hand; the open ones are not written yet. The
/// foundry chose Ind AS in years in which the program asks for no such choice: its next opening drops the depreciation.
TEST(PracticeCheck, TheDemonstrationClientsAgree)
{
    const NewPractice made;
    Texts found = FoundIn(made.folder());
    std::erase_if(found,
                  [](const std::string& text) { return text.find("Head of income not written") != std::string::npos; });
    EXPECT_EQ(found, (Texts{"1011r2021-22 Depreciation of the statement (Foundry Grey iron castings): stored "
                            "38,00,000.00, follows 0.00",
                            "1011r2022-23 Depreciation of the statement (Foundry Grey iron castings): stored "
                            "36,20,000.00, follows 0.00"}));
}
