// The process dies at any moment of a write: every time all of it is in the files or nothing, and the next start works.

#include "computation/frmbusinesscal.h"
#include "computation/line_under_test.h"
#include "income/summary_under_test.h"
#include "records/deletion.h"
#include "services/format.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace pgbp;
using namespace std::chrono_literals;

namespace {

constexpr int kRounds = 100; // of each kind
constexpr const char* kCode = "A0001r2023-24";

/// Runs `work` over and over in a process of its own and kills that process at a random moment: from its start, or from
/// the end of its first or second piece of work, up to `longest` later.
void KillDuring(const std::function<void()>& work, std::mt19937& random, std::chrono::milliseconds longest)
{
    int done[2];
    ASSERT_EQ(pipe(done), 0);
    const pid_t child = fork();
    if (child == 0) {
        try {
            while (true) {
                work();
                if (write(done[1], "x", 1) != 1)
                    _exit(1);
            }
        } catch (...) {
            _exit(1);
        }
    }
    close(done[1]);
    char byte = 0;
    for (auto pieces = random() % 3; pieces > 0; --pieces)
        ASSERT_EQ(read(done[0], &byte, 1), 1) << "the writer failed by itself";
    std::this_thread::sleep_for(std::chrono::microseconds(random() % (1000 * longest.count())));
    kill(child, SIGKILL);
    int status = 0;
    waitpid(child, &status, 0);
    close(done[0]);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer failed by itself";
}

/// Rows that hang on a line of business; `number` is the column that tells which line, or any other one.
struct Hanging {
    const Connection pgbp::Run::*file;
    const char* table;
    const char* type;
    const char* number;
};
constexpr Hanging kHanging[] = {
    {&pgbp::Run::company, "business1", "511", "SNO"},
    {&pgbp::Run::company, "capital1", "Sec50", "amt1"},
    {&pgbp::Run::company, "misc_items", "BusOth", "sno"},
    {&pgbp::Run::company, "misc_items", "PGBP1", "sno"},
    {&pgbp::Run::company, "misc_items", "PLNew3_23", "sno"},
    {&pgbp::Run::balance, "qelgeneral", "NEWPL", "amt2"},
    {&pgbp::Run::balance, "fassets", "P", "SNO"},
};
constexpr int kEach = 10;

void PlantLine(const pgbp::Run& run)
{
    Transaction transaction({run.company, run.balance});
    run.company.Insert("business", {{"code", kCode}, {"Type", "1"}, {"SNO", 5}});
    for (const Hanging& rows : kHanging)
        for (int i = 0; i < kEach; ++i)
            (run.*rows.file).Insert(rows.table, {{"code", kCode}, {"Type", rows.type}, {rows.number, 5}});
    transaction.Commit();
}

long Count(const Connection& connection, const std::string& table, const char* type)
{
    return static_cast<long>(
        connection.Scalar("select count(*) from {" + table + "} where code = ? and [Type] = ?", kCode, type).Number());
}

/// What one save of a line wrote, in each place that it writes to: always the same figure, if the save is whole.
struct Figures {
    std::vector<double> inEachPlace;
    std::vector<double> rows; ///< details, annexure, working annexure

    static Figures Read(const EmptyPractice& practice)
    {
        const Connection company = practice.Company();
        const Connection balance = practice.Balance();
        Figures figures;
        const std::pair<const Connection&, const char*> places[] = {
            {company, "select dep2 from {business} where code = ?"},
            {company, "select amt1 from {misc_items} where code = ? and [Type] = 'BusOth'"},
            {company, "select min(amt1) from {business1} where code = ?"},
            {company, "select max(amt1) from {business1} where code = ?"},
            {balance, "select min(F_Dep) from {fassets} where code = ? and sno <> 90000"},
            {balance, "select max(F_Dep) from {fassets} where code = ? and sno <> 90000"},
        };
        for (const auto& [file, sql] : places)
            figures.inEachPlace.push_back(file.Scalar(sql, kCode).Number());
        figures.rows = {
            company.Scalar("select count(*) from {business1} where code = ?", kCode).Number(),
            balance.Scalar("select count(*) from {fassets} where code = ? and sno <> 90000", kCode).Number(),
            balance.Scalar("select count(*) from {fassets} where code = ? and sno = 90000", kCode).Number()};
        return figures;
    }
};

} // namespace

TEST(Killed, WhileTheHeadOfIncomeIsWritten)
{
    std::mt19937 random(11);
    SummaryUnderTest practice;
    practice.Begin(2023, "01");
    practice.run->screens.End();
    practice.run.reset();
    int seen = 0;
    for (int round = 0; round < kRounds; ++round) {
        KillDuring(
            [&, figure = 0]() mutable {
                if (!practice.run)
                    practice.Begin(2023, "01");
                auto& form = static_cast<frmbusiness&>(*practice.run->screens.Find("frmbusiness"));
                form.lbl1.Set(Amount(++figure));
                form.lbltotal.Set(form.lbl1.text());
                form.lbllast.Set(form.lbl1.text());
                form.StoreHeadOfIncome();
            },
            random, 20ms);
        frmbusiness& form = practice.Begin(2023, "01"); // the next start works
        const Recordset heads = practice.run->balance.Query(
            "select amt1, amt9, amt14 from {qelgeneral} where code = ? and [Type] = 'BUSI'", kCode);
        ASSERT_LE(heads.Size(), 1U);
        ASSERT_TRUE(heads.Size() == 1 || seen == 0) << "the row of the last completed write is gone";
        if (heads.Size() == 1) {
            ++seen;
            ASSERT_EQ(heads.First().At(0).Number(), heads.First().At(1).Number());
            ASSERT_EQ(heads.First().At(0).Number(), heads.First().At(2).Number());
        }
        ASSERT_EQ(form.lbltotal.text(), "0.00");
        practice.run.reset();
    }
    EXPECT_GT(seen, kRounds / 2) << "most writers were killed before they wrote anything: the test shows nothing";
}

TEST(Killed, WhileALineIsDeleted)
{
    std::mt19937 random(13);
    SummaryUnderTest practice;
    practice.Begin(2023, "01");
    practice.run.reset();
    int planted = 0;
    int gone = 0;
    for (int round = 0; round < kRounds; ++round) {
        KillDuring(
            [&] {
                if (!practice.run)
                    practice.Begin(2023, "01");
                PlantLine(*practice.run);
                DeleteLine(*practice.run, kNormal, 5);
            },
            random, 20ms);
        // before the next start, which clears cells without a line away
        const long lines = Count(practice.Company(), "business", "1");
        ASSERT_TRUE(lines == 0 || lines == 1);
        for (const Hanging& rows : kHanging) {
            const bool isCompany = rows.file == &pgbp::Run::company;
            const Connection file = isCompany ? practice.Company() : practice.Balance();
            ASSERT_EQ(Count(file, rows.table, rows.type), kEach * lines) << rows.table << ' ' << rows.type;
        }
        (lines == 1 ? planted : gone) += 1;
        practice.Begin(2023, "01");
        DeleteLine(*practice.run, kNormal, 5);
        practice.run.reset();
    }
    EXPECT_GT(planted, 0);
    EXPECT_GT(gone, 0);
}

using KilledLine = LineUnderTest<frmbusinesscal>;

TEST_F(KilledLine, WhileItIsSaved)
{
    std::mt19937 random(17);
    double last = 1;
    Line("1", {{"dep2", last}});
    Company().Insert("misc_items", {{"code", kCode}, {"Type", "BusOth"}, {"sno", kSno}, {"amt1", last}});
    for (int i = 0; i < kEach; ++i) {
        Detail("23l", {{"name2", "Item " + std::to_string(i)}, {"amt1", last}});
        Asset("Machine", last);
    }
    int moved = 0;
    for (int round = 0; round < kRounds; ++round) {
        KillDuring(
            [this, figure = last]() mutable {
                frmbusinesscal& form = OpenScreen();
                ++figure;
                run->qeltemp.Execute("update {temp1} set amt1 = ? where code = ?", figure, kCode);
                run->balance.Execute("update {fassets} set F_Dep = ? where code = ? and sno = 90000", figure, kCode);
                run->GLwhere = 111; // the annexure's screen wrote those rows
                form.Activate();
                form.TxtOth.Set(Amount(figure));
                form.txtlessdep.Set(Amount(figure));
                form.Click(form.header.CmdSave);
                run->screens.Sweep();
            },
            random, 50ms);
        const Figures stored = Figures::Read(*this);
        const double figure = stored.inEachPlace.front();
        ASSERT_GE(figure, last) << "a completed save is gone";
        ASSERT_EQ(stored.inEachPlace, std::vector<double>(stored.inEachPlace.size(), figure));
        ASSERT_EQ(stored.rows[0], kEach);
        ASSERT_EQ(stored.rows[1], kEach);
        moved += figure > last ? 1 : 0;
        last = figure;

        frmbusinesscal& form = OpenScreen(); // the next start works, and the line can be saved again
        form.txtlessdep.Set(Amount(figure));
        form.TxtOth.Set(Amount(figure));
        form.Click(form.header.CmdSave);
        run.reset();
        const Figures again = Figures::Read(*this);
        ASSERT_EQ(again.inEachPlace, stored.inEachPlace);
        ASSERT_EQ(again.rows, (std::vector<double>{kEach, kEach, 0})) << "working rows were left over";
        ASSERT_TRUE(boxes.shown.empty()) << boxes.shown.front().text;
    }
    EXPECT_GT(moved, kRounds / 2) << "most writers were killed before they saved anything: the test shows nothing";
}

TEST(TwoProcesses, TheSecondWriterWaitsAndSucceeds)
{
    SummaryUnderTest practice;
    practice.Begin(2023, "01");
    practice.run.reset();
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const Connection balance = practice.Balance();
        Transaction transaction({balance});
        balance.Insert("qelgeneral", {{"code", "B0002r2023-24"}, {"Type", "BUSI"}});
        const auto written = write(ready[1], "x", 1);
        std::this_thread::sleep_for(std::chrono::milliseconds(400));
        transaction.Commit();
        _exit(written == 1 ? 0 : 1);
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    frmbusiness& form = practice.Begin(2023, "01");
    form.Click(form.CmdBack);
    int status = 0;
    waitpid(other, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(practice.boxes.shown.empty());
    EXPECT_EQ(practice.Balance().Query("select * from {qelgeneral} where [Type] = 'BUSI'").Size(), 2U);
}
