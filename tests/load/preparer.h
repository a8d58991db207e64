#pragma once

#include "suite/practice.h"

#include <chrono>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace pgbp {

/// One preparer at a workstation of his own: opens a client of his, changes a line, saves it, writes the head of income
/// and takes the next one, through the screens of the module. Notes what he was told of each step.
class Preparer {
  public:
    struct Work {
        std::filesystem::path practice;
        std::filesystem::path station; ///< his folder, made anew
        int number = 0;                ///< tells his figures from those of the others
        double pause = 0;              ///< seconds between two steps, on an average
        std::vector<std::string> codes;
    };

    explicit Preparer(Work work);

    /// Works until then, the client that is open to the end.
    void WorkUntil(std::chrono::steady_clock::time_point end);

  private:
    class Client;

    void SetUpStation() const;
    void HandOverClient(const std::string& code) const;
    void Pause(double share);

    const Work work_;
    std::mt19937 random_;
    std::ofstream journal_;
    std::chrono::steady_clock::time_point end_{};
    int figures_ = 0;
};

} // namespace pgbp
