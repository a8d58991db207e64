#pragma once

#include "suite/fill.h"
#include "suite/practice.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace pgbp {

/// The practice of the benchmark's size, made once: the demonstration clients, and that many assessee-years more.
inline std::filesystem::path PracticeOfSize(const benchmark::State& state)
{
    struct Made {
        TemporaryFolder folder;
        explicit Made(int assesseeYears)
        {
            CreatePractice(Root(), PGBP_DATA);
            if (assesseeYears > 1)
                FillPractice(Practice(Root()), PGBP_DATA, assesseeYears);
        }
        std::filesystem::path Root() const { return folder.path() / "practice"; }
    };
    static std::map<long, std::unique_ptr<Made>> made;
    auto& practice = made[state.range(0)];
    if (!practice)
        practice = std::make_unique<Made>(static_cast<int>(state.range(0)));
    return practice->Root();
}

} // namespace pgbp
