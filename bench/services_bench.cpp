// Format beside the standard library's own conversion of a double to two places. Amounts of one to nine digits, as a
// preparer keys them.

#include "services/format.h"

#include <benchmark/benchmark.h>

#include <array>
#include <charconv>
#include <string>
#include <vector>

namespace {

std::vector<double> Amounts()
{
    std::vector<double> amounts;
    double amount = 1.25;
    for (int i = 0; i < 1024; ++i) {
        amounts.push_back(i % 5 == 0 ? -amount : amount);
        amount = amount < 1e8 ? amount * 1.37 + 0.05 : 1.05;
    }
    return amounts;
}

void FormatFloor(benchmark::State& state)
{
    const auto amounts = Amounts();
    std::size_t at = 0;
    for (auto _ : state) {
        std::array<char, 400> digits;
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), amounts[at++ % amounts.size()],
                                       std::chars_format::fixed, 2)
                             .ptr;
        benchmark::DoNotOptimize(std::string(digits.data(), end));
    }
}
BENCHMARK(FormatFloor);

void Format(benchmark::State& state)
{
    const auto amounts = Amounts();
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(pgbp::Format(amounts[at++ % amounts.size()], "###0.00"));
}
BENCHMARK(Format);

} // namespace

BENCHMARK_MAIN();
