#include "desktop/sample_form.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace pgbp;

namespace {

class Fields : public ShownForm {
  protected:
    void ExpectBoth(const TextBox& box, const char* text)
    {
        EXPECT_EQ(box.text(), text);
        EXPECT_EQ(WidgetOf<QLineEdit>(box).text().toStdString(), text);
    }
};

} // namespace

TEST_F(Fields, EditInTheMiddleOfTextBeyondTheBasicPlane)
{
    Focus(form.name);
    view.Act([&] { form.name.Set("a\xF0\x9D\x94\xB8z"); }); // one character, two units of the toolkit
    Press(Qt::Key_End);
    Press(Qt::Key_Left);
    EXPECT_EQ(form.name.selStart(), 2);
    Type("\xC3\xA9");
    ExpectBoth(form.name, "a\xF0\x9D\x94\xB8\xC3\xA9z");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Backspace);
    ExpectBoth(form.name, "az");
}

TEST_F(Fields, DrawAnAmountWithItsPlacesAndGroupsOnceItIsLeft)
{
    struct {
        const char* typed;
        int deci;
        bool grouped;
        const char* drawn;
    } const rows[] = {
        {"900000", 2, true, "9,00,000.00"},
        {"-2472131.5", 2, true, "-24,72,131.50"},
        {"-", 2, true, "0.00"},
        {"900000", 0, true, "9,00,000"},
        {"2015", 0, false, "2015"},
    };
    for (const auto& row : rows) {
        form.amount.deci = row.deci;
        form.amount.grouped = row.grouped;
        Focus(form.amount);
        Type(row.typed);
        ExpectBoth(form.amount, row.typed);
        Press(Qt::Key_Return);
        EXPECT_EQ(form.amount.text(), row.typed);
        EXPECT_EQ(WidgetOf<QLineEdit>(form.amount).text(), row.drawn);
        Focus(form.amount);
        ExpectBoth(form.amount, row.typed);
        EXPECT_EQ(WidgetOf<QLineEdit>(form.amount).selectedText(), row.typed);
    }
    view.Act([&] { form.amount.locked = true; });
    EXPECT_EQ(WidgetOf<QLineEdit>(form.amount).text(), "2015");
}

TEST_F(Fields, WorkOutALineOverAnAmount)
{
    form.amount = "7.50";
    Focus(form.amount);
    Type("=");
    auto& line = WidgetOf<QLineEdit>(form.amount);
    EXPECT_EQ(line.accessibleName(), "Arithmetic");
    QTest::keyClicks(&line, "1200+18%");
    EXPECT_EQ(form.amount.sum()->Shows(), "1200+18% = 1416.00");
    Press(Qt::Key_Home);
    QTest::keyClicks(&line, "=-");
    EXPECT_EQ(form.amount.sum()->Shows(), "-1200+18% = -1416.00");
    EXPECT_EQ(line.text(), "-1200+18%");
    Press(Qt::Key_Return);
    EXPECT_FALSE(line.isVisible());
    ExpectBoth(form.amount, "-1416.00");
    EXPECT_EQ(view.focusWidget(), KeyboardOf(form.amount));
    Type("=");
    QTest::keyClicks(&line, "3*");
    QTest::mouseClick(KeyboardOf(form.name), Qt::LeftButton);
    EXPECT_EQ(form.focused(), &form.amount) << "not without a result";
    Press(Qt::Key_Escape);
    ExpectBoth(form.amount, "-1416.00");
    QTest::mouseClick(KeyboardOf(form.name), Qt::LeftButton);
    EXPECT_EQ(form.focused(), &form.name);
}

TEST_F(Fields, ShowTheWholeTextSelectedOnEveryArrival)
{
    form.amount = "100.00";
    Focus(form.amount);
    EXPECT_EQ(WidgetOf<QLineEdit>(form.amount).selectedText(), "100.00");
    Press(Qt::Key_End);
    EXPECT_EQ(form.amount.selLength(), 0);
    Press(Qt::Key_Tab);
    EXPECT_NE(form.focused(), &form.amount);
    QTest::mouseClick(KeyboardOf(form.amount), Qt::LeftButton);
    EXPECT_EQ(form.focused(), &form.amount);
    EXPECT_EQ(WidgetOf<QLineEdit>(form.amount).selectedText(), "100.00");
}

TEST_F(Fields, StayWhereADateIsRefused)
{
    Focus(form.day);
    Type("31-2-24");
    Press(Qt::Key_Tab);
    EXPECT_EQ(boxes.Take().text, "Invalid month days");
    EXPECT_EQ(view.focusWidget(), KeyboardOf(form.day));
    QTest::mouseClick(KeyboardOf(form.name), Qt::LeftButton);
    EXPECT_EQ(boxes.Take().text, "Invalid month days");
    QTest::mouseClick(KeyboardOf(form.CmdBack), Qt::LeftButton);
    EXPECT_EQ(boxes.Take().text, "Invalid month days");
    EXPECT_EQ(view.focusWidget(), KeyboardOf(form.day));
}

TEST_F(Fields, DropDownAMonthToChooseFrom)
{
    form.day = "15-08-2023";
    Focus(form.day);
    QTest::mouseDClick(KeyboardOf(form.day), Qt::LeftButton);
    auto* calendar = view.findChild<QCalendarWidget*>();
    ASSERT_TRUE(calendar && calendar->isVisible());
    EXPECT_EQ(calendar->selectedDate(), QDate(2023, 8, 15));
    emit calendar->clicked(QDate(2023, 9, 1));
    ExpectBoth(form.day, "01-09-2023");
    EXPECT_FALSE(calendar->isVisible());
    Press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(calendar->isVisible());
    Press(Qt::Key_Tab);
    Settle();
    EXPECT_FALSE(calendar->isVisible());
}

TEST_F(Fields, WriteLinesOnAPage)
{
    Focus(form.note);
    Type("one");
    Press(Qt::Key_Return);
    Type("two");
    Settle(); // lines are where they were last painted
    Press(Qt::Key_Up);
    Type("!");
    EXPECT_EQ(form.note.text(), "one!\ntwo");
    EXPECT_EQ(WidgetOf<QPlainTextEdit>(form.note).toPlainText(), "one!\ntwo");
    view.Act([&] { form.note.locked = true; });
    Type("x");
    EXPECT_EQ(form.note.text(), "one!\ntwo");
}
