// The summary in a practice of 1, 1,000 and 100,000 assessee-years: one recompute, one opening of a list, and the write
// of the head of income, each beside the bare prepared statements that touch the same rows.

#include "bare_statements.h"
#include "filled_practice.h"

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;

void RecomputeFloor(benchmark::State& state)
{
    BareStatements bare(PracticeOf<FilledPractice>(state).Root(), kCode);
    PrepareRecompute(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(RecomputeFloor)->Apply(Sizes);

void Recompute(benchmark::State& state)
{
    frmbusiness& summary = PracticeOf<FilledPractice>(state).Summary();
    for (auto _ : state)
        summary.Activate();
}
BENCHMARK(Recompute)->Apply(Sizes);

/// The list reads its lines, rebuilds them in the working table and reads them back by name.
void OpenListFloor(benchmark::State& state)
{
    BareStatements bare(PracticeOf<FilledPractice>(state).Root(), kCode);
    for (const char* sql :
         {"select * from business where code = ? and Type = '1' order by rowid", "begin",
          "delete from qeltemp.misc where code1 = ?",
          "insert into qeltemp.misc (code1, Name, amt1, amt2, amt3, SNO) select code, name1 || ' ' || "
          "name2, PNL, NET, Minor, SNO from business where code = ? and Type = '1'",
          "commit", "select * from qeltemp.misc where code1 = ? order by name"})
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenListFloor)->Apply(Sizes);

void OpenList(benchmark::State& state)
{
    frmbusiness& summary = PracticeOf<FilledPractice>(state).Summary();
    for (auto _ : state) {
        summary.lines.Open(kNormal);
        summary.lines.Leave();
    }
}
BENCHMARK(OpenList)->Apply(Sizes);

/// The row that the summary of the firm above stores, in one commit.
void PrepareWriteHead(BareStatements& bare)
{
    for (const char* sql : {"begin", "delete from balance.qelgeneral where code = ? and Type = 'BUSI'",
                            "insert into balance.qelgeneral (Type, code, amt1, amt2, amt3, amt4, amt5, amt6, amt7, "
                            "amt8, amt9, Amt10, amt11, amt12, amt13, amt14) values ('BUSI', ?, 750003, 0, 0, 0, 0, 0, "
                            "0, 0, 750003, 100000, 100000, 550003, 0, 550003)",
                            "commit"})
        bare.Prepare(sql);
}

void WriteHeadFloor(benchmark::State& state)
{
    BareStatements bare(PracticeOf<FilledPractice>(state).Root(), kCode);
    PrepareWriteHead(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(WriteHeadFloor)->Apply(Sizes);

void WriteHead(benchmark::State& state)
{
    frmbusiness& summary = PracticeOf<FilledPractice>(state).Summary();
    for (auto _ : state)
        summary.StoreHeadOfIncome();
}
BENCHMARK(WriteHead)->Apply(Sizes);

/// The same commit in a file whose figures do not stand a second time in an index.
void WriteHeadStandingOnceFloor(benchmark::State& state)
{
    const TemporaryFolder folder;
    const auto copy = folder.path() / "practice";
    std::filesystem::copy(PracticeOf<FilledPractice>(state).Root(), copy, std::filesystem::copy_options::recursive);
    BareStatements bare(copy, kCode);
    bare.Run("drop index balance.qelgeneral_figures");
    PrepareWriteHead(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(WriteHeadStandingOnceFloor)->Arg(1)->UseRealTime();
BENCHMARK(WriteHead)->Name("WriteHeadStandingOnce")->Arg(1)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
