#include "services/processes.h"

#include <cerrno>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <system_error>

namespace pgbp {
namespace {

/// Starts the program as a child of its own process; the child sees the same environment.
pid_t Spawn(const std::filesystem::path& program, std::vector<std::string> arguments)
{
    std::string path = program.string();
    std::vector<char*> words{path.data()};
    for (std::string& argument : arguments)
        words.push_back(argument.data());
    words.push_back(nullptr);
    pid_t child = 0;
    const int error = posix_spawn(&child, path.c_str(), nullptr, nullptr, words.data(), environ);
    if (error != 0)
        throw std::runtime_error("The program " + path +
                                 " could not be started: " + std::generic_category().message(error) + ".");
    return child;
}

} // namespace

int SystemProcesses::RunAndWait(const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
    const pid_t child = Spawn(program, arguments);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool SystemProcesses::Open(const std::filesystem::path& file)
{
    std::string opener = "xdg-open";
    std::string path = std::filesystem::absolute(file).string();
    char* const arguments[] = {opener.data(), path.data(), nullptr};
    pid_t child = 0;
    return posix_spawnp(&child, opener.c_str(), nullptr, nullptr, arguments, environ) == 0;
}

void SystemProcesses::Start(const std::filesystem::path& program) { Spawn(program, {}); }

} // namespace pgbp
