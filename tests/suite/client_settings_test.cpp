#include "suite/client_settings.h"
#include "suite/new_practice.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

class Settings : public testing::Test {
  protected:
    AssesseeYear Year(const char* code) const { return FindAssesseeYear(practice, code); }

    NewPractice made;
    Practice practice = made.Open();
};

TEST_F(Settings, StandWhereTheModuleReadsThem)
{
    StoreSettings(practice, Year("1003r2023-24"), {.returnForm = 5, .remunerationByHand = true});
    EXPECT_TRUE(practice.company.Scalar("select auto_rem from {setup} where code = '1003r2023-24'").Flag());
    StoreSettings(practice, Year("1004r2023-24"), {.returnForm = 6, .indAs = true});
    const char* indAs = "select add1 from {misc_items} where code = '1004r2023-24' and [Type] = 'FRMCHK'";
    EXPECT_EQ(practice.company.Scalar(indAs).Text(), "Yes");
    StoreSettings(practice, Year("1004r2023-24"), {.returnForm = 6, .indAs = false});
    EXPECT_EQ(practice.company.Query(indAs).Size(), 1u);
    EXPECT_EQ(practice.company.Scalar(indAs).Text(), "No");
    StoreSettings(practice, Year("1005r2023-24"), {.returnForm = 5, .section11 = false});
    EXPECT_EQ(practice.balance.Scalar("select amt1 from {qelgeneral} where code = '1005r2023-24' and [Type] = 'CHERI'")
                  .Number(),
              0);
    EXPECT_EQ(ReturnForm(practice, "1005r2023-24"), 5);
}

TEST_F(Settings, ComeBackAsTheyWereStoredForThatYearAlone)
{
    const ClientSettings before = ReadSettings(practice, "1003r2022-23");
    const ClientSettings stored{
        .returnForm = 6, .locked = true, .comparative = false, .remunerationByHand = true, .indAs = false};
    StoreSettings(practice, Year("1003r2023-24"), stored);
    EXPECT_EQ(ReadSettings(practice, "1003r2023-24"), stored);
    EXPECT_EQ(ReadSettings(practice, "1003r2022-23"), before);
    EXPECT_EQ(InWords(stored, Year("1003r2023-24")), "ITR-6, locked, remuneration by hand");
}

TEST_F(Settings, AreStoredAllOrNone)
{
    const ClientSettings before = ReadSettings(practice, "1003r2023-24");
    ClientSettings wanted = before;
    wanted.returnForm = 6;
    wanted.locked = !before.locked;

    // the file of the return forms can not take the new one's place
    const auto forms = made.folder() / "QelCtrl.ini";
    std::filesystem::rename(forms, made.folder() / "kept");
    std::filesystem::create_directory(forms);
    EXPECT_ANY_THROW(StoreSettings(practice, Year("1003r2023-24"), wanted));
    std::filesystem::remove(forms);
    std::filesystem::rename(made.folder() / "kept", forms);
    EXPECT_EQ(ReadSettings(practice, "1003r2023-24"), before);

    // the store refuses after the file was written
    {
        Transaction transaction({practice.company});
        const ReturnFormChange change(practice, "1003r2023-24", 6);
        EXPECT_EQ(ReturnForm(practice, "1003r2023-24"), 6);
    }
    EXPECT_EQ(ReadSettings(practice, "1003r2023-24"), before);
}

} // namespace
} // namespace pgbp
