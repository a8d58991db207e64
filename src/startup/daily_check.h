#pragma once

#include <chrono>
#include <filesystem>
#include <future>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace pgbp {

class Run;

/// A data file that the check has found damaged, with the engine's words.
struct Damage {
    std::filesystem::path file;
    std::string words;
};

/// Holds data files against themselves, each once a day, on a thread of its own. A file that can not be checked now is
/// checked at the next start. The end of its owner ends it.
class DailyCheck {
  public:
    /// `notes` is the INI file that tells which files were found whole, and when.
    DailyCheck(std::vector<std::filesystem::path> files, const std::filesystem::path& notes, const std::string& today);
    DailyCheck(const DailyCheck&) = delete;
    DailyCheck& operator=(const DailyCheck&) = delete;
    ~DailyCheck() { stop_.request_stop(); }

    /// The first damaged file. Waits for the end of the check, at most as long as `patience`.
    std::optional<Damage> Found(std::chrono::milliseconds patience) const;
    bool Ended() const;

  private:
    std::stop_source stop_;
    std::shared_future<std::optional<Damage>> found_; ///< none when all files have been checked today
};

/// Tells the preparer once what the run's check has found; from then on the run is a locked one that stores nothing.
/// Called between two actions.
void TellDamage(Run& run);

} // namespace pgbp
