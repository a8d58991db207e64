// The depreciation annexure on its screen, 500 rows, in a practice of 1, 1,000 and 100,000 assessee-years: opened,
// saved, and taken over from the preceding year, each beside the bare statements of the engine; and a field that is
// left.

#include "annexure/annexure_screen.h"
#include "bare_statements.h"
#include "counted_statements.h"
#include "filled_practice.h"

#include <stdexcept>
#include <string>

namespace {

using namespace pgbp;

constexpr int kAssets = 500;
constexpr const char* kBefore = "BENCHr2022-23";

/// The firm has an annexure of its line, and one of the line of the preceding year.
class PracticeWithAnnexure : public FilledPractice {
  public:
    explicit PracticeWithAnnexure(int assesseeYears) : FilledPractice(assesseeYears)
    {
        Transaction transaction({run->company, run->balance});
        for (const char* code : {kCode, kBefore}) {
            run->company.Insert("assessee1",
                                {{"code", code}, {"company", 4242}, {"year", std::string(code).substr(6)}});
            for (int i = 0; i < kAssets; ++i)
                run->balance.Insert("fassets", {{"code", code},
                                                {"Type", "P"},
                                                {"SNO", code == std::string(kCode) ? 90000 : 77},
                                                {"f_name", "Machine " + std::to_string(i)},
                                                {"U_Desc", "Machinery & Plant"},
                                                {"f_deprate", 15},
                                                {"f_opbal", 1000 * i},
                                                {"f_pur2", 100 * i},
                                                {"f_dep1", 150 * i},
                                                {"F_Dep", 150 * i},
                                                {"f_clbal", 950 * i},
                                                {"f_block", i % 10 == 0}});
        }
        transaction.Commit();
    }

    AnnexureScreen& OpenAnnexure()
    {
        run->screens.Show(screens::frmfassetsNew, {.caption = "Depreciation Annexure"});
        return static_cast<AnnexureScreen&>(*run->screens.OnDisplay());
    }

    void Leave(AnnexureScreen& form)
    {
        boxes.answers = {Answer::Yes};
        form.Click(form.cmdmain);
        boxes.answers.clear();
        run->screens.Sweep();
    }
};

PracticeWithAnnexure& Practised(const benchmark::State& state) { return PracticeOf<PracticeWithAnnexure>(state); }

/// A digit is keyed and the field left, beside 500 rows. Throws when that reached the store.
void AnnexureKey(benchmark::State& state)
{
    PracticeWithAnnexure& practice = Practised(state);
    AnnexureScreen& form = practice.OpenAnnexure();
    const long before = statementsRun;
    for (auto _ : state) {
        form.SetFocus(form.txtopbal);
        form.Type(U'1');
        form.SetFocus(form.txtpur1);
        form.Type(U'2');
    }
    if (statementsRun != before)
        throw std::runtime_error("A key ran statements of the store");
    practice.Leave(form);
}
BENCHMARK(AnnexureKey)->Arg(1)->UseRealTime();

void OpenAnnexureFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), FilledPractice::kCode);
    for (const char* sql :
         {"select max(name) as [max] from main.misc where [type] = 'YEAR' and name < '2023-24' and exists (select 1 "
          "from "
          "main.misc where [type] = 'YEAR' and name = '2023-24')",
          "select company from main.assessee1 where code = ?",
          "select code from main.assessee1 where company = (select company from main.assessee1 where code = ?) "
          "and [year] = '2022-23' order by code",
          "select f_name, f_deprate, f_opbal, f_pur1, f_pur2, f_sales, F_Dep, f_clbal, f_sales1, F_sales2, f_dep1, "
          "f_dep2, "
          "f_add1, f_add2, f_exps, U_Desc, Minor, ded382, netdep, f_block, f_date from balance.fassets where code = ? "
          "and "
          "[Type] = 'P' and SNO = 90000 order by rowid",
          kLinkOfBooks})
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenAnnexureFloor)->Apply(Sizes);

void OpenAnnexure(benchmark::State& state)
{
    PracticeWithAnnexure& practice = Practised(state);
    for (auto _ : state) {
        AnnexureScreen& form = practice.OpenAnnexure();
        state.PauseTiming();
        practice.Leave(form);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenAnnexure)->Apply(Sizes);

/// The rows and the gains of the empty blocks, deleted and added again in one commit.
void SaveAnnexureFloor(benchmark::State& state)
{
    PracticeWithAnnexure& practice = Practised(state);
    AnnexureScreen& form = practice.OpenAnnexure();
    practice.boxes.answers = {Answer::No};
    form.Click(form.CmdSave); // stores all columns
    practice.run->screens.Sweep();
    BareStatements bare(practice.Root(), FilledPractice::kCode);
    const std::string columns =
        "f_name, f_deprate, U_Desc, f_opbal, f_pur1, f_pur2, f_sales, F_Dep, f_clbal, f_sales1, "
        "F_sales2, f_dep1, f_dep2, f_add1, f_add2, f_exps, ded382, netdep, f_block, code, Type, "
        "SNO";
    const std::string gains = "code, Type, name1, amt1, amt2, amt3, date1";
    bare.Run("create temp table kept as select " + columns +
             " from balance.fassets where code = 'BENCHr2023-24' and Type = 'P' and SNO = 90000 order by rowid");
    bare.Run("create temp table gains as select " + gains +
             " from main.capital1 where code = 'BENCHr2023-24' and Type = 'Sec50' order by rowid");
    bare.Prepare("begin");
    bare.Prepare("delete from main.capital1 where code = ? and Type = 'Sec50' and (minor is null or minor = 0)");
    bare.Prepare("delete from balance.fassets where code = ? and Type = 'P' and SNO = 90000");
    bare.PrepareCopy("select " + columns + " from kept",
                     "insert into balance.fassets (" + columns +
                         ") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    bare.PrepareCopy("select " + gains + " from gains",
                     "insert into main.capital1 (" + gains + ") values (?, ?, ?, ?, ?, ?, ?)");
    bare.Prepare("commit");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveAnnexureFloor)->Apply(Sizes);

void SaveAnnexure(benchmark::State& state)
{
    PracticeWithAnnexure& practice = Practised(state);
    for (auto _ : state) {
        state.PauseTiming();
        AnnexureScreen& form = practice.OpenAnnexure();
        practice.boxes.answers = {Answer::No};
        state.ResumeTiming();
        form.Click(form.CmdSave);
        state.PauseTiming();
        practice.run->screens.Sweep();
        state.ResumeTiming();
    }
}
BENCHMARK(SaveAnnexure)->Apply(Sizes);

void ImportYearFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kBefore);
    for (const char* sql : {"select SNO, name1 from business where code = ? and [Type] = '1' order by rowid",
                            "select f_name, f_deprate, f_clbal, U_Desc from balance.fassets where code = ? and [Type] "
                            "= 'P' order by rowid"})
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(ImportYearFloor)->Apply(Sizes);

void ImportYear(benchmark::State& state)
{
    PracticeWithAnnexure& practice = Practised(state);
    AnnexureScreen& form = practice.OpenAnnexure();
    for (auto _ : state)
        form.Click(form.Command1);
    if (form.DBGrid1.Rows() != kAssets || form.DBGrid1.Cell(2, 2) != "950")
        throw std::runtime_error("The preceding year did not come over");
    practice.Leave(form);
}
BENCHMARK(ImportYear)->Apply(Sizes);

} // namespace

int main(int argc, char** argv)
{
    CountStatements();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
