#pragma once

#include "income/frmbusiness.h"
#include "module/module.h"
#include "startup/sub_main.h"
#include "store/files.h"
#include "suite/fill.h"
#include "support/empty_practice.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace pgbp {

/// A practice of that many assessee-years around one firm with three lines of business.
class FilledPractice : public EmptyPractice {
  public:
    static constexpr const char* kCode = "BENCHr2023-24";

    explicit FilledPractice(int assesseeYears)
    {
        const auto root = folder.path() / "practice";
        CreatePractice(root, PGBP_DATA);
        if (assesseeYears > 1)
            FillPractice(Practice(root), PGBP_DATA, assesseeYears);
        AddFirm(Practice(root));
        run = std::make_unique<Run>(Host{boxes, files, processes, root});
        RegisterScreens(*run);
        WriteRecord(root);
        SubMain(*run, why);
    }

    frmbusiness& Summary() { return static_cast<frmbusiness&>(*run->screens.Find("frmbusiness")); }
    std::filesystem::path Root() const { return folder.path() / "practice"; }

  private:
    void WriteRecord(const std::filesystem::path& root)
    {
        HandOver record;
        record.Glcode = kCode;
        record.Glyear = "2023-24";
        record.Glstatus = "06";
        record.GlPrCode = "BENCHr2022-23";
        record.GlServer = (root / "server").string();
        record.GlClient = (root / "client").string();
        WriteHandOver(OpenFile({Practice(root).HandOverFile(), {}}), record);
    }

    static void AddFirm(const Practice& practice)
    {
        Transaction transaction({practice.company, practice.balance});
        for (int i = 0; i < 3; ++i) {
            const double sno = 1e7 + i;
            practice.company.Insert("business", {{"code", kCode},
                                                 {"Type", "1"},
                                                 {"SNO", sno},
                                                 {"name1", "Line " + std::to_string(i)},
                                                 {"name2", ""},
                                                 {"PNL", 1000 * i},
                                                 {"NET", 250000.0 + i}});
            practice.balance.Insert("qelgeneral", {{"code", kCode}, {"Type", "NEWPL"}, {"amt1", 255}, {"amt2", sno}});
        }
        for (const char* type : {"LESSINTT", "LESSREMU", "PARTREMU"})
            practice.company.Insert("business1", {{"code", kCode}, {"Type", type}, {"amt1", 100000}});
        transaction.Commit();
    }
};

/// The practice of the benchmark's size, made once.
template <typename Filled>
Filled& PracticeOf(const benchmark::State& state)
{
    static std::map<long, std::unique_ptr<Filled>> practices;
    auto& practice = practices[state.range(0)];
    if (!practice)
        practice = std::make_unique<Filled>(static_cast<int>(state.range(0)));
    return *practice;
}

inline void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1)->Arg(1000)->Arg(100000)->UseRealTime();
}

} // namespace pgbp
