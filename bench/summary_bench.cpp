// The summary in a practice of 1, 1,000 and 100,000 assessee-years: one recompute, one opening of a list, and the write
// of the head of income, each beside the bare prepared statements that touch the same rows.

#include "bare_statements.h"
#include "filled_practice.h"

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;

/// The rows that one recompute of a firm's summary reads.
void PrepareRecompute(BareStatements& bare)
{
    for (const char* sql : {
             "select distinct amt2 from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 is not null",
             "select sno from business where code = ?",
             "select code from business where code = ?",
             "select name3 from main.misc_items where code = ? and Type = 'Fast2018'",
             "select code from business where code = ? and Type = '5'",
             "select amount from tax.system where Type = 'LIC' and date <= '2023-03-31 00:00:00' order by date desc",
             "select * from tax.system where Type = '44AD' and [from] = 2017",
             "select Type, sum(net), sum(net44), sum(loss) from business where code = ? group by Type",
             "select sum(net) from business where code = ? and Type = '9'",
             "select Type, amt1, amt2, amt3, amt4 from business1 where code = ? and (Type = 'LIC' or Type = 'UTI' or "
             "Type = 'SEC' or Type = 'MF' or Type = 'ZADHOC') order by rowid",
             "select amt1, minor from business1 where code = ? and Type = 'LESSINTT' order by rowid",
             "select amt1, minor from business1 where code = ? and Type = 'LESSREMU' order by rowid",
             "select sum(loss) from business where code = ? and Type = '0'",
             "select amt3 from business1 where code = ? and Type = 'PARTINTT' and amt3 <> 0",
         })
        bare.Prepare(sql);
}

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

void WriteHeadFloor(benchmark::State& state)
{
    BareStatements bare(PracticeOf<FilledPractice>(state).Root(), kCode);
    for (const char* sql :
         {"begin", "delete from balance.qelgeneral where code = ? and Type = 'BUSI'",
          "insert into balance.qelgeneral (code, Type, amt1, amt9, amt14) values (?, 'BUSI', 1, 9, 14)", "commit"})
        bare.Prepare(sql);
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

} // namespace

BENCHMARK_MAIN();
