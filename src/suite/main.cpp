#include "suite/chooser.h"
#include "suite/commands.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
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

/// Takes an option and its value out of the words, wherever it stands; `otherwise` when it is not there.
std::string TakeOption(std::vector<std::string>& words, const std::string& option, const std::string& otherwise)
{
    const auto found = std::find(words.begin(), words.end(), option);
    if (found == words.end())
        return otherwise;
    if (found + 1 == words.end())
        throw std::runtime_error(option + " wants a value. \"pgbp-suite --help\" tells more.");
    std::string value = *(found + 1);
    words.erase(found, found + 2);
    return value;
}

} // namespace

int main(int argc, char** argv)
try {
    std::vector<std::string> words(argv + 1, argv + argc);
    pgbp::SystemProcesses processes;
    pgbp::Suite suite{ChosenProgramFolder(), BesideThisProgram("data"), BesideThisProgram("pgbp"), processes,
                      std::cout};
    suite.programFolder = TakeOption(words, "--program-folder", suite.programFolder.string());
    const std::string picture = TakeOption(words, "--picture", "");
    if (words.empty())
        return pgbp::ShowChooser(argc, argv, suite.programFolder, suite.module, picture);
    pgbp::RunCommand(suite, words);
    return 0;
} catch (const std::exception& error) {
    std::cerr << "pgbp-suite: " << error.what() << '\n';
    return 1;
}
