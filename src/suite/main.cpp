#include "services/fault.h"
#include "services/options.h"
#include "suite/chooser.h"
#include "suite/commands.h"

#include <cstdlib>
#include <iostream>
#include <vector>

namespace {

std::filesystem::path BesideThisProgram(const char* name)
{
    return (std::filesystem::read_symlink("/proc/self/exe").parent_path() / name).lexically_normal();
}

std::filesystem::path ChosenProgramFolder()
{
    const char* chosen = std::getenv("PGBP_PROGRAM_FOLDER");
    return chosen && *chosen ? chosen : "practice";
}

} // namespace

int main(int argc, char** argv)
try {
    std::vector<std::string> words(argv + 1, argv + argc);
    pgbp::SystemProcesses processes;
    pgbp::Suite suite{ChosenProgramFolder(),
                      BesideThisProgram(PGBP_DATA_FROM_PROGRAMS),
                      BesideThisProgram("pgbp"),
                      {BesideThisProgram("pgbp-audit-reader"), BesideThisProgram("pgbp-books-link"),
                       BesideThisProgram("pgbp-report")},
                      BesideThisProgram("pgbp-check"),
                      processes,
                      std::cout};
    if (const auto told = pgbp::TakeOption(words, "--program-folder"))
        suite.programFolder = *told;
    const std::string picture = pgbp::TakeOption(words, "--picture").value_or("");
    const std::string search = pgbp::TakeOption(words, "--search").value_or("");
    if (words.empty())
        return pgbp::ShowChooser(argc, argv,
                                 {suite.programFolder, suite.module, suite.standIns.reporter, suite.checker,
                                  [&suite] { pgbp::RunCommand(suite, std::vector<std::string>{"ensure"}); }},
                                 search, picture);
    pgbp::RunCommand(suite, words);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "pgbp-suite: " << pgbp::PreparersWords(error) << '\n';
    if (const std::string technical = pgbp::TechnicalWords(error); !technical.empty())
        std::cerr << technical << '\n';
    return 1;
}
