#include "startup/shared_services.h"

#include "services/fault.h"
#include "services/fresh_file.h"
#include "services/ini_file.h"
#include "startup/sub_main.h"

#include <utility>

#include <cerrno>
#include <fstream>
#include <sstream>

namespace pgbp {
namespace {

/// Shows the hourglass as long as it lives.
class Hourglass {
  public:
    explicit Hourglass(const Host& host) : host_(host) { host_.hourglass(true); }
    ~Hourglass() { host_.hourglass(false); }
    Hourglass(const Hourglass&) = delete;

  private:
    const Host& host_;
};

std::string ReadEmptyHandOver(const Run& run)
{
    const auto path = run.host.programFolder / "VornTemp.mdb";
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw FileFault(errno, Attempt::Read, path.string());
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Puts a hand-over file, which `write` fills, in the place of the old one. The new file is made whole beside it first,
/// so that a failure leaves the old one.
template <typename Write>
void ReplaceHandOverFile(const Run& run, DataFile file, Write write)
{
    FreshFile fresh(file.path);
    fresh.Write(ReadEmptyHandOver(run));
    file.path = fresh.path();
    write(OpenFile(file));
    fresh.TakePlace();
}

} // namespace

void ShowNotApplicable(const Run& run, const std::string& item, const std::string& who)
{
    run.Show(item + " is only applicable for " + who, "Information", Icon::Exclamation);
}

void CheckPAN(Screen& screen, const std::string& pan)
{
    Run& run = screen.run;
    clsIniFile{run.GlDrive / "vornsite.ini"}.WriteValue("CHALLAN", "PAN", pan);
    const auto program = run.host.programFolder / "vet_pan.exe";
    if (FileExists(program))
        return run.host.processes.Start(program);
    if (!std::exchange(run.knowsNoPanCheck, true))
        run.host.boxes.Show({"Vet_Pan.exe file not found...", ""});
    screen.notice =
        "The PAN check is the suite's program vet_pan.exe. It belongs into " + run.host.programFolder.string();
}

std::string PreviousYearCode(const Run& run)
{
    const Value year = run.company.Scalar("select max(name) as [max] from {misc} where [type] = 'YEAR' and name < ?"
                                          " and exists (select 1 from {misc} where [type] = 'YEAR' and name = ?)",
                                          run.Glyear, run.Glyear);
    const Value client = run.company.Scalar("select company from {assessee1} where code = ?", run.Code());
    if (year.IsNull() || client.IsNull())
        return {};
    return run.company
        .Scalar("select code from {assessee1} where company = ? and [year] = ? order by code", client, year)
        .Text();
}

int RunSibling(const Run& run, std::string_view program)
{
    const Hourglass hourglass(run.host);
    return run.host.processes.RunAndWait(run.host.programFolder / program);
}

void HandOverTo(const Run& run, const HandOver& record, const std::string& program)
{
    ReplaceHandOverFile(run, HandOverFile(run), [&](const Connection& file) { WriteHandOver(file, record); });
    RunSibling(run, program);
}

void WriteOVHandover(const Run& run, const std::string& report, double line, const std::string& status)
{
    HandOver record = run;
    record.GLrep = report;
    record.SpInc = line;
    record.Glstatus = status;
    ReplaceHandOverFile(run, HandOverFile(run, kLinkHandOverFile),
                        [&](const Connection& file) { WriteLinkHandOver(file, record); });
}

} // namespace pgbp
