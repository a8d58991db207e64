#include "books_link/book_amounts.h"
#include "books_link/linked_statement.h"
#include "entry/linked_client.h"
#include "services/ini_file.h"
#include "services/options.h"
#include "services/text.h"
#include "startup/settings.h"
#include "startup/sub_main.h"

#include <iostream>

namespace {

namespace fs = std::filesystem;
using namespace pgbp;

constexpr const char* kUsage =
    R"(Brings the profit and loss account of a line of business out of the accounts product

  OVVORNLink.exe [--program-folder FOLDER]      from its data file, as OVVorn.ini tells
  VORNLink.exe [--program-folder FOLDER]        from its database server; records the link where that is asked for

The module starts it without a word. What is to be done stands in VornOV.mdb in the folder of the hand-over file.
FOLDER is the program folder, else the one that this program is started from.
)";

/// Nobody is asked and nobody is told: the module that waits tells what it sees.
class Nobody : public MessageBoxes, public FileDialogs {
  public:
    Answer Show(const Message&) override { return Answer::No; }
    std::optional<fs::path> AskOpen(const std::string&, const std::string&) override { return std::nullopt; }
    std::optional<fs::path> AskSave(const std::string&, const std::string&) override { return std::nullopt; }
};

/// The folder in which the program was found, not the one that a link to it leads to.
fs::path FolderOf(const char* program)
{
    const fs::path started = program;
    return started.has_parent_path() ? started.parent_path() : fs::read_symlink("/proc/self/exe").parent_path();
}

void ImportOlder(const Run& run)
{
    const clsIniFile told{run.host.programFolder / "OVVorn.ini"};
    const fs::path folder = Replace(told.GetValue("OV", "OVPATH"), "\\", "/");
    const Connection books = OpenFileToRead({.path = folder / "balancesheet.mdb", .dsn = {}});
    StoreLinkedStatement(run, run.SpInc, ReadBookAmounts(books, told.GetValue("OV", "OVCODE")));
}

void ImportNewer(const Run& run)
{
    const Connection books = OpenOVServer(run);
    if (run.GLrep == "OVLNK")
        return StoreLink(run, books);
    const std::string code = LinkedCode(books, LinkedNumber(run), run.Glyear);
    StoreLinkedStatement(run, run.SpInc, ReadBookAmounts(books, code));
}

void BringStatement(Run& run, bool isOlder)
try {
    std::string why;
    if (!OpenPractice(run, kLinkHandOverFile, why))
        throw Fault(why);
    isOlder ? ImportOlder(run) : ImportNewer(run);
} catch (const std::exception& error) {
    run.Log(error);
    throw;
}

} // namespace

int main(int argc, char** argv)
try {
    std::vector<std::string> words(argv + 1, argv + argc);
    const fs::path programFolder = TakeOption(words, "--program-folder").value_or(FolderOf(argv[0]).string());
    if (!words.empty()) {
        std::cout << kUsage;
        return words.front() == "--help" ? 0 : 1;
    }
    Nobody nobody;
    SystemProcesses processes;
    Run run({.boxes = nobody, .files = nobody, .processes = processes, .programFolder = programFolder});
    BringStatement(run, fs::path(argv[0]).filename() == "OVVORNLink.exe");
    return 0;
} catch (const std::exception& error) {
    std::cerr << fs::path(argv[0]).filename().string() << ": " << PreparersWords(error) << '\n';
    if (const std::string technical = TechnicalWords(error); !technical.empty())
        std::cerr << technical << '\n';
    return 1;
}
