// An individual's profit and loss account on its screen, 194 lines and 50 details, in a practice of 1, 1,000 and
// 100,000 assessee-years: one key, opened and saved, each beside what the same result takes at least; exported and
// imported, beside another program's conversion of the same file, as a process from its start to its end.

#include "bare_statements.h"
#include "bare_totals.h"
#include "counted_statements.h"
#include "practice_with_statement.h"

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;

PracticeWithStatement& Practised(const benchmark::State& state) { return PracticeOf<PracticeWithStatement>(state); }

void StatementKeyFloor(benchmark::State& state)
{
    std::array<double, kBareRows + 1> figures{};
    for (std::size_t row = 1; row <= kBareRows; ++row)
        figures[row] = 1000.0 * static_cast<double>(row);
    double key = 0;
    for (auto _ : state) {
        figures[PracticeWithStatement::kKeyedLine] = key = key > 8 ? 1 : key + 1;
        BareTotals(figures.data());
        benchmark::DoNotOptimize(figures);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(StatementKeyFloor)->Arg(1)->UseRealTime();

/// The digit replaces the amount in the editor. Throws when a key reached the store.
void StatementKey(benchmark::State& state)
{
    PracticeWithStatement& practice = Practised(state);
    StatementScreen& form = practice.OpenStatement();
    form.Do([&] { form.MSH.EnterCell(PracticeWithStatement::kKeyedLine, kAmount); });
    char32_t digit = U'1';
    const long before = statementsRun;
    for (auto _ : state) {
        form.TxtNum.SelectAll();
        form.Type(digit);
        digit = digit == U'9' ? U'1' : digit + 1;
    }
    if (statementsRun != before)
        throw std::runtime_error("A key ran statements of the store");
    practice.Leave(form);
}
BENCHMARK(StatementKey)->Arg(1)->UseRealTime();

constexpr const char* kStoredColumns = "name9, name8, amt1, Amt10, name1, name2, code, Type, amt2";

/// The rows of the account and its details, deleted and added again in one commit; then the line is read.
void SaveStatementFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    const std::string columns = kStoredColumns;
    bare.Run("create temp table kept as select " + columns + " from balance.qelgeneral where code = '" + kCode +
             "' and Type in ('NEWPL', 'SNEWPL') and amt2 = 10000000 order by rowid");
    bare.Prepare("begin");
    for (const char* type : {"NEWPL", "SNEWPL"})
        bare.Prepare("delete from balance.qelgeneral where code = ? and Type = '" + std::string(type) +
                     "' and amt2 = 10000000");
    bare.PrepareCopy("select " + columns + " from kept",
                     "insert into balance.qelgeneral (" + columns + ") values (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    bare.Prepare("delete from main.misc_items where code = ? and Type = 'PLNew3_23' and sno = 10000000");
    bare.Prepare("commit");
    bare.Prepare("select * from business where code = ? and sno = 10000000");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveStatementFloor)->Apply(Sizes);

void SaveStatement(benchmark::State& state)
{
    PracticeWithStatement& practice = Practised(state);
    for (auto _ : state) {
        state.PauseTiming();
        StatementScreen& form = practice.OpenStatement();
        state.ResumeTiming();
        form.Click(form.CmdSave);
        state.PauseTiming();
        practice.run->screens.Sweep();
        state.ResumeTiming();
    }
}
BENCHMARK(SaveStatement)->Apply(Sizes);

/// The template and what is stored of this year and of the one before.
void OpenStatementFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    for (const char* sql : {
             "select count(*) from tax.taxaudit where d_type = 'PL_3_2019'",
             "select count(*) from tax.taxaudit where slno = 540 and blocked <> 0",
             "select slno, flag, text_numeric, blocked, head1, head2, s_1, s_2, s_3, s_4, Descr1, Descr2, Descr3, "
             "Descr4 "
             "from tax.taxaudit where d_type = 'PL_3_2019' order by pslno",
             "select amt1, name9, name8 from balance.qelgeneral where code = ? and Type = 'SNEWPL' and "
             "amt2 = 10000000 order by rowid",
             "select amt1, name8, name1, name2, name7, Amt10 from balance.qelgeneral where code = ? and "
             "Type = 'NEWPL' and amt2 = 10000000 order by rowid",
             "select amt1, amt2 from main.misc_items where code = ? and Type = 'PLNew3_23' and sno = 10000000",
             "select amt1, name8 from balance.qelgeneral where code = 'BENCHr2022-23' and "
             "Type = 'NEWPL' order by rowid",
             "select newov from main.setup where code = '*****'",
             kLinkOfBooks,
         })
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenStatementFloor)->Apply(Sizes);

void OpenStatement(benchmark::State& state)
{
    PracticeWithStatement& practice = Practised(state);
    for (auto _ : state) {
        StatementScreen& form = practice.OpenStatement();
        state.PauseTiming();
        practice.Leave(form);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenStatement)->Apply(Sizes);

void ExportStatement(benchmark::State& state)
{
    PracticeWithStatement& practice = Practised(state);
    StatementScreen& form = practice.OpenStatement();
    for (auto _ : state)
        form.Click(form.cmdexport);
    practice.Leave(form);
}
BENCHMARK(ExportStatement)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// Throws when the sheet was not taken whole.
void ImportStatement(benchmark::State& state)
{
    PracticeWithStatement& practice = Practised(state);
    StatementScreen& form = practice.OpenStatement();
    form.Click(form.cmdexport);
    for (auto _ : state)
        form.Click(form.cmdImport);
    if (practice.boxes.shown.back().text != "Process Completed")
        throw std::runtime_error(practice.boxes.shown.back().text);
    practice.Leave(form);
}
BENCHMARK(ImportStatement)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// Another program's conversion of the exported file.
void Converted(benchmark::State& state, const std::string& how)
{
    PracticeWithStatement& practice = Practised(state);
    StatementScreen& form = practice.OpenStatement();
    form.Click(form.cmdexport);
    practice.Leave(form);
    const std::string folder = practice.folder.path().string();
    const std::string line = "cd " + folder + " && HOME=$PWD ssconvert -T " + how + " >/dev/null 2>&1";
    if (std::system(line.c_str()) != 0) // the first run also sets the program up
        return state.SkipWithError("the converter is not installed or failed");
    for (auto _ : state)
        if (std::system(line.c_str()) != 0)
            return state.SkipWithError("the converter failed");
}

void ExportStatementFloor(benchmark::State& state)
{
    Converted(state, "Gnumeric_Excel:excel_biff8 statement.xls converted.xls");
}
BENCHMARK(ExportStatementFloor)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

void ImportStatementFloor(benchmark::State& state) { Converted(state, "Gnumeric_stf:stf_csv statement.xls read.csv"); }
BENCHMARK(ImportStatementFloor)->Arg(1)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    CountStatements();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
