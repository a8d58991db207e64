// A backup is whole or does not count, is of one moment, and can be restored.
#include "services/ini_file.h"
#include "services/name_lock.h"
#include "store/files.h"
#include "suite/backup.h"
#include "suite/new_practice.h"
#include "support/without_rights.h"

#include <csignal>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <set>
#include <sys/wait.h>

namespace pgbp {
namespace {

namespace fs = std::filesystem;

constexpr DateTime kToday{2026, 11, 23, 18, 2, 11};

class PracticeBackup : public testing::Test {
  protected:
    static std::string Refusal(const std::function<void()>& work)
    {
        try {
            work();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }
    std::set<std::string> NamesIn(const fs::path& place) const
    {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(place))
            names.insert(entry.path().filename().string());
        return names;
    }
    std::vector<std::string> Kept() const
    {
        std::vector<std::string> names;
        for (const Backup& each : Backups(practice))
            names.push_back(each.Name());
        return names;
    }
    void Work() const
    {
        made.Open().company.Execute("update {assessee} set city_o = city_o || 'x' where company = 1001");
    }
    static std::string City(const fs::path& place)
    {
        return Practice(place).company.Scalar("select city_o from {assessee} where company = 1001").Text();
    }
    /// Turns one byte of a file.
    static void Damage(const fs::path& file, std::streamoff at)
    {
        std::fstream stream(file, std::ios::binary | std::ios::in | std::ios::out);
        stream.seekg(at);
        const auto turned = static_cast<char>(stream.get() ^ 1);
        stream.seekp(at);
        stream.put(turned);
    }

    NewPractice made;
    TemporaryFolder elsewhere;
    const fs::path practice = made.folder();
    const fs::path folder = practice / "backups";
};

TEST_F(PracticeBackup, RestoreGivesThePracticeAsItWas)
{
    const std::string before = City(practice);
    clsIniFile{practice / "QelCtrl.ini"}.WriteValue("ITR", "1001r2023-24", "3");
    const Backup backup = MakeBackup(practice, kToday);
    EXPECT_EQ(backup.Name(), "2026-11-23-1");
    EXPECT_TRUE(backup.record.without.empty());
    Work();
    const fs::path restored = elsewhere.path() / "restored";
    RestoreBackup(backup.folder, restored);
    EXPECT_EQ(City(restored), before);
    EXPECT_NE(City(practice), before);
    EXPECT_EQ(clsIniFile{restored / "QelCtrl.ini"}.GetValue("ITR", "1001r2023-24"), "3");
    EXPECT_EQ(Practice(restored).HandOverFile(), restored / "handover" / "VornTemp.mdb");
    EXPECT_TRUE(FileExists(restored / "client" / "data" / "qeltemp.mdb"));
    EXPECT_EQ(Practice(restored).company.Scalar("select linking from {misc_items} where [Type] = 'OVPATH'").Text(),
              (restored / "accounts").string());
    EXPECT_TRUE(FileExists(restored / "accounts" / "balancesheet.mdb"));
    EXPECT_TRUE(Backups(restored).empty());
    EXPECT_NE(Refusal([&] { RestoreBackup(backup.folder, restored); }).find("is not empty"), std::string::npos);
    EXPECT_NE(Refusal([&] { RestoreBackup(folder, elsewhere.path() / "other"); }).find("no whole backup"),
              std::string::npos);
    EXPECT_EQ(NamesIn(elsewhere.path()), std::set<std::string>{"restored"});
}

/// Two programs store the same number in two files, in one commit; every backup has the same number twice.
TEST_F(PracticeBackup, AreOfOneMomentWhileOthersStore)
{
    const pid_t writer = fork();
    if (writer == 0) {
        try {
            const Practice mine(practice);
            for (int number = 1;; ++number) {
                Transaction transaction({mine.company, mine.balance});
                mine.company.Execute("update {assessee} set pin_o = ? where company = 1001", number);
                mine.balance.Execute("update {qelgeneral} set amt14 = ? where type = 'BUSI'", number);
                transaction.Commit();
            }
        } catch (const std::exception&) { // it waited for longer than it should
            _exit(1);
        }
    }
    std::set<double> numbers;
    for (int round = 0; round < 12; ++round) {
        const Backup backup = MakeBackup(practice, kToday);
        const auto files = OpenFiles(std::vector<DataFile>{{backup.folder / "server" / "company.mdb", {}},
                                                           {backup.folder / "server" / "balance.mdb", {}}});
        const double company = files[0].Scalar("select pin_o from {assessee} where company = 1001").Number();
        for (const Row& row : files[1].Query("select amt14 from {qelgeneral} where type = 'BUSI'"))
            if (company != 0 && row["amt14"].Number() != company)
                ADD_FAILURE() << row["amt14"].Number() << " beside " << company;
        numbers.insert(company);
    }
    EXPECT_GT(numbers.size(), 3U) << "the test shows nothing";
    EXPECT_EQ(waitpid(writer, nullptr, WNOHANG), 0) << "the writer could not store";
    kill(writer, SIGKILL);
    waitpid(writer, nullptr, 0);
}

TEST_F(PracticeBackup, TheNewestTenAreKept)
{
    for (int day = 1; day <= 12; ++day)
        MakeBackup(practice, {2026, 11, day});
    MakeBackup(practice, {2026, 11, 12});
    const auto kept = Kept();
    ASSERT_EQ(kept.size(), kKeptBackups);
    EXPECT_EQ(kept.front(), "2026-11-12-2");
    EXPECT_EQ(kept.back(), "2026-11-04-1");
    MakeBackup(practice, {2020, 1, 1}); // the clock is wrong
    EXPECT_EQ(Kept().back(), "2020-01-01-1");
    EXPECT_EQ(Kept().size(), kKeptBackups);
    EXPECT_EQ(NamesIn(folder).size(), kKeptBackups + 1); // and the lock
}

TEST_F(PracticeBackup, WhatIsNotWholeDoesNotCountAndGoes)
{
    const Backup whole = MakeBackup(practice, kToday);
    const fs::path killed = folder / "2026-11-23-2.aaaaaaaaaaaaaaaa.new";
    fs::copy(whole.folder, killed, fs::copy_options::recursive);
    const fs::path others = folder / "letters.aaaaaaaaaaaaaaaa.new";
    fs::create_directory(others);
    const fs::path torn = folder / "2026-11-23-7"; // somebody took a file out of it
    fs::copy(whole.folder, torn, fs::copy_options::recursive);
    fs::remove(torn / "server" / "tax.mdb");
    EXPECT_EQ(Kept(), std::vector<std::string>{"2026-11-23-1"});
    {
        const NameLock other(folder / "pgbp.lock", "backup");
        EXPECT_NE(Refusal([&] { MakeBackup(practice, kToday); }).find("being made just now"), std::string::npos);
        EXPECT_TRUE(fs::exists(killed));
    }
    MakeBackup(practice, kToday);
    EXPECT_EQ(Kept(), (std::vector<std::string>{"2026-11-23-2", "2026-11-23-1"}));
    EXPECT_FALSE(fs::exists(killed));
    EXPECT_TRUE(fs::exists(others));
    EXPECT_NE(Refusal([&] { RestoreBackup(torn, elsewhere.path() / "new"); }).find("no whole backup"),
              std::string::npos);
}

TEST_F(PracticeBackup, ATurnedByteIsFoundBeforeItIsRestored)
{
    const Backup backup = MakeBackup(practice, kToday);
    std::vector<std::string> names{"backup.txt"};
    for (const BackupFile& file : backup.record.files)
        names.push_back(file.name);
    for (const std::string& name : names) {
        const auto at = static_cast<std::streamoff>(fs::file_size(backup.folder / name) / 2);
        Damage(backup.folder / name, at);
        const std::string told = Refusal([&] { RestoreBackup(backup.folder, elsewhere.path() / "new"); });
        EXPECT_NE(told.find("\"pgbp-suite backups\" names those there are"), std::string::npos) << name << ": " << told;
        Damage(backup.folder / name, at);
    }
    EXPECT_TRUE(fs::is_empty(elsewhere.path()));
    RestoreBackup(backup.folder, elsewhere.path() / "new");
}

TEST_F(PracticeBackup, ADamagedFileMakesNoneAndRemovesNone)
{
    for (int day = 1; day <= 10; ++day)
        MakeBackup(practice, {2026, 11, day});
    const auto before = NamesIn(folder);
    const fs::path company = practice / "server" / "company.mdb";
    std::ifstream stream(company, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    Damage(company, static_cast<std::streamoff>(bytes.find("ABQPG4821K"))); // a PAN in the table, not in its index
    const std::string told = Refusal([&] { MakeBackup(practice, kToday); });
    EXPECT_NE(told.find("The backup could not be made: the file \"" + company.string() + "\" is damaged."),
              std::string::npos)
        << told;
    EXPECT_NE(told.find("The earlier backups stay as they are."), std::string::npos);
    EXPECT_NE(BackupWarning(practice, kToday).find("is damaged"), std::string::npos);
    elsewhere.Write("empty", "");
    fs::copy_file(elsewhere.path() / "empty", company, fs::copy_options::overwrite_existing);
    EXPECT_NE(Refusal([&] { MakeBackup(practice, kToday); }).find("is no data file"), std::string::npos);
    EXPECT_EQ(NamesIn(folder), before);
}

TEST_F(PracticeBackup, AFolderThatCanOnlyBeReadIsNamed)
{
    MakeBackup(practice, kToday);
    LetEverybodyIn(made.folder().parent_path());
    const WithoutRights readOnly(folder, kWriting);
    const std::string told = Refusal([&] { MakeBackup(practice, kToday); });
    EXPECT_NE(told.find("you have no rights to the file \"" + folder.string()), std::string::npos) << told;
    EXPECT_EQ(Kept().size(), 1U);
}

TEST_F(PracticeBackup, WhenOneIsDue)
{
    const DateTime tomorrow{2026, 11, 24};
    EXPECT_TRUE(IsBackupDue(practice, kToday)) << "none yet";
    MakeBackup(practice, kToday);
    Work();
    EXPECT_FALSE(IsBackupDue(practice, kToday)) << "today has one";
    EXPECT_TRUE(IsBackupDue(practice, tomorrow));
    MakeBackup(practice, tomorrow);
    clsIniFile{practice / "client" / "chooser.ini"}.WriteValue("LIST", "Order", "1");
    EXPECT_FALSE(IsBackupDue(practice, {2026, 11, 25})) << "nothing was stored since";
}

/// The practice is new, so its files were written on the day of this test.
TEST_F(PracticeBackup, WhatIsInNoBackupIsToldTheNextDay)
{
    const DateTime today = Now();
    DateTime later = today;
    later.year += 1;
    EXPECT_EQ(BackupWarning(practice, today), "");
    EXPECT_EQ(BackupWarning(practice, later),
              "What was stored on " + DayText(today) + " is in no backup yet. Alt+B makes one.");
    MakeBackup(practice, today);
    EXPECT_EQ(BackupWarning(practice, later), "");
}

TEST_F(PracticeBackup, SayWhatIsNotInThem)
{
    elsewhere.Write("jet.mdb", std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4076, '\0'));
    fs::copy_file(elsewhere.path() / "jet.mdb", practice / "server" / "old.mdb");
    clsIniFile{practice / "Settings.ini"}.WriteValue("DBTYPE", "DB", "SQL");
    fs::remove(practice / "server" / "company.mdb");
    const Backup backup = MakeBackup(practice, kToday);
    ASSERT_EQ(backup.record.without.size(), 2U);
    EXPECT_TRUE(backup.record.without[0].starts_with("company and balance, which lie on the database server"));
    EXPECT_TRUE(backup.record.without[1].starts_with("server/old.mdb, a file of another database engine"));
    EXPECT_EQ(Backups(practice).front().record.without, backup.record.without);
}

TEST_F(PracticeBackup, LieWhereTheSettingsSay)
{
    clsIniFile{practice / "Settings.ini"}.WriteValue("BACKUP", "Folder", (elsewhere.path() / "disk").string());
    const NewPractice other;
    clsIniFile{other.folder() / "Settings.ini"}.WriteValue("BACKUP", "Folder", (elsewhere.path() / "disk").string());
    EXPECT_EQ(MakeBackup(practice, kToday).folder, elsewhere.path() / "disk" / "2026-11-23-1");
    EXPECT_EQ(MakeBackup(other.folder(), kToday).Name(), "2026-11-23-2");
    EXPECT_EQ(Kept(), std::vector<std::string>{"2026-11-23-1"}) << "the other one's do not count";
    EXPECT_FALSE(fs::exists(folder));
}

} // namespace
} // namespace pgbp
