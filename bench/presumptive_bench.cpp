// A line u/s 44AD with three businesses and the ten carriages of a transport business, in a practice of 1, 1,000 and
// 100,000 assessee-years: a digit typed into the receipts, both opened and saved, each beside the bare prepared
// statements that the same result takes.

#include "bare_statements.h"
#include "computation/frmbusinesscal.h"
#include "counted_statements.h"
#include "filled_practice.h"
#include "schedules/Frm44AENew.h"

#include <stdexcept>

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;
constexpr double kShop = 20000000;
constexpr double kTransport = 20000001;

class PracticeWithDeemedIncome : public FilledPractice {
  public:
    explicit PracticeWithDeemedIncome(int assesseeYears) : FilledPractice(assesseeYears)
    {
        Transaction transaction({run->company, run->balance});
        const auto line = [this](double sno, const char* type, double receipts, double deemed) {
            run->company.Insert("business", {{"code", kCode},
                                             {"Type", type},
                                             {"SNO", sno},
                                             {"name1", "Line"},
                                             {"turnover", receipts},
                                             {"sec44", deemed},
                                             {"net44", deemed}});
        };
        line(kShop, "3", 3000000, 240000);
        line(kTransport, "4", 5000000, 900000);
        for (int i = 0; i < 3; ++i)
            run->company.Insert("business1", {{"code", kCode},
                                              {"SNO", kShop},
                                              {"Type", "44AD"},
                                              {"name1", "Business"},
                                              {"amt1", 1000000},
                                              {"amt2", 8},
                                              {"amt3", 80000}});
        run->company.Insert("misc_items", {{"code", kCode},
                                           {"Type", "PGBP3"},
                                           {"sno", kShop},
                                           {"amt1", 8},
                                           {"amt2", 6},
                                           {"Am3", 3000000},
                                           {"am4", 0},
                                           {"tds", 240000}});
        for (int i = 0; i < 10; ++i)
            run->company.Insert("misc_items", {{"code", kCode},
                                               {"Type", "44AE_N"},
                                               {"Name1", "PB02AX4417"},
                                               {"Name2", "OWN"},
                                               {"Amt1", 9},
                                               {"Amt2", 12},
                                               {"Am3", 90000}});
        transaction.Commit();
    }

    frmbusinesscal& OpenShop()
    {
        run->GlBusinessKind = kPresumptive44AD;
        const Recordset line = run->company.Query("select * from {business} where code = ? and sno = ?", kCode, kShop);
        run->screens.Show(screens::frmbusinesscal,
                          {.caption = "Elegible business u/s 44AD", .business = Record(line.First())});
        return static_cast<frmbusinesscal&>(*run->screens.OnDisplay());
    }
    Frm44AENew& OpenCarriages()
    {
        run->GlBusinessKind = kTransport44AE;
        run->screens.Show(screens::Frm44AENew);
        return static_cast<Frm44AENew&>(*run->screens.OnDisplay());
    }
    void Leave(Form& form, cmd& back)
    {
        form.Click(back);
        run->screens.Sweep();
    }
};

PracticeWithDeemedIncome& Practised(const benchmark::State& state)
{
    return PracticeOf<PracticeWithDeemedIncome>(state);
}

/// What follows from a digit, without the store and without a screen: three profits, their sum, the net profit and the
/// receipts, each as a text.
void DeemedKeyFloor(benchmark::State& state)
{
    double receipts = 1;
    std::string texts[6];
    for (auto _ : state) {
        receipts = receipts > 8 ? 1 : receipts + 1;
        texts[0] = Rupees(receipts * 8 / 100);
        texts[1] = Rupees(0);
        texts[2] = Rupees(0);
        texts[3] = Rupees(Val(texts[0]) + Val(texts[1]) + Val(texts[2]));
        texts[4] = Amount(Val(texts[3]));
        texts[5] = Amount(receipts);
        benchmark::DoNotOptimize(texts);
    }
}
BENCHMARK(DeemedKeyFloor)->Arg(1)->UseRealTime();

/// Throws when a key reached the store.
void DeemedKey(benchmark::State& state)
{
    PracticeWithDeemedIncome& practice = Practised(state);
    frmbusinesscal& form = practice.OpenShop();
    txtn& receipts = form.presumptive.txtrece;
    form.SetFocus(receipts);
    char32_t digit = U'1';
    const long before = statementsRun;
    for (auto _ : state) {
        receipts.SelectAll();
        form.Type(digit);
        digit = digit == U'9' ? U'1' : digit + 1;
    }
    if (statementsRun != before)
        throw std::runtime_error("A key ran statements of the store");
    practice.boxes.answers = {Answer::Yes}; // what was typed is discarded
    practice.Leave(form, form.presumptive.cmdback44ad);
}
BENCHMARK(DeemedKey)->Arg(1)->UseRealTime();

constexpr std::string_view kDetailColumns =
    "code, Type, name1, name2, name3, amt1, amt2, amt3, amt4, AD1, CITY, State, PIN, utn, flag1";

void HoldWorkingTables(BareStatements& bare, const char* sno)
{
    bare.HoldInMemory("temp");
    bare.HoldInMemory("temp1");
    bare.Run("insert into temp1 (" + std::string(kDetailColumns) + ") select " + std::string(kDetailColumns) +
             " from business1 where code = '" + kCode + "' and sno = " + sno);
}

/// The row, its receipts, its businesses and its annexure, in one commit; then the summary is shown anew.
void SaveDeemedFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldWorkingTables(bare, "20000000");
    bare.Prepare("begin");
    bare.Prepare(
        "update business set Type = '3', name1 = 'Line', name2 = '', PNL = 0, dep1 = 0, dep2 = 0, q10abc1 = 0, "
        "q10abc2 = 0, NET = 0, books = 0, turnover = 3000000, sec44 = 240000, net44 = 240000 where code = ? and "
        "sno = 20000000");
    bare.Prepare("delete from business1 where code = ? and sno = 20000000");
    bare.Prepare("delete from main.misc_items where code = ? and sno = 20000000 and Type = 'PGBP3'");
    bare.Prepare("insert into main.misc_items (code, Type, sno, amt1, amt2, Am3, am4, tds, sur, intt, cess, penal) "
                 "values (?, 'PGBP3', 20000000, 8, 6, 3000000, 0, 240000, 0, 0, 0, 0)");
    bare.Prepare("delete from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 = 20000000");
    bare.Prepare("insert into business1 (code, Type, SNO, name1, amt1, amt2, amt3, Minor) values (?, '44AD', 20000000, "
                 "'Business', 1000000, 8, 80000, null)",
                 3);
    bare.Prepare("select * from temp1 where code = ?");
    bare.Prepare("select * from fassets where code = ? and Type = 'P' and sno = 90000");
    bare.Prepare("delete from fassets where code = ? and Type = 'P' and sno = 90000");
    bare.Prepare("commit");
    PrepareRecompute(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveDeemedFloor)->Apply(Sizes);

void SaveDeemed(benchmark::State& state)
{
    PracticeWithDeemedIncome& practice = Practised(state);
    for (auto _ : state) {
        state.PauseTiming();
        frmbusinesscal& form = practice.OpenShop();
        state.ResumeTiming();
        form.Click(form.presumptive.cmdsave44ad);
        state.PauseTiming();
        practice.run->screens.Sweep();
        state.ResumeTiming();
    }
}
BENCHMARK(SaveDeemed)->Apply(Sizes);

constexpr const char* kOfEveryLine[] = {
    "select * from fassets where code = ? and Type = 'P' and sno = 90000",
};

/// Law, the line with all that stands beside it, and its details copied.
void OpenDeemedFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    for (const char* sql : kOfEveryLine)
        bare.Prepare(sql);
    bare.HoldInMemory("temp");
    bare.HoldInMemory("temp1");
    for (const char* sql : {
             "select * from business where code = ? and sno = 20000000",
             "select * from tax.system where Type = '44AD' and [from] = 2024",
             "select * from tax.system where Type = '44ADA' and [from] = 2024 and amount = 30000000",
             "select amount from tax.system where Type = '44AD' and [from] <= 2023 order by [from] desc",
             "select name1, name2 from business where code = ?",
             "select name1, name2 from business where code = 'BENCHr2022-23'",
             "select name1, name2 from business order by rowid desc limit 300",
             "select * from fassets where code = ? and Type = 'P' and sno = 20000000",
             "select * from main.misc_items where code = ? and Type = 'PGBP3' and sno = 20000000 order by rowid",
             "select name1, amt1, amt2, amt3 from business1 where code = ? and Type = '44AD' and sno = 20000000 order "
             "by "
             "rowid",
             "select amt1, name8 from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 = 20000000 order "
             "by "
             "rowid",
             "select amt1 from main.misc_items where code = ? and Type = 'BusOth' and sno = 20000000",
             "select code from business1 where code = ? and Type = 'PARTCHANGE' and sno = 20000000",
             "select name8, amt1 from balance.qelgeneral where code = ? and Type = 'NEWPLA'",
             kLinkOfBooks,
             "begin",
             "delete from [temp] where code = ?",
             "delete from temp1 where code = ?",
         })
        bare.Prepare(sql);
    bare.PrepareCopy(
        "select " + std::string(kDetailColumns) + " from business1 where code = ? and sno = 20000000 order by rowid",
        "insert into temp1 (" + std::string(kDetailColumns) + ") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    bare.Prepare("commit");
    bare.Prepare("select Type, sum(amt1), sum(amt2), sum(amt3), sum(amt3 - amt2) from temp1 where code = ? group by "
                 "Type");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenDeemedFloor)->Apply(Sizes);

void OpenDeemed(benchmark::State& state)
{
    PracticeWithDeemedIncome& practice = Practised(state);
    for (auto _ : state) {
        frmbusinesscal& form = practice.OpenShop();
        state.PauseTiming();
        practice.Leave(form, form.presumptive.cmdback44ad);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenDeemed)->Apply(Sizes);

constexpr const char* kOfCarriages[] = {
    "select * from business where code = ? and Type = '4'",
    "select * from main.misc_items where code = ? and Type = '44AE_N' order by rowid",
    "select * from fassets where code = ? and Type = 'P' and sno = 20000001",
    "select amt1, name8 from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 = 20000001",
    "select code from business1 where code = ? and Type = 'PARTCHANGE' and sno = 20000001",
    "select * from business1 where code = ? and sno = 20000001",
    "delete from [temp] where code = ?",
    "delete from temp1 where code = ?",
    "select sum(amt1) from temp1 where code = ? and Type = 'PARTREMU'",
    "select sum(amt1) from temp1 where code = ? and Type = 'PARTINTT'",
};

void OpenCarriagesFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldWorkingTables(bare, "20000001");
    for (const char* sql : kOfEveryLine)
        bare.Prepare(sql);
    for (const char* sql : kOfCarriages)
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenCarriagesFloor)->Apply(Sizes);

void OpenCarriages(benchmark::State& state)
{
    PracticeWithDeemedIncome& practice = Practised(state);
    for (auto _ : state) {
        Frm44AENew& form = practice.OpenCarriages();
        state.PauseTiming();
        practice.Leave(form, form.CmdBack);
        state.ResumeTiming();
    }
}
BENCHMARK(OpenCarriages)->Apply(Sizes);

/// The carriages and the line in one commit; then the screen reads what is stored.
void SaveCarriagesFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldWorkingTables(bare, "20000001");
    for (const char* sql : {
             "begin",
             "select * from fassets where code = ? and Type = 'P' and sno = 90000",
             "delete from balance.misc_items where code = ? and Type = '44AE'",
             "delete from business1 where code = ? and Type = 'VEH'",
             "delete from main.misc_items where code = ? and Type = '44AE_N'",
         })
        bare.Prepare(sql);
    bare.Prepare("insert into main.misc_items (code, Type, Name1, Name2, Amt1, Amt2, Am3) values (?, '44AE_N', "
                 "'PB02AX4417', 'OWN', 9, 12, 90000)",
                 10);
    for (const char* sql : {
             "select * from business where code = ? and Type = '4'",
             "update business set Type = '4', name1 = 'Transport Business', name2 = '', turnover = 5000000, sec44 = "
             "900000, net44 = 900000, PNL = 0, dep1 = 0, dep2 = 0, q10abc1 = 0, q10abc2 = 0, books = 0, NET = 0 where "
             "code = ? and sno = 20000001",
             "delete from business1 where code = ? and sno = 20000001",
             "select * from temp1 where code = ?",
             "delete from balance.qelgeneral where code = ? and Type = 'NEWPL' and amt2 = 20000001",
             "delete from fassets where code = ? and Type = 'P' and sno = 90000",
             "commit",
             "select * from fassets where code = ? and Type = 'P' and sno = 90000",
         })
        bare.Prepare(sql);
    for (const char* sql : kOfCarriages)
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveCarriagesFloor)->Apply(Sizes);

void SaveCarriages(benchmark::State& state)
{
    PracticeWithDeemedIncome& practice = Practised(state);
    Frm44AENew& form = practice.OpenCarriages();
    for (auto _ : state)
        form.Click(form.CmdSave);
    practice.boxes.shown.clear();
    practice.Leave(form, form.CmdBack);
}
BENCHMARK(SaveCarriages)->Apply(Sizes);

} // namespace

int main(int argc, char** argv)
{
    CountStatements();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
