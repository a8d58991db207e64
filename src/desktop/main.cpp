#include "desktop/dialogs.h"
#include "desktop/main_window.h"
#include "desktop/theme.h"
#include "module/module.h"
#include "startup/sub_main.h"

#include <QApplication>

#include <iostream>

int main(int argc, char** argv)
{
    using namespace pgbp;

    QApplication application(argc, argv);
    QApplication::setApplicationName("pgbp");
    QApplication::setQuitOnLastWindowClosed(false);
    ApplyTheme(application);

    WindowMessageBoxes boxes("Vorn");
    WindowFileDialogs files;
    SystemProcesses processes;
    try {
        Run run({.boxes = boxes,
                 .files = files,
                 .processes = processes,
                 .programFolder = ProgramFolder(),
                 .hourglass = ShowHourglass});
        RegisterScreens(run);
        if (std::string why; !SubMain(run, why)) {
            std::cerr << why << '\n';
            return 0;
        }
        MainWindow window(run);
        boxes.before = [&window] { window.CatchUp(); };
        window.onEnd = [] { QApplication::exit(); }; // quit() would ask the window to close, which asks the screens
        window.showMaximized();
        return QApplication::exec();
    } catch (const std::exception& error) {
        boxes.before = nullptr;
        boxes.Show({error.what(), "", Icon::Critical});
        return 1;
    }
}
