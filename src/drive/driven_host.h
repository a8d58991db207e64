#pragma once

#include "controls/message_box.h"
#include "services/processes.h"

#include <deque>
#include <ostream>
#include <string>

namespace pgbp {

/// Message boxes of a driven run: prints each one, answers with what the script has ready, else with the default
/// button.
class DrivenBoxes : public MessageBoxes {
  public:
    explicit DrivenBoxes(std::ostream& out) : out_(out) {}

    Answer Show(const Message& message) override;

    std::deque<Answer> answers; ///< for the next boxes
    std::string complaint;      ///< what was wrong with an answer; empty when nothing was

  private:
    std::ostream& out_;
};

/// Processes of a driven run: sibling programs run, a file that would be shown is printed.
class DrivenProcesses : public SystemProcesses {
  public:
    explicit DrivenProcesses(std::ostream& out) : out_(out) {}

    bool Open(const std::filesystem::path& file) override;

  private:
    std::ostream& out_;
};

/// File dialogs of a driven run: chooses the files that the script has ready; cancels when there is none.
class DrivenFiles : public FileDialogs {
  public:
    std::optional<std::filesystem::path> AskOpen(const std::string& title, const std::string& pattern) override;
    std::optional<std::filesystem::path> AskSave(const std::string& title, const std::string& pattern) override;

    std::deque<std::filesystem::path> files;
};

/// "Yes", "No" or "OK"; nothing for any other word.
std::optional<Answer> AnswerNamed(const std::string& word);

} // namespace pgbp
