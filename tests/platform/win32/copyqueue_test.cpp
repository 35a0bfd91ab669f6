#include "platform/win32/copyqueue.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/win32/wide.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

constexpr uint64_t kLarge = uint64_t{1} << 20;
constexpr ULONGLONG kDeadline = 60'000;

// What the system's call is seen to do, by the names of the sources. A copy goes on until it is let
// go; all functions may be called on any thread.
class CopiesUnderWay {
  public:
    void begin(const std::u16string& name) {
        const std::lock_guard lock(mutex_);
        underWay_.push_back(name);
        begun_.push_back(name);
    }
    void end(const std::u16string& name) {
        const std::lock_guard lock(mutex_);
        std::erase(underWay_, name);
    }
    void letGo(const std::u16string& name) {
        const std::lock_guard lock(mutex_);
        free_.push_back(name);
    }
    bool mayEnd(const std::u16string& name) {
        const std::lock_guard lock(mutex_);
        return std::ranges::count(free_, name) > 0;
    }
    std::vector<std::u16string> underWay() {
        const std::lock_guard lock(mutex_);
        std::vector<std::u16string> names = underWay_;
        std::ranges::sort(names);
        return names;
    }
    std::vector<std::u16string> begun() {
        const std::lock_guard lock(mutex_);
        return begun_;
    }

  private:
    std::mutex mutex_;
    std::vector<std::u16string> underWay_;
    std::vector<std::u16string> begun_;
    std::vector<std::u16string> free_;
};

class CopyQueueTest : public testing::Test {
  protected:
    using Names = std::vector<std::u16string>;

    CopyQueueTest() { copies_ = std::make_unique<CopiesUnderWay>(); }
    ~CopyQueueTest() override {
        for (const std::u16string& name : added_)
            copies_->letGo(name);
        queue_.clear();
    }

    static BOOL WINAPI copyWhenLetGo(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress,
                                     LPVOID data, LPBOOL cancel, DWORD flags) {
        const std::u16string path = fromWide(source);
        const std::u16string name = path.substr(path.rfind(u'\\') + 1);
        copies_->begin(name);
        while (!copies_->mayEnd(name) && !*cancel)
            Sleep(1);
        copies_->end(name);
        return CopyFileExW(source, target, progress, data, cancel, flags);
    }

    void add(std::u16string_view name, uint64_t size) {
        added_.emplace_back(name);
        queue_.add({.path = folder_.write(name, "content"), .size = size}, folder_.file(u"x"));
    }
    template <class Condition>
    void waitFor(Condition condition, const char* what) {
        const ULONGLONG deadline = GetTickCount64() + kDeadline;
        while (!condition()) {
            ASSERT_LT(GetTickCount64(), deadline) << what;
            Sleep(1);
        }
    }
    void waitForUnderWay(const Names& names) {
        waitFor([&] { return copies_->underWay() == names; }, "the copies under way");
    }
    // The first copy of the queue goes, which is that of `name`.
    void take(std::u16string_view name) {
        copies_->letGo(std::u16string(name));
        waitFor([&] { return queue_.waitForFirst(); }, "the end of the first copy");
        EXPECT_TRUE(queue_.takeFirst()->isOf(folder_.file(name), folder_.file(u"x")));
    }

    // The system's call knows of no test, so this stands beside it.
    static inline std::unique_ptr<CopiesUnderWay> copies_;
    testing_win32::TempFolder folder_;
    Names added_;
    CopyQueue queue_{copyWhenLetGo};
};

TEST_F(CopyQueueTest, CopiesTwoSmallFilesSideBySideAndNoMore) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        add(name, 1000);
    waitForUnderWay({u"a", u"b"});
    take(u"a");
    waitForUnderWay({u"b", u"c"});
}

TEST_F(CopyQueueTest, HandsThemOutInTheirOrder) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        add(name, 1000);
    copies_->letGo(u"b");
    waitForUnderWay({u"a", u"c"});
    EXPECT_FALSE(queue_.waitForFirst());
    take(u"a");
    take(u"b");
    take(u"c");
}

TEST_F(CopyQueueTest, NothingBeginsBesideALargeFile) {
    add(u"a", kLarge);
    waitForUnderWay({u"a"});
    add(u"b", 1000);
    add(u"c", 1000);
    // Until the window may wait no longer, nothing else has begun.
    EXPECT_FALSE(queue_.waitForFirst());
    EXPECT_EQ(copies_->begun(), Names{u"a"});
    take(u"a");
    waitForUnderWay({u"b", u"c"});
}

TEST_F(CopyQueueTest, ALargeFileWaitsForTheSmallOnes) {
    add(u"a", 1000);
    add(u"b", kLarge);
    add(u"c", 1000);
    waitForUnderWay({u"a"});
    EXPECT_FALSE(queue_.waitForFirst());
    EXPECT_EQ(copies_->begun(), Names{u"a"});
    take(u"a");
    waitForUnderWay({u"b"});
    take(u"b");
    take(u"c");
}

TEST_F(CopyQueueTest, ClearingEndsWhatIsUnderWayAndForgetsTheRest) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        add(name, 1000);
    waitForUnderWay({u"a", u"b"});
    queue_.clear();
    EXPECT_EQ(copies_->begun().size(), 2U);
    EXPECT_EQ(testing_win32::names(folder_.path()), (Names{u"a", u"b", u"c"}));
    EXPECT_FALSE(queue_.holds(folder_.file(u"a"), folder_.file(u"x")));
    add(u"d", 1000);
    take(u"d");
}

}  // namespace
}  // namespace platform::win32
