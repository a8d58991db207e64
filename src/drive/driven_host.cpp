#include "drive/driven_host.h"

#include "services/text.h"

#include <utility>

namespace pgbp {
namespace {

constexpr std::pair<Answer, const char*> kAnswers[] = {{Answer::Ok, "OK"}, {Answer::Yes, "Yes"}, {Answer::No, "No"}};

std::string NameOf(Answer answer)
{
    for (const auto& [each, name] : kAnswers)
        if (each == answer)
            return name;
    return {};
}

bool HasButton(const Message& message, Answer answer)
{
    return (message.buttons == Buttons::Ok) == (answer == Answer::Ok);
}

/// Without a default of its own a box of Yes and No has Yes as its default button.
Answer DefaultOf(const Message& message)
{
    return HasButton(message, message.byDefault) ? message.byDefault : Answer::Yes;
}

} // namespace

std::optional<Answer> AnswerNamed(const std::string& word)
{
    for (const auto& [answer, name] : kAnswers)
        if (EqualsIgnoringCase(word, name))
            return answer;
    return std::nullopt;
}

Answer DrivenBoxes::Show(const Message& message)
{
    const char* buttons = message.buttons == Buttons::Ok ? "OK" : "Yes, No";
    out_ << "message | " << message.title << " | " << buttons << " | " << Replace(message.text, "\n", "\\n") << '\n';
    if (answers.empty())
        return DefaultOf(message);
    const Answer answer = answers.front();
    answers.pop_front();
    if (HasButton(message, answer))
        return answer;
    complaint = "the box has no button " + NameOf(answer) + ": " + message.text;
    return DefaultOf(message);
}

bool DrivenProcesses::Open(const std::filesystem::path& file)
{
    out_ << "open | " << file.filename().string() << '\n';
    return true;
}

std::optional<std::filesystem::path> DrivenFiles::AskOpen(const std::string&, const std::string&)
{
    if (files.empty())
        return std::nullopt;
    const auto file = files.front();
    files.pop_front();
    return file;
}

std::optional<std::filesystem::path> DrivenFiles::AskSave(const std::string& title, const std::string& pattern)
{
    return AskOpen(title, pattern);
}

} // namespace pgbp
