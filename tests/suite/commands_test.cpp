#include "services/ini_file.h"
#include "store/files.h"
#include "suite/assessee_years.h"
#include "suite/client_settings.h"
#include "suite/commands.h"
#include "suite/hand_over_row.h"
#include "suite/new_practice.h"
#include "support/at_once.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

namespace pgbp {
namespace {

/// A module that does what the test says.
class FakeModule : public Processes {
  public:
    int RunAndWait(const std::filesystem::path&, const std::vector<std::string>&) override
    {
        programFolder = std::getenv("PGBP_PROGRAM_FOLDER");
        return work();
    }
    void Start(const std::filesystem::path&) override {}
    bool Open(const std::filesystem::path&) override { return false; }

    std::function<int()> work = [] { return 0; };
    std::string programFolder;
};

class Commands : public testing::Test {
  protected:
    std::string Run(std::vector<std::string> words)
    {
        std::ostringstream out;
        Suite suite{made.folder(), PGBP_DATA, "pgbp", {"pgbp-audit-reader", "pgbp-books-link", "pgbp-report"},
                    "pgbp-check",  module,    out};
        RunCommand(suite, words);
        return out.str();
    }
    std::string Refusal(std::vector<std::string> words)
    {
        try {
            Run(std::move(words));
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "";
    }

    double Assessees() const { return made.Open().company.Scalar("select count(*) from {assessee}").Number(); }

    NewPractice made;
    FakeModule module;
};

TEST_F(Commands, AddAnAssesseeWithTwoLinkedYears)
{
    const std::string number =
        Value(made.Open().company.Scalar("select max(company) from {assessee}").Number() + 1).Text();
    const std::string first = number + "r2009-10";
    const std::string second = number + "r2010-11";
    EXPECT_EQ(Run({"add-assessee", "Lata d'Souza", "AFZPD1234K", "01", "city_o=Panaji", "comm=O"}), number + '\n');
    EXPECT_EQ(Run({"add-year", number, "2009-10"}), first + '\n');
    EXPECT_EQ(Run({"add-year", number, "2010-11", "5"}), second + '\n');

    const Practice practice = made.Open();
    const AssesseeYear year = FindAssesseeYear(practice, second);
    EXPECT_EQ(year.name, "Lata d'Souza");
    EXPECT_EQ(PrecedingCode(practice, year), first);
    EXPECT_EQ(ReturnForm(practice, first), 4);
    EXPECT_EQ(ReturnForm(practice, second), 5);
    EXPECT_EQ(practice.company.Scalar("select city_o from {assessee} where company = ?", number).Text(), "Panaji");
    EXPECT_TRUE(practice.company.Scalar("select flag from {assessee} where company = ?", number).Flag());
    EXPECT_EQ(
        practice.company.Scalar("select name3 from {misc_items} where type = 'Fast2018' and code = ?", second).Text(),
        "0");
}

TEST_F(Commands, RefuseWithASentenceAndLeaveThePracticeAsItWas)
{
    struct Case {
        std::vector<std::string> words;
        const char* sentence;
    };
    const Case cases[] = {
        {{"new", made.folder().string()}, "is not empty"},
        {{"add-assessee", " ", "AFZPD1234K", "01"}, "needs a name"},
        {{"add-assessee", "Lata", "AFZPD123K", "01"}, "is no PAN"},
        {{"add-assessee", "Lata", "afzpd1234k", "01"}, "is no PAN"},
        {{"add-assessee", "Lata", "AFZPD1234K", "1"}, "is no status code"},
        {{"add-assessee", "Lata", "ABQPG4821K", "01"}, "belongs to Asha Gupta already"},
        {{"add-assessee", "Lata", "AFZPD1234K", "01", "colour=red"}, "no column colour"},
        {{"add-assessee", "Lata", "AFZPD1234K", "01", "company=7"}, "no column company"},
        {{"add-assessee", std::string(256, 'x'), "AFZPD1234K", "01"}, ""},
        {{"add-year", "1001", "2023-24"}, "has the year 2023-24 already: 1001r2023-24"},
        {{"add-year", "1001", "2035-36"}, "none of the assessment years"},
        {{"add-year", "77", "2023-24"}, "no assessee with the number 77"},
        {{"add-year", "x", "2023-24"}, "is no number of an assessee"},
        {{"show", "9r2023-24"}, "no assessee-year 9r2023-24"},
        {{"handover", "1001r2023-24", "GLlock=many"}, "GLlock: \"many\" is no number"},
        {{"fill", "0"}, "Between 1 and 1000000"},
        {{"fill"}, "pgbp-suite fill COUNT"},
        {{"settings", "1003r2023-24", "locked"}, "NAME=VALUE is wanted"},
        {{"settings", "1003r2023-24", "locked=perhaps"}, "neither yes nor no"},
        {{"settings", "1003r2023-24", "form=3"}, "no return form"},
        {{"settings", "1003r2023-24", "locked=yes", "ind-as=yes"}, "no setting ind-as of 1003r2023-24"},
        {{"frobnicate"}, "There is no command frobnicate"},
    };
    const std::string before = Run({"list"});
    const double assessees = Assessees();
    for (const Case& each : cases) {
        const std::string refusal = Refusal(each.words);
        EXPECT_FALSE(refusal.empty()) << each.words[0] << ' ' << each.sentence;
        EXPECT_NE(refusal.find(each.sentence), std::string::npos) << refusal;
    }
    EXPECT_EQ(Run({"list"}), before);
    EXPECT_EQ(Assessees(), assessees);
}

TEST_F(Commands, RunHandsOverAndShowsWhatCameBack)
{
    HandOver seen;
    module.work = [&] {
        const Practice practice = made.Open();
        ReadHandOver(OpenFile({practice.HandOverFile(), {}}), seen);
        practice.balance.Execute("insert into {qelgeneral} (code, [Type], amt14) values (?, 'BUSI', 1234567.5)",
                                 seen.Glcode);
        return 0;
    };
    const std::string shown = Run({"run", "1001r2023-24", "GlLarge=yes", "GLminor=2"});
    EXPECT_EQ(seen.Glcode, "1001r2023-24");
    EXPECT_TRUE(seen.GlLarge);
    EXPECT_EQ(seen.GLminor, 2);
    EXPECT_EQ(module.programFolder, made.folder().string());
    EXPECT_NE(shown.find("Profits & gains from business or profession           12,34,567.50"), std::string::npos)
        << shown;
}

TEST_F(Commands, RunTellsWhenNothingCameBack)
{
    const std::string nothing = "The module ended without writing the head of income.\nAsha Gupta";
    EXPECT_TRUE(Run({"run", "1001r2022-23"}).starts_with(nothing));
    module.work = [&] { // a reminder, and another workstation that works on another year
        const Connection balance = made.Open().balance;
        for (const char* type : {"REMINDER", "BUSI"})
            balance.Insert("qelgeneral",
                           {{"code", type == std::string("BUSI") ? "1001r2023-24" : "1001r2022-23"}, {"Type", type}});
        return 0;
    };
    EXPECT_TRUE(Run({"run", "1001r2022-23"}).starts_with(nothing));
    module.work = [&] { // Back without a change: the same row again
        const Connection balance = made.Open().balance;
        const Value amount =
            balance.Scalar("select amt14 from {qelgeneral} where code = '1001r2022-23' and [Type] = 'BUSI'");
        balance.Delete("from {qelgeneral} where code = '1001r2022-23' and [Type] = 'BUSI'");
        balance.Insert("qelgeneral", {{"code", "1001r2022-23"}, {"Type", "BUSI"}, {"amt14", amount}});
        return 0;
    };
    for (int time = 0; time < 2; ++time)
        EXPECT_TRUE(Run({"run", "1001r2022-23"}).starts_with("Asha Gupta")) << time;
    module.work = [] { return 1; };
    EXPECT_NE(Refusal({"run", "1001r2023-24"}).find("exit status 1"), std::string::npos);
}

/// A minor's figures must not be taken for the assessee's, whoever looks next.
TEST_F(Commands, HeadOfAMinorsRunIsToldUntilTheOwnRunWroteIt)
{
    const auto rewrite = [&](double amount) {
        const Connection balance = made.Open().balance;
        balance.Delete("from {qelgeneral} where code = '1007r2022-23' and [Type] = 'BUSI'");
        balance.Insert("qelgeneral", {{"code", "1007r2022-23"}, {"Type", "BUSI"}, {"amt14", amount}});
        return 0;
    };
    const auto listed = [&] { return Run({"list", "1007r2022-23"}).substr(93); };
    EXPECT_EQ(listed(), "4,30,050.00\n");

    module.work = [&] { return rewrite(33700); };
    EXPECT_NE(Run({"run", "1007r2022-23", "GLminor=2"}).find("The run of minor 2 wrote it"), std::string::npos);
    EXPECT_EQ(listed(), "33,700.00 (minor 2)\n");

    module.work = [] { return 0; }; // the own run, left by the window's cross
    Run({"run", "1007r2022-23"});
    EXPECT_EQ(listed(), "33,700.00 (minor 2)\n");

    Run({"handover", "1007r2022-23"}); // the own run, whose end nobody waited for
    rewrite(430050);
    EXPECT_EQ(listed(), "4,30,050.00\n");

    Run({"run", "1007r2022-23", "GLminor=1"}); // left by the cross again
    EXPECT_EQ(listed(), "4,30,050.00\n");
}

TEST_F(Commands, EnsureMakesAPracticeOnceAndThenLeavesIt)
{
    const double assessees = Assessees();
    Run({"add-assessee", "Lata", "AFZPD1234K", "01"});
    EXPECT_EQ(Run({"ensure"}), "");
    EXPECT_EQ(Assessees(), assessees + 1);
    std::filesystem::remove_all(made.folder());
    Run({"ensure"});
    EXPECT_TRUE(IsPractice(made.folder()));
}

TEST_F(Commands, PracticeHasTheSiblingsOfTheModule)
{
    const std::filesystem::path reader = made.folder() / "Audit3CDReader.exe";
    const auto leadsTo = [&] { return std::filesystem::read_symlink(reader).filename(); };
    std::filesystem::remove_all(made.folder());
    Run({"new", made.folder().string()});
    EXPECT_EQ(leadsTo(), "pgbp-audit-reader");
    for (const char* link : {"OVVORNLink.exe", "VORNLink.exe"})
        EXPECT_EQ(std::filesystem::read_symlink(made.folder() / link).filename(), "pgbp-books-link");
    std::filesystem::remove(reader);
    std::filesystem::create_symlink("moved-away", reader);
    Run({"ensure"});
    EXPECT_EQ(leadsTo(), "pgbp-audit-reader") << "a link that leads nowhere is put right";
    const TemporaryFolder otherVersion;
    for (const char* name : {"pgbp-audit-reader", "another-reader"}) {
        otherVersion.Write(name, "a program");
        std::filesystem::remove(reader);
        std::filesystem::create_symlink(otherVersion.path() / name, reader);
        Run({"handover", "1001r2023-24"});
        const bool isOurs = std::filesystem::read_symlink(reader) != otherVersion.path() / name;
        EXPECT_EQ(isOurs, std::string_view(name) == "pgbp-audit-reader")
            << "one of another version is replaced, another program is not: " << name;
    }
    std::filesystem::remove(reader);
    std::ofstream(reader) << "the suite's own";
    Run({"ensure"});
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::symlink_status(reader)));
}

TEST(FirstStarts, ManyAtOnceMakeOnePracticeAndOneHandOverFile)
{
    const TemporaryFolder place;
    const std::filesystem::path folder = place.path() / "practice";
    FakeModule module;
    const auto ensure = [&] {
        std::ostringstream out;
        Suite suite{folder,       PGBP_DATA, "pgbp", {"pgbp-audit-reader", "pgbp-books-link", "pgbp-report"},
                    "pgbp-check", module,    out};
        RunCommand(suite, std::vector<std::string>{"ensure"});
    };
    EXPECT_EQ(FailuresAtOnce(4, ensure), std::vector<std::string>());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place.path()), {}), 1) << "nothing is left over";

    const auto handOver = [&] {
        const Practice practice(folder);
        WriteHandOverFile(practice, PrepareHandOver(practice, FindAssesseeYear(practice, "1001r2022-23")));
    };
    for (int round = 0; round < 5; ++round) {
        std::filesystem::remove(folder / "handover/VornTemp.mdb");
        EXPECT_EQ(FailuresAtOnce(8, handOver), std::vector<std::string>());
    }
}

} // namespace
} // namespace pgbp
