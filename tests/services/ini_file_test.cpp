#include "services/ini_file.h"

#include "services/fault.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <random>

using namespace pgbp;

namespace {

class IniFile : public testing::Test {
  protected:
    clsIniFile File(const std::string& content)
    {
        folder.Write("Settings.ini", content);
        return {folder.path() / "Settings.ini"};
    }
    std::string Content() const { return folder.Read("Settings.ini"); }

    TemporaryFolder folder;
};

} // namespace

TEST_F(IniFile, GivesValuesBlindToCase)
{
    const auto file =
        File("; a comment\r\n[ DBTYPE ]\r\n  db = SQL  \r\nquoted=\" two words \"\r\ndb=second\r\n[Empty]\r\n"
             "[dbtype]\r\nother=1\r\n;db=MDB\r\nno equals sign\r\n=no key\r\n");
    EXPECT_EQ(file.GetValue("dbtype", "DB"), "SQL");
    EXPECT_EQ(file.GetValue("DBTYPE", "Quoted"), " two words ");
    EXPECT_EQ(file.GetValue("DBTYPE", "other"), "") << "the first section of the name counts";
    EXPECT_EQ(file.GetValue("Empty", "db"), "");
    EXPECT_EQ(file.GetValue("Missing", "db"), "");
    EXPECT_EQ(file.GetSection("DBTYPE"), (std::vector<std::string>{"db=SQL", "quoted= two words ", "db=second"}));
    EXPECT_EQ(file.GetSectionKeys("Empty"), std::vector<std::string>{});
    EXPECT_EQ(clsIniFile{folder.path() / "missing.ini"}.GetValue("a", "b"), "");
}

TEST_F(IniFile, WritesOneKeyAndKeepsTheRest)
{
    struct {
        const char* before;
        const char* after;
    } const rows[] = {
        {"", "[S]\nK=v\n"},
        {"[S]\nK=old\n", "[S]\nK=v\n"},
        {"[s]\r\n k = old\r\n; note\r\n[T]\r\nK=t\r\n", "[s]\r\nK=v\r\n; note\r\n[T]\r\nK=t\r\n"},
        {"[S]\nA=1\n\n[T]\nB=2\n", "[S]\nA=1\nK=v\n\n[T]\nB=2\n"},
        {"[T]\nB=2", "[T]\nB=2\n[S]\nK=v\n"},
        {"garbage\n[S]", "garbage\n[S]\nK=v\n"},
    };
    for (const auto& row : rows) {
        File(row.before).WriteValue("S", "K", "v");
        EXPECT_EQ(Content(), row.after);
    }
}

TEST_F(IniFile, GivesBackWhatWasWritten)
{
    for (const char* value :
         {"plain", "\"in quotes\"", "'in quotes'", " blanks ", "\"", "\"\"", "a \"b\"", "", "x;y=z"}) {
        const auto file = File("");
        file.WriteValue("S", "K", value);
        EXPECT_EQ(file.GetValue("S", "K"), value) << Content();
    }
    const auto file = File("[S]\nK = \"secret\" \n");
    EXPECT_EQ(file.GetWritten("S", "K"), "\"secret\"");
    EXPECT_EQ(file.GetWritten("S", "other"), "");
}

TEST_F(IniFile, CutsAnswersAtTheBuffer)
{
    const std::string longValue(5000, 'x');
    const auto file = File("[S]\nK=" + longValue + "\n");
    EXPECT_EQ(file.GetValue("S", "K"), longValue.substr(0, 4095));
    EXPECT_TRUE(file.GetSection("S").empty()) << "an entry that the buffer does not hold is left out";
}

TEST_F(IniFile, SurvivesRandomBytes)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        std::string bytes(random() % 400, '\0');
        for (char& byte : bytes)
            byte = "[]=;\"'\n\r\0 Kk\xFF"[random() % 14];
        const auto file = File(bytes);
        file.GetValue("K", "k");
        file.GetSection("K");
        file.WriteValue("Fresh", "Key", "value");
        ASSERT_EQ(file.GetValue("Fresh", "Key"), "value");
        ASSERT_EQ(Content().substr(0, bytes.size()), bytes) << "what stood there is kept";
    }
}

TEST_F(IniFile, TellsWhenItCanNotWrite)
{
    EXPECT_THROW((clsIniFile{folder.path() / "no such folder" / "a.ini"}.WriteValue("S", "K", "v")), Fault);
}

TEST_F(IniFile, AValueWithLineBreaksAddsNoEntry)
{
    const auto file = File("[S]\nK=v\n");
    file.WriteValue("S", "K", "ABCDE1234F\r\n[Login]\nLogPwd=x");
    EXPECT_EQ(Content(), "[S]\nK=ABCDE1234F[Login]LogPwd=x\n");
}

TEST_F(IniFile, ARewrittenFileKeepsItsRightsAndFollowsNoLink)
{
    using std::filesystem::perms;
    const auto file = File("[S]\nK=old\n");
    const perms rights = perms::owner_read | perms::owner_write | perms::group_read;
    std::filesystem::permissions(file.File, rights);
    folder.Write("victim", "kept");
    create_symlink(folder.path() / "victim", folder.path() / "Settings.ini.new");
    file.WriteValue("S", "K", "v");
    EXPECT_EQ(Content(), "[S]\nK=v\n");
    EXPECT_EQ(status(file.File).permissions(), rights);
    EXPECT_EQ(folder.Read("victim"), "kept");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 3) << "nothing is left over";
}

TEST_F(IniFile, DefaultsCountWhileTheFileIsMissing)
{
    const clsIniFile file{folder.path() / "Settings.ini", "[S]\nK=default\n"};
    EXPECT_EQ(file.GetValue("S", "K"), "default");
    file.MakeDefaults();
    EXPECT_EQ(Content(), file.Defaults);
    folder.Write("Settings.ini", "[S]\n");
    file.MakeDefaults();
    EXPECT_EQ(file.GetValue("S", "K"), "") << "a file that is there says everything";
    (clsIniFile{folder.path() / "no such folder" / "a.ini"}).MakeDefaults();
}

TEST_F(IniFile, FirstLinesAndExistence)
{
    folder.Write("Drive.txt", "D:\\suite\r\nsecond\r\n");
    EXPECT_EQ(FirstLine(folder.path() / "Drive.txt"), "D:\\suite");
    EXPECT_EQ(FirstLine(folder.path() / "missing.txt"), "");
    EXPECT_EQ(FileExists(folder.path() / "Drive.txt"), 1);
    EXPECT_EQ(FileExists(folder.path()), 0) << "a folder is no file";
}
