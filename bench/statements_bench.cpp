// One run of the totals of an individual's profit and loss account from 2019 (194 lines, 36 totals; a firm's has 197
// lines and as many totals), after a key stroke: beside a bare loop over doubles that evaluates the same rules. Every
// open line of the statement is filled, with figures of one to nine digits.

#include "bare_totals.h"
#include "statements/statement_totals.h"
#include "statements/totals_rules.h"

#include <benchmark/benchmark.h>

#include <array>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace pgbp;

constexpr std::size_t kRows = kBareRows;

const StatementForm& Form()
{
    static const StatementForm form = OpenStatementForm(2026, 4, StatementKind::ProfitAndLoss);
    return form;
}

StatementTotals Compiled() { return {TotalsRules(TotalsOperation::Cal_Total_4, Form()), kRows}; }

std::array<double, kRows + 1> Figures()
{
    const auto computed = Compiled().ComputedRows();
    const std::set<std::size_t> closed(computed.begin(), computed.end());
    std::array<double, kRows + 1> figures{};
    double figure = 7;
    for (std::size_t row = 1; row <= kRows; ++row) {
        figure = figure < 1e8 ? figure * 7 + 3 : 5;
        figures[row] = closed.contains(row) ? 0 : figure;
    }
    return figures;
}

void TotalsFloor(benchmark::State& state)
{
    auto figures = Figures();
    double key = 0;
    for (auto _ : state) {
        figures[29] = 100000 + (key = key > 9 ? 0 : key + 1);
        BareTotals(figures.data());
        benchmark::DoNotOptimize(figures);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(TotalsFloor);

void Totals(benchmark::State& state)
{
    const auto figures = Figures();
    std::vector<AmountCell> amounts(kRows + 1);
    for (std::size_t row = 1; row <= kRows; ++row)
        if (figures[row] != 0)
            amounts[row].SetRounded(figures[row]);
    const StatementTotals totals = Compiled();
    const std::string keys[] = {"1,00,001", "1,00,002", "1,00,003"};
    std::size_t key = 0;
    for (auto _ : state) {
        amounts[29].SetText(keys[key = (key + 1) % std::size(keys)]);
        totals.Run(amounts);
        benchmark::DoNotOptimize(amounts.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(Totals);

void TotalsCompiled(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Compiled());
}
BENCHMARK(TotalsCompiled);

} // namespace

BENCHMARK_MAIN();
