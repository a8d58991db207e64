// What every engine must do. Each case runs on the embedded engine and, where one is up, on a database server.
#include "store/engines_under_test.h"

#include <chrono>
#include <future>
#include <limits>

namespace pgbp {
namespace {

std::string Repeated(std::string_view text, int times)
{
    std::string result;
    while (times-- > 0)
        result += text;
    return result;
}

void AddLine(const Connection& company, std::string_view code, std::string_view type, Value sno, Value minor = {})
{
    company.Insert("business", {{"code", code}, {"Type", type}, {"SNO", sno}, {"Minor", minor}});
}

/// The column's texts, joined by commas.
std::string Joined(const Recordset& rows, std::string_view column)
{
    std::string joined;
    for (const Row& row : rows)
        joined += (joined.empty() ? "" : ",") + row[column].Text();
    return joined;
}

TEST_P(StoreContract, GivesTextsBackAsTheyWere)
{
    const std::string texts[] = {"",
                                 "D'Souza & Sons",
                                 "say \"yes\"; drop table business; --",
                                 "100 % of {braces} [brackets] ? \\ back\\",
                                 " blank in front",
                                 "two\r\nlines",
                                 "\xE0\xA4\xB0\xE0\xA4\xBE\xE0\xA4\xAE \xE2\x82\xB9",
                                 Repeated("n", 255),
                                 Repeated("\xE0\xA4\xB0", 255)};
    for (const std::string& text : texts) {
        company.Execute("delete from {business1}");
        company.Insert("business1", {{"code", "A"}, {"name1", text}});
        const Value value = company.Scalar("select name1 from {business1} where name1 = ?", text);
        EXPECT_FALSE(value.IsNull()) << text;
        EXPECT_EQ(value.Text(), text);
    }
}

TEST_P(StoreContract, GivesALongNoteBackWhole)
{
    const std::string note = Repeated("\xE0\xA4\xB0 note ", 570); // some 4000 characters, several pieces for a driver
    balance.Insert("misc_items", {{"code", "A"}, {"Type", "REMINDER"}, {"add1", note + "end"}});
    EXPECT_EQ(balance.Scalar("select add1 from {misc_items}").Text(), note + "end");
}

TEST_P(StoreContract, GivesNumbersDatesAndFlagsBackAsTheyWere)
{
    for (const double number : {0.0, -0.01, 0.1, 10.495, 90000.0, 12345678901234.56, 9007199254740993.0, -1e300}) {
        company.Execute("delete from {capital1}");
        company.Insert("capital1", {{"code", "A"}, {"amt1", number}});
        EXPECT_EQ(company.Scalar("select amt1 from {capital1}").Number(), number);
    }
    const DateTime date{2024, 3, 31, 23, 59, 58};
    company.Execute("update {capital1} set date1 = ?", date);
    EXPECT_EQ(company.Scalar("select date1 from {capital1}").Date(), date);
    EXPECT_EQ(company.Scalar("select count(*) from {capital1} where date1 <= ?", DateTime{2024, 3, 31}).Number(), 0);
    company.Insert("business", {{"code", "A"}, {"books", true}});
    EXPECT_TRUE(company.Scalar("select books from {business}").Flag());
    company.Insert("business1", {{"code", "A"}, {"name3", 1}});
    EXPECT_EQ(company.Scalar("select name3 from {business1}").Text(), "1") << "a number in a text column";
}

TEST_P(StoreContract, TellsNullZeroAndEmptyApart)
{
    company.Insert("business", {{"code", "A"}, {"name1", ""}, {"PNL", 0}, {"NET", nullptr}});
    const Recordset rows = company.Query("select name1, name2, PNL, NET from {business}");
    const Row row = rows.First();
    EXPECT_FALSE(row["name1"].IsNull());
    EXPECT_TRUE(row["name2"].IsNull());
    EXPECT_FALSE(row["PNL"].IsNull());
    EXPECT_TRUE(row["NET"].IsNull());
    EXPECT_TRUE(company.Scalar("select sum(NET) as [total] from {business}").IsNull());
    EXPECT_TRUE(company.Scalar("select NET from {business} where code = ?", "B").IsNull());
}

TEST_P(StoreContract, ComparesTextWithoutCaseAndWithoutBlanksAtItsEnd)
{
    company.Insert("business1", {{"code", "Ar2023-24  "}, {"Type", "10abc"}});
    EXPECT_EQ(company.Scalar("select code from {business1}").Text(), "Ar2023-24");
    EXPECT_EQ(company.Query("select * from {business1} where code = ? and [Type] = ?", "AR2023-24   ", "10ABC").Size(),
              1u);
    EXPECT_EQ(company.Query("select * from {business1} where code = ?", " Ar2023-24").Size(), 0u);
}

TEST_P(StoreContract, ReadsFieldsByNameInAnyCaseAndByAlias)
{
    AddLine(company, "A", "1", 41);
    AddLine(company, "B", "1", 42);
    const Recordset rows = company.Query("select max(sno) as [max], count(*) as [Tot] from {business}");
    EXPECT_EQ(rows.First()["MAX"].Number(), 42);
    EXPECT_EQ(rows.First()["tot"].Number(), 2);
    EXPECT_THROW(rows.First()["total"], std::out_of_range);
    EXPECT_TRUE(company.Scalar("select max(sno) as [max] from {business} where code = ?", "C").IsNull());
    const Record kept(company.Query("select * from {business} where code = ?", "B").First());
    EXPECT_EQ(kept["SNO"].Number(), 42);
    EXPECT_TRUE(kept["no such column"].IsNull());
}

TEST_P(StoreContract, KeepsRowsInTheOrderOfInsertion)
{
    for (const char* type : {"UTI", "LIC", "ZADHOC", "LIC", "MF"})
        company.Insert("business1", {{"code", "A"}, {"Type", type}});
    company.Delete("from {business1} where [Type] = ?", "ZADHOC");
    company.Insert("business1", {{"code", "A"}, {"Type", "AOP"}});
    const std::string all = "select [Type] from {business1} where code = ?";
    EXPECT_EQ(Joined(company.Query(all + std::string(dialect().insertionOrder), "A"), "type"), "UTI,LIC,LIC,MF,AOP");
    EXPECT_EQ(Joined(company.Query(all, "A"), "type"), "UTI,LIC,LIC,MF,AOP") << "an index changes the order";
}

TEST_P(StoreContract, DeletesAndUpdatesOnlyWhatIsMeantAndCountsIt)
{
    for (const char* code : {"A", "A", "B"})
        AddLine(company, code, "1", 1);
    EXPECT_EQ(company.Execute("update {business} set sno = ? where code = ?", 7, "A"), 2);
    EXPECT_EQ(company.Delete("from {business} where code = ?", "A"), 2);
    EXPECT_EQ(company.Delete("from {business} where code = ?", "A"), 0);
    EXPECT_EQ(Joined(company.Query("select code, sno from {business}"), "sno"), "1");
}

TEST_P(StoreContract, WordsOfTheDialectMeanTheSame)
{
    AddLine(company, "own", "1", 1);
    AddLine(company, "zero", "1", 2, 0);
    AddLine(company, "child", "1", 3, 2);
    company.Insert("assessee", {{"Status", "03"}, {"flag", true}, {"comp_name", "three"}});
    company.Insert("assessee", {{"Status", "12"}, {"flag", false}, {"comp_name", "twelve"}});
    company.Insert("misc_items", {{"code", "ABr2023-24"}, {"Type", "  PGBP3"}, {"name1", "30"}});
    const struct {
        std::string table, condition, column, rows;
    } cases[] = {
        {"business", std::string(dialect().noMinor), "code", "own"},
        {"business", std::string(dialect().noMinorOrZero), "code", "own,zero"},
        {"business", std::string(dialect().noMinorOrZeroUnparsed), "code", "own,zero"},
        {"assessee", std::string(dialect().statusAtMost3), "comp_name", "three"},
        {"assessee", "flag = " + std::string(dialect().trueLiteral), "comp_name", "three"},
        {"assessee", dialect().AsNumber("status") + " > 9", "comp_name", "twelve"},
        {"assessee", dialect().Upper("comp_name") + " = 'THREE'", "comp_name", "three"},
        {"misc_items", dialect().Right("code", 8) + " = 'R2023-24'", "name1", "30"},
        {"misc_items", dialect().Left("code", 3) + " = 'abR'", "name1", "30"},
        {"misc_items", dialect().Trim("[Type]") + " = 'pgbp3'", "name1", "30"},
        {"misc_items", dialect().Trim("[Type]") + " = 'pgbp'", "name1", ""},
        {"misc_items", dialect().AsNumber("name2") + " = 0", "name1", "30"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(Joined(company.Query("select * from {" + one.table + "} where " + one.condition), one.column),
                  one.rows)
            << one.condition;
}

TEST_P(StoreContract, AnErrorKeepsTheStatementWithoutItsValuesAndTheSessionGoesOn)
{
    const auto failure = [&](auto&& work) -> std::string {
        try {
            work();
        } catch (const StoreError& error) {
            EXPECT_EQ(std::string(error.what()).find("business"), std::string::npos) << error.what();
            return error.technical();
        }
        return "nothing failed";
    };
    const std::string unknown = failure([&] { company.Query("select * from {nowhere} where code = ?", "D'Souza"); });
    EXPECT_NE(unknown.find("Statement: select * from"), std::string::npos) << unknown;
    EXPECT_NE(unknown.find("nowhere"), std::string::npos) << unknown;
    const std::string notANumber = failure([&] { AddLine(company, "A", "1", "D'Souza"); });
    for (const std::string& words : {unknown, notANumber})
        EXPECT_EQ(words.find("Souza"), std::string::npos) << words;
    const std::string select = "select * from {business} where code = ?";
    for (int again = 0; again < 2; ++again) {
        EXPECT_NE(failure([&] { company.Query(select); }), "nothing failed");
        EXPECT_NE(failure([&] { company.Query(select, "A", "B"); }), "nothing failed");
        EXPECT_TRUE(company.Query(select, "A").Empty());
    }
    const double wrong[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()};
    for (const double number : wrong)
        EXPECT_NE(failure([&] { AddLine(company, "A", "1", number); }).find("not finite"), std::string::npos);
    EXPECT_NE(failure([&] { AddLine(company, Repeated("c", 51), "1", 1); }), "nothing failed") << "text cut";
    EXPECT_NE(notANumber, "nothing failed") << "a text as a number";
    AddLine(company, "B", "1", "1.00");
    EXPECT_NE(failure([&] { company.Execute("update {business} set name1 = ?", Repeated("n", 256)); }),
              "nothing failed");
    EXPECT_EQ(Joined(company.Query("select * from {business}"), "code"), "B");
}

TEST_P(StoreContract, ATransactionIsAllOrNothingOverItsConnections)
{
    const auto write = [&](std::string_view code) {
        AddLine(company, code, "1", 1);
        balance.Insert("compu", {{"code", code}, {"gross", 1}});
    };
    const auto stored = [&] {
        return Joined(company.Query("select code from {business} order by code"), "code") + '|' +
               Joined(balance.Query("select code from {compu} order by code"), "code");
    };
    {
        Transaction transaction({company, balance, company});
        write("kept");
        transaction.Commit();
    }
    {
        Transaction transaction({company, balance});
        write("left");
    }
    EXPECT_EQ(stored(), "kept|kept");
    EXPECT_THROW(
        {
            Transaction transaction({company, balance});
            write("failed");
            balance.Execute("insert into {compu} (no_such_column) values (?)", 1);
            transaction.Commit();
        },
        StoreError);
    EXPECT_EQ(stored(), "kept|kept");
    {
        Transaction outer({company, balance});
        write("outer");
        EXPECT_THROW(Transaction({balance}), StoreError) << "a transaction within a transaction";
        outer.Commit();
    }
    write("alone");
    EXPECT_EQ(stored(), "alone,kept,outer|alone,kept,outer");
}

/// Stores `count` lines, each in a transaction of its own under the next number, as the save of a new line does.
void AddNumberedLines(const Connection& company, std::string_view code, int count)
{
    while (count-- > 0) {
        Transaction transaction({company});
        AddLine(company, code, "1", company.NextNumber("business", "SNO"));
        transaction.Commit();
    }
}

TEST_P(StoreContract, TwoWritersNeverGetTheSameNumber)
{
    constexpr int kLines = 40;
    EXPECT_EQ(company.NextNumber("business", "SNO"), 1) << "an empty table";
    AddLine(company, "A", "1", 41);
    const Connection first = OtherCompany();
    const Connection second = OtherCompany();
    auto other = std::async(std::launch::async, AddNumberedLines, second, "B", kLines);
    AddNumberedLines(first, "A", kLines);
    other.get();
    const Recordset lines =
        company.Query("select count(*) as n, count(distinct sno) as numbers, max(sno) as high from {business}");
    EXPECT_EQ(lines.First()["n"].Number(), 1 + 2 * kLines);
    EXPECT_EQ(lines.First()["numbers"].Number(), 1 + 2 * kLines);
    EXPECT_EQ(lines.First()["high"].Number(), 41 + 2 * kLines) << "a gap";
}

class ServerContract : public StoreContract {};

TEST_P(ServerContract, ALostSessionIsAnErrorAndItsTransactionLeavesNothing)
{
    const Connection victim = OpenServerConnection(*TestServer(), "Qel_VornCompany");
    const Value session = victim.Scalar("select connection_id()");
    {
        Transaction transaction({victim, balance});
        AddLine(victim, "lost", "1", 1);
        balance.Insert("compu", {{"code", "lost"}});
        company.Execute("kill " + session.Text());
        EXPECT_THROW(AddLine(victim, "after", "1", 2), StoreError);
        EXPECT_THROW(transaction.Commit(), StoreError);
    }
    EXPECT_TRUE(victim.Query("select * from {business}").Empty()) << "a new session serves the next try";
    EXPECT_TRUE(balance.Query("select * from {compu}").Empty());
}

TEST_P(ServerContract, ASaveOfOneAssesseeDoesNotStopTheNextOne)
{
    AddLine(company, "1001", "1", 1);
    AddLine(company, "1009", "1", 2);
    const Connection other = OtherCompany();
    other.Execute("set session innodb_lock_wait_timeout = 1");
    Transaction mine({company});
    company.Delete("from {business} where code = ?", "1003"); // none yet, as on a first save
    company.Insert("business", {{"code", "1003"}, {"SNO", 3}});
    EXPECT_NO_THROW(AddLine(other, "1004", "1", 4));
    EXPECT_NO_THROW(other.Execute("update {business} set PNL = 1 where code = ?", "1001"));
}

TEST_P(ServerContract, AWrongLoginTellsWhatToCorrect)
{
    const auto refusal = [](const ServerLogin& login, std::string_view database) -> std::optional<Cause> {
        try {
            OpenServerConnection(login, database);
            return std::nullopt;
        } catch (const StoreError& error) {
            EXPECT_NE(std::string(error.what()).find(".ini"), std::string::npos) << error.what();
            EXPECT_EQ(error.technical().find("wrong"), std::string::npos) << error.technical();
            return error.cause();
        }
    };
    ServerLogin login = *TestServer();
    EXPECT_EQ(refusal(login, "Qel_VornBalance"), std::nullopt);
    EXPECT_EQ(refusal(login, "Qel_NoSuchDatabase"), Cause::NoRights) << "the user may not even know of it";
    EXPECT_EQ(refusal(login, "Qel_;uid={root}"), Cause::NoRights) << "cut or read as a part";
    login.password = "wrong";
    EXPECT_EQ(refusal(login, "Qel_VornBalance"), Cause::WrongPassword);
    login.server = "127.0.0.1:1";
    EXPECT_EQ(refusal(login, "Qel_VornBalance"), Cause::Gone);
    login = *TestServer();
    login.useNativeClient = true;
    EXPECT_EQ(refusal(login, "Qel_VornBalance"), Cause::NoDriver) << "the native client's is not registered here";
    login.server = "";
    EXPECT_EQ(refusal(login, "Qel_VornBalance"), Cause::Unknown);
}

INSTANTIATE_TEST_SUITE_P(Embedded, StoreContract, testing::Values(EngineKind::Embedded));
INSTANTIATE_TEST_SUITE_P(Server, StoreContract, testing::Values(EngineKind::Server));
INSTANTIATE_TEST_SUITE_P(Server, ServerContract, testing::Values(EngineKind::Server));

} // namespace
} // namespace pgbp
