#include "desktop/dialogs.h"
#include "desktop/main_window.h"
#include "desktop/theme.h"
#include "desktop/window_memory.h"
#include "module/module.h"
#include "startup/sub_main.h"

#include <QApplication>

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kUsage = R"(pgbp: computes the income from business or profession of one client and year

  pgbp [--program-folder FOLDER]

The suite hands the client over and starts the program. The folder in which it finds the suite's settings is FOLDER,
else that of the environment variable PGBP_PROGRAM_FOLDER, else its own. PGBP_THEME=dark gives the dark look,
QT_SCALE_FACTOR=1.5 a larger one. "pgbp-suite" hands a client over by itself, "pgbp-drive" works without a window.
)";

bool AsksForHelp(int argc, char** argv)
{
    return std::any_of(argv + 1, argv + argc, [](std::string_view word) { return word == "--help" || word == "-h"; });
}

/// What stands on the command line beside what is Qt's.
std::filesystem::path FolderOfCommandLine()
{
    std::vector<std::string> words;
    for (const QString& word : QApplication::arguments().mid(1))
        words.push_back(word.toStdString());
    auto folder = pgbp::TakeProgramFolder(words);
    if (!words.empty())
        throw std::runtime_error("unknown option " + words.front() + "; try --help");
    return folder;
}

int RunModule(const std::filesystem::path& programFolder)
{
    using namespace pgbp;

    WindowMessageBoxes boxes("Vorn");
    WindowFileDialogs files;
    SystemProcesses processes;
    try {
        Run run({.boxes = boxes,
                 .files = files,
                 .processes = processes,
                 .programFolder = programFolder,
                 .hourglass = ShowHourglass,
                 .checksFiles = true});
        RegisterScreens(run);
        if (std::string why; !SubMain(run, why)) {
            std::cerr << why << '\n';
            return 0;
        }
        WindowMemory memory;
        MainWindow window(run, &memory);
        boxes.before = [&window] { window.CatchUp(); };
        window.onEnd = [] { QApplication::exit(); }; // quit() would ask the window to close, which asks the screens
        memory.Show(window);
        return QApplication::exec();
    } catch (const std::exception& error) {
        boxes.before = nullptr;
        boxes.Show({PreparersWords(error), "", Icon::Critical});
        return 1;
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (AsksForHelp(argc, argv)) { // also where there is no display
        std::cout << kUsage;
        return 0;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName("pgbp");
    QApplication::setQuitOnLastWindowClosed(false);
    pgbp::ApplyTheme(application);
    try {
        return RunModule(FolderOfCommandLine());
    } catch (const std::exception& error) {
        std::cerr << "pgbp: " << error.what() << '\n';
        return 1;
    }
}
