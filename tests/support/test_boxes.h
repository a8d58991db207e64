#pragma once

#include "controls/message_box.h"

#include <deque>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace pgbp {

/// Message boxes of a test: keeps every text, answers from a queue, and fails on a question that the test does not
/// expect.
class TestBoxes : public MessageBoxes {
  public:
    Answer Show(const Message& message) override
    {
        shown.push_back(message);
        if (message.buttons == Buttons::Ok)
            return Answer::Ok;
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << message.text;
            return Answer::No;
        }
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    /// The one message since the last call; fails when there were more or none.
    Message Take()
    {
        EXPECT_EQ(shown.size(), 1U);
        const Message message = shown.empty() ? Message{} : shown.front();
        shown.clear();
        return message;
    }

    std::vector<Message> shown;
    std::deque<Answer> answers;
};

} // namespace pgbp
