#include "income/summary_under_test.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace pgbp;

// What each button does by year, status and minor: the screen it opens or the message it gives.
TEST(Navigation, OpensOrRefuses)
{
    struct {
        const char* button;
        int year;
        const char* status;
        double minor;
        const char* screen;
        const char* message;
    } const rows[] = {
        {"cmd3", 2023, "01", 0, "frmbusinesscal", ""},
        {"cmd3", 2023, "01", 2, "", "This Option is not available for minors."},
        {"cmd4", 2018, "01", 0, "frmbusinesscal", ""},
        {"cmd4", 2018, "01", 2, "", "This Option is not available for minors."},
        {"cmd4", 2019, "01", 0, "Frm44AENew", ""},
        {"cmd4", 2019, "01", 2, "", "This Option is not available for minors."},
        {"cmd5", 2010, "01", 0, "frmbusinesscal", ""},
        {"cmd5", 2011, "01", 0, "", "This section is now removed..."},
        {"cmd9", 2016, "01", 0, "", "Section 44ADA is applicable for Y 2017-18"},
        {"cmd9", 2016, "01", 2, "", "Section 44ADA is applicable for Y 2017-18"},
        {"cmd9", 2017, "01", 0, "frmbusinesscal", ""},
        {"cmd6", 2023, "06", 0, "",
         "Remu./Intt from Partnership Firm is only applicable for Other than Partnership Firm"},
        {"cmd6", 2007, "01", 0, "FrmFirm", ""},
        {"cmd7", 2023, "05", 0, "", "Share from AOP/BOI is only applicable for Individuals & HUFs"},
        {"cmdlic", 2023, "01", 2, "", "This Option is not available for minors."},
        {"CmdGST", 2023, "01", 0, "FrmGST", ""},
    };
    for (const auto& row : rows) {
        SummaryUnderTest practice;
        practice.handOver.GLminor = row.minor;
        auto& form = practice.Begin(row.year, row.status);
        form.Click(dynamic_cast<cmd&>(*form.Find(row.button)));
        const std::string what = std::string(row.button) + ' ' + std::to_string(row.year);
        EXPECT_EQ(practice.openings.empty() ? "" : practice.openings.back().screen, row.screen) << what;
        EXPECT_EQ(practice.boxes.shown.empty() ? "" : practice.boxes.shown.back().text, row.message) << what;
    }
}

// What this version does not have is closed and says so; a door that has a refusal to give stays open for it.
TEST(Navigation, ClosesTheDoorsToScreensThatAreNotThere)
{
    struct {
        const char* button;
        int year;
        const char* status;
        double minor;
        bool screensAreThere;
        bool open;
    } const rows[] = {
        {"CmdGST", 2023, "01", 0, false, false}, {"CmdGST", 2023, "01", 0, true, true},
        {"cmd4", 2023, "01", 0, false, false},   {"cmd4", 2023, "01", 0, true, true},
        {"cmd4", 2023, "01", 2, false, true},    {"cmd4", 2018, "01", 0, false, true},
        {"cmd6", 2023, "01", 0, false, false},   {"cmd6", 2023, "01", 0, true, true},
        {"cmd6", 2023, "06", 0, false, true},    {"cmd6", 2006, "01", 0, true, false},
        {"cmd7", 2023, "01", 0, true, false},    {"cmd7", 2023, "05", 0, false, true},
        {"cmdlic", 2023, "01", 0, true, false},  {"cmdlic", 2023, "01", 2, false, true},
        {"cmd1", 2023, "01", 0, false, true},
    };
    for (const auto& row : rows) {
        SummaryUnderTest practice;
        practice.handOver.GLminor = row.minor;
        if (!row.screensAreThere)
            practice.notesScreens = false;
        const auto& door = *practice.Begin(row.year, row.status).Find(row.button);
        const std::string what = std::string(row.button) + ' ' + std::to_string(row.year) + ' ' + row.status;
        EXPECT_EQ(door.enabled, row.open) << what;
        EXPECT_EQ(door.toolTip.get(), row.open ? "" : "Not part of this version yet") << what;
    }
}

TEST(Navigation, OffersAProfessionToThoseWhoMayHaveOne)
{
    for (const auto& [status, year, button, line] : {std::tuple{"01", 2023, true, true},
                                                     {"05", 2017, true, true},
                                                     {"01", 2016, true, false},
                                                     {"12", 2023, false, false},
                                                     {"08", 2023, false, false},
                                                     {"12", 2016, false, false}}) {
        SummaryUnderTest practice;
        const auto& form = practice.Begin(year, status);
        EXPECT_EQ(form.cmd9.Shown(), button) << status << ' ' << year;
        EXPECT_EQ(form.LblADA.Shown(), line) << status << ' ' << year;
    }
}

TEST(Navigation, GivesTheCaptionOfTheLineAndItsRow)
{
    struct {
        const char* button;
        const char* type;
        int year;
        const char* caption;
        BusinessKind kind;
    } const rows[] = {
        {"cmd3", "3", 2010, "Construction Business u/s 44AD :", kPresumptive44AD},
        {"cmd3", "3", 2023, "Elegible business u/s 44AD", kPresumptive44AD},
        {"cmd4", "4", 2018, "Transport Business u/s 44AE", kTransport44AE},
        {"cmd5", "5", 2010, "Retail Trading u/s 44AF", kRetail44AF},
        {"cmd9", "A", 2023, "Professional Income u/s 44ADA :", kProfession44ADA},
    };
    for (const bool stored : {false, true})
        for (const auto& row : rows) {
            SummaryUnderTest practice;
            if (stored)
                practice.Line(row.type, {{"SNO", 3}, {"name1", "first"}}, row.year);
            auto& form = practice.Begin(row.year, "01");
            form.Click(dynamic_cast<cmd&>(*form.Find(row.button)));
            ASSERT_EQ(practice.openings.size(), 1U);
            const LineOpening& opening = practice.openings[0].opening;
            EXPECT_EQ(opening.caption, row.caption);
            EXPECT_EQ(opening.business ? (*opening.business)["name1"].Text() : "", stored ? "first" : "");
            EXPECT_EQ(practice.run->GlBusinessKind, row.kind);
            EXPECT_EQ(practice.run->GLrep, "ASDF");
        }
}

TEST(Navigation, RecomputesOnceOnReturn)
{
    SummaryUnderTest practice;
    auto& form = practice.Begin(2023, "01");
    form.Click(form.cmd1);
    practice.run->company.Insert("business", {{"code", "A0001r2023-24"}, {"Type", "1"}, {"NET", 5}});
    int totals = 0;
    form.lbltotal.onChange = [&] { ++totals; };
    practice.run->screens.Return();
    EXPECT_EQ(form.lbl1.text(), "5.00");
    EXPECT_EQ(totals, 1);
}
