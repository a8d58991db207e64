// Recalculation and block check of a long annexure, beside a bare loop over doubles that does the same arithmetic:
// plain rounding, no decimal text, blocks found in an ordinary hash map. Linear: ten times the rows take ten times as
// long.

#include "annexure/annexure_row.h"
#include "annexure/block_check.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

using namespace pgbp;

/// Which rows belong together: the five groups at two rates each, or every seventh row a block of its own, by a rate
/// or by a group that no other row has, so that there are more blocks the more rows there are.
enum Blocks : std::int64_t { TenBlocks, OwnRates, OwnGroups };

std::vector<AnnexureRow> Rows(std::int64_t count, std::int64_t blocks)
{
    const std::string groups[] = {"Buildings", "Furniture & Fittings", "Machinery & Plant", "Intangible Assets",
                                  "Ships"};
    std::vector<AnnexureRow> rows(static_cast<std::size_t>(count));
    unsigned seed = 1;
    const auto amount = [&] { return static_cast<double>((seed = seed * 1664525 + 1013904223) % 10000000); };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        AnnexureRow& row = rows[i];
        row.name = "Asset " + std::to_string(i);
        const bool isApart = i % 7 == 0;
        row.group = isApart && blocks == OwnGroups ? "Group " + std::to_string(1000000 + i) : groups[i % 5];
        row.rate = !isApart ? 15 : blocks == OwnRates ? 1 + static_cast<double>(i) / 100 : 40;
        row.opening = amount();
        row.purchases1 = amount();
        row.purchases2 = amount();
        row.sales1 = std::floor(amount() / 4);
        row.sales = row.sales1;
        row.isEmpty = false;
    }
    return rows;
}

struct BareBlock {
    double rate = 0, full = 0, half = 0, base1 = 0, base2 = 0;
};

using BareKey = std::pair<std::string_view, double>;
struct BareHash {
    std::size_t operator()(const BareKey& key) const
    {
        return std::hash<std::string_view>()(key.first) ^ std::hash<double>()(key.second);
    }
};

double BareRound(double amount) { return static_cast<double>(static_cast<std::int64_t>(amount + 0.5)); }

double BareAnnexure(std::vector<AnnexureRow>& rows)
{
    std::unordered_map<BareKey, BareBlock, BareHash> blocks;
    for (AnnexureRow& row : rows) {
        const double base1 = row.opening + row.purchases1 - row.sales1;
        const double base2 = row.purchases2 - row.sales2;
        const double full = BareRound(base1 * row.rate / 100);
        const bool fallsShort = full < 0 && row.purchases2 > 0;
        row.depreciation1 = std::max(0.0, full);
        row.depreciation2 = std::max(0.0, BareRound((fallsShort ? base1 + base2 : base2) * row.rate / 200));
        row.depreciation = row.depreciation1 + row.depreciation2 + row.additional1 + row.additional2;
        row.netDepreciation = row.depreciation;
        row.closing = std::max(0.0, row.opening + row.purchases1 + row.purchases2 - row.sales - row.depreciation);
        BareBlock& block = blocks[{row.group, row.rate}];
        block.rate = row.rate;
        block.full += row.depreciation1;
        block.half += row.depreciation2;
        block.base1 += base1;
        block.base2 += base2;
    }
    double differences = 0;
    for (const auto& [key, block] : blocks)
        differences += std::fabs(BareRound(block.rate * block.base1 / 100) - block.full) +
                       std::fabs(BareRound(block.rate / 2 * block.base2 / 100) - block.half);
    return differences;
}

void AnnexureFloor(benchmark::State& state)
{
    auto rows = Rows(state.range(0), state.range(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(BareAnnexure(rows));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(AnnexureFloor)
    ->ArgNames({"rows", "blocks"})
    ->ArgsProduct({{1000, 10000, 100000}, {TenBlocks, OwnRates, OwnGroups}});

void Annexure(benchmark::State& state)
{
    auto rows = Rows(state.range(0), state.range(1));
    int asked = 0;
    for (auto _ : state) {
        RecalculateAnnexure(rows);
        CheckBlockDifference(rows, [&] { return ++asked < 0; });
    }
    benchmark::DoNotOptimize(asked);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Annexure)
    ->ArgNames({"rows", "blocks"})
    ->ArgsProduct({{1000, 10000, 100000}, {TenBlocks, OwnRates, OwnGroups}});

} // namespace

BENCHMARK_MAIN();
