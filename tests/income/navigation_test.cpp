#include "support/empty_practice.h"

#include <gtest/gtest.h>

using namespace pgbp;

// What each button does by year, status and minor: the screen that it opens, with what caption, or the message.
TEST(Navigation, OpensOrRefuses)
{
    constexpr const char* kMinor = "This Option is not available for minors.";
    constexpr const char* k44ADA = "Section 44ADA is applicable for Y 2017-18";
    struct {
        const char* button;
        int year;
        const char* status;
        double minor;
        const char* opened; ///< the caption where a line is opened, else the screen
        const char* message;
        const char* type = ""; ///< of the line that is opened
    } const rows[] = {
        {"cmd3", 2010, "01", 0, "Construction Business u/s 44AD :", "", "3"},
        {"cmd3", 2011, "01", 0, "Elegible business u/s 44AD", "", "3"},
        {"cmd3", 2023, "01", 2, "", kMinor},
        {"cmd4", 2018, "01", 0, "Transport Business u/s 44AE", "", "4"},
        {"cmd4", 2018, "01", 2, "", kMinor},
        {"cmd4", 2019, "01", 0, "Frm44AENew", ""},
        {"cmd4", 2019, "01", 2, "", kMinor},
        {"cmd5", 2010, "01", 0, "Retail Trading u/s 44AF", "", "5"},
        {"cmd5", 2011, "01", 0, "", "This section is now removed..."},
        {"cmd9", 2016, "01", 0, "", k44ADA},
        {"cmd9", 2016, "01", 2, "", k44ADA},
        {"cmd9", 2017, "01", 0, "Professional Income u/s 44ADA :", "", "A"},
        {"cmd6", 2023, "06", 0, "",
         "Remu./Intt from Partnership Firm is only applicable for Other than Partnership Firm"},
        {"cmd6", 2007, "01", 0, "FrmFirm", ""},
        {"cmd7", 2023, "05", 0, "", "Share from AOP/BOI is only applicable for Individuals & HUFs"},
        {"cmdlic", 2023, "01", 2, "", kMinor},
        {"CmdGST", 2023, "01", 0, "FrmGST", ""},
    };
    for (const auto& row : rows)
        for (const bool stored : {false, true}) {
            SCOPED_TRACE(std::string(row.button) + ' ' + std::to_string(row.year));
            const bool isLine = *row.type != '\0';
            EmptyPractice practice;
            practice.Year(row.year, row.status);
            practice.handOver.GLminor = row.minor;
            if (isLine && stored)
                practice.Line(row.type, {{"name1", "first"}});
            auto& form = practice.Begin();
            form.Click(dynamic_cast<cmd&>(*form.Find(row.button)));
            EXPECT_EQ(practice.boxes.shown.empty() ? "" : practice.boxes.shown.back().text, row.message);
            ASSERT_EQ(practice.openings.size(), *row.opened ? 1U : 0U);
            if (practice.openings.empty())
                continue;
            const auto& [screen, opening] = practice.openings[0];
            EXPECT_EQ(screen, isLine ? "frmbusinesscal" : row.opened);
            EXPECT_EQ(opening.caption, isLine ? row.opened : "");
            EXPECT_EQ(opening.business ? (*opening.business)["name1"].Text() : "", isLine && stored ? "first" : "");
            EXPECT_EQ(practice.run->GLrep == "ASDF", isLine);
            if (isLine) {
                EXPECT_EQ(TypeOf(static_cast<BusinessKind>(practice.run->GlBusinessKind)), row.type);
            }
        }
}
