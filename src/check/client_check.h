#pragma once

#include "suite/assessee_years.h"
#include "suite/finding.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace pgbp::check {

/// Finds what does not agree in assessee-years of a practice, one after the other. Nothing is stored.
class ClientCheck {
  public:
    explicit ClientCheck(const Practice& practice);
    ~ClientCheck();
    ClientCheck(const ClientCheck&) = delete;

    /// Holds the head of income that stands against the one that the summary computes from the stored rows, each line
    /// of business against its statement and its annexure, a firm's ratios against 100, and finds rows of lines that
    /// are not there. Throws std::exception where the rows can not be read.
    std::vector<Finding> Check(const AssesseeYear& assesseeYear);

  private:
    class Desk;

    const Practice& practice_;
    std::map<std::pair<std::string, std::string>, std::unique_ptr<Desk>> desks_; ///< by year and status
};

} // namespace pgbp::check
