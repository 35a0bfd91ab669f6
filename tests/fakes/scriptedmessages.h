// Message boxes that a test answers in advance and reads afterwards.
#pragma once

#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "gtest/gtest.h"
#include "platform/messages.h"

namespace fakes {

class ScriptedMessages : public platform::Messages {
  public:
    struct Shown {
        std::u16string text;
        std::u16string title;
        int flags = 0;
        bool operator==(const Shown&) const = default;
    };

    ScriptedMessages(std::initializer_list<platform::Answer> answers = {}) : answers_(answers) {}
    void answer(platform::Answer answer) { answers_.push_back(answer); }

    const std::vector<Shown>& shown() const { return shown_; }
    size_t answersLeft() const { return answers_.size(); }

    // A box with OK alone needs no scripted answer; any other without one fails the test.
    platform::Answer show(std::u16string_view text, std::u16string_view title, int flags) override {
        shown_.push_back({std::u16string(text), std::u16string(title), flags});
        constexpr int buttonMask = 15;
        if ((flags & buttonMask) == platform::MessageFlags::OkOnly) return platform::Answer::Ok;
        if (answers_.empty()) {
            ADD_FAILURE() << "a question that the test does not answer";
            return platform::Answer::No;
        }
        const platform::Answer answer = answers_.front();
        answers_.pop_front();
        return answer;
    }

  private:
    std::deque<platform::Answer> answers_;
    std::vector<Shown> shown_;
};

}  // namespace fakes
