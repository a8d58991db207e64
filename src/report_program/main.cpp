#include "desktop/dialogs.h"
#include "desktop/theme.h"
#include "module/module.h"
#include "report/plain_text.h"
#include "report_program/report_window.h"
#include "report_program/reports.h"
#include "services/fault.h"
#include "services/options.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>
#include <iostream>

namespace {

namespace fs = std::filesystem;
using namespace pgbp;

constexpr const char* kUsage = R"(pgbp-report: the computation of a client on paper

  pgbp-report [--program-folder FOLDER] [--text | --pdf FOLDER | --xls FOLDER | --window] [CODE ...]

Without CODE the client is that of the hand-over record: the module starts the program so, under the name VornRep.exe.
A window shows the pages, prints them and saves them as a PDF or a workbook; without a display, or for several clients,
the report is printed as text. With --pdf or --xls a file for each client, named by PAN and year, is written into
FOLDER; what fails is told behind its code, the others are written, and the exit status is 1. The codes may come one a
line on the standard input, for which "-" stands.

The folder of the practice is the one told, else that from which the program is started as VornRep.exe, else that of
PGBP_PROGRAM_FOLDER. The practice is only read.
)";

constexpr QSize kTitleBar(0, 10 * kUnit);

struct Options {
    fs::path programFolder;
    std::optional<std::string> pdf;
    std::optional<std::string> xls;
    bool text = false;
    bool window = false;
    bool help = false;
    std::vector<std::string> codes;
};

/// A practice holds a link to the program: the practice is then where the link stands.
fs::path FolderOf(const fs::path& started, std::vector<std::string>& words)
{
    if (const auto told = TakeOption(words, "--program-folder"))
        return *told;
    return started.filename() == "VornRep.exe" && started.has_parent_path() ? started.parent_path()
                                                                            : TakeProgramFolder(words);
}

Options ReadOptions(const char* started, std::vector<std::string> words)
{
    Options options;
    options.programFolder = FolderOf(started, words);
    options.pdf = TakeOption(words, "--pdf");
    options.xls = TakeOption(words, "--xls");
    options.text = std::erase(words, "--text") > 0;
    options.window = std::erase(words, "--window") > 0;
    if (std::erase(words, "-") > 0)
        for (std::string code; std::getline(std::cin, code);)
            words.push_back(code);
    options.help = std::ranges::any_of(words, [](const std::string& word) { return word.starts_with('-'); });
    options.codes = std::move(words);
    return options;
}

bool HasDisplay()
{
    const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    return (isSet("DISPLAY") || isSet("WAYLAND_DISPLAY")) && qgetenv("QT_QPA_PLATFORM") != "offscreen";
}

/// Files need no window, and fonts need no display.
int WriteFiles(int argc, char** argv, const Options& options)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const report::Writer write = options.pdf ? report::WriteAsPdf : report::WriteAsWorkbook;
    const fs::path folder = options.pdf ? *options.pdf : *options.xls;
    if (!options.codes.empty())
        return std::min(1, report::WriteAll(options.programFolder, options.codes, folder, write, std::cout));
    fs::create_directories(folder);
    std::cout << write(report::HandedOver(options.programFolder), folder) << '\n';
    return 0;
}

int Print(const Options& options)
{
    if (!options.codes.empty())
        return std::min(1, report::PrintAll(options.programFolder, options.codes, std::cout));
    std::cout << report::PlainText(report::HandedOver(options.programFolder));
    return 0;
}

int ShowWindow(int argc, char** argv, const Options& options)
{
    QApplication application(argc, argv);
    QApplication::setApplicationName("pgbp-report");
    ApplyTheme(application);
    try {
        report::ReportWindow window(options.codes.empty()
                                        ? report::HandedOver(options.programFolder)
                                        : report::ReportOn(options.programFolder, options.codes.front()));
        window.resize(QSize(1100, 900).boundedTo(window.screen()->availableSize() - kTitleBar));
        window.show();
        return QApplication::exec();
    } catch (const std::exception& error) { // who pressed the button sees no standard error
        WindowMessageBoxes("Vorn").Show({PreparersWords(error), "", Icon::Critical});
        throw;
    }
}

int Report(int argc, char** argv)
{
    const Options options = ReadOptions(argv[0], {argv + 1, argv + argc});
    if (options.help) {
        std::cout << kUsage;
        return argc == 2 && argv[1] == std::string_view("--help") ? 0 : 1;
    }
    if (options.pdf || options.xls)
        return WriteFiles(argc, argv, options);
    const bool isForWindow = options.window || (!options.text && options.codes.empty());
    return isForWindow && HasDisplay() ? ShowWindow(argc, argv, options) : Print(options);
}

} // namespace

int main(int argc, char** argv)
try {
    return Report(argc, argv);
} catch (const std::exception& error) {
    std::cerr << "pgbp-report: " << PreparersWords(error) << '\n';
    if (const std::string technical = TechnicalWords(error); !technical.empty())
        std::cerr << technical << '\n';
    return 1;
}
