#include "desktop/captions.h"
#include "desktop/form_view.h"
#include "desktop/main_window.h"
#include "records/lines.h"
#include "support/empty_practice.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QTest>

using namespace pgbp;

namespace {

class Windows : public testing::Test {
  protected:
    /// What the window shows on top.
    const FormView& Top()
    {
        QApplication::processEvents();
        return *window->Find(run->screens.OnDisplay());
    }

    void Start()
    {
        practice.handOver.GlLarge = true;
        run = &practice.Start();
        window = std::make_unique<MainWindow>(*run);
        window->onEnd = [this] { ended = true; };
        window->resize(1366, 768);
        window->show();
        QApplication::processEvents();
    }

    EmptyPractice practice;
    pgbp::Run* run = nullptr;
    std::unique_ptr<MainWindow> window;
    bool ended = false;
};

void ExpectSameAsModel(const FormView& view)
{
    for (const Control* control : view.form.controls()) {
        const ControlView* drawn = view.Find(control);
        if (!drawn)
            continue;
        const auto* push = dynamic_cast<const PushControl*>(control);
        EXPECT_EQ(drawn->widget()->isVisible(), control->Shown() && (!push || push->inSight)) << control->name();
        const auto* button = qobject_cast<const QAbstractButton*>(drawn->widget());
        if (!push || !button || push->caption.get().empty())
            continue;
        EXPECT_EQ(PlainCaption(button->text().toStdString()), PlainCaption(push->caption)) << control->name();
        EXPECT_EQ(button->isEnabled() && button->isVisible(), control->Reachable() && push->inSight) << control->name();
    }
}

void ExpectTabOrderOfModel(const FormView& view)
{
    const auto stops = view.form.Stops();
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const QWidget* keyboard = view.Find(view.form.focused())->keyboard();
        const QWidget* proxy = keyboard->focusProxy(); // the line of a drop-down field leaves the focus to the field
        EXPECT_EQ(view.focusWidget(), proxy ? proxy : keyboard);
        QTest::keyClick(view.focusWidget(), Qt::Key_Tab);
    }
}

} // namespace

TEST_F(Windows, ShowEveryScreenAsItsModelIs)
{
    Start();
    std::size_t shown = 1; // frmmdi lies below
    const auto look = [&](const auto& screen) {
        if (screen.text == screens::frmmdi.text)
            return;
        SCOPED_TRACE(screen.text);
        if (!run->screens.Find(screen.text))
            run->screens.ShowModal(screen);
        ++shown;
        const FormView& view = Top();
        EXPECT_TRUE(view.isVisible());
        ExpectSameAsModel(view);
        ExpectTabOrderOfModel(view);
        if (screen.text != screens::frmbusiness.text)
            run->screens.Return();
        QApplication::processEvents();
    };
    std::apply([&](const auto&... screen) { (look(screen), ...); }, screens::kAll);
    EXPECT_EQ(shown, run->screens.Names().size());
}

TEST_F(Windows, FollowTheScreensOfTheRun)
{
    Start();
    const Screen* summary = run->screens.OnDisplay();
    const FormView* page = &Top();
    run->screens.ShowModal(screens::frmReminder);
    const FormView* reminder = &Top();
    EXPECT_NE(page, reminder);
    EXPECT_TRUE(page->isVisible());
    EXPECT_EQ(reminder->window()->windowTitle(), "Reminder   -   (Alt + R)");
    reminder->window()->close();
    QApplication::processEvents();
    EXPECT_EQ(run->screens.OnDisplay(), summary);
    EXPECT_EQ(&Top(), page);
    EXPECT_FALSE(ended);
}

TEST_F(Windows, LeaveTheKeyboardToTheScreenOnDisplay)
{
    Start();
    auto* hidden = dynamic_cast<Form*>(run->screens.OnDisplay());
    run->GlBusinessKind = kNormal;
    run->screens.Show(screens::frmbusinesscal, {.caption = "Normal Business"});
    const FormView& page = Top();
    const QWidget* field = page.Find(page.form.focused())->keyboard();
    EXPECT_EQ(window->focusWidget(), field);
    hidden->caption = "changed by what another screen does";
    QApplication::processEvents();
    EXPECT_EQ(window->focusWidget(), field);
}

TEST_F(Windows, DrawOnceForAKey)
{
    Start();
    run->GlBusinessKind = kNormal;
    run->screens.Show(screens::frmbusinesscal, {.caption = "Normal Business"});
    Top();
    FormView& page = *window->Find(run->screens.OnDisplay());
    page.Act([&] { page.form.SetFocus(*page.form.Find("TxtOth")); });
    Top();
    int drawn = 0;
    page.refreshed.Add([&] { ++drawn; });
    const auto drawnFor = [&](Qt::Key key, Qt::KeyboardModifiers held = {}) {
        drawn = 0;
        QTest::keyClick(page.focusWidget(), key, held);
        Top();
        return drawn;
    };
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_Minus, Qt::Key_Period, Qt::Key_X, Qt::Key_Left, Qt::Key_Backspace,
                              Qt::Key_Return, Qt::Key_Tab, Qt::Key_Up})
        EXPECT_EQ(drawnFor(key), 1) << QKeySequence(key).toString().toStdString();
    EXPECT_EQ(drawnFor(Qt::Key_K, Qt::AltModifier), 1) << "a list opens";
    EXPECT_EQ(drawnFor(Qt::Key_Shift), 0);
    page.form.notice = "changed by itself";
    page.form.caption = "twice";
    drawn = 0;
    Top();
    EXPECT_EQ(drawn, 1);
}

TEST_F(Windows, TakeDownScreensThatStandOverEachOther)
{
    Start();
    run->screens.ShowModal(screens::frmReminder);
    Top();
    run->screens.ShowModal(screens::FrmHelp);
    EXPECT_EQ(Top().window()->parentWidget(), window->Find(run->screens.Find("frmReminder"))->window());
    run->screens.End();
    QApplication::processEvents();
    EXPECT_TRUE(ended);
    EXPECT_TRUE(window->findChildren<QDialog*>().empty());
}

TEST_F(Windows, TellANoticeInTheStatusLineWithoutTakingTheKeyboard)
{
    Start();
    const FormView& page = Top();
    const QWidget* field = window->focusWidget();
    Screen* screen = run->screens.OnDisplay();
    window->Find(screen)->Act([&] { screen->notice = "Verma Gupta Hosiery saved, 20,23,145.00, 10:32"; });
    QApplication::processEvents();
    const auto labels = window->findChildren<QLabel*>();
    const auto line = std::find_if(labels.begin(), labels.end(), [](const QLabel* label) {
        return label->accessibleName() == "Verma Gupta Hosiery saved, 20,23,145.00, 10:32";
    });
    ASSERT_NE(line, labels.end());
    EXPECT_GT((*line)->mapTo(window.get(), QPoint()).y(), page.geometry().bottom());
    const auto stands = [&] {
        const QImage picture = (*line)->grab().toImage();
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < picture.height(); ++y)
                if (picture.pixelColor(x, y).blue() - picture.pixelColor(x, y).red() > 80) // the accent's, not grey
                    return true;
        return false;
    };
    EXPECT_TRUE(QTest::qWaitFor(stands));
    EXPECT_EQ(window->focusWidget(), field);
    window->resize(683, 384);
    EXPECT_TRUE(QTest::qWaitFor([&] { return (*line)->width() >= (*line)->sizeHint().width(); }))
        << "what the header says, too, gives way to it";
}

TEST_F(Windows, TakeKeysThatWereTypedAheadOnTheScreenThatComes)
{
    Start();
    QTest::keyClick(Top().focusWidget(), Qt::Key_R, Qt::AltModifier);
    const QWidget* note = QApplication::activeModalWidget(); // before the event loop has had a turn
    ASSERT_TRUE(note);
    EXPECT_EQ(note->windowTitle(), "Reminder   -   (Alt + R)");
}
