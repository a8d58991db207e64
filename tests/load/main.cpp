// The programs of a load run, in one; see load.py, which starts them.

#include "load/practice.h"
#include "load/preparer.h"
#include "support/test_server.h"

#include <iostream>

namespace {

constexpr const char* kUsage = R"(pgbp-load: what a load run is made of

  pgbp-load make PRACTICE FIRMS                     makes a practice, prints the codes of the firms
  pgbp-load serve PRACTICE [without-indexes]        moves it to the test server
  pgbp-load drive PRACTICE STATION NUMBER PAUSE CODE...
                                                    a preparer: prints "ready", reads for how many seconds to work
  pgbp-load rows PRACTICE                           prints what is stored
)";

void Serve(const std::filesystem::path& practice, bool withIndexes)
{
    const auto login = pgbp::TestServer();
    if (!login)
        throw std::runtime_error(pgbp::kNoServer);
    pgbp::PutOnServer(practice, *login, withIndexes ? pgbp::Indexes::AsInFiles : pgbp::Indexes::None);
}

void Drive(const std::vector<std::string>& words)
{
    pgbp::TestServer(); // makes its driver known
    pgbp::Preparer preparer({.practice = words[1],
                             .station = words[2],
                             .number = std::stoi(words[3]),
                             .pause = std::stod(words[4]),
                             .codes = {words.begin() + 5, words.end()}});
    std::cout << "ready" << std::endl;
    double seconds = 0;
    std::cin >> seconds;
    preparer.WorkUntil(std::chrono::steady_clock::now() + std::chrono::milliseconds(static_cast<long>(1000 * seconds)));
}

int Work(const std::vector<std::string>& words)
{
    const std::string command = words.empty() ? "" : words[0];
    if (command == "make" && words.size() == 3) {
        for (const std::string& code : pgbp::MakePractice(words[1], std::stoi(words[2])))
            std::cout << code << '\n';
    } else if (command == "serve" && words.size() >= 2) {
        Serve(words[1], words.back() != "without-indexes");
    } else if (command == "drive" && words.size() >= 6) {
        Drive(words);
    } else if (command == "rows" && words.size() == 2) {
        pgbp::TestServer();
        pgbp::PrintRows(words[1], std::cout);
    } else {
        std::cerr << kUsage;
        return 2;
    }
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    try {
        return Work({arguments + 1, arguments + count});
    } catch (const std::exception& error) {
        std::cerr << "pgbp-load: " << error.what() << '\n';
        return 1;
    }
}
