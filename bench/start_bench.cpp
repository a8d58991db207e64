// One start of a window to its first painted summary, and the memory it then holds: printed as "milliseconds
// kilobytes". The floor is a minimal window of the same toolkit. tools/bench.py starts both by turns.

#include "desktop/dialogs.h"
#include "desktop/main_window.h"
#include "desktop/theme.h"
#include "module/module.h"
#include "startup/sub_main.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>

namespace {

long ResidentKilobytes()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "VmRSS:") {
            long kilobytes = 0;
            status >> kilobytes;
            return kilobytes;
        }
    return 0;
}

/// When the process was started: tools/bench.py tells it in nanoseconds of the monotonic clock.
std::chrono::steady_clock::time_point StartOfProcess()
{
    const char* told = std::getenv("PGBP_STARTED_AT");
    return std::chrono::steady_clock::time_point(std::chrono::nanoseconds(told ? std::atoll(told) : 0));
}

/// Shows the window, paints it once and tells what it took since the process was started.
void ShowAndTell(QWidget& window, std::chrono::steady_clock::time_point begin)
{
    window.showMaximized();
    QApplication::processEvents();
    window.grab();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
    std::cout << took.count() << ' ' << ResidentKilobytes() << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    const auto begin = StartOfProcess();
    QApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "minimal") == 0) {
        QMainWindow window;
        window.setCentralWidget(new QLabel("0.00"));
        ShowAndTell(window, begin);
        return 0;
    }
    pgbp::ApplyTheme(application);
    pgbp::WindowMessageBoxes boxes("Vorn");
    pgbp::WindowFileDialogs files;
    pgbp::SystemProcesses processes;
    std::vector<std::string> none;
    pgbp::Run run({boxes, files, processes, pgbp::TakeProgramFolder(none)});
    pgbp::RegisterScreens(run);
    std::string why;
    if (!pgbp::SubMain(run, why))
        return 1;
    pgbp::MainWindow window(run);
    ShowAndTell(window, begin);
    return 0;
}
