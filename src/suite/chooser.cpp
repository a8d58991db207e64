#include "suite/chooser.h"

#include "desktop/captions.h"
#include "desktop/dialogs.h"
#include "desktop/theme.h"
#include "services/fault.h"
#include "suite/chooser_window.h"
#include "suite/practice.h"
#include "suite/years_panel.h"

#include <QApplication>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>

#include <stdexcept>

namespace pgbp {
namespace {

constexpr QSize kTitleBar(0, 10 * kUnit);

bool IsFree(const std::filesystem::path& folder)
{
    return !std::filesystem::exists(folder) || std::filesystem::is_empty(folder);
}

/// Who starts the program for the first time, from an icon, has no practice and perhaps no command line.
bool WantsPractice(const std::filesystem::path& folder)
{
    return WindowMessageBoxes("Vorn").Show({"There is no practice in " + std::filesystem::absolute(folder).string() +
                                                " yet.\nMake one there, with demonstration clients?",
                                            "", Icon::Question, Buttons::YesNo, Answer::Yes}) == Answer::Yes;
}

int ShowWindow(const ChooserPrograms& programs, const std::string& search, const std::string& picture)
{
    const bool isFirst = picture.empty() && IsFree(programs.folder);
    if (isFirst && !WantsPractice(programs.folder))
        return 0;
    if (isFirst || IsPractice(programs.folder))
        programs.ensure();
    ChooserWindow window(programs);
    const QSize usual(1100, 720);
    if (!picture.empty())
        window.resize(usual);
    else if (!window.testAttribute(Qt::WA_Resized)) // the last time left no size
        window.resize(usual.boundedTo(window.screen()->availableSize() - kTitleBar));
    window.Search(Text(search));
    window.show();
    if (picture.empty())
        return QApplication::exec();
    QEventLoop untilAtRest;
    QTimer::singleShot(2 * YearsPanel::kStays, &untilAtRest, &QEventLoop::quit);
    untilAtRest.exec();
    if (!window.grab().save(Text(picture)))
        throw std::runtime_error("The picture " + picture + " cannot be written.");
    return 0;
}

} // namespace

int ShowChooser(int argc, char** argv, const ChooserPrograms& programs, const std::string& search,
                const std::string& picture)
{
    const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
    if (!picture.empty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    else if (!isSet("DISPLAY") && !isSet("WAYLAND_DISPLAY") && !isSet("QT_QPA_PLATFORM"))
        throw std::runtime_error(
            "There is no display for the chooser. \"pgbp-suite --help\" tells what works without.");
    QApplication application(argc, argv);
    QApplication::setApplicationName("pgbp-suite");
    ApplyTheme(application);
    try {
        return ShowWindow(programs, search, picture);
    } catch (const std::exception& error) { // who starts it from an icon sees no standard error
        if (picture.empty())
            WindowMessageBoxes("Vorn").Show({PreparersWords(error), "", Icon::Critical});
        throw;
    }
}

} // namespace pgbp
