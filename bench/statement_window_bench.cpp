// One key in an individual's profit and loss account, from the key to the repainted window, beside a minimal window of
// the same toolkit and size that paints itself.

#include "desktop/main_window.h"
#include "desktop/theme.h"
#include "practice_with_statement.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMainWindow>

#include <stdexcept>

namespace {

using namespace pgbp;

/// Knows whether a widget was painted.
class PaintWatch : public QObject {
  public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }

    /// Has the widget's window painted. Throws when it had nothing to paint.
    void Await()
    {
        painted_ = false;
        QApplication::processEvents();
        if (!painted_)
            throw std::runtime_error("Nothing was painted");
    }

  private:
    bool eventFilter(QObject*, QEvent* event) override
    {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

    bool painted_ = false;
};

void ShowWhole(QWidget& window)
{
    window.showMaximized();
    QApplication::processEvents();
}

void WindowKeyFloor(benchmark::State& state)
{
    QMainWindow window;
    auto* label = new QLabel("0.00");
    window.setCentralWidget(label);
    ShowWhole(window);
    PaintWatch watch(*label);
    for (auto _ : state) {
        window.update();
        watch.Await();
    }
}
BENCHMARK(WindowKeyFloor)->Unit(benchmark::kMicrosecond)->UseRealTime();

/// Each key goes to the widget that has the keyboard and replaces the amount.
void WindowKey(benchmark::State& state)
{
    PracticeWithStatement practice(1);
    StatementScreen& form = practice.OpenStatement();
    MainWindow window(*practice.run);
    ShowWhole(window);
    form.Do([&] { form.MSH.EnterCell(PracticeWithStatement::kKeyedLine, kAmount); });
    QApplication::processEvents();
    QWidget* keyboard = window.focusWidget();
    PaintWatch watch(*keyboard);
    int digit = Qt::Key_1;
    for (auto _ : state) {
        form.Do([&] { form.TxtNum.SelectAll(); });
        QKeyEvent key(QEvent::KeyPress, digit, Qt::NoModifier, QString(QChar(digit)));
        QApplication::sendEvent(keyboard, &key);
        watch.Await();
        digit = digit == Qt::Key_9 ? Qt::Key_1 : digit + 1;
    }
    if (form.MSH.Cell(PracticeWithStatement::kKeyedLine, kAmount).size() != 1)
        throw std::runtime_error("The keys did not arrive in the cell");
}
BENCHMARK(WindowKey)->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    ApplyTheme(application);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
