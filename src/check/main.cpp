#include "check/practice_check.h"
#include "services/fault.h"
#include "services/fresh_file.h"
#include "services/options.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace {

using namespace pgbp;

constexpr const char* kUsage = R"(pgbp-check: what does not agree in a practice

  pgbp-check [--program-folder FOLDER] [--csv FILE] [--lines] [CODE ...]

Computes the head of income of every assessee-year anew, by the module's own summary, and holds it against the one that
is stored; holds the lines of business against their statements and annexures, the ratios of a firm's partners against
100; finds rows that belong to nobody. With CODE only those assessee-years are looked at. The practice is only read, and
others can work on it meanwhile.

What is found is printed, one a line, and with --csv also written into FILE for a spreadsheet. With --lines the output is
for another program: fields between tabs, and lines "progress DONE ALL".

The practice is the folder told, else that of PGBP_PROGRAM_FOLDER, else ./practice.

The exit status is 0 where all agrees, 1 where something was found, 2 where the check failed.
)";

enum Status { kAgrees = 0, kFound = 1, kFailed = 2 };

struct Options {
    std::filesystem::path programFolder;
    std::optional<std::string> csv;
    bool lines = false;
    bool help = false;
    std::vector<std::string> codes;
};

Options ReadOptions(std::vector<std::string> words)
{
    Options options;
    const char* chosen = std::getenv("PGBP_PROGRAM_FOLDER");
    options.programFolder = TakeOption(words, "--program-folder").value_or(chosen && *chosen ? chosen : "practice");
    options.csv = TakeOption(words, "--csv");
    options.lines = std::erase(words, "--lines") > 0;
    options.help = std::ranges::any_of(words, [](const std::string& word) { return word.starts_with('-'); });
    options.codes = std::move(words);
    return options;
}

/// Findings of one assessee-year stand below its name.
class Printer {
  public:
    explicit Printer(bool lines) : lines_(lines) {}

    void Print(const Finding& finding)
    {
        if (lines_) {
            std::cout << AsLine(finding) << std::endl;
            return;
        }
        if (finding.code != last_ || finding.code.empty())
            std::cout << (finding.code.empty() ? "(no code)" : finding.code) << "  " << finding.client << '\n';
        last_ = finding.code;
        std::cout << "    " << InWords(finding) << '\n';
    }

    void Tell(long done, long all) const
    {
        if (lines_)
            std::cout << "progress " << done << ' ' << all << std::endl;
        else if (isatty(STDERR_FILENO))
            std::cerr << '\r' << done << " of " << all << (done < all ? "" : "\n") << std::flush;
    }

  private:
    bool lines_;
    std::string last_;
};

int Check(const Options& options)
{
    const Practice practice(options.programFolder);
    Printer printer(options.lines);
    std::vector<Finding> kept; // for the file
    long count = 0;
    const auto found = [&](const Finding& finding) {
        ++count;
        printer.Print(finding);
        if (options.csv)
            kept.push_back(finding);
    };
    if (options.codes.empty())
        check::CheckPractice(practice, found, [&](long done, long all) { printer.Tell(done, all); });
    else
        check::CheckCodes(practice, options.codes, found);
    if (options.csv) {
        FreshFile file(*options.csv);
        file.Write(AsCsv(kept));
        file.TakePlace();
    }
    if (!options.lines)
        std::cout << (count == 0 ? "All agrees." : std::to_string(count) + " found.") << '\n';
    return count == 0 ? kAgrees : kFound;
}

} // namespace

int main(int argc, char** argv)
try {
    const Options options = ReadOptions({argv + 1, argv + argc});
    if (options.help) {
        std::cout << kUsage;
        return argc == 2 && argv[1] == std::string_view("--help") ? kAgrees : kFailed;
    }
    return Check(options);
} catch (const std::exception& error) {
    std::cerr << "pgbp-check: " << PreparersWords(error) << '\n';
    if (const std::string technical = TechnicalWords(error); !technical.empty())
        std::cerr << technical << '\n';
    return kFailed;
}
