#include "suite/assessee_kinds.h"
#include "suite/client_settings.h"
#include "suite/new_clients.h"
#include "suite/new_practice.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

const Assessee kFirm{.name = "Das & Sons", .pan = "AAFFD1234K", .status = "05", .further = {}};

TEST(NewClient, IsAddedWithHisYearOrNotAtAll)
{
    const NewPractice made;
    const Practice practice = made.Open();
    const std::string code = AddClient(practice, kFirm, "2022-23");
    EXPECT_EQ(FindAssesseeYear(practice, code).name, "Das & Sons");
    EXPECT_EQ(ReadSettings(practice, code), (ClientSettings{.returnForm = 5, .remunerationByHand = false}));

    const Assessee other{.name = "Lata", .pan = "AFZPD1234K", .status = "01", .further = {}};
    EXPECT_THROW(AddClient(practice, other, "2035-36"), std::runtime_error);
    EXPECT_EQ(practice.company.Scalar("select count(*) from {assessee} where pan = 'AFZPD1234K'").Number(), 0);
}

TEST(NewYear, TakesTheSettingsOfTheYearBeforeButNotItsLock)
{
    const NewPractice made;
    const Practice practice = made.Open();
    const std::string first = AddClient(practice, kFirm, "2022-23", 6);
    const AssesseeYear year = FindAssesseeYear(practice, first);
    const ClientSettings settings{.returnForm = 6, .locked = true, .comparative = false, .remunerationByHand = true};
    StoreSettings(practice, year, settings);
    ClientSettings expected = settings;
    expected.locked = false;
    expected.returnForm = 5;
    EXPECT_EQ(ReadSettings(practice, AddYear(practice, year.client, "2023-24")), expected);
}

TEST(KindOfAssessee, IsToldByThePanAndInWordsOfItsOwn)
{
    struct Case {
        const char* pan;
        const char* words;
    };
    constexpr Case kCases[] = {{"ABCP", "Individual"},        {"ABCHX", "HUF"}, {"AAFFD1234K", "Firm (business)"},
                               {"AAAT", "Charitable trust"},  {"AAAA", "AOP"},  {"AAAB", "BOI"},
                               {"AAACA", "Company (private)"}};
    for (const auto& [pan, words] : kCases)
        EXPECT_EQ(KindInWords(StatusOfPan(pan)), words) << pan;
    EXPECT_EQ(StatusOfPan("ABC"), "");
    EXPECT_EQ(StatusOfPan("ABCX"), "");
    EXPECT_EQ(KindInWords("04"), "Status 04");
}

} // namespace
} // namespace pgbp
