// What stands beside the lines in a practice of 1, 1,000 and 100,000 assessee-years, saved: registrations under GST,
// commission, shares of associations, shares in a firm's profit. Each beside the bare prepared statements that the same
// result takes in one commit; after commission and shares the summary is shown anew.

#include "bare_statements.h"
#include "filled_practice.h"
#include "schedules/FrmGST.h"

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;
constexpr int kShares = 5;

/// Every entry was saved once: from now on each save replaces the same rows.
class PracticeWithSideEntries : public FilledPractice {
  public:
    explicit PracticeWithSideEntries(int assesseeYears) : FilledPractice(assesseeYears)
    {
        FrmGST& gst = OpenGst();
        for (auto& pair : gst.pairs) {
            pair.gstin = "03AAKFM2931R1Z5";
            pair.turnover = "1000";
        }
        gst.Click(gst.CmdSave);
        LeaveGst(gst);
        OpenCommission();
        for (auto& line : Summary().commission.lines)
            line.field = "10000.00";
        Summary().Click(Summary().commission.cmdsavelic);
        OpenShares();
        AddItems(Summary().shares.txtname, Summary().shares.txtamount, Summary().shares.add);
        Summary().Click(Summary().shares.save);
        OpenProfits();
        AddItems(Summary().shares.profits.TxtDescProfit, Summary().shares.profits.TxtAmtProfit,
                 Summary().shares.profits.add);
        Summary().Click(Summary().shares.profits.save);
    }

    FrmGST& OpenGst()
    {
        run->screens.Show(screens::FrmGST);
        return static_cast<FrmGST&>(*run->screens.OnDisplay());
    }
    void LeaveGst(FrmGST& gst)
    {
        gst.Click(gst.CmdBack);
        run->screens.Sweep();
    }
    void OpenCommission() { Summary().commission.Open(); }
    void OpenShares() { Summary().shares.Open(kAopShares); }
    void OpenProfits() { Summary().shares.profits.Open(); }

  private:
    void AddItems(TextBox& name, TextBox& amount, cmd& add)
    {
        for (int i = 1; i <= kShares; ++i) {
            name.Set("Member " + std::to_string(i));
            amount.Set("25000.00");
            Summary().Click(add);
        }
    }
};

PracticeWithSideEntries& Practised(const benchmark::State& state) { return PracticeOf<PracticeWithSideEntries>(state); }

/// The frame is raised outside of the time.
void SaveFrame(benchmark::State& state, void (PracticeWithSideEntries::*open)(), cmd& (*save)(frmbusiness&))
{
    PracticeWithSideEntries& practice = Practised(state);
    frmbusiness& summary = practice.Summary();
    for (auto _ : state) {
        state.PauseTiming();
        (practice.*open)();
        state.ResumeTiming();
        summary.Click(save(summary));
    }
}

void SaveGstFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    std::string types = "'CGST'";
    for (int i = 2; i <= 20; ++i)
        types += ",'CGST" + std::to_string(i) + '\'';
    bare.Prepare("begin");
    bare.Prepare("delete from main.misc_items where code = ? and Type in (" + types + ')');
    bare.Prepare("insert into main.misc_items (Name1, Amt1, code, Type) values ('03AAKFM2931R1Z5', 1000, ?, 'CGST')",
                 20);
    bare.Prepare("commit");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveGstFloor)->Apply(Sizes);

void SaveGst(benchmark::State& state)
{
    PracticeWithSideEntries& practice = Practised(state);
    FrmGST& gst = practice.OpenGst();
    for (auto _ : state)
        gst.Click(gst.CmdSave);
    practice.LeaveGst(gst);
}
BENCHMARK(SaveGst)->Apply(Sizes);

void SaveCommissionFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    bare.Prepare("begin");
    bare.Prepare("delete from business1 where code = ? and (Type = 'LIC' or Type = 'UTI' or Type = 'SEC' or Type = "
                 "'MF' or Type = 'ZADHOC')");
    bare.Prepare("insert into business1 (name1, amt1, amt2, amt3, amt4, code, Type) values ('Commission from LIC of "
                 "India', 10000, 10000, 10000, 10000, ?, 'LIC')");
    for (const char* type : {"UTI", "SEC", "MF", "ZADHOC"})
        bare.Prepare(std::string("insert into business1 (name1, amt1, code, Type) values ('Commission', 10000, ?, '") +
                     type + "')");
    bare.Prepare("delete from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 = 99999999");
    bare.Prepare("insert into balance.qelgeneral (amt1, name8, name9, code, Type, amt2) values (269, '70000', 'ASdf', "
                 "?, 'NEWPL', 99999999)",
                 5);
    bare.Prepare("commit");
    PrepareRecompute(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveCommissionFloor)->Apply(Sizes);

void SaveCommission(benchmark::State& state)
{
    SaveFrame(state, &PracticeWithSideEntries::OpenCommission,
              [](frmbusiness& summary) -> cmd& { return summary.commission.cmdsavelic; });
}
BENCHMARK(SaveCommission)->Apply(Sizes);

void SaveSharesFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    for (const char* sql :
         {"begin", "select max(SNO) from business",
          "select SNO from business where code = ? and Type = '7' and (minor is null or minor = 0)",
          "delete from business1 where code = ? and Type = 'AOP'", "delete from business where code = ? and Type = '7'",
          "insert into business (code, Type, SNO, name1, name2, PNL, dep1, dep2, turnover, sec44, net44, NET, Minor) "
          "values (?, '7', 20000000, 'Share from AOP/BOI', '', 0, 0, 0, 0, 0, 0, 125000, null)"})
        bare.Prepare(sql);
    bare.Prepare("insert into business1 (name1, amt1, Minor, code, Type, SNO) values ('Member 1', 25000, null, ?, "
                 "'AOP', 20000000)",
                 kShares);
    bare.Prepare("commit");
    PrepareRecompute(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveSharesFloor)->Apply(Sizes);

void SaveShares(benchmark::State& state)
{
    SaveFrame(state, &PracticeWithSideEntries::OpenShares,
              [](frmbusiness& summary) -> cmd& { return summary.shares.save; });
}
BENCHMARK(SaveShares)->Apply(Sizes);

void SaveProfitsFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    bare.Prepare("begin");
    bare.Prepare("delete from main.misc_items where code = ? and Type = 'SPRO'");
    bare.Prepare("insert into main.misc_items (name1, name2, amt1, code, Type) values ('Member 1', null, 25000, ?, "
                 "'SPRO')",
                 kShares);
    bare.Prepare("commit");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveProfitsFloor)->Apply(Sizes);

void SaveProfits(benchmark::State& state)
{
    SaveFrame(state, &PracticeWithSideEntries::OpenProfits,
              [](frmbusiness& summary) -> cmd& { return summary.shares.profits.save; });
}
BENCHMARK(SaveProfits)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
