// Each file of tests/scenarios is a run on a fresh practice with the demonstration clients. Its lines "#! handover CODE
// COLUMN=VALUE ..." and "#! sql FILE STATEMENT" make the practice ready, "#! siblings" puts the programs there that
// link with the accounts product, "#! server" puts that product's books on a database server; "#! start" starts a run
// (a second one starts the module again), "#! choose FILE" answers the next file dialog with a sample trial balance.
// The others are commands of the driver. Those of tests/scenarios/server need the database server of the tests.

#include "audit_report/report.h"
#include "audit_report/tables.h"
#include "drive/interpreter.h"
#include "module/module.h"
#include "report/computation_reader.h"
#include "report/plain_text.h"
#include "startup/sub_main.h"
#include "suite/assessee_years.h"
#include "suite/hand_over_row.h"
#include "suite/practice.h"
#include "support/empty_practice.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iostream>

using namespace pgbp;

namespace {

/// Made once; each scenario works on a copy.
const std::filesystem::path& DemonstrationPractice()
{
    static const TemporaryFolder folder;
    static const std::filesystem::path practice = [] {
        const auto path = folder.path() / "practice";
        CreatePractice(path, PGBP_DATA);
        return path;
    }();
    return practice;
}

/// The link with the accounts product runs as a process of its own; other siblings are only noted.
class StageProcesses : public TestProcesses {
  public:
    int RunAndWait(const std::filesystem::path& program, const std::vector<std::string>& arguments) override
    {
        if (program.filename().string().ends_with("VORNLink.exe"))
            return SystemProcesses().RunAndWait(program, arguments);
        return TestProcesses::RunAndWait(program, arguments);
    }
};

class Stage {
  public:
    Stage()
    {
        std::filesystem::copy(DemonstrationPractice(), root_, std::filesystem::copy_options::recursive);
        temporary_.Write("practice/Drive.txt", (root_ / "handover").string());
        Open("server/company.mdb")
            .Execute("update {misc_items} set linking = ? where [Type] = 'OVPATH'", (root_ / "accounts").string());
        processes_.whileRunning = [this] { PrintComputation(); };
    }

    /// Plays a scenario: what stands between two directives goes to the driver in one piece.
    void Play(const std::filesystem::path& file)
    {
        std::ifstream scenario(file);
        std::string commands;
        int skipped = 0;
        int number = 0;
        for (std::string line; std::getline(scenario, line);) {
            ++number;
            if (!line.starts_with("#!")) {
                commands += line + '\n';
                continue;
            }
            RunCommands(commands, skipped);
            skipped = number;
            Direct(line.substr(2));
        }
        RunCommands(commands, skipped);
    }

  private:
    Connection Open(const std::string& file) const { return OpenFile({root_ / file, {}}); }

    void Direct(const std::string& directive)
    {
        std::istringstream words(directive);
        std::string word;
        words >> word;
        if (word == "handover")
            HandOverTo(words);
        else if (word == "sql")
            RunSql(words);
        else if (word == "report")
            ReadReportOf(words);
        else if (word == "choose")
            Choose(words);
        else if (word == "siblings")
            LinkStandIns(root_, {PGBP_BOOKS_LINK, PGBP_BOOKS_LINK, PGBP_BOOKS_LINK}); // the links alone are used
        else if (word == "server")
            PutBooksOnServer();
        else if (word == "start")
            Start();
        else
            throw DriveError("unknown directive " + word);
    }

    void HandOverTo(std::istringstream& words)
    {
        const Practice practice(root_);
        std::string word;
        words >> word;
        HandOver record = PrepareHandOver(practice, FindAssesseeYear(practice, word));
        while (words >> word)
            SetColumn(record, word);
        WriteHandOverFile(practice, record);
    }

    void RunSql(std::istringstream& words) const
    {
        std::string file;
        std::string statement;
        words >> file;
        std::getline(words, statement);
        Open("server/" + file + ".mdb").Execute(statement);
    }

    void PutBooksOnServer() const
    {
        const auto login = TestServer();
        if (!login)
            throw DriveError(kNoServer);
        const Connection server = OpenFreshDatabase(*login, "Qel_OV", "balancesheet");
        const Connection books = Open("accounts/balancesheet.mdb");
        for (const Table& table : Tables())
            if (table.file == "balancesheet")
                for (const Row row : books.Query("select * from {" + std::string(table.name) + '}')) {
                    std::vector<Field> fields;
                    for (std::size_t i = 0; i < row.Size(); ++i)
                        fields.push_back({row.Name(i), row.At(i)});
                    server.Insert(table.name, fields);
                }
        std::ofstream(root_ / "OVServer.ini")
            << "[OV3]\nSERVER=" << login->server << "\nUSER=" << login->user << "\nPASS=" << login->password << '\n';
    }

    /// What the program of reports prints for the record that was handed to it, without blank lines.
    void PrintComputation()
    {
        if (processes_.started.back() != "VornRep.exe")
            return;
        HandOver record;
        ReadHandOver(OpenFile({root_ / "handover/VornTemp.mdb", {}}), record);
        report::ClientCopy copy({root_, run_->company, run_->balance, run_->tax}, record,
                                ReturnFormOf(root_, record.Glcode));
        std::istringstream text(PlainText(report::ReadComputation(copy)));
        for (std::string line; std::getline(text, line);)
            if (!line.empty())
                transcript_ << line << '\n';
    }

    /// The audit report that the preparer chooses in the reader's own window; "none" for none.
    void ReadReportOf(std::istringstream& words)
    {
        std::string sample;
        words >> sample;
        processes_.whileRunning = [this, sample] {
            const auto tables = root_ / "client/data/TempXML.mdb";
            std::filesystem::remove(tables);
            if (sample != "none")
                WriteTables(tables,
                            TablesOf(ReadReport(ReportFileContent(std::filesystem::path(PGBP_REPORTS) / sample))));
        };
    }

    /// The trial balance that the preparer chooses in the next file dialog.
    void Choose(std::istringstream& words)
    {
        std::string sample;
        words >> sample;
        files_.files.push_back(std::filesystem::path(PGBP_TRIAL_BALANCES) / sample);
    }

    void Start()
    {
        interpreter_.reset();
        run_ = std::make_unique<Run>(
            Host{boxes_, files_, processes_, root_, [] { return DateTime{2023, 7, 15, 10, 30, 0}; }});
        RegisterScreens(*run_);
        std::string why;
        ASSERT_TRUE(SubMain(*run_, why)) << why;
        interpreter_ = std::make_unique<Interpreter>(*run_, boxes_, files_, transcript_);
    }

    /// Blank lines stand for those before, so that an error names the line of the file.
    void RunCommands(std::string& commands, int skipped)
    {
        if (commands.find_first_not_of(" \n") != std::string::npos && interpreter_) {
            std::istringstream script(std::string(static_cast<std::size_t>(skipped), '\n') + commands);
            std::ostringstream unused;
            interpreter_->ExecuteScript(script, unused);
        }
        commands.clear();
    }

    TemporaryFolder temporary_;
    const std::filesystem::path root_ = temporary_.path() / "practice";
    std::ostringstream transcript_;
    DrivenBoxes boxes_{transcript_};
    DrivenFiles files_;
    StageProcesses processes_;
    std::unique_ptr<Run> run_;
    std::unique_ptr<Interpreter> interpreter_;
};

std::vector<std::filesystem::path> ScenarioFiles(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

class Scenario : public testing::TestWithParam<std::filesystem::path> {};

} // namespace

TEST_P(Scenario, Plays)
{
    if (GetParam().parent_path().filename() == "server" && !TestServer())
        GTEST_SKIP() << kNoServer;
    Stage stage;
    try {
        stage.Play(GetParam());
    } catch (const std::exception& error) {
        FAIL() << GetParam().filename().string() << ", " << error.what();
    }
}

const auto kName = [](const auto& scenario) {
    std::string name = scenario.param.stem().string();
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
};

INSTANTIATE_TEST_SUITE_P(Scenarios, Scenario, testing::ValuesIn(ScenarioFiles(PGBP_SCENARIOS)), kName);
INSTANTIATE_TEST_SUITE_P(ServerScenarios, Scenario, testing::ValuesIn(ScenarioFiles(PGBP_SCENARIOS "/server")), kName);
