#pragma once

#include <cstddef>
#include <vector>

namespace pgbp {

/// Lines of an individual's profit and loss account from 2019.
inline constexpr std::size_t kBareRows = 194;

struct BareTerm {
    int from, to;
    double sign;
};
struct BareRule {
    int row;
    std::vector<BareTerm> terms;
};

/// By row.
inline const std::vector<BareRule> kBareRules = {
    {5, {{3, 4, 1}}},
    {8, {{9, 11, 1}}},
    {19, {{13, 18, 1}}},
    {20, {{5, 8, 1}, {19, 19, 1}}},
    {24, {{22, 23, 1}}},
    {25, {{20, 20, 1}, {24, 24, -1}}},
    {34, {{32, 33, 1}}},
    {35, {{29, 30, 1}, {34, 34, 1}}},
    {46, {{38, 45, 1}}},
    {47, {{35, 36, 1}, {46, 46, 1}}},
    {49, {{47, 48, 1}}},
    {52, {{53, 55, 1}}},
    {68, {{57, 67, 1}}},
    {69, {{25, 25, 1}}},
    {70, {{49, 49, 1}, {50, 52, -1}, {68, 69, -1}}},
    {71, {{70, 70, 1}}},
    {86, {{84, 85, 1}}},
    {87, {{73, 82, 1}, {86, 86, 1}}},
    {88, {{71, 71, 1}, {87, 87, 1}}},
    {106, {{96, 105, 1}}},
    {114, {{110, 113, 1}}},
    {124, {{122, 123, 1}}},
    {128, {{126, 127, 1}}},
    {132, {{130, 131, 1}}},
    {154, {{145, 153, 1}}},
    {159, {{157, 158, 1}}},
    {166, {{161, 165, 1}}},
    {169,
     {{88, 88, 1},
      {89, 94, -1},
      {106, 106, -1},
      {114, 120, -1},
      {124, 124, -1},
      {128, 128, -1},
      {132, 143, -1},
      {154, 155, -1},
      {159, 159, -1},
      {166, 168, -1}}},
    {173, {{171, 172, 1}}},
    {175, {{169, 169, 1}, {173, 174, -1}}},
    {178, {{175, 175, 1}, {176, 177, -1}}},
    {180, {{178, 179, 1}}},
    {182, {{180, 180, 1}, {181, 181, -1}}},
    {188, {{186, 186, 1}, {187, 187, -1}}},
    {193, {{191, 191, 1}, {192, 192, -1}}},
    {194, {{188, 188, 1}, {193, 193, 1}}},
};

/// The floor of the account's totals: its rules over doubles, with no texts, no rounding and no grouping.
inline void BareTotals(double* figures)
{
    for (const BareRule& rule : kBareRules) {
        double sum = 0;
        for (const BareTerm& term : rule.terms)
            for (int row = term.from; row <= term.to; ++row)
                sum += term.sign * figures[row];
        figures[rule.row] = sum;
    }
}

} // namespace pgbp
