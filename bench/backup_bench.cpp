// A backup of a practice of 1, 1,000 and 10,000 assessee-years, made, checked and on the disk, beside the bare engine's
// copies of the same files, one after the other, its check of each, and a flush.

#include "practice_of_size.h"
#include "store/files.h"
#include "suite/backup.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

namespace {

using namespace pgbp;

constexpr const char* kFiles[] = {"server/company.mdb", "server/balance.mdb", "server/tax.mdb", "server/misc.mdb",
                                  "server/export1.mdb", "server/export2.mdb", "qel.mmm",        "VornTemp.mdb"};

void CopyAndCheck(const std::filesystem::path& from, const std::filesystem::path& to)
{
    sqlite3 *source = nullptr, *target = nullptr;
    sqlite3_open(from.c_str(), &source);
    sqlite3_open(to.c_str(), &target);
    sqlite3_exec(target, "pragma synchronous = off", nullptr, nullptr, nullptr);
    sqlite3_backup* copy = sqlite3_backup_init(target, "main", source, "main");
    sqlite3_backup_step(copy, -1);
    sqlite3_backup_finish(copy);
    sqlite3_exec(target, "pragma integrity_check(1)", nullptr, nullptr, nullptr);
    sqlite3_close(source);
    sqlite3_close(target);
    const int file = open(to.c_str(), O_RDONLY);
    fsync(file);
    close(file);
}

void BackupFloor(benchmark::State& state)
{
    const auto practice = PracticeOfSize(state);
    const TemporaryFolder target;
    for (auto _ : state)
        for (const char* name : kFiles) {
            const auto to = target.path() / std::filesystem::path(name).filename();
            std::filesystem::remove(to);
            CopyAndCheck(practice / name, to);
        }
}

void Backup(benchmark::State& state)
{
    const auto practice = PracticeOfSize(state);
    for (auto _ : state)
        MakeBackup(practice, Now());
}

void Sizes(benchmark::internal::Benchmark* each) { each->Arg(1)->Arg(1000)->Arg(10000)->UseRealTime(); }

BENCHMARK(BackupFloor)->Apply(Sizes);
BENCHMARK(Backup)->Apply(Sizes);

} // namespace

BENCHMARK_MAIN();
