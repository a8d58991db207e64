#include "controls/date_control.h"

#include "controls/form.h"
#include "controls/frame.h"
#include "support/test_boxes.h"
#include "support/typing.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(DateVal, ReadsLooseDates)
{
    const std::pair<const char*, const char*> dates[] = {
        {"", ""},
        {"31032024", "31-03-2024"},
        {"310324", "31-03-2024"},
        {"1/4/24", "01-04-2024"},
        {"1.apr.99", "01-04-1999"},
        {"1-Apr-30", "01-04-1930"},
        {"1-4-29", "01-04-2029"},
        {"1-4-0", "01-04-2000"},
        {"1-4-150", "01-04-0150"},
        {"29-02-1900", "29-02-1900"}, // no century exception
        {"29-02-2024", "29-02-2024"},
    };
    for (const auto& [text, date] : dates) {
        EXPECT_EQ(ReadDate(text).date, date) << text;
        EXPECT_EQ(ReadDate(text).error, "") << text;
    }
    const std::pair<const char*, std::vector<const char*>> errors[] = {
        {"Invalid month days", {"30-02-2024", "29-02-2023"}},
        {"Invalid Month Days", {"31-04-2024", "0-01-2024", "32-01-2024"}},
        {"Invalid Date Format", {"1-1", "1234", "1-1-2024-5", "abc"}},
        {"Invalid Month", {"1-13-2024", "1-0-2024", "1-xyz-2024", "--"}},
        {"Invalid Year", {"1-1-12345"}},
    };
    for (const auto& [error, texts] : errors)
        for (const char* text : texts) {
            EXPECT_EQ(ReadDate(text).error, error) << text;
            EXPECT_EQ(ReadDate(text).date, "") << text;
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
