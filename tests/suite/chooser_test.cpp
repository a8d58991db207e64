#include "suite/check_window.h"
#include "suite/chooser_window.h"
#include "suite/new_practice.h"

#include "desktop/captions.h"
#include "desktop/theme.h"
#include "store/files.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <gtest/gtest.h>

#include <fstream>

namespace pgbp {
namespace {

/// The window on a new practice, with a script in the place of the module.
class Chooser : public testing::Test {
  protected:
    Chooser()
    {
        Write("exit 0");
        window.show();
        QApplication::processEvents();
    }
    void Write(const std::string& script, const std::string& name = "module")
    {
        scripts.Write(name, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(scripts.path() / name, std::filesystem::perms::owner_all);
    }
    std::filesystem::path Module() const { return scripts.path() / "module"; }
    std::filesystem::path Reporter() const { return scripts.path() / "reporter"; }
    void WriteReporter(const std::string& script) { Write(script, "reporter"); }
    std::filesystem::path Checker() const { return scripts.path() / "checker"; }
    QTableView& Table() { return *window.findChild<QTableView*>(); }
    QString Cell(int row, int column) { return Table().model()->index(row, column).data().toString(); }
    /// The message below the list.
    QString Message() { return window.findChild<QLabel*>("message")->text(); }
    QLineEdit& Search() { return *window.findChild<QLineEdit*>(); }
    QPushButton& Button(const QString& caption)
    {
        for (auto* button : window.findChildren<QPushButton*>())
            if (button->text() == caption)
                return *button;
        throw std::out_of_range(caption.toStdString());
    }
    /// What stands where no row is found; empty while it is hidden.
    QString Empty()
    {
        const auto* label = Table().viewport()->findChild<QLabel*>();
        return label->isVisible() ? label->text() : "";
    }
    /// Presses the button and works in the dialog that it opens.
    void InDialog(const QString& button, const std::function<void(QDialog&)>& work)
    {
        bool opened = false;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isActiveWindow() || !dialog->focusWidget())
                return;
            timer.stop();
            opened = true;
            work(*dialog);
            if (dialog->isVisible()) {
                ADD_FAILURE() << "the dialog stayed open";
                dialog->reject();
            }
        });
        timer.start(5);
        QTest::mouseClick(&Button(button), Qt::LeftButton);
        EXPECT_TRUE(opened);
    }
    void WaitFor(const QString& words)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Message().contains(words); }, 5000))
            << Message().toStdString() << " instead of " << words.toStdString();
    }

    NewPractice folder;
    TemporaryFolder scripts;
    ChooserWindow window{{folder.folder(), Module(), Reporter(), Checker()}};
};

TEST_F(Chooser, FindsByTypingAndWalksWithTheArrows)
{
    EXPECT_EQ(Table().model()->rowCount(), folder.Open().company.Scalar("select count(*) from {assessee1}").Number());
    QTest::keyClicks(&Search(), "2 hosiery");
    ASSERT_EQ(Table().model()->rowCount(), 3);
    EXPECT_EQ(Cell(0, YearList::Year), "2023-24");
    QTest::keyClick(&Search(), Qt::Key_Down);
    EXPECT_EQ(Table().currentIndex().row(), 1);
    EXPECT_EQ(Cell(1, YearList::Head), "11,77,397.00");
    EXPECT_EQ(Cell(0, YearList::Head), "not written yet");
    EXPECT_EQ(Empty(), "");
    Search().setText("nobody");
    EXPECT_EQ(Table().model()->rowCount(), 0);
    EXPECT_TRUE(Empty().contains("\"nobody\"")) << Empty().toStdString();
    EXPECT_FALSE(Button("&Open").isEnabled());
    QTest::keyClick(&Search(), Qt::Key_Return);
    EXPECT_EQ(Message(), "");
}

TEST_F(Chooser, EnterWalksADialogToItsButton)
{
    InDialog("&New Client ...", [&](QDialog& dialog) {
        for (const char* text : {"Das & Sons", "aaffd1234k", "", "Plot 4", "Pune", "", ""}) {
            QTest::keyClicks(QApplication::focusWidget(), text);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
            EXPECT_TRUE(dialog.isVisible());
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(Cell(Table().currentIndex().row(), YearList::Client), "Das & Sons");
    EXPECT_EQ(Cell(Table().currentIndex().row(), YearList::Kind), "Firm (business)");
    EXPECT_EQ(folder.Open().company.Scalar("select city_o from {assessee} where pan = 'AAFFD1234K'").Text(), "Pune");

    InDialog("Add &Year ...", [&](QDialog& dialog) { // which he has already
        dialog.findChild<QComboBox*>()->setCurrentText("2026-27");
        for (int key = 0; key < 3; ++key)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(std::ranges::any_of(dialog.findChildren<QLabel*>(),
                                        [](QLabel* label) { return label->text().contains("has the year 2026-27"); }));
        dialog.reject();
    });
}

TEST_F(Chooser, SettingsAreKeyedInADialogAndGoIntoTheRun)
{
    window.Search("1003r2023-24");
    InDialog("Client Se&ttings ...", [&](QDialog& dialog) {
        const auto boxes = dialog.findChildren<QCheckBox*>();
        ASSERT_EQ(boxes.size(), 3); // no Ind AS and no section 11(4) for a firm
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), boxes[0]);
        QTest::keyClick(boxes[0], Qt::Key_Space);
        QTest::keyClick(boxes[0], Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), boxes[1]);
        QTest::keyClick(boxes[1], Qt::Key_Return);
        QTest::keyClick(boxes[2], Qt::Key_Space);
        QTest::keyClick(boxes[2], Qt::Key_Return);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    EXPECT_TRUE(folder.Open().company.Scalar("select auto_rem from {setup} where code = '1003r2023-24'").Flag());
    window.Open();
    WaitFor("ended without writing");
    HandOver record;
    ReadHandOver(OpenFile({folder.Open().HandOverFile(), {}}), record);
    EXPECT_EQ(record.GLlock, 1);
    EXPECT_TRUE(record.GlLarge);
}

TEST_F(Chooser, TellsWhyTheModuleEnded)
{
    struct Case {
        const char* script;
        const char* message;
    };
    constexpr Case kCases[] = {
        {"exit 0", "ended without writing the head of income of 1001r2022-23"},
        {"echo Login failed >&2", "of 1001r2022-23. Login failed"},
        {"exit 1", "ended with a failure. The head of income stays as it was"},
        {"kill -9 $$", "ended with a failure"},
        {"touch \"$PGBP_PROGRAM_FOLDER/server/balance.mdb\"", "ended without writing the head of income"},
    };
    window.Search("1001r2022");
    for (const auto& [script, message] : kCases) {
        Write(script);
        window.Open();
        WaitFor(message);
    }
    std::filesystem::remove(Module());
    window.Open();
    WaitFor("could not be started");
}

/// The dialog of reports with what it tells.
struct Reports {
    explicit Reports(QDialog& itsDialog) : dialog(itsDialog) {}
    QPushButton& Button(const QString& caption)
    {
        for (auto* button : dialog.findChildren<QPushButton*>())
            if (button->text() == caption)
                return *button;
        throw std::out_of_range(caption.toStdString());
    }
    bool Tells(const QString& words)
    {
        return QTest::qWaitFor(
            [&] {
                for (auto* label : dialog.findChildren<QLabel*>())
                    if (label->text().contains(words))
                        return true;
                return false;
            },
            5000);
    }
    QListWidget& Failures() { return *dialog.findChild<QListWidget*>(); }
    QProgressBar& Progress() { return *dialog.findChild<QProgressBar*>(); }

    QDialog& dialog;
};

TEST_F(Chooser, WritesTheReportsOfAllListedAndTellsWhatFailed)
{
    window.Search("2023-24 hosiery");
    window.Search("1003r");
    WriteReporter("echo noise of a library >&2; n=0; while read code; do n=$((n+1)); case $code in "
                  "*2022*) echo \"$n/3 $code failed: no space\";; *) echo \"$n/3 $code file.pdf\";; esac; done; "
                  "echo \"$@\" > \"$(dirname \"$0\")/arguments\"; exit 1");
    InDialog("&Reports ...", [&](QDialog& dialog) {
        Reports reports(dialog);
        dialog.findChildren<QComboBox*>()[0]->setCurrentIndex(1);
        dialog.findChild<QLineEdit*>()->setText("/some/folder");
        QTest::mouseClick(&reports.Button("&Write"), Qt::LeftButton);
        EXPECT_TRUE(reports.Tells("2 of 3 reports stand in /some/folder"));
        EXPECT_EQ(reports.Progress().value(), 3);
        ASSERT_EQ(reports.Failures().count(), 1);
        EXPECT_EQ(reports.Failures().item(0)->text(), "1003r2022-23: no space");
        QTest::mouseClick(&reports.Button("&Close"), Qt::LeftButton);
    });
    std::ifstream arguments(scripts.path() / "arguments");
    std::string told;
    std::getline(arguments, told);
    EXPECT_EQ(told, "--program-folder " + folder.folder().string() + " --pdf /some/folder -");
}

TEST_F(Chooser, ReportsAreCancelledByEscape)
{
    window.Search("1003r2023-24");
    WriteReporter("echo '1/1 1003r2023-24 '; exec sleep 60");
    InDialog("&Reports ...", [&](QDialog& dialog) {
        Reports reports(dialog);
        QTest::mouseClick(&reports.Button("&Write"), Qt::LeftButton);
        EXPECT_TRUE(QTest::qWaitFor([&] { return reports.Progress().value() == 1; }, 5000));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_TRUE(reports.Tells("Cancelled: "));
        EXPECT_TRUE(dialog.isVisible());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    WriteReporter("echo The practice is locked. >&2; exit 1");
    InDialog("&Reports ...", [&](QDialog& dialog) {
        Reports reports(dialog);
        QTest::mouseClick(&reports.Button("&Write"), Qt::LeftButton);
        EXPECT_TRUE(reports.Tells("0 of 1 reports"));
        ASSERT_EQ(reports.Failures().count(), 1);
        EXPECT_EQ(reports.Failures().item(0)->text(), "The practice is locked.");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    std::filesystem::remove(Reporter());
    InDialog("&Reports ...", [&](QDialog& dialog) {
        Reports reports(dialog);
        QTest::mouseClick(&reports.Button("&Write"), Qt::LeftButton);
        EXPECT_TRUE(reports.Tells("0 of 1 reports"));
        ASSERT_EQ(reports.Failures().count(), 1);
        EXPECT_TRUE(reports.Failures().item(0)->text().contains("could not be started"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(Chooser, ControlPShowsTheComputationOfTheMarkedClient)
{
    WriteReporter("echo \"$@\" > \"$(dirname \"$0\")/arguments.new\"; cd \"$(dirname \"$0\")\"; "
                  "mv arguments.new arguments");
    window.Search("1003r2022-23");
    QTest::keyClick(&Search(), Qt::Key_P, Qt::ControlModifier);
    const auto noted = scripts.path() / "arguments";
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(noted); }, 5000));
    std::ifstream arguments(noted);
    std::string told;
    std::getline(arguments, told);
    EXPECT_EQ(told, "--program-folder " + folder.folder().string() + " --window 1003r2022-23");
}

class ChooserWithCheck : public Chooser {
  protected:
    QWidget& Check() const { return *window.findChild<QWidget*>("check"); }
    QTableView& Found() const { return *Check().findChild<QTableView*>(); }
    QString Cell(int row, int column) const { return Found().model()->index(row, column).data().toString(); }
    bool Tells(const QString& words) const
    {
        return QTest::qWaitFor([&] { return Check().findChild<QLabel*>("message")->text().contains(words); }, 5000);
    }
    void StartByKey()
    {
        QTest::keyClick(&Search(), Qt::Key_K, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.findChild<QWidget*>("check") && Check().isVisible(); }, 5000));
    }
};

TEST_F(ChooserWithCheck, AFindingOpensItsClientAndIsGoneWhenItIsPutRight)
{
    Write("case $4 in 1003*) exit 0;; esac\n"
          "printf '1003r2022-23\\tVerma\\t2022-23\\tHead of income\\tTotal\\t900.00\\t1000.00\\n'\n"
          "printf '9\\t\\t\\tRows of nobody\\tbusiness: 1\\t\\t\\n'\n"
          "printf '1001r2022-23\\tAsha\\t2022-23\\tHead of income\\tTotal\\t1100.00\\t0.00\\n'\n"
          "echo progress 37 37; exit 1",
          "checker");
    StartByKey();
    ASSERT_TRUE(Tells("3 found"));
    QTest::keyClick(&Found(), Qt::Key_5, Qt::ControlModifier);
    QTest::keyClick(&Found(), Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Cell(0, FindingsModel::Stored), "1,100.00");
    EXPECT_EQ(Cell(1, FindingsModel::Stored), "900.00");
    EXPECT_EQ(Cell(2, FindingsModel::Stored), "");

    Found().setCurrentIndex(Found().model()->index(2, 0));
    QTest::keyClick(&Found(), Qt::Key_Return);
    EXPECT_TRUE(Tells("No client has the code \"9\"."));
    Search().setText("iyer"); // the found client is not in the list now
    Found().setCurrentIndex(Found().model()->index(1, 0));
    QTest::keyClick(&Found(), Qt::Key_Return);
    EXPECT_TRUE(Tells("2 found"));
    EXPECT_EQ(Cell(1, FindingsModel::Code), "9");
    EXPECT_EQ(Table().currentIndex().siblingAtColumn(YearList::Code).data().toString(), "1003r2022-23");
    EXPECT_TRUE(Check().isActiveWindow());
}

TEST_F(ChooserWithCheck, EscapeEndsTheCheckAndThenTheWindow)
{
    Write("printf 'A\\tB\\tC\\tD\\tE\\t\\t\\n'; echo progress 200 1000; exec sleep 60", "checker");
    StartByKey();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Found().model()->rowCount() == 1; }, 5000));
    EXPECT_EQ(Check().findChild<QProgressBar*>()->value(), 200);
    EXPECT_EQ(Check().findChild<QProgressBar*>()->maximum(), 1000);
    QTest::keyClick(&Found(), Qt::Key_Escape);
    EXPECT_TRUE(Tells("Cancelled: 1 found so far."));
    QTest::keyClick(&Found(), Qt::Key_Escape);
    EXPECT_FALSE(Check().isVisible());

    Write("echo The practice is locked. >&2; exit 2", "checker");
    QTest::mouseClick(&Button("Chec&k ..."), Qt::LeftButton);
    EXPECT_TRUE(Tells("The practice is locked."));
    Write("exit 0", "checker");
    QTest::keyClick(&Found(), Qt::Key_F5);
    EXPECT_TRUE(Tells("All agrees."));
}

TEST_F(Chooser, BacksUpByAKeyAndTellsHowItEnded)
{
    Write("sleep 0.2; echo The backup is made and checked: $*", "pgbp-suite");
    QTest::keyClick(&Search(), Qt::Key_B, Qt::AltModifier);
    WaitFor("is being made");
    EXPECT_FALSE(Button("&Back Up").isEnabled());
    WaitFor(Text("made and checked: --program-folder " + folder.folder().string() + " backup"));
    EXPECT_TRUE(Button("&Back Up").isEnabled());
    Write("echo pgbp-suite: The disk is full. >&2; exit 1", "pgbp-suite");
    QTest::mouseClick(&Button("&Back Up"), Qt::LeftButton);
    WaitFor("The disk is full.");
    EXPECT_TRUE(Message().startsWith("The disk"));
}

/// The chart of the marked client is reached with Tab alone and follows what the module wrote.
TEST_F(Chooser, YearsOfTheMarkedClientStandBelowTheList)
{
    auto& chart = *window.findChild<QWidget*>("years");
    window.resize(1100, 640);
    window.Search("1027r2024-25");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !chart.accessibleDescription().isEmpty(); }, 5000));
    EXPECT_EQ(chart.accessibleDescription(), "2019-20: 3,12,500; 2020-21: 4,05,200; 2021-22: loss of 2,86,400; "
                                             "2022-23: 0; 2023-24: 4,73,900; 2024-25: not written yet");
    QTest::mouseClick(&chart, Qt::LeftButton);
    EXPECT_TRUE(Search().hasFocus());
    QTest::keyClick(&Search(), Qt::Key_Tab);
    EXPECT_TRUE(Table().hasFocus());
    QTest::keyClick(&Table(), Qt::Key_Tab);
    EXPECT_TRUE(chart.hasFocus());

    Write("while [ ! -e \"$0.go\" ]; do sleep 0.01; done");
    window.Open();
    folder.Open().balance.Insert("qelgeneral", {{"code", "1027r2024-25"}, {"Type", "BUSI"}, {"amt14", 704000.0}});
    scripts.Write("module.go", "");
    WaitFor("7,04,000.00");
    EXPECT_TRUE(chart.accessibleDescription().endsWith("2024-25: 7,04,000"));

    chart.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&chart, "n"); // searches, as everywhere in the window
    EXPECT_EQ(Search().text(), "n");
    window.resize(window.width(), 400);
    EXPECT_FALSE(chart.isVisible());
}

/// Nobody waits for it: it goes on when the window has gone.
TEST_F(Chooser, LeavesADueBackupBehind)
{
    Write("echo $* > \"$0.said\"", "pgbp-suite");
    window.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return scripts.Read("pgbp-suite.said").ends_with(" backup if-due\n"); }, 5000))
        << scripts.Read("pgbp-suite.said");
}

} // namespace
} // namespace pgbp

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    pgbp::ApplyTheme(application);
    return RUN_ALL_TESTS();
}
