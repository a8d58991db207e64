#include "desktop/main_window.h"
#include "desktop/theme.h"
#include "drive/interpreter.h"
#include "module/module.h"
#include "services/options.h"
#include "startup/sub_main.h"

#include <QApplication>
#include <QDialog>
#include <QPainter>
#include <QPixmap>

#include <fstream>
#include <iostream>
#include <sstream>

namespace {

constexpr const char* kUsage = R"(pgbp-shot: a picture of the module's window in the state that a script leaves it in

  pgbp-shot [--program-folder FOLDER] [--size 1366x768] PICTURE.png [SCRIPT]

Starts the module as pgbp-drive does, runs the commands of SCRIPT, draws the window without a display and writes the
picture. PGBP_THEME=dark and QT_SCALE_FACTOR=1.5 give the dark and the larger one.

)";

struct Options {
    std::filesystem::path programFolder;
    QSize size{1366, 768};
    std::string picture;
    std::string script;
};

Options ReadOptions(const QStringList& arguments)
{
    std::vector<std::string> words;
    for (const QString& argument : arguments.mid(1))
        words.push_back(argument.toStdString());
    Options options;
    options.programFolder = pgbp::TakeProgramFolder(words);
    if (const auto told = pgbp::TakeOption(words, "--size")) {
        const QStringList sides = QString::fromStdString(*told).split('x');
        options.size = QSize(sides.value(0).toInt(), sides.value(1).toInt());
    }
    for (const std::string& word : words)
        (options.picture.empty() ? options.picture : options.script) = word;
    return options;
}

/// The window with the dialogs over it, each under a strip with its title.
QPixmap Picture(QWidget& window)
{
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    for (const QWidget* top : QApplication::topLevelWidgets()) {
        if (!top->isVisible() || !qobject_cast<const QDialog*>(top))
            continue;
        QRect place(QPoint(), top->size());
        place.moveCenter(window.rect().center());
        const QRect strip(place.left(), place.top() - pgbp::RowHeight(), place.width(), pgbp::RowHeight());
        painter.fillRect(strip, pgbp::Theme().line);
        painter.setPen(pgbp::Theme().text);
        painter.drawText(strip.adjusted(pgbp::kPadding, 0, 0, 0), Qt::AlignVCenter, top->windowTitle());
        painter.drawPixmap(place.topLeft(), const_cast<QWidget*>(top)->grab());
        painter.setPen(pgbp::Theme().edge);
        painter.drawRect(strip.united(place).adjusted(0, 0, -1, -1));
    }
    return picture;
}

int Shoot(const Options& options)
{
    std::ostringstream messages;
    pgbp::DrivenBoxes boxes(messages);
    pgbp::DrivenFiles files;
    pgbp::DrivenProcesses processes(messages);
    pgbp::Run run({boxes, files, processes, options.programFolder});
    pgbp::RegisterScreens(run);
    std::string why;
    if (!pgbp::SubMain(run, why))
        throw std::runtime_error(why);
    pgbp::MainWindow window(run);
    window.resize(options.size);
    window.show();
    if (!options.script.empty()) {
        std::ifstream script(options.script);
        if (!script)
            throw std::runtime_error("the script " + options.script + " can not be read");
        pgbp::Interpreter(run, boxes, files, messages).ExecuteScript(script, std::cout);
    }
    window.CatchUp();
    QApplication::processEvents();
    if (!Picture(window).save(QString::fromStdString(options.picture)))
        throw std::runtime_error("the picture " + options.picture + " can not be written");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    try {
        QApplication application(argc, argv);
        pgbp::ApplyTheme(application);
        const Options options = ReadOptions(QApplication::arguments());
        if (!options.picture.empty())
            return Shoot(options);
        std::cerr << kUsage;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return 1;
}
