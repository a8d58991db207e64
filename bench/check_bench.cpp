// The check of a practice of 1,000 and 100,000 assessee-years, beside the bare prepared statements that read the same
// rows: those of each assessee-year, and which codes stand in each table, two hundred assessee-years locked at a time.

#include "bare_statements.h"
#include "check/practice_check.h"
#include "practice_of_size.h"

#include <benchmark/benchmark.h>

namespace {

using namespace pgbp;

/// Of one assessee-year. Those of a firm's partners are left out: few clients are firms.
void PrepareClient(BareStatements& bare)
{
    for (const char* sql : {
             "select sum(net), sum(net44), sum(loss), Type from business where code = ? group by Type",
             "select sum(net) from business where code = ? and Type = '9'",
             "select Type, amt1, amt2, amt3, amt4 from business1 where code = ? and (Type = 'LIC' or Type = 'UTI' or "
             "Type = 'SEC' or Type = 'MF' or Type = 'ZADHOC') order by rowid",
             "select sum(loss) from business where code = ? and Type = '0'",
             "select amount from tax.system where Type = 'LIC' and date <= '2023-03-31 00:00:00' order by date desc",
             "select amt1, amt2, amt3, amt4, amt5, amt6, amt7, amt8, amt9, Amt10, amt11, amt12, amt13, amt14 from "
             "balance.qelgeneral where code = ? and Type = 'BUSI'",
             "select Type, SNO, name1, name2, PNL, dep1, dep2 from business where code = ? order by rowid",
             "select Type, amt1, name8 from balance.qelgeneral where code = ? and (Type = 'NEWPL' or Type = "
             "'NEWINDPL') and (amt1 = 254 or amt1 = 255 or amt1 = 272 or amt1 = 1166 or amt1 = 7149 or amt1 = 8015) "
             "order by rowid",
             "select f_dep from balance.fassets where code = ? and Type = 'P' order by rowid",
             "select sno, count(*) from business1 where code = ? and sno <> 0 group by sno",
             "select amt2, count(*) from balance.qelgeneral where code = ? and (Type = 'NEWPL' or Type = 'SNEWPL' or "
             "Type = 'NEWINDPL' or Type = 'INDNEWPL') and amt2 <> 0 group by amt2",
             "select sno, count(*) from balance.fassets where code = ? and (Type = 'P') and sno <> 0 group by sno",
             "select sno, count(*) from main.misc_items where code = ? and (Type = 'PLNew3_23' or substr(Type, 1, 4) "
             "collate nocase = 'PGBP' or Type = 'BusOth') and sno <> 0 group by sno",
         })
        bare.Prepare(sql);
}

/// Which codes stand in the tables.
void PrepareCodes(BareStatements& bare)
{
    bare.Prepare("select y.company, y.comp_name, y.pan, y.year, a.status from assessee1 y left join assessee a on "
                 "a.company = y.company order by y.code");
    for (const char* table : {"business", "business1", "main.misc_items", "capital1", "setup", "balance.qelgeneral",
                              "balance.fassets", "balance.compu", "balance.misc_items"})
        bare.Prepare(std::string("select code, count(*) from ") + table + " group by code");
}

std::vector<std::string> CodesOf(const std::filesystem::path& practice)
{
    std::vector<std::string> codes;
    for (const AssesseeYear& year : AssesseeYearsBehind(Practice(practice), "", 1'000'000))
        codes.push_back(year.code);
    return codes;
}

void CheckFloor(benchmark::State& state)
{
    constexpr std::size_t kBatch = 200;
    const std::vector<std::string> codes = CodesOf(PracticeOfSize(state));
    BareStatements client(PracticeOfSize(state), "");
    PrepareClient(client);
    BareStatements all(PracticeOfSize(state), "");
    PrepareCodes(all);
    for (auto _ : state) {
        benchmark::DoNotOptimize(all.ReadAll());
        for (std::size_t i = 0; i < codes.size(); ++i) {
            if (i % kBatch == 0)
                client.Run(i == 0 ? "begin" : "commit; begin");
            client.BindCode(codes[i]);
            benchmark::DoNotOptimize(client.ReadAll());
        }
        client.Run("commit");
    }
}

void Check(benchmark::State& state)
{
    const Practice practice(PracticeOfSize(state));
    long found = 0;
    for (auto _ : state)
        check::CheckPractice(
            practice, [&](const Finding&) { ++found; }, [](long, long) {});
    benchmark::DoNotOptimize(found);
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}
BENCHMARK(CheckFloor)->Apply(Sizes);
BENCHMARK(Check)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
