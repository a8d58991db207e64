#include "controls/date_control.h"

#include "controls/form.h"
#include "controls/frame.h"
#include "support/test_boxes.h"
#include "support/typing.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(DateVal, ReadsLooseDates)
{
    struct {
        const char* text;
        const char* date;
        const char* error;
    } const rows[] = {
        {"", "", ""},
        {"31032024", "31-03-2024", ""},
        {"310324", "31-03-2024", ""},
        {"1/4/24", "01-04-2024", ""},
        {"1.apr.99", "01-04-1999", ""},
        {"1-Apr-30", "01-04-1930", ""},
        {"1-4-29", "01-04-2029", ""},
        {"1-4-0", "01-04-2000", ""},
        {"1-4-150", "01-04-0150", ""},
        {"29-02-1900", "29-02-1900", ""}, // no century exception
        {"29-02-2024", "29-02-2024", ""},
        {"30-02-2024", "", "Invalid month days"},
        {"29-02-2023", "", "Invalid month days"},
        {"31-04-2024", "", "Invalid Month Days"},
        {"0-01-2024", "", "Invalid Month Days"},
        {"32-01-2024", "", "Invalid Month Days"},
        {"1-1", "", "Invalid Date Format"},
        {"1234", "", "Invalid Date Format"},
        {"1-1-2024-5", "", "Invalid Date Format"},
        {"abc", "", "Invalid Date Format"},
        {"1-13-2024", "", "Invalid Month"},
        {"1-0-2024", "", "Invalid Month"},
        {"1-xyz-2024", "", "Invalid Month"},
        {"--", "", "Invalid Month"},
        {"1-1-12345", "", "Invalid Year"},
    };
    for (const auto& row : rows) {
        const DateReading reading = ReadDate(row.text);
        EXPECT_EQ(reading.date, row.date) << row.text;
        EXPECT_EQ(reading.error, row.error) << row.text;
    }
}

TEST(DateVal, TellsWhatIsWrong)
{
    TestBoxes boxes;
    clsdate dates(boxes, "Vorn");
    EXPECT_EQ(dates.DateVal("1-13-2024"), "");
    EXPECT_TRUE(dates.failed);
    const Message message = boxes.Take();
    EXPECT_EQ(message.text, "Invalid Month");
    EXPECT_EQ(message.title, "Vorn - Date Error");
    EXPECT_EQ(message.icon, Icon::Critical);
    EXPECT_EQ(dates.DateVal("1-1-2024"), "01-01-2024");
    EXPECT_FALSE(dates.failed);
}

TEST(DateControl, NormalisesOnLeavingAndKeepsTheFocusWhenRefused)
{
    TestBoxes boxes;
    Form form("F", "F", boxes, "Vorn");
    Frame framain(form, "framain", "", FramePlace::Main);
    txtdate sold(form, "sold");
    txt next(form, "next");
    framain.Lay({.columns = {LayoutColumn::Field}, .rows = {{{&sold}}, {{&next}}}});

    form.SetFocus(sold);
    TypeText(form, "3a1/04:2024"); // letters, slash and colon are swallowed
    EXPECT_EQ(sold.text(), "31042024");
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &sold);
    EXPECT_EQ(boxes.Take().text, "Invalid Month Days");

    form.Do([&] { sold.SelectAll(); });
    TypeText(form, "1.4.24");
    form.Press(Key::Enter);
    EXPECT_EQ(form.focused(), &next);
    EXPECT_EQ(sold.text(), "01-04-2024");

    sold.calendarShown = true;
    sold.Choose(9, 11, 2023);
    EXPECT_EQ(sold.text(), "09-11-2023");
    EXPECT_FALSE(sold.calendarShown);
}
