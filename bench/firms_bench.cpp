// The firms of a partner in a practice of 1, 1,000 and 100,000 assessee-years: found for the import, and saved, each
// beside the bare prepared statements that the same result takes.

#include "bare_statements.h"
#include "filled_practice.h"
#include "schedules/FrmFirm.h"

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;
constexpr int kFirms = 5;

/// The client of the run has the PAN of a partner of the demonstration firm.
class PartnersPractice : public FilledPractice {
  public:
    explicit PartnersPractice(int assesseeYears) : FilledPractice(assesseeYears)
    {
        run->company.Insert("assessee1",
                            {{"code", kCode}, {"company", -1}, {"year", "2023-24"}, {"pan", "ABQPG4821K"}});
        for (int i = 1; i <= kFirms; ++i)
            run->balance.Insert("qelgeneral", {{"code", kCode},
                                               {"Type", "FIRM"},
                                               {"name1", "Firm " + std::to_string(i)},
                                               {"amt2", 1000},
                                               {"amt3", 240000},
                                               {"amt7", 240000},
                                               {"Amt10", i}});
        OpenFirms().Click(Firms().CmdSave); // from now on each save replaces the same rows
        run->screens.Sweep();
    }

    FrmFirm& OpenFirms()
    {
        run->screens.Show(screens::FrmFirm);
        return Firms();
    }
    FrmFirm& Firms() { return static_cast<FrmFirm&>(*run->screens.OnDisplay()); }
};

void FindFirmsFloor(benchmark::State& state)
{
    BareStatements bare(PracticeOf<PartnersPractice>(state).Root(), kCode);
    bare.Prepare("select pan from assessee1 where code = ?");
    bare.Prepare("select distinct code from business1 where (Type = 'PARTINTT' or Type = 'PARTREMU') and name2 = "
                 "'ABQPG4821K' and substr(code, -7) collate nocase = '2023-24'");
    bare.Prepare("select y.comp_name, y.pan, y.code from assessee1 y, assessee a where y.company = a.company and "
                 "(a.status = '05' or a.status = '06') and a.flag = 1 and y.year = '2023-24' and y.code in "
                 "('1003r2023-24') order by a.comp_name, y.code");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(FindFirmsFloor)->Apply(Sizes);

void FindFirms(benchmark::State& state)
{
    PartnersPractice& practice = PracticeOf<PartnersPractice>(state);
    FrmFirm& form = practice.OpenFirms();
    for (auto _ : state) {
        form.cmdImport.onClick();
        if (form.lists.DBFirm.Rows() != 1)
            state.SkipWithError("another number of firms than the one that names him");
        form.lists.Close();
    }
    form.Click(form.CmdBack);
    practice.run->screens.Sweep();
}
BENCHMARK(FindFirms)->Apply(Sizes);

/// What a save changes, in one commit over both files; then the summary is shown anew.
void SaveFirmsFloor(benchmark::State& state)
{
    BareStatements bare(PracticeOf<PartnersPractice>(state).Root(), kCode);
    for (const char* sql :
         {"begin", "delete from business1 where code = ? and Type = 'PFIRM'",
          "insert into business1 (amt1, code, Type) values (0, ?, 'PFIRM')", "select max(SNO) from business",
          "delete from balance.qelgeneral where code = ? and Type = 'FIRM'",
          "delete from main.misc_items where code = ? and Type = 'SPRO'",
          "delete from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 = 9999999",
          "delete from business1 where code = ? and Type = 'PART'",
          "delete from business where code = ? and Type = '6'"})
        bare.Prepare(sql);
    bare.Prepare(
        "insert into balance.qelgeneral (name1, name2, name3, amt8, Amt10, amt1, amt2, amt3, amt4, amt5, amt6, "
        "amt7, code, Type) values ('Firm 1', '', '0', 240000, 1, 0, 1000, 240000, 0, 0, 0, 240000, ?, 'FIRM')",
        kFirms);
    bare.Prepare("insert into business1 (name1, amt1, Minor, code, Type, SNO) values ('Firm 1', 240000, null, ?, "
                 "'PART', 20000000)",
                 kFirms);
    bare.Prepare("insert into main.misc_items (name1, name2, amt1, code, Type) values ('Firm 1', '', 1000, ?, 'SPRO')",
                 kFirms);
    bare.Prepare("insert into business (code, Type, SNO, name1, name2, PNL, dep1, dep2, turnover, sec44, net44, NET, "
                 "Minor) values (?, '6', 20000000, 'Rem./Intt. from Partnership Firm', '', 0, 0, 0, 0, 0, 0, 1200000, "
                 "null)");
    bare.Prepare("commit");
    PrepareRecompute(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveFirmsFloor)->Apply(Sizes);

void SaveFirms(benchmark::State& state)
{
    PartnersPractice& practice = PracticeOf<PartnersPractice>(state);
    for (auto _ : state) {
        state.PauseTiming();
        FrmFirm& form = practice.OpenFirms();
        state.ResumeTiming();
        form.Click(form.CmdSave);
        state.PauseTiming();
        practice.run->screens.Sweep();
        state.ResumeTiming();
    }
}
BENCHMARK(SaveFirms)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
