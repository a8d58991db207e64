#include "desktop/dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace pgbp;

namespace {

/// Looks at the box when it is up, then presses the key.
Answer Ask(const Message& message, Qt::Key key, Qt::KeyboardModifiers held,
           const std::function<void(const QMessageBox&)>& look)
{
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        look(*box);
        EXPECT_TRUE(QTest::qWaitForWindowActive(box));
        QTest::keyClick(box->focusWidget(), key, held);
        QTimer::singleShot(1000, box, &QDialog::reject); // a key that does nothing fails the test, not the run
    });
    return WindowMessageBoxes("Vorn").Show(message);
}

} // namespace

TEST(Dialogs, ShowTheTitleAndTheTextAsTheyAre)
{
    const Message message{"<b>A & B</b>\nWant to delete ?",
                          "Profits & Gains from Business or Profession of a client - Confirmation", Icon::Question,
                          Buttons::YesNo, Answer::No};
    const Answer answer = Ask(message, Qt::Key_Return, Qt::NoModifier, [&](const QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), QString::fromStdString(message.text));
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(box.windowTitle()) + 60);
        EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "&Yes");
        EXPECT_TRUE(box.button(QMessageBox::No)->property("main").toBool());
        EXPECT_FALSE(box.button(QMessageBox::Yes)->property("main").toBool());
    });
    EXPECT_EQ(answer, Answer::No);
}

TEST(Dialogs, AnswerToTheirKeys)
{
    const Message question{"Save ?", "", Icon::Question, Buttons::YesNo, Answer::No};
    const auto nothing = [](const QMessageBox&) {};
    EXPECT_EQ(Ask(question, Qt::Key_Y, Qt::AltModifier, nothing), Answer::Yes);
    EXPECT_EQ(Ask(question, Qt::Key_Escape, Qt::NoModifier, nothing), Answer::No);
    EXPECT_EQ(Ask({"Saved", ""}, Qt::Key_Return, Qt::NoModifier, nothing), Answer::Ok);
}
