#include "services/dates.h"
#include "services/states.h"
#include "services/year.h"

#include <gtest/gtest.h>

using namespace pgbp;

TEST(Dates, ReadAndWriteTheTextsOfTheTables)
{
    const DateTime moment{2024, 3, 31, 14, 5, 9};
    EXPECT_EQ(IsoText(moment), "2024-03-31 14:05:09");
    EXPECT_EQ(FromIsoText("2024-03-31 14:05:09"), moment);
    EXPECT_EQ(FromIsoText("2024-03-31"), (DateTime{2024, 3, 31}));
    for (const char* bad : {"", "31-03-2024", "2024-13-01", "2024-03-00", "2024/03/31", "2024-03-31 xx:05", "20240331"})
        EXPECT_EQ(FromIsoText(bad), std::nullopt) << bad;
}

TEST(Dates, ReadDaysOfTheCalendar)
{
    EXPECT_EQ(FromDayText("29-02-2024"), (DateTime{2024, 2, 29}));
    for (const char* bad : {"", "29-02-2023", "31-04-2024", "00-01-2024", "2024-03-31", "1-4-2024", "01/04/2024",
                            "01-04-2024 ", "-1-04-2024", "01-04-0000"})
        EXPECT_EQ(FromDayText(bad), std::nullopt) << bad;
    EXPECT_EQ(DaysBetween({2024, 2, 28}, {2024, 3, 1, 23, 59, 59}), 2);
    EXPECT_EQ(DaysBetween({2024, 3, 31}, {2023, 3, 31}), -366);
}

TEST(Dates, ShowDaysAndStamps)
{
    EXPECT_EQ(DayText({1999, 4, 1}), "01-04-1999");
    EXPECT_EQ(StampText({2024, 3, 31, 14, 5, 0}), "Sunday Mar, 31 2024   2:05 PM");
    EXPECT_EQ(StampText({2024, 1, 1, 0, 0, 0}), "Monday Jan, 1 2024   12:00 AM");
    EXPECT_EQ(StampText({2024, 12, 31, 12, 30, 0}), "Tuesday Dec, 31 2024   12:30 PM");
}

TEST(Year, IsTheNumberOfTheAssessmentYear)
{
    EXPECT_EQ(YearNumber("2023-24"), 2023);
    EXPECT_EQ(YearNumber(""), 0);
    EXPECT_EQ(LongYearText("2023-24"), "2023-2024");
    EXPECT_EQ(LongYearText("1999-00"), "1999-1900") << "the first two digits come from the first year";
    EXPECT_EQ(LongYearText(""), "");
}

TEST(States, HaveTheCodesOfTheReturn)
{
    EXPECT_EQ(StateCode("Maharashtra"), "19");
    EXPECT_EQ(StateCode("  uttaranchal "), "34");
    EXPECT_EQ(StateCode("UTTARAKHAND"), "34");
    EXPECT_EQ(StateCode("foreign"), "99");
    EXPECT_EQ(StateCode("WEST BENGAL"), "0") << "the table knows the name without its blank only";
    EXPECT_EQ(StateCode(""), "0");
}
