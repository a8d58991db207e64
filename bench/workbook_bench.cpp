// A statement of 197 rows written as a workbook, beside what the converters of other programs take to make the same
// workbook from it, as processes from their start to their end; and read back, beside the writing.

#include "workbook/sample_workbooks.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

namespace {

using namespace pgbp::xls;

constexpr int kRows = 197;

void Written(benchmark::State& state)
{
    const Workbook statement = SampleStatement(kRows);
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteXls(statement));
}
BENCHMARK(Written)->Name("WorkbookWritten/Gnumeric")->Unit(benchmark::kMicrosecond);
BENCHMARK(Written)->Name("WorkbookWritten/LibreOffice")->Unit(benchmark::kMicrosecond);
BENCHMARK(Written)->Name("WorkbookReadFloor")->Unit(benchmark::kMicrosecond);

void WorkbookRead(benchmark::State& state)
{
    const std::string bytes = WriteXls(SampleStatement(kRows));
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadXls(bytes));
}
BENCHMARK(WorkbookRead)->Unit(benchmark::kMicrosecond);

/// The command works in the folder of the statement and makes out/statement.xls.
void WorkbookWrittenFloor(benchmark::State& state, const char* command)
{
    const pgbp::TemporaryFolder folder;
    WriteXlsFile(SampleStatement(kRows), folder.path() / "statement.xls");
    const std::string line =
        "cd " + folder.path().string() + " && mkdir -p out && HOME=$PWD " + command + " >/dev/null 2>&1";
    if (std::system(line.c_str()) != 0) // the first run also sets the program up
        return state.SkipWithError("the converter is not installed or failed");
    for (auto _ : state)
        if (std::system(line.c_str()) != 0)
            return state.SkipWithError("the converter failed");
}
BENCHMARK_CAPTURE(WorkbookWrittenFloor, Gnumeric,
                  "ssconvert -T Gnumeric_Excel:excel_biff8 statement.xls out/statement.xls")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(WorkbookWrittenFloor, LibreOffice,
                  "soffice --headless --convert-to 'xls:MS Excel 97' --outdir out statement.xls")
    ->Unit(benchmark::kMicrosecond)
    ->UseRealTime();

} // namespace

BENCHMARK_MAIN();
