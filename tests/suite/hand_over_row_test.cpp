#include "store/files.h"
#include "suite/hand_over_row.h"
#include "suite/new_practice.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

HandOver ReadBack(const Practice& practice)
{
    HandOver record;
    EXPECT_TRUE(ReadHandOver(OpenFile({practice.HandOverFile(), {}}), record));
    return record;
}

TEST(HandOverRow, TellsWhoWhichYearAndWhere)
{
    const NewPractice made;
    const Practice practice = made.Open();
    const HandOver record = PrepareHandOver(practice, FindAssesseeYear(practice, "1003R2023-24"));
    EXPECT_EQ(record.Glcode, "1003r2023-24");
    EXPECT_EQ(record.Glyear, "2023-24");
    EXPECT_EQ(record.Glstatus, "05");
    EXPECT_EQ(record.GLcompany, 1003);
    EXPECT_EQ(record.GlPrCode, "1003r2022-23");
    EXPECT_EQ(record.GLminor, 0);
    EXPECT_EQ(record.GlServer, (made.folder() / "server").string());
    EXPECT_EQ(record.GlClient, (made.folder() / "client").string());
    EXPECT_EQ(PrepareHandOver(practice, FindAssesseeYear(practice, "1003r2021-22")).GlPrCode, "");
}

/// A text that fits the kind of the column and differs from its blank value.
struct TextFor {
    std::string operator()(std::string HandOver::*) const { return "07"; }
    std::string operator()(double HandOver::*) const { return "-12.25"; }
    std::string operator()(int HandOver::*) const { return "3"; }
    std::string operator()(bool HandOver::*) const { return "yes"; }
};

TEST(HandOverRow, FileIsMadeAgainWhereItIsMissing)
{
    const NewPractice made;
    const Practice practice = made.Open();
    std::filesystem::remove(practice.HandOverFile());
    HandOver record;
    record.Glcode = "O'Brien & Söhne; -- 100%";
    WriteHandOverFile(practice, record);
    EXPECT_EQ(ReadBack(practice).Glcode, record.Glcode);
}

TEST(HandOverRow, RefusesWhatDoesNotFit)
{
    for (const char* word :
         {"GlLarge", "Colour=red", "=1", "GlLarge=maybe", "GlLarge=2", "GLminor=one", "GLminor=", "GLminor=1,000",
          "GLminor=inf", "GLminor=nan", "GLlock=0.5", "GLlock=32768", "Glyear=2023-2024", "Glstatus=006"}) {
        HandOver record;
        EXPECT_THROW(SetColumn(record, word), std::runtime_error) << word;
    }
}

} // namespace
} // namespace pgbp
