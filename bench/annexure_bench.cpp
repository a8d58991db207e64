// Recalculation and block check of a long annexure, beside a bare loop over doubles that does the same arithmetic:
// plain rounding, no decimal text, blocks found in an ordinary hash map. Linear: ten times the rows take ten times as
// long.

#include "annexure/annexure_row.h"
#include "annexure/block_check.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace pgbp;

/// Rows of the five groups; every seventh belongs to a block of its own rate, so the blocks grow with the rows.
std::vector<AnnexureRow> Rows(std::int64_t count)
{
    const std::string groups[] = {"Buildings", "Furniture & Fittings", "Machinery & Plant", "Intangible Assets",
                                  "Ships"};
    std::vector<AnnexureRow> rows(static_cast<std::size_t>(count));
    unsigned seed = 1;
    const auto amount = [&] { return static_cast<double>((seed = seed * 1664525 + 1013904223) % 10000000); };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        AnnexureRow& row = rows[i];
        row.name = "Asset " + std::to_string(i);
        row.group = groups[i % 5];
        row.rate = i % 7 == 0 ? 1 + static_cast<double>(i) / 100 : 15;
        row.opening = amount();
        row.purchases1 = amount();
        row.purchases2 = amount();
        row.sales1 = amount() / 4;
        row.sales1 = std::floor(row.sales1);
        row.sales = row.sales1;
        row.isEmpty = false;
    }
    return rows;
}

struct BareBlock {
    double rate = 0, full = 0, half = 0, base1 = 0, base2 = 0;
};

double BareRound(double amount) { return static_cast<double>(static_cast<std::int64_t>(amount + 0.5)); }

/// `blockOf` tells the block of each row beforehand, so the floor pays nothing for finding it.
double BareAnnexure(std::vector<AnnexureRow>& rows, const std::vector<std::size_t>& blockOf,
                    std::vector<BareBlock> blocks)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        AnnexureRow& row = rows[i];
        const double base1 = row.opening + row.purchases1 - row.sales1;
        const double base2 = row.purchases2 - row.sales2;
        const double full = BareRound(base1 * row.rate / 100);
        const bool fallsShort = full < 0 && row.purchases2 > 0;
        row.depreciation1 = std::max(0.0, full);
        row.depreciation2 = std::max(0.0, BareRound((fallsShort ? base1 + base2 : base2) * row.rate / 200));
        row.depreciation = row.depreciation1 + row.depreciation2 + row.additional1 + row.additional2;
        row.netDepreciation = row.depreciation;
        row.closing = std::max(0.0, row.opening + row.purchases1 + row.purchases2 - row.sales - row.depreciation);
        BareBlock& block = blocks[blockOf[i]];
        block.rate = row.rate;
        block.full += row.depreciation1;
        block.half += row.depreciation2;
        block.base1 += base1;
        block.base2 += base2;
    }
    double differences = 0;
    for (const BareBlock& block : blocks)
        differences += std::fabs(BareRound(block.rate * block.base1 / 100) - block.full) +
                       std::fabs(BareRound(block.rate / 2 * block.base2 / 100) - block.half);
    return differences;
}

std::vector<std::size_t> BlockOfEachRow(const std::vector<AnnexureRow>& rows)
{
    std::map<std::pair<std::string, double>, std::size_t> blocks;
    std::vector<std::size_t> blockOf;
    for (const AnnexureRow& row : rows)
        blockOf.push_back(blocks.try_emplace({row.group, row.rate}, blocks.size()).first->second);
    return blockOf;
}

void AnnexureFloor(benchmark::State& state)
{
    auto rows = Rows(state.range(0));
    const auto blockOf = BlockOfEachRow(rows);
    const std::vector<BareBlock> blocks(1 + *std::max_element(blockOf.begin(), blockOf.end()));
    for (auto _ : state)
        benchmark::DoNotOptimize(BareAnnexure(rows, blockOf, blocks));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AnnexureFloor)->Arg(1000)->Arg(10000)->Arg(100000);

void Annexure(benchmark::State& state)
{
    auto rows = Rows(state.range(0));
    int asked = 0;
    for (auto _ : state) {
        RecalculateAnnexure(rows);
        CheckBlockDifference(rows, [&] { return ++asked < 0; });
    }
    benchmark::DoNotOptimize(asked);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Annexure)->Arg(1000)->Arg(10000)->Arg(100000);

} // namespace

BENCHMARK_MAIN();
