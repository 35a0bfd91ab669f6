// Copies that wait for each other on a thread of their own.
#pragma once

#include <windows.h>

#include <cstddef>
#include <deque>
#include <memory>
#include <string_view>

#include "platform/win32/backgroundcopy.h"
#include "platform/win32/handle.h"

namespace platform::win32 {

// Copies files beside their places, one at a time and in the order in which they were added: a
// drive may keep a read waiting for seconds, and the thread that owns the queue looks after the
// windows meanwhile. It never waits between two files, as it would if each were handed over when
// the one before it was done.
class CopyQueue {
  public:
    // Throws systemError when there is no thread.
    CopyQueue();
    CopyQueue(const CopyQueue&) = delete;
    CopyQueue& operator=(const CopyQueue&) = delete;
    ~CopyQueue();

    // Adds a copy to the end. `target` only tells the folder.
    void add(std::u16string_view source, std::u16string_view target);
    // Whether there is a copy of `source` for the folder of `target`.
    bool holds(std::u16string_view source, std::u16string_view target) const;
    bool startsWith(std::u16string_view source, std::u16string_view target) const;

    // These need a first copy. Waits for its end, but no longer than a window may; true at the end.
    bool waitForFirst();
    const BackgroundCopy& first() const { return *copies_.front(); }
    // Hands out the first copy, which has ended.
    std::unique_ptr<BackgroundCopy> takeFirst();

    // Cancels all copies and removes what there is of them.
    void clear();

  private:
    static DWORD WINAPI run(void* data) noexcept;
    void work();

    // The copies at the front have ended, then comes the one under way, then those that wait.
    // Changed by the owner alone, with the lock; the thread reads it with the lock.
    std::deque<std::unique_ptr<BackgroundCopy>> copies_;
    int number_ = 0;  // of the copy added last

    // Locks rather than events: a copy of a small file is over in the time that it takes to make
    // and close an event.
    SRWLOCK lock_ = SRWLOCK_INIT;
    CONDITION_VARIABLE added_ = CONDITION_VARIABLE_INIT;
    CONDITION_VARIABLE ended_ = CONDITION_VARIABLE_INIT;
    // How many copies have begun and how many have ended; all three under the lock.
    size_t begun_ = 0;
    size_t done_ = 0;
    bool closing_ = false;

    KernelHandle thread_;
};

}  // namespace platform::win32
