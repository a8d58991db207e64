#include "report_program/reports.h"

#include "report/computation_reader.h"
#include "report/plain_text.h"
#include "report/workbook_of.h"
#include "report_program/pdf.h"
#include "services/fault.h"
#include "startup/sub_main.h"
#include "suite/assessee_years.h"
#include "suite/client_settings.h"
#include "suite/hand_over_row.h"

namespace pgbp::report {
namespace {

Document DocumentOf(const Practice& practice, const std::string& code)
{
    HandOver record = PrepareHandOver(practice, FindAssesseeYear(practice, code));
    ApplySettings(record, ReadSettings(practice, code));
    ClientCopy copy({practice.folders.program, practice.company, practice.balance, practice.tax}, record,
                    ReturnFormOf(practice.folders.program, code));
    return ReadComputation(copy);
}

} // namespace

Document HandedOver(const std::filesystem::path& programFolder)
{
    SilentBoxes boxes;
    NoFiles files;
    NoProcesses processes;
    Run run({.boxes = boxes, .files = files, .processes = processes, .programFolder = programFolder});
    if (std::string why; !OpenPractice(run, kHandOverFile, why))
        throw Fault(why);
    if (run.Code().empty())
        throw Fault("There is no preceding year of this client in the practice, so there is nothing to report on.");
    ClientCopy copy({programFolder, run.company, run.balance, run.tax}, run, run.GlITR);
    return ReadComputation(copy);
}

Document ReportOn(const std::filesystem::path& programFolder, const std::string& code)
{
    return DocumentOf(Practice(programFolder), code);
}

std::string WriteAsPdf(const Document& document, const std::filesystem::path& folder)
{
    const std::string name = FileName(document) + ".pdf";
    WritePdf(PageLayout(document), folder / name);
    return name;
}

std::string WriteAsWorkbook(const Document& document, const std::filesystem::path& folder)
{
    const std::string name = FileName(document) + ".xls";
    xls::WriteXlsFile(WorkbookOf(document), folder / name);
    return name;
}

int WriteAll(const std::filesystem::path& programFolder, std::span<const std::string> codes,
             const std::filesystem::path& folder, const Writer& write, std::ostream& out)
{
    std::filesystem::create_directories(folder);
    const Practice practice(programFolder);
    int failed = 0;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        out << i + 1 << '/' << codes.size() << ' ' << codes[i] << ' ' << std::flush;
        try {
            out << write(DocumentOf(practice, codes[i]), folder) << std::endl;
        } catch (const std::exception& error) {
            ++failed;
            out << "failed: " << PreparersWords(error) << std::endl;
        }
    }
    return failed;
}

int PrintAll(const std::filesystem::path& programFolder, std::span<const std::string> codes, std::ostream& out)
{
    const Practice practice(programFolder);
    int failed = 0;
    for (const std::string& code : codes)
        try {
            out << PlainText(DocumentOf(practice, code)) << '\n';
        } catch (const std::exception& error) {
            ++failed;
            out << code << " failed: " << PreparersWords(error) << "\n\n";
        }
    return failed;
}

} // namespace pgbp::report
