// A line of business with a list of 500 items, five rows of annexure and another amount, in a practice of 1, 1,000 and
// 100,000 assessee-years: opened, saved, a digit typed, its list opened and saved, each beside the bare prepared
// statements that the same result takes.

#include "bare_statements.h"
#include "computation/frmbusinesscal.h"
#include "filled_practice.h"

namespace {

using namespace pgbp;

constexpr const char* kCode = FilledPractice::kCode;
constexpr double kLineSno = 10000000; // the firm's first line
constexpr int kItems = 500;
constexpr int kAssets = 5;

class PracticeWithLine : public FilledPractice {
  public:
    explicit PracticeWithLine(int assesseeYears) : FilledPractice(assesseeYears)
    {
        Transaction transaction({run->company, run->balance});
        for (int i = 0; i < kItems; ++i)
            run->company.Insert("business1", {{"code", kCode},
                                              {"SNO", kLineSno},
                                              {"Type", "23l"},
                                              {"name1", "36(1)(va)"},
                                              {"name2", "Contribution paid in time"},
                                              {"amt1", 1250.5}});
        for (int i = 0; i < kAssets; ++i)
            run->balance.Insert("fassets", {{"code", kCode},
                                            {"Type", "P"},
                                            {"SNO", kLineSno},
                                            {"f_name", "Machine"},
                                            {"f_opbal", 80000},
                                            {"F_Dep", 12000}});
        run->company.Insert("misc_items", {{"code", kCode}, {"Type", "BusOth"}, {"sno", kLineSno}, {"amt1", 700}});
        transaction.Commit();
        run->GlBusinessKind = kNormal;
    }

    frmbusinesscal& OpenLine()
    {
        const Recordset line =
            run->company.Query("select * from {business} where code = ? and sno = ?", kCode, kLineSno);
        run->screens.Show(screens::frmbusinesscal, {.caption = "Normal Business", .business = Record(line.First())});
        return static_cast<frmbusinesscal&>(*run->screens.OnDisplay());
    }

    void LeaveLine()
    {
        auto& form = static_cast<frmbusinesscal&>(*run->screens.OnDisplay());
        form.Click(form.header.CmdBack);
        run->screens.Sweep();
    }
};

PracticeWithLine& Practised(const benchmark::State& state) { return PracticeOf<PracticeWithLine>(state); }

constexpr std::string_view kItemColumns =
    "code, Type, name1, name2, name3, amt1, amt2, amt3, amt4, AD1, CITY, State, PIN, utn, flag1";

std::string SelectItems(const std::string& fromWhere)
{
    return "select " + std::string(kItemColumns) + " from " + fromWhere;
}

/// Takes over what SelectItems gives, into further columns too.
std::string InsertItem(const std::string& table, const std::string& columns = "", const std::string& values = "")
{
    return "insert into " + table + " (" + std::string(kItemColumns) + columns +
           ") values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?" + values + ")";
}

/// The working tables of the line that is open, in memory.
void HoldOpenLine(BareStatements& bare)
{
    bare.HoldInMemory("temp");
    bare.HoldInMemory("temp1");
    bare.Run("insert into temp1 (" + std::string(kItemColumns) + ") " +
             SelectItems("business1 where code = '" + std::string(kCode) + "' and sno = 10000000"));
}

/// What a save changes, the line, its details, the other amount and its annexure, in one commit over both files; then
/// the summary is shown anew.
void SaveLineFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldOpenLine(bare);
    bare.Prepare("begin");
    bare.Prepare(
        "update business set Type = '1', name1 = 'Line 0', name2 = '', PNL = 0, dep1 = 0, dep2 = 60000, q10abc1 = 0, "
        "q10abc2 = 0, NET = -684550, books = 0, turnover = 0, sec44 = 0, net44 = 0 where code = ? and sno = 10000000");
    bare.Prepare("delete from business1 where code = ? and sno = 10000000");
    bare.Prepare("delete from main.misc_items where code = ? and sno = 10000000 and Type = 'BusOth'");
    bare.Prepare("insert into main.misc_items (code, Type, sno, amt1) values (?, 'BusOth', 10000000, 700)");
    bare.PrepareCopy(SelectItems("temp1 where code = ?"), InsertItem("business1", ", SNO, Minor", ", 10000000, null"));
    bare.Prepare("delete from fassets where code = ? and Type = 'P' and sno = 10000000");
    bare.Prepare("insert into fassets (code, Type, SNO, f_name, f_opbal, F_Dep) values (?, 'P', 10000000, 'Machine', "
                 "80000, 12000)",
                 kAssets);
    bare.Prepare("commit");
    PrepareRecompute(bare);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(SaveLineFloor)->Apply(Sizes);

void SaveLine(benchmark::State& state)
{
    PracticeWithLine& practice = Practised(state);
    for (auto _ : state) {
        state.PauseTiming();
        frmbusinesscal& form = practice.OpenLine();
        state.ResumeTiming();
        form.Click(form.header.CmdSave);
        state.PauseTiming();
        practice.run->screens.Sweep();
        state.ResumeTiming();
    }
}
BENCHMARK(SaveLine)->Apply(Sizes);

/// The rows that an opened line shows.
constexpr const char* kItemRows = "business1 where code = ? and sno = 10000000 order by rowid";
constexpr const char* kOtherRows[] = {
    kLinkOfBooks,
    "select * from business where code = ? and sno = 10000000",
    "select * from tax.system where Type = '44AD' and [from] = 2024",
    "select amt1 from main.misc_items where code = ? and Type = 'BusOth' and sno = 10000000",
    "select * from fassets where code = ? and Type = 'P' and sno = 10000000 order by rowid",
    "select name8, amt1 from balance.qelgeneral where code = ? and Type = 'NEWPLA'",
    "select Type, amt1, name8 from balance.qelgeneral where code = ? and (Type = 'NEWPL' or Type = 'NEWINDPL') and "
    "amt2 = 10000000",
};

void OpenLineReadsFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    for (const char* sql : kOtherRows)
        bare.Prepare(sql);
    bare.Prepare(SelectItems(kItemRows));
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenLineReadsFloor)->Apply(Sizes);

/// The same reads, and the working copies: details in memory, annexure in its own file, a commit each.
void OpenLineFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    for (const char* sql : kOtherRows)
        bare.Prepare(sql);
    bare.HoldInMemory("temp");
    bare.HoldInMemory("temp1");
    for (const char* sql : {"begin", "delete from [temp] where code = ?", "delete from temp1 where code = ?"})
        bare.Prepare(sql);
    bare.PrepareCopy(SelectItems(kItemRows), InsertItem("temp1"));
    for (const char* sql : {"commit", "begin", "delete from fassets where code = ? and Type = 'P' and sno = 90000"})
        bare.Prepare(sql);
    bare.Prepare(
        "insert into fassets (code, Type, SNO, f_name, f_opbal, F_Dep) values (?, 'P', 90000, 'Machine', 80000, 12000)",
        kAssets);
    bare.Prepare("commit");
    bare.Prepare("select Type, sum(amt1), sum(amt2), sum(amt3), sum(amt3 - amt2) from temp1 where code = ? "
                 "group by Type");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
    bare.Run("delete from fassets where code = '" + std::string(kCode) + "' and sno = 90000");
}
BENCHMARK(OpenLineFloor)->Apply(Sizes);

void OpenLine(benchmark::State& state)
{
    PracticeWithLine& practice = Practised(state);
    for (auto _ : state) {
        practice.OpenLine();
        state.PauseTiming();
        practice.LeaveLine();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenLine)->Apply(Sizes);
BENCHMARK(OpenLine)->Name("OpenLineReads")->Apply(Sizes);

/// Each list's total read anew from the working table.
void KeystrokeFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldOpenLine(bare);
    for (const char* type : {"511", "560", "23a", "544", "less", "23l", "564", "570", "PARTINTT", "PARTREMU"})
        bare.Prepare("select sum(amt1) from temp1 where code = ? and Type = '" + std::string(type) + '\'');
    bare.Prepare("select sum(amt3 - amt2) from temp1 where code = ? and Type = '568'");
    bare.Prepare("select sum(amt3) from temp1 where code = ? and Type = '35'");
    bare.Prepare("select sum(amt2) from temp1 where code = ? and Type = '10abc'");
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(KeystrokeFloor)->Apply(Sizes);

void Keystroke(benchmark::State& state)
{
    PracticeWithLine& practice = Practised(state);
    frmbusinesscal& form = practice.OpenLine();
    form.SetFocus(form.TxtOth);
    char32_t digit = U'1';
    for (auto _ : state) {
        form.TxtOth.SelectAll();
        form.Type(digit);
        digit = digit == U'9' ? U'1' : digit + 1;
    }
    practice.boxes.answers = {Answer::Yes}; // what was typed is discarded
    practice.LeaveLine();
}
BENCHMARK(Keystroke)->Apply(Sizes);

/// The items are read, offered texts too, and put into the table of the list that is open.
void OpenItemsFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldOpenLine(bare);
    for (const char* sql :
         {"select Type, name1, name2 from business1 where code = ?",
          "select Type, name1, name2 from business1 order by rowid desc limit 300",
          "select * from temp1 where code = ? and Type = '23l' order by rowid", "begin",
          "delete from [temp] where code = ?",
          "insert into [temp] (code, name1, name2, name3, amt1, amt2, amt3, amt4) select code, name1, name2, name3, "
          "amt1, amt2, amt3, amt4 from temp1 where code = ? and Type = '23l'",
          "commit"})
        bare.Prepare(sql);
    for (auto _ : state)
        benchmark::DoNotOptimize(bare.ReadAll());
}
BENCHMARK(OpenItemsFloor)->Apply(Sizes);

void OpenItems(benchmark::State& state)
{
    PracticeWithLine& practice = Practised(state);
    frmbusinesscal& form = practice.OpenLine();
    for (auto _ : state) {
        form.Click(form.cmd23l);
        state.PauseTiming();
        form.Click(form.fra2.back);
        state.ResumeTiming();
    }
    practice.LeaveLine();
}
BENCHMARK(OpenItems)->Apply(Sizes);

void SaveItemsFloor(benchmark::State& state)
{
    BareStatements bare(Practised(state).Root(), kCode);
    HoldOpenLine(bare);
    const std::string moved = "(code, Type, name1, name2, name3, amt1, amt2, amt3, amt4) select code, '23l', name1, "
                              "name2, name3, amt1, amt2, amt3, amt4 from ";
    const std::string fill = "insert into [temp] " + moved + "temp1 where code = '" + kCode + "' and Type = '23l'";
    bare.Prepare("begin");
    bare.Prepare("delete from temp1 where code = ? and Type = '23l'");
    bare.Prepare("insert into temp1 " + moved + "[temp] where code = ?");
    for (const char* sql : {"delete from [temp] where code = ?", "commit",
                            "select Type, sum(amt1) from temp1 where code = ? group by Type"})
        bare.Prepare(sql);
    for (auto _ : state) {
        state.PauseTiming();
        bare.Run(fill);
        state.ResumeTiming();
        benchmark::DoNotOptimize(bare.ReadAll());
    }
}
BENCHMARK(SaveItemsFloor)->Apply(Sizes);

void SaveItems(benchmark::State& state)
{
    PracticeWithLine& practice = Practised(state);
    frmbusinesscal& form = practice.OpenLine();
    for (auto _ : state) {
        state.PauseTiming();
        form.Click(form.cmd23l);
        state.ResumeTiming();
        form.Click(form.fra2.save);
    }
    practice.LeaveLine();
}
BENCHMARK(SaveItems)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
