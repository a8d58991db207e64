#include "suite/commands.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <vector>

namespace {

std::filesystem::path BesideThisProgram(const char* name)
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

std::filesystem::path ChosenProgramFolder()
{
    const char* chosen = std::getenv("PGBP_PROGRAM_FOLDER");
    return chosen ? chosen : "practice";
}

/// Takes "--program-folder FOLDER" out of the words, wherever it stands.
void TakeProgramFolder(std::vector<std::string>& words, std::filesystem::path& folder)
{
    const auto option = std::find(words.begin(), words.end(), "--program-folder");
    if (option == words.end())
        return;
    if (option + 1 == words.end())
        throw std::runtime_error("--program-folder wants the folder of a practice.");
    folder = *(option + 1);
    words.erase(option, option + 2);
}

} // namespace

int main(int argc, char** argv)
try {
    std::vector<std::string> words(argv + 1, argv + argc);
    pgbp::SystemProcesses processes;
    pgbp::Suite suite{ChosenProgramFolder(), BesideThisProgram("data"), BesideThisProgram("pgbp"), processes,
                      std::cout};
    TakeProgramFolder(words, suite.programFolder);
    pgbp::RunCommand(suite, words);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "pgbp-suite: " << error.what() << '\n';
    return 1;
}
