#pragma once

#include "controls/message_box.h"

#include <QString>

#include <functional>

namespace pgbp {

/// Message boxes of the window system.
class WindowMessageBoxes : public MessageBoxes {
  public:
    /// `programName` is the title of a message that has none.
    explicit WindowMessageBoxes(QString programName) : programName_(std::move(programName)) {}

    /// Called before each message, so that the preparer sees behind it what it speaks of.
    std::function<void()> before;

    Answer Show(const Message& message) override;

  private:
    QString programName_;
};

/// File dialogs of the window system.
class WindowFileDialogs : public FileDialogs {
  public:
    std::optional<std::filesystem::path> AskOpen(const std::string& title, const std::string& pattern) override;
    std::optional<std::filesystem::path> AskSave(const std::string& title, const std::string& pattern) override;
};

/// Turns the pointer into the hourglass and back.
void ShowHourglass(bool busy);

} // namespace pgbp
