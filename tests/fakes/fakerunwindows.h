// The windows of a new-CD run, with a test in the user's place.
#pragma once

#include <deque>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "newcd/runwindows.h"

namespace fakes {

// What both windows have.
template <class Window>
class FakeRunWindow : public Window {
  public:
    std::vector<std::u16string> labels;  // everything that the progress label has shown
    // Every advance that was shown: what is done, of how much.
    using Advance = std::pair<int64_t, int64_t>;
    std::vector<Advance> advances;
    size_t yields = 0;
    bool cancelIsOk = false;
    // What the user does at a yield; its number is counted from 1.
    std::function<void(size_t)> atYield = [](size_t) {};

    const std::u16string& label() const { return labels.back(); }

    void showProgress(std::u16string_view text) override { labels.emplace_back(text); }
    void showAdvance(int64_t done, int64_t total) override { advances.emplace_back(done, total); }
    void yield() override { atYield(++yields); }
    void turnCancelIntoOk() override { cancelIsOk = true; }
};

class FakeSearchWindow : public FakeRunWindow<newcd::SearchWindow> {
  public:
    std::vector<std::u16string> list1;
    std::vector<std::u16string> list2;

    void addKnown(newcd::Method method, std::u16string_view title) override {
        (method == newcd::Method::SameTitle ? list1 : list2).emplace_back(title);
    }
};

class FakeCopyWindow : public FakeRunWindow<newcd::CopyWindow> {
  public:
    struct Item {
        std::u16string title;
        bool checked;
        bool operator==(const Item&) const = default;
    };
    struct Conflict {
        std::u16string oldName;
        std::u16string proposedName;
        bool operator==(const Conflict&) const = default;
    };

    std::vector<Item> list;
    bool startEnabled = false;
    bool listEnabled = true;
    std::vector<Conflict> conflicts;
    // What the user does each time the run waits; waiting with nothing left to do fails the test.
    std::deque<std::function<void()>> whileWaiting;
    // What the user does in each conflict dialog; closing it by its frame is doing nothing.
    std::deque<std::function<void()>> inConflict;

    void addTrack(std::u16string_view title, bool checked) override {
        list.push_back({std::u16string(title), checked});
    }
    void enableStart(bool enabled) override { startEnabled = enabled; }
    void enableList(bool enabled) override { listEnabled = enabled; }
    void waitForEvents() override { next(whileWaiting, "the run waits for ever"); }
    void askNewName(std::u16string_view oldName, std::u16string_view proposedName) override {
        conflicts.push_back({std::u16string(oldName), std::u16string(proposedName)});
        next(inConflict, "a conflict that the test does not answer");
    }

  private:
    static void next(std::deque<std::function<void()>>& actions, const char* none) {
        if (actions.empty()) throw std::logic_error(none);
        const auto action = std::move(actions.front());
        actions.pop_front();
        action();
    }
};

}  // namespace fakes
