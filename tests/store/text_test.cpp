// Texts that the store hands to other programs, and values as texts and numbers.
#include "store/dialect.h"
#include "store/files.h"
#include "store/server.h"
#include "store/utf16.h"

#include <gtest/gtest.h>

namespace pgbp {
namespace {

TEST(ConnectionStrings, AJetFileOfTheSharedFolder)
{
    EXPECT_EQ(JetConnectionString({.path = "C:\\Data/company.mdb", .dsn = "C:\\Data\\company.dsn"}),
              "DBQ=C:\\Data\\company.mdb;DefaultDir=C:\\Data;Driver={Microsoft Access Driver (*.mdb)};DriverId=25;"
              "FIL=MS Access;FILEDSN=C:\\Data\\company.dsn;MaxBufferSize=2048;MaxScanRows=8;PageTimeout=5;PWD=QXZ.7;"
              "SafeTransactions=0;Threads=3;UID=admin;UserCommitSync=Yes;");
}

TEST(ConnectionStrings, TheWorkingFileHasNoPasswordAndTheClientsFolder)
{
    EXPECT_EQ(JetConnectionString({.path = "D:\\Own\\data\\qeltemp.mdb",
                                   .dsn = "D:\\Own\\qeltemp.dsn",
                                   .password = false,
                                   .defaultDir = "D:\\Own"}),
              "DBQ=D:\\Own\\data\\qeltemp.mdb;DefaultDir=D:\\Own;Driver={Microsoft Access Driver (*.mdb)};DriverId=25;"
              "FIL=MS Access;FILEDSN=D:\\Own\\qeltemp.dsn;MaxBufferSize=2048;MaxScanRows=8;PageTimeout=5;"
              "SafeTransactions=0;Threads=3;UID=admin;UserCommitSync=Yes;");
}

TEST(ConnectionStrings, AJetFileOfAnotherProductIsOnlyRead)
{
    EXPECT_EQ(
        ReadingJetConnectionString({.path = "D:/Books/balancesheet.mdb", .dsn = {}}),
        "DBQ=D:\\Books\\balancesheet.mdb;DefaultDir=D:\\Books;Driver={Microsoft Access Driver (*.mdb)};DriverId=25;"
        "FIL=MS Access;MaxBufferSize=2048;MaxScanRows=8;PageTimeout=5;PWD=QXZ.7;SafeTransactions=0;Threads=3;"
        "UID=admin;UserCommitSync=Yes;READONLY=TRUE;");
}

TEST(ConnectionStrings, TheServerByDriverOrByNativeClient)
{
    ServerLogin login{"OFFICE", " sa ", " secret ", false};
    EXPECT_EQ(ServerConnectionString(login, "Qel_VornCompany"),
              "Driver={SQL Server};server=OFFICE;app=Microsoft Data Access Components;database=Qel_VornCompany;uid=sa;"
              "pwd=secret");
    login.useNativeClient = true;
    EXPECT_EQ(ServerConnectionString(login, "Qel_VornBalance"),
              "Provider=SQLNCLI10;server=OFFICE;database=Qel_VornBalance;uid=sa;pwd=secret");
}

TEST(ConnectionStrings, AValueOpensNoNewPartAndEndsNone)
{
    const ServerLogin login{"OFFICE;uid=x", "s{a}", "a;server=b}", true};
    EXPECT_EQ(ServerConnectionString(login, "Qel=1"),
              "Provider=SQLNCLI10;server={OFFICE;uid=x};database={Qel=1};uid={s{a}}};pwd={a;server=b}}}");
    EXPECT_TRUE(JetConnectionString({.path = "C:\\A;PWD=x\\company.mdb", .dsn = "C:\\d.dsn"})
                    .starts_with("DBQ={C:\\A;PWD=x\\company.mdb};DefaultDir={C:\\A;PWD=x};Driver={"));
}

TEST(Dialects, TheLockThatComesWithTheNextNumber)
{
    EXPECT_EQ(kJetDialect.Lock("business", "SNO"),
              "update {business} set [SNO] = [SNO] where [SNO] = (select min([SNO]) from {business})");
    EXPECT_EQ(ServerDialect("Microsoft SQL Server").lockClause, " with (tablockx, holdlock)");
    EXPECT_EQ(ServerDialect("MariaDB").lockClause, " for update");
}

TEST(Utf16, GoesThereAndBack)
{
    const std::string text = "a\xC3\xA9\xE0\xA4\xB0\xF0\x9F\x98\x80";
    EXPECT_EQ(ToUtf16(text), u"a\u00E9\u0930\U0001F600");
    EXPECT_EQ(ToUtf8(ToUtf16(text)), text);
    EXPECT_EQ(ToUtf16("a\xFFz"), u"a\uFFFDz");
    const char16_t halves[] = {0xD83D, u'x', 0xDE00};
    EXPECT_EQ(ToUtf8({halves, 3}), "\xEF\xBF\xBDx\xEF\xBF\xBD");
}

TEST(Values, AreReadAsNumberTextFlagAndDate)
{
    const DateTime date{2024, 2, 29, 14, 5, 0};
    EXPECT_EQ(Value("12.5 kg").Number(), 12.5);
    EXPECT_EQ(Value().Number(), 0);
    EXPECT_EQ(Value(90000).Text(), "90000");
    EXPECT_EQ(Value(0.1).Text(), "0.1");
    EXPECT_EQ(Value().Text(), "");
    EXPECT_EQ(Value(date).Text(), "2024-02-29 14:05:00");
    EXPECT_EQ(Value("2024-02-29 14:05:00").Date(), date);
    EXPECT_FALSE(Value(45351.5).Date());
    EXPECT_TRUE(Value(-1).Flag()) << "the files' word for true";
    EXPECT_FALSE(Value("").Flag());
}

} // namespace
} // namespace pgbp
