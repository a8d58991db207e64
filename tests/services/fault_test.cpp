#include "services/fault.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

using namespace pgbp;

TEST(Faults, TellWhatFailedWhereWhyAndWhatToDo)
{
    const FaultPlace file{"/srv/company.mdb"};
    const FaultPlace server{"PRACTICE", "/vorn/VornServer.ini"};
    const struct {
        Cause cause;
        Attempt attempt;
        FaultPlace place;
        const char* words;
    } cases[] = {
        {Cause::DiskFull, Attempt::Save, file,
         "The changes could not be saved: the disk that holds the file \"/srv/company.mdb\" is full.\n\n"
         "Nothing is lost. Make room on that disk, then try again."},
        {Cause::WrongPassword, Attempt::Open, server,
         "The data could not be opened: the database server \"PRACTICE\" does not accept the user or the password.\n\n"
         "Nothing was changed. Correct the user and the password in /vorn/VornServer.ini, then try again."},
        {Cause::Damaged, Attempt::Save, file,
         "The changes could not be saved: the file \"/srv/company.mdb\" is damaged.\n\n"
         "Nothing was changed. Stop working with this file, and put the last copy of it in its place."},
        {Cause::Unknown,
         Attempt::Read,
         {},
         "The data could not be read: the data gave an answer that this program does not know.\n\n"
         "Nothing was changed. Try again. If it comes back, show the file pgbp-errors.log in the client folder to who "
         "looks after the program."},
    };
    for (const auto& one : cases) {
        const Fault fault(one.cause, one.attempt, one.place, "disk I/O error");
        EXPECT_STREQ(fault.what(), one.words);
        EXPECT_EQ(PreparersWords(fault), one.words);
        EXPECT_EQ(TechnicalWords(fault), "disk I/O error");
    }
    for (int cause = 0; cause <= static_cast<int>(Cause::DeviceFailed); ++cause)
        for (const FaultPlace& place : {file, server, FaultPlace{}}) {
            const std::string words = Fault(static_cast<Cause>(cause), Attempt::Read, place, "").what();
            EXPECT_EQ(words.find_first_of("{}"), std::string::npos) << words;
            EXPECT_TRUE(words.ends_with('.')) << words;
        }
}

TEST(Faults, OtherErrorsAreToldByWhatTheyAre)
{
    const std::runtime_error ours("There is no practice in /srv.");
    EXPECT_EQ(PreparersWords(ours), ours.what());
    EXPECT_EQ(TechnicalWords(ours), "");

    const std::filesystem::filesystem_error refused("cannot rename", "/srv/a.ini",
                                                    std::error_code(ENOSPC, std::generic_category()));
    EXPECT_NE(PreparersWords(refused).find("the disk that holds the file \"/srv/a.ini\" is full"), std::string::npos);
    EXPECT_NE(TechnicalWords(refused).find("cannot rename"), std::string::npos);

    const std::out_of_range mistake("no column x");
    EXPECT_NE(PreparersWords(mistake).find("a mistake of its own"), std::string::npos);
    EXPECT_NE(TechnicalWords(mistake).find("no column x"), std::string::npos);
}
