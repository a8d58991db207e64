#include "suite/commands.h"

#include "services/format.h"
#include "services/utf8.h"
#include "suite/assessee_kinds.h"
#include "suite/backup_commands.h"
#include "suite/client_settings.h"
#include "suite/fill.h"
#include "suite/hand_over_row.h"
#include "suite/head_of_income.h"
#include "suite/new_clients.h"
#include "suite/search_words.h"

#include <charconv>
#include <cstdlib>
#include <ostream>
#include <stdexcept>

namespace pgbp {
namespace {

using Words = std::span<const std::string>;

struct Command {
    std::string_view name;
    std::string_view arguments;
    std::string_view purpose;
    std::size_t least; ///< number of arguments
    std::size_t most;
    void (*run)(Suite&, Words);
};

constexpr std::size_t kAnyNumber = 1000;

std::string Padded(const std::string& text, int width)
{
    return text + std::string(static_cast<std::size_t>(std::max(1, width - CharacterCount(text))), ' ');
}

double NumberOf(const std::string& text, const char* what)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw std::runtime_error("\"" + text + "\" is no " + what + ".");
    return number;
}

void New(Suite& suite, Words words)
{
    CreatePractice(words[0], suite.dataFolder);
    LinkStandIns(words[0], suite.standIns);
    suite.out << "A practice with its demonstration clients stands in " << words[0] << ".\n";
}

void Ensure(Suite& suite, Words)
{
    if (IsPractice(suite.programFolder))
        return LinkStandIns(suite.programFolder, suite.standIns); // it may be older than they are
    try {
        New(suite, std::vector{suite.programFolder.string()});
    } catch (const std::exception&) {
        if (!IsPractice(suite.programFolder)) // or else another program was faster
            throw;
    }
}

std::string Joined(Words words)
{
    std::string text;
    for (const std::string& word : words)
        text += word + ' ';
    return text;
}

void List(Suite& suite, Words words)
{
    const Practice practice(suite.programFolder);
    const std::vector<std::string> wanted = WordsOf(Joined(words));
    for (AssesseeYear& each : AssesseeYears(practice)) {
        if (!HoldsAll(SearchedWords(each), wanted))
            continue;
        ReadHead(practice, each);
        suite.out << Padded(each.code, 16) << Padded(each.name, 44) << Padded(KindInWords(each.status), 24)
                  << Padded(each.year, 9) << HeadInWords(each) << '\n';
    }
}

void AddAssesseeCommand(Suite& suite, Words words)
{
    Assessee assessee{words[0], words[1], words[2], {}};
    for (const std::string& word : words.subspan(3)) {
        const auto equals = word.find('=');
        if (equals == std::string::npos)
            throw std::runtime_error("\"" + word + "\": COLUMN=VALUE is wanted, such as city_o=Jaipur.");
        assessee.further[word.substr(0, equals)] = word.substr(equals + 1);
    }
    suite.out << Value(AddAssessee(Practice(suite.programFolder), assessee)).Text() << '\n';
}

void AddYearCommand(Suite& suite, Words words)
{
    const double form = words.size() > 2 ? NumberOf(words[2], "number of a return form") : 0;
    suite.out << AddYear(Practice(suite.programFolder), NumberOf(words[0], "number of an assessee"), words[1], form)
              << '\n';
}

void HandOverCommand(Suite& suite, Words words)
{
    const Practice practice(suite.programFolder);
    const AssesseeYear found = FindAssesseeYear(practice, words[0]);
    HandOver record = PrepareHandOver(practice, found);
    ApplySettings(record, ReadSettings(practice, found.code));
    for (const std::string& word : words.subspan(1))
        SetColumn(record, word);
    LinkStandIns(suite.programFolder, suite.standIns);
    NoteRun(practice, record.Glcode, record.GLminor);
    WriteHandOverFile(practice, record);
}

void Show(Suite& suite, Words words)
{
    const Practice practice(suite.programFolder);
    const AssesseeYear found = FindAssesseeYear(practice, words[0]);
    suite.out << found.name << "   " << found.year << "   " << KindInWords(found.status) << '\n';
    const auto lines = HeadOfIncome(practice, found.code);
    suite.out << (lines ? InWords(*lines) : "The head of income has not been written yet.\n");
    if (found.writtenFor != 0)
        suite.out << "The run of " << MinorInWords(found.writtenFor)
                  << " wrote it: these are the child's figures until the assessee's own run writes it anew.\n";
}

void Settings(Suite& suite, Words words)
{
    const Practice practice(suite.programFolder);
    const AssesseeYear found = FindAssesseeYear(practice, words[0]);
    ClientSettings settings = ReadSettings(practice, found.code);
    for (const std::string& word : words.subspan(1))
        SetSetting(settings, found, word);
    if (words.size() > 1)
        StoreSettings(practice, found, settings);
    suite.out << "form=" << Value(settings.returnForm).Text() << '\n';
    for (const ClientSwitch& each : ClientSwitches())
        if (each.concerns(found))
            suite.out << each.name << '=' << (settings.*each.value ? "yes" : "no") << '\n';
}

/// Starts the module on the practice and waits until it ends.
void RunModule(const Suite& suite)
{
    setenv("PGBP_PROGRAM_FOLDER", std::filesystem::absolute(suite.programFolder).c_str(), 1);
    if (const int status = suite.processes.RunAndWait(suite.module); status != 0)
        throw std::runtime_error("The module ended with the exit status " + std::to_string(status) +
                                 "; the head of income stays as it was.");
}

void RunAndShow(Suite& suite, Words words)
{
    HandOverCommand(suite, words);
    RunModule(suite);
    if (!HeadOfIncomeCameBack(Practice(suite.programFolder), words[0]))
        suite.out << "The module ended without writing the head of income.\n";
    Show(suite, words.first(1));
}

/// The program of reports tells what it makes and what fails.
void Report(Suite& suite, Words words)
{
    std::vector<std::string> arguments{"--program-folder", suite.programFolder.string()};
    arguments.insert(arguments.end(), words.begin(), words.end());
    suite.out.flush();
    if (suite.processes.RunAndWait(suite.standIns.reporter, arguments) != 0)
        throw std::runtime_error("Not all reports were made.");
}

/// The program tells what it finds.
void Check(Suite& suite, Words words)
{
    std::vector<std::string> arguments{"--program-folder", suite.programFolder.string()};
    arguments.insert(arguments.end(), words.begin(), words.end());
    suite.out.flush();
    constexpr int kFound = 1;
    if (const int status = suite.processes.RunAndWait(suite.checker, arguments); status != 0)
        throw std::runtime_error(status == kFound ? "Not all agrees." : "The check was not made.");
}

void Fill(Suite& suite, Words words)
{
    const double count = NumberOf(words[0], "number of assessee-years");
    if (count < 1 || count > 1e6)
        throw std::runtime_error("Between 1 and 1000000 assessee-years can be added at a time.");
    const long rows = FillPractice(Practice(suite.programFolder), suite.dataFolder, static_cast<int>(count));
    suite.out << rows << " rows added.\n";
}

void Help(Suite& suite, Words);

constexpr Command kCommands[] = {
    {"new", "FOLDER", "makes a practice with demonstration clients in a new or empty folder", 1, 1, New},
    {"ensure", "", "makes the practice where there is none yet", 0, 0, Ensure},
    {"list", "[WORD ...]", "the assessee-years whose code, name, PAN, kind or year holds each of the words", 0,
     kAnyNumber, List},
    {"add-assessee", "NAME PAN STATUS [COLUMN=VALUE ...]", "adds an assessee and prints the number", 3, kAnyNumber,
     AddAssesseeCommand},
    {"add-year", "NUMBER YEAR [FORM]", "adds an assessment year of an assessee and prints its code", 2, 3,
     AddYearCommand},
    {"settings", "CODE [NAME=VALUE ...]", "sets the client's settings, such as locked=yes or form=5, and shows them", 1,
     kAnyNumber, Settings},
    {"handover", "CODE [COLUMN=VALUE ...]", "writes the hand-over record, any column set as told", 1, kAnyNumber,
     HandOverCommand},
    {"run", "CODE [COLUMN=VALUE ...]", "hands over, starts the module, shows the head of income that came back", 1,
     kAnyNumber, RunAndShow},
    {"show", "CODE", "the head of income as it was written last", 1, 1, Show},
    {"report", "CODE ... [--pdf FOLDER | --xls FOLDER | --text]",
     "the computation of each client on paper: a file in FOLDER named by PAN and year, or as text", 1, kAnyNumber,
     Report},
    {"check", "[--csv FILE] [CODE ...]",
     "finds what does not agree: heads of income, statements, annexures, ratios, rows of nobody", 0, kAnyNumber, Check},
    {"fill", "COUNT", "adds that many assessee-years made up from the demonstration clients", 1, 1, Fill},
    {"backup", "[if-due]",
     "copies all files while others work; with if-due only where today has none and work was stored", 0, 1,
     BackupCommand},
    {"backups", "", "the backups that count, the newest first", 0, 0, BackupsCommand},
    {"restore", "BACKUP NEWFOLDER", "makes the practice of a backup anew in a new or empty folder", 2, 2,
     RestoreCommand},
    {"--help", "", "this text", 0, 0, Help},
};

std::string Usage(const Command& command)
{
    return "pgbp-suite " + std::string(command.name) + (command.arguments.empty() ? "" : " ") +
           std::string(command.arguments);
}

void Help(Suite& suite, Words)
{
    suite.out
        << "pgbp-suite [--program-folder FOLDER] [COMMAND ...]\n\n"
           "Without a command the chooser window opens, with --search WORDS on what holds them; it offers to make\n"
           "a practice where there is none;\n"
           "--picture FILE.png draws it without a display.\n"
           "The practice is the folder told, else that of the environment variable PGBP_PROGRAM_FOLDER,\n"
           "else ./practice.\n\n";
    for (const Command& command : kCommands)
        suite.out << Usage(command) << "\n    " << command.purpose << '\n';
    suite.out << "\nSTATUS:";
    for (const AssesseeKind& kind : AssesseeKinds())
        suite.out << "  " << kind.status << ' ' << kind.words;
    suite.out << '\n';
}

const Command& CommandNamed(const std::string& name)
{
    for (const Command& command : kCommands)
        if (command.name == name)
            return command;
    throw std::runtime_error("There is no command " + name + ". \"pgbp-suite --help\" tells those there are.");
}

} // namespace

void RunCommand(Suite& suite, std::span<const std::string> words)
{
    const Command& command = CommandNamed(words[0]);
    const Words arguments = words.subspan(1);
    if (arguments.size() < command.least || arguments.size() > command.most)
        throw std::runtime_error("How it is used: " + Usage(command));
    command.run(suite, arguments);
}

} // namespace pgbp
