#include "annexure/block_check.h"

#include "services/format.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pgbp {
namespace {

struct BlockKey {
    std::string_view group;
    double rate;
    bool operator==(const BlockKey&) const = default;
};

struct BlockKeyHash {
    std::size_t operator()(const BlockKey& key) const
    {
        return std::hash<double>()(key.rate) ^ std::hash<std::string_view>()(key.group);
    }
};

/// A block of assets and the sums over its rows.
struct Block {
    AnnexureRow* first;
    double full = 0;
    double half = 0;
    double base1 = 0;
    double base2 = 0;
    std::optional<bool> isEmpty{};

    void Add(const AnnexureRow& row)
    {
        full += row.depreciation1;
        half += row.depreciation2;
        base1 += row.opening + row.purchases1 - row.sales1;
        base2 += row.purchases2 - row.sales2;
        isEmpty = row.isEmpty;
    }
};

std::vector<Block> BlocksOf(std::span<AnnexureRow> rows)
{
    std::vector<Block> blocks;
    std::unordered_map<BlockKey, std::size_t, BlockKeyHash> known;
    for (AnnexureRow& row : rows) {
        const auto [place, isNew] = known.try_emplace({row.group, row.rate}, blocks.size());
        if (isNew)
            blocks.push_back({.first = &row});
        blocks[place->second].Add(row);
    }
    return blocks;
}

/// What the block as a whole is allowed more than its rows have, at the full and at the half rate.
struct Difference {
    double full;
    double half;
};

Difference DifferenceOf(const Block& block)
{
    const bool fallsShort = block.base1 < 0 && block.base2 > 0;
    const double base1 = fallsShort ? 0 : block.base1;
    const double base2 = fallsShort ? block.base1 + block.base2 : block.base2;
    const double rate = block.first->rate;
    return {std::max(0.0, RoundedRupees(rate * base1 / 100)) - ShownRupees(block.full),
            std::max(0.0, RoundedRupees(rate / 2 * base2 / 100)) - ShownRupees(block.half)};
}

void Give(AnnexureRow& row, const Difference& difference)
{
    row.depreciation1 += difference.full;
    row.depreciation2 += difference.half;
    row.depreciation += difference.full + difference.half;
    row.closing -= difference.full + difference.half;
}

} // namespace

void CheckBlockDifference(std::span<AnnexureRow> rows, const std::function<bool()>& ask)
{
    bool corrects = false;
    for (const Block& block : BlocksOf(rows)) {
        const bool isOpen = block.isEmpty.has_value() && !*block.isEmpty;
        if (!isOpen)
            continue;
        const Difference difference = DifferenceOf(block);
        if (difference.full == 0 && difference.half == 0)
            continue;
        corrects = corrects || ask();
        if (corrects)
            Give(*block.first, difference);
    }
}

} // namespace pgbp
