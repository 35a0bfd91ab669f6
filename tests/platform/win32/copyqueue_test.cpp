#include "platform/win32/copyqueue.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "base/number.h"
#include "platform/scratchname.h"
#include "platform/win32/path.h"
#include "platform/win32/wide.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

constexpr ULONGLONG kDeadline = 60'000;
// More than a queue uses.
constexpr uint32_t kMostNumbers = 100;

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

    void add(std::u16string_view name, size_t bytes = 7) {
        added_.emplace_back(name);
        const std::u16string path = folder_.write(name, std::string(bytes, 'x'));
        queue_.add({.path = path, .size = bytes}, folder_.path() + u"\\");
    }
    void addLarge(std::u16string_view name) { add(name, CopyQueue::kSmall + 1); }
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
    // The first copy of the queue goes, which is that of `name`; gives its error.
    DWORD take(std::u16string_view name) {
        copies_->letGo(std::u16string(name));
        waitFor([&] { return queue_.waitForFirst(); }, "the end of the first copy");
        const auto copy = queue_.takeFirst();
        EXPECT_EQ(copy->source(), folder_.file(name));
        return copy->finish();
    }

    // The system's call knows of no test, so this stands beside it.
    static inline std::unique_ptr<CopiesUnderWay> copies_;
    testing_win32::TempFolder folder_;
    Names added_;
    CopyQueue queue_{copyWhenLetGo};
};

TEST_F(CopyQueueTest, CopiesOneLargeFileAfterTheOtherWithoutTheOwner) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        addLarge(name);
    waitForUnderWay({u"a"});
    copies_->letGo(u"a");
    waitForUnderWay({u"b"});
    EXPECT_EQ(copies_->begun(), (Names{u"a", u"b"}));
}

TEST_F(CopyQueueTest, CopiesSeveralSmallFilesAtATime) {
    static_assert(CopyQueue::kThreads == 2);
    for (const char16_t* name : {u"a", u"b", u"c", u"d"})
        add(name, CopyQueue::kSmall);
    waitForUnderWay({u"a", u"b"});
    copies_->letGo(u"b");
    waitForUnderWay({u"a", u"c"});
    EXPECT_EQ(copies_->begun().size(), 3U);
}

TEST_F(CopyQueueTest, BeginsNothingBesideALargeFile) {
    add(u"a");
    addLarge(u"b");
    add(u"c");
    add(u"d");
    waitForUnderWay({u"a", u"b"});
    copies_->letGo(u"a");
    waitForUnderWay({u"b"});
    EXPECT_EQ(copies_->begun().size(), 2U);
    copies_->letGo(u"b");
    waitForUnderWay({u"c", u"d"});
}

// A copy that nobody begins would be waited for without end.
TEST_F(CopyQueueTest, SeesAllThroughInWhateverOrderTheyCome) {
    constexpr size_t kCount = 400;
    constexpr size_t kAtATime = 5;
    Names names;
    for (size_t number = 0; number < kCount; ++number) {
        names.push_back(u"f" + base::wholeNumber(static_cast<int64_t>(number)));
        copies_->letGo(names.back());
    }
    size_t taken = 0;
    for (size_t added = 0; added < kCount; ++added) {
        add(names[added], added % 7 == 0 ? CopyQueue::kSmall + 1 : 7);
        if (queue_.size() < kAtATime) continue;
        while (queue_.size() > added % kAtATime)
            EXPECT_EQ(take(names[taken++]), DWORD{ERROR_SUCCESS});
    }
    while (queue_.size() > 0)
        EXPECT_EQ(take(names[taken++]), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(copies_->begun().size(), kCount);
}

TEST_F(CopyQueueTest, GoesOnAfterASourceThatIsGone) {
    for (const char16_t* name : {u"a", u"b"})
        addLarge(name);
    DeleteFileW(extendedPath(folder_.file(u"b")).c_str());
    add(u"c");
    EXPECT_EQ(take(u"a"), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(take(u"b"), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(take(u"c"), DWORD{ERROR_SUCCESS});
}

TEST_F(CopyQueueTest, HandsThemOutInTheirOrder) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        add(name);
    waitForUnderWay({u"a", u"b"});
    copies_->letGo(u"b");
    waitForUnderWay({u"a", u"c"});
    EXPECT_FALSE(queue_.waitForFirst());
    for (const char16_t* name : {u"a", u"b", u"c"})
        EXPECT_EQ(take(name), DWORD{ERROR_SUCCESS});
}

TEST_F(CopyQueueTest, HandsOutTheFirstWhileALaterOneGoesOn) {
    for (const char16_t* name : {u"a", u"b", u"c", u"d"})
        addLarge(name);
    EXPECT_EQ(take(u"a"), DWORD{ERROR_SUCCESS});
    waitForUnderWay({u"b"});
    EXPECT_EQ(queue_.size(), 3U);
}

TEST_F(CopyQueueTest, WakesItsOwnerForManyCopiesAtATime) {
    const size_t turn = FileCopier::kMostAhead / 2;
    EXPECT_FALSE(CopyQueue::isWorthWaking(1, turn));
    EXPECT_FALSE(CopyQueue::isWorthWaking(turn - 1, 2));
    EXPECT_TRUE(CopyQueue::isWorthWaking(turn, 2));
    EXPECT_TRUE(CopyQueue::isWorthWaking(turn + 1, turn));
    EXPECT_TRUE(CopyQueue::isWorthWaking(1, 1));
    EXPECT_TRUE(CopyQueue::isWorthWaking(1, 0));
}

TEST_F(CopyQueueTest, ClearingEndsWhatIsUnderWayAndForgetsTheRest) {
    const Names names = {u"a", u"b", u"c", u"d", u"e", u"f"};
    for (const std::u16string& name : names)
        add(name);
    copies_->letGo(u"b");
    waitForUnderWay({u"a", u"c"});
    queue_.clear();
    EXPECT_EQ(copies_->begun().size(), 3U);
    EXPECT_EQ(testing_win32::names(folder_.path()), names);
    EXPECT_EQ(queue_.size(), 0U);
    EXPECT_FALSE(queue_.holds(folder_.file(u"a")));
    add(u"g");
    EXPECT_EQ(take(u"g"), DWORD{ERROR_SUCCESS});
}

TEST_F(CopyQueueTest, ClearingEndsALargeFileThatOthersWaitFor) {
    addLarge(u"a");
    add(u"b");
    waitForUnderWay({u"a"});
    queue_.clear();
    EXPECT_EQ(copies_->begun().size(), 1U);
    EXPECT_EQ(testing_win32::names(folder_.path()), (Names{u"a", u"b"}));
    add(u"c");
    EXPECT_EQ(take(u"c"), DWORD{ERROR_SUCCESS});
}

TEST_F(CopyQueueTest, CopiesOverWhatAKilledProgramLeft) {
    for (uint32_t number = 1; number <= kMostNumbers; ++number) {
        const std::u16string left =
            folder_.write(scratchName(GetCurrentProcessId(), number), "half a file");
        SetFileAttributesW(extendedPath(left).c_str(), FILE_ATTRIBUTE_READONLY);
    }
    add(u"a");
    EXPECT_EQ(take(u"a"), DWORD{ERROR_SUCCESS});
}

TEST_F(CopyQueueTest, NoOtherNameIsAskedForWhereTheOneUnderWayIsTaken) {
    for (uint32_t number = 1; number <= kMostNumbers; ++number)
        folder_.folder(scratchName(GetCurrentProcessId(), number));
    add(u"a");
    EXPECT_EQ(take(u"a"), DWORD{ERROR_ACCESS_DENIED});
}

}  // namespace
}  // namespace platform::win32
