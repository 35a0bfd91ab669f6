// Copies that wait for each other on threads of their own.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <deque>
#include <memory>
#include <string_view>

#include "platform/filecopier.h"
#include "platform/win32/backgroundcopy.h"
#include "platform/win32/handle.h"

namespace platform::win32 {

// Copies files beside their places, beginning them in the order in which they were added: a drive
// may keep a read waiting for seconds, and the thread that owns the queue looks after the windows
// meanwhile. Between two files there is no wait for the owner. Two small files go on side by side,
// for most of their time is spent in waiting for the system; a larger one has the drive to itself.
class CopyQueue {
  public:
    // Throws systemError when there is no thread.
    explicit CopyQueue(SystemCopy systemCopy);
    CopyQueue(const CopyQueue&) = delete;
    CopyQueue& operator=(const CopyQueue&) = delete;
    ~CopyQueue();

    // Adds a copy to the end. `target` only tells the folder.
    void add(const CopySource& source, std::u16string_view target);
    // Whether there is a copy of `source` for the folder of `target`.
    bool holds(std::u16string_view source, std::u16string_view target) const;
    // How many copies there are, whether they wait, go on or have ended.
    size_t size() const { return copies_.size(); }
    bool startsWith(std::u16string_view source, std::u16string_view target) const;

    // These need a first copy. Waits for its end, but no longer than a window may; true at the end.
    bool waitForFirst();
    const BackgroundCopy& first() const { return *copies_.front().copy; }
    // Hands out the first copy, which has ended.
    std::unique_ptr<BackgroundCopy> takeFirst();

    // Cancels all copies and removes what there is of them.
    void clear();

  private:
    struct Entry {
        std::unique_ptr<BackgroundCopy> copy;
        bool small = false;
        bool ended = false;
    };
    static constexpr size_t kThreads = 2;

    static DWORD WINAPI run(void* data) noexcept;
    void work();
    // Whether the first of those that wait may begin beside those under way.
    bool mayBegin() const;
    size_t underWay() const;
    void close();

    const SystemCopy systemCopy_;
    // The copies at the front have begun, and some of them ended; behind them are those that wait.
    // Changed by the owner alone, with the lock; the threads read it with the lock.
    std::deque<Entry> copies_;
    int number_ = 0;  // of the copy added last

    // Locks rather than events: a copy of a small file is over in the time that it takes to make
    // and close an event.
    SRWLOCK lock_ = SRWLOCK_INIT;
    CONDITION_VARIABLE added_ = CONDITION_VARIABLE_INIT;
    CONDITION_VARIABLE ended_ = CONDITION_VARIABLE_INIT;
    // How many copies have begun; both under the lock.
    size_t begun_ = 0;
    bool closing_ = false;

    std::array<KernelHandle, kThreads> threads_;
};

}  // namespace platform::win32
