#pragma once

#include <functional>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace pgbp {

/// Runs the work in that many processes, all let go at the same moment. Gives what those that failed threw.
inline std::vector<std::string> FailuresAtOnce(int processes, const std::function<void()>& work)
{
    int gate[2], words[2];
    if (pipe(gate) != 0 || pipe(words) != 0)
        return {"no pipe"};
    for (int i = 0; i < processes; ++i) {
        if (fork() != 0)
            continue;
        close(gate[1]);
        char unused;
        [[maybe_unused]] auto waited = read(gate[0], &unused, 1); // until the other end is closed
        try {
            work();
        } catch (const std::exception& error) {
            const std::string line = error.what();
            waited = write(words[1], line.data(), line.size() + 1);
        }
        _exit(0);
    }
    close(gate[0]);
    close(gate[1]);
    close(words[1]);
    std::vector<std::string> failures;
    std::string all;
    for (char c; read(words[0], &c, 1) == 1;) {
        if (c != '\0')
            all += c;
        else if (!all.empty())
            failures.push_back(std::exchange(all, ""));
    }
    close(words[0]);
    while (wait(nullptr) > 0) {
    }
    return failures;
}

} // namespace pgbp
