#include "startup/hand_over.h"

#include "startup/shared_services.h"
#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// A record in which every variable has a value of its own.
HandOver Distinct()
{
    HandOver record;
    int next = 1;
    for (const auto& column : HandOverColumns())
        std::visit(
            [&](auto member) {
                using Held = std::remove_reference_t<decltype(record.*member)>;
                if constexpr (std::is_same_v<Held, std::string>)
                    record.*member = std::to_string(next++);
                else if constexpr (std::is_same_v<Held, bool>)
                    record.*member = true;
                else
                    record.*member = static_cast<Held>(next++);
            },
            column.variable);
    return record;
}

std::string AsText(const HandOver& record, const HandOverColumn& column)
{
    return std::visit([&](auto member) { return Value(record.*member).Text(); }, column.variable);
}

} // namespace

TEST(HandOverRecord, ComesBackColumnByColumn)
{
    EmptyPractice practice;
    const Connection file = practice.File("handover/VornTemp.mdb");
    const HandOver written = Distinct();
    WriteHandOver(file, written);
    HandOver read;
    ASSERT_TRUE(ReadHandOver(file, read));
    for (const auto& column : HandOverColumns())
        if (column.name == "GlProv")
            EXPECT_FALSE(read.GlProv) << "the plain hand-over does not write it";
        else
            EXPECT_EQ(AsText(read, column), AsText(written, column)) << column.name;
    EXPECT_EQ(HandOverColumns().size(), 49U);
}

TEST(HandOverRecord, OfTheLinkHasItsLineAndAllOtherColumns)
{
    EmptyPractice practice;
    practice.handOver = Distinct();
    practice.handOver.GlServer = (practice.folder.path() / "server").string();
    practice.handOver.GlClient = (practice.folder.path() / "client").string();
    pgbp::Run& run = practice.Start();
    run.GlProv = true;
    WriteOVHandover(run, "PL", 17, "");
    HandOver read;
    const Connection file = practice.File("handover/VornOV.mdb");
    ASSERT_TRUE(ReadHandOver(file, read));
    EXPECT_EQ(read.GLrep + ' ' + Value(read.SpInc).Text() + ' ' + read.Glstatus, "PL 17 ");
    EXPECT_FALSE(file.Scalar("select GL88D from {main}").IsNull());
    for (const auto& column : HandOverColumns())
        if (column.name != "GLrep" && column.name != "SpInc" && column.name != "Glstatus") {
            EXPECT_EQ(AsText(read, column), AsText(run, column)) << column.name;
        }
    EXPECT_EQ(practice.File("handover/VornTemp.mdb").Scalar("select Glstatus from {main}").Text(),
              practice.handOver.Glstatus)
        << "the module's own record stays";
    WriteOVHandover(run, "OVLNK", 18, "x");
    ASSERT_TRUE(ReadHandOver(practice.File("handover/VornOV.mdb"), read));
    EXPECT_EQ(read.GLrep + ' ' + Value(read.SpInc).Text() + ' ' + read.Glstatus, "OVLNK 18 x");
}

TEST(HandOverRecord, StaysWhenTheTemplateIsMissing)
{
    EmptyPractice practice;
    pgbp::Run& run = practice.Start();
    std::filesystem::remove(practice.folder.path() / "VornTemp.mdb");
    EXPECT_THROW(HandOverTo(run, run, "VornRep.exe"), std::exception);
    HandOver kept;
    EXPECT_TRUE(ReadHandOver(practice.File("handover/VornTemp.mdb"), kept));
    EXPECT_EQ(kept.Glcode, run.Glcode);
    EXPECT_TRUE(practice.processes.started.empty());
}

TEST(SharedServices, FindThePreviousYear)
{
    EmptyPractice practice;
    const Connection company = practice.Company();
    for (const char* year : {"2023-24", "2021-22", "2022-23"})
        company.Insert("misc", {{"type", "YEAR"}, {"name", year}});
    struct {
        const char* code;
        const char* year;
        int client;
    } const rows[] = {{"A0001r2022-23", "2022-23", 7},
                      {"A0001r2023-24", "2023-24", 7},
                      {"B0002r2022-23", "2022-23", 8},
                      {"C0003r2021-22", "2021-22", 9}};
    for (const auto& row : rows)
        company.Insert("assessee1", {{"code", row.code}, {"company", row.client}, {"year", row.year}});
    pgbp::Run& run = practice.Start();
    struct {
        const char* code;
        const char* year;
        const char* previous;
    } const cases[] = {
        {"A0001r2023-24", "2023-24", "A0001r2022-23"},
        {"A0001r2022-23", "2022-23", ""}, // no assessee-year of 2021-22
        {"C0003r2021-22", "2021-22", ""}, // the first year of the list
        {"A0001r2023-24", "2030-31", ""}, // a year that the list does not hold
        {"X", "2023-24", ""},             // no such assessee-year
    };
    for (const auto& each : cases) {
        run.Glcode = each.code;
        run.Glyear = each.year;
        EXPECT_EQ(PreviousYearCode(run), each.previous) << each.code << ' ' << each.year;
    }
}

TEST(SharedServices, LeaveThePanForTheCheckingProgram)
{
    EmptyPractice practice;
    pgbp::Run& run = practice.Start();
    Screen& screen = *run.screens.OnDisplay();
    CheckPAN(screen, "ABCPE1234X");
    EXPECT_EQ(practice.boxes.Take().text, "Vet_Pan.exe file not found...");
    CheckPAN(screen, "ABCPE1234F");
    EXPECT_TRUE(practice.boxes.shown.empty()) << "told once";
    EXPECT_NE(screen.notice.get().find(practice.folder.path().string()), std::string::npos);
    EXPECT_EQ(practice.folder.Read("handover/vornsite.ini"), "[CHALLAN]\nPAN=ABCPE1234F\n");
    practice.folder.Write("vet_pan.exe", "");
    CheckPAN(screen, "ABCPE1234F");
    EXPECT_EQ(practice.processes.started, std::vector<std::string>{"vet_pan.exe"});
}
