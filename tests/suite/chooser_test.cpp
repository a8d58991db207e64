#include "suite/chooser_window.h"
#include "suite/new_practice.h"

#include "desktop/theme.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

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
    void Write(const std::string& script)
    {
        scripts.Write("module", "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(Module(), std::filesystem::perms::owner_all);
    }
    std::filesystem::path Module() const { return scripts.path() / "module"; }
    QTableView& Table() { return *window.findChild<QTableView*>(); }
    QString Cell(int row, int column) { return Table().model()->index(row, column).data().toString(); }
    /// The message below the list.
    QString Message()
    {
        for (const QLabel* label : window.findChildren<QLabel*>())
            if (label->property("look") == "status")
                return label->text();
        return {};
    }
    void WaitFor(const QString& words)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Message().contains(words); }, 5000))
            << Message().toStdString() << " instead of " << words.toStdString();
    }

    NewPractice folder;
    TemporaryFolder scripts;
    ChooserWindow window{folder.folder(), Module()};
};

TEST_F(Chooser, FindsByTypingAndWalksWithTheArrows)
{
    EXPECT_EQ(Table().model()->rowCount(), 24);
    auto* search = window.findChild<QLineEdit*>();
    QTest::keyClicks(search, "hosiery");
    ASSERT_EQ(Table().model()->rowCount(), 3);
    QTest::keyClick(search, Qt::Key_Down);
    EXPECT_EQ(Table().currentIndex().row(), 1);
    EXPECT_EQ(Cell(1, AssesseeYearModel::Head), "11,77,397.00");
    EXPECT_EQ(Cell(2, AssesseeYearModel::Head), "not written yet");
    search->setText("nobody");
    EXPECT_EQ(Table().model()->rowCount(), 0);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(Message(), "");
}

TEST_F(Chooser, EnterStartsTheModuleOnTheRowAndStaysAlive)
{
    Write("echo \"$PGBP_PROGRAM_FOLDER\" > \"$0.seen\"; until [ -e \"$0.back\" ]; do sleep 0.02; done");
    window.Search("1006r2022");
    QTest::keyClick(window.findChild<QLineEdit*>(), Qt::Key_Return);
    WaitFor("is open in the module");
    window.Open(); // a second run waits for the first to end
    const Connection balance = folder.Open().balance;
    balance.Delete("from {qelgeneral} where code = '1006r2022-23' and [Type] = 'BUSI'");
    balance.Insert("qelgeneral", {{"code", "1006r2022-23"}, {"Type", "BUSI"}, {"amt14", 497000}});
    scripts.Write("module.back", "");
    WaitFor("Profits & gains of Gurpreet Singh, 2022-23: 4,97,000.00");
    EXPECT_EQ(scripts.Read("module.seen"), folder.folder().string() + "\n");
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
        {"exit 1", "ended with a failure"},
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

TEST_F(Chooser, TellsWhatTheStoreRefusesAndStaysOpen)
{
    const auto click = [&](const char* caption) {
        for (auto* button : window.findChildren<QPushButton*>())
            if (button->text() == caption)
                QTest::mouseClick(button, Qt::LeftButton);
    };
    const Connection company = folder.Open().company;
    company.Execute("delete from {misc} where [type] = 'YEAR'");
    for (const char* caption : {"Add &Assessee ...", "Add Y&ear ..."}) {
        window.Search("1001");
        click(caption);
        EXPECT_TRUE(Message().contains("no assessment years")) << caption;
    }
    company.Execute("drop table {business}");
    QTest::keyClick(&Table(), Qt::Key_Down);
    EXPECT_TRUE(Message().contains("no such table")) << Message().toStdString();
    EXPECT_EQ(Table().currentIndex().row(), 1);
    company.Execute("drop table {assessee1}");
    Write("exit 1");
    window.Open();
    WaitFor("assessee1");
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
