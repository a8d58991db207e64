#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace pgbp {

enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Buttons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

/// One modal message. An empty title stands for the program's own name.
struct Message {
    std::string text;
    std::string title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    Answer byDefault = Answer::Ok; ///< for Yes and No: which one Enter presses
};

/// Shows a message and gives the answer.
class MessageBoxes {
  public:
    virtual ~MessageBoxes() = default;
    virtual Answer Show(const Message& message) = 0;
};

/// Asks for a file. Nothing when the preparer cancels.
class FileDialogs {
  public:
    virtual ~FileDialogs() = default;
    virtual std::optional<std::filesystem::path> AskOpen(const std::string& title, const std::string& pattern) = 0;
    virtual std::optional<std::filesystem::path> AskSave(const std::string& title, const std::string& pattern) = 0;
};

} // namespace pgbp
