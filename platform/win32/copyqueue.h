// Copies that wait for each other on other threads.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>

#include "platform/filecopier.h"
#include "platform/win32/backgroundcopy.h"
#include "platform/win32/handle.h"

namespace platform::win32 {

// Copies files under names of their own, beginning them in the order in which they were added: a
// drive may keep a read waiting for seconds, and the thread that owns the queue looks after the
// windows meanwhile. Between two files there is no wait for the owner. The threads are the
// system's, which has them ready for the next row of copies.
//
// Small files, whose copies are a handful of requests to the system and little else, are copied
// several at a time. A large one is the only one that begins until it has ended: more would make a
// drive go to and fro.
class CopyQueue {
  public:
    // A file of more bytes is large.
    static constexpr uint64_t kSmall = uint64_t{256} << 10;
    // How many go on at a time, at most.
    static constexpr size_t kThreads = 2;

    // Throws systemError when the system has no threads to give.
    explicit CopyQueue(SystemCopy systemCopy);
    CopyQueue(const CopyQueue&) = delete;
    CopyQueue& operator=(const CopyQueue&) = delete;
    ~CopyQueue();

    // Adds a copy to the end. It is made in `folder` (with its backslash).
    void add(const CopySource& source, std::u16string_view folder);
    // Whether there is a copy of `source`.
    bool holds(std::u16string_view source) const;
    // How many copies there are, whether they wait, go on or have ended.
    size_t size() const { return copies_.size(); }
    bool startsWith(std::u16string_view source) const;

    // These need a first copy. Waits for its end, but no longer than a window may; true at the end.
    // While there is more to copy it may come back a little later, when several have ended: threads
    // that wake each other for each small file are busier with that than with the files.
    bool waitForFirst();
    const BackgroundCopy& first() const { return *copies_.front().copy; }
    // Hands out the first copy, which has ended.
    std::unique_ptr<BackgroundCopy> takeFirst();

    // Cancels all copies and removes what there is of them.
    void clear();

    // Whether an owner who waits is woken when `ended` copies have ended and `left` have not: when
    // it has enough to do, or when it would soon be the only one who has.
    static constexpr bool isWorthWaking(size_t ended, size_t left) {
        return ended >= kTurn || left <= 1;
    }

  private:
    // As many copies as the owner gives their names without a pause, while as many again are made.
    static constexpr size_t kTurn = FileCopier::kMostAhead / 2;

    struct Place {
        std::unique_ptr<BackgroundCopy> copy;
        bool ended = false;
    };

    static void CALLBACK run(PTP_CALLBACK_INSTANCE, void* data, PTP_WORK) noexcept;
    // Sees one copy through after the other, while one may begin.
    void work();
    // Sees a copy through. Called with the lock, which it gives up meanwhile.
    void see(Place& place);
    // The rest is called with the lock. Whether the next copy may begin.
    bool mayBegin() const { return !alone_ && begun_ < copies_.size(); }
    // Whether one more thread is to be asked for; it then counts among those that work.
    bool countNextThread();
    void markEnded(Place& place);

    const SystemCopy systemCopy_;
    // Those that have begun are at the front, behind them those that wait. The owner alone adds and
    // removes, with the lock; it removes none that has begun and not ended.
    std::deque<Place> copies_;
    uint32_t number_ = 0;  // of the copy added last

    // Locks rather than events: a copy of a small file is over in the time that it takes to make
    // and close an event.
    SRWLOCK lock_ = SRWLOCK_INIT;
    CONDITION_VARIABLE advanced_ = CONDITION_VARIABLE_INIT;
    // These are under the lock, too.
    size_t begun_ = 0;
    size_t ended_ = 0;     // before the first that has not
    bool alone_ = false;   // what began last is large, and goes on
    size_t threads_ = 0;   // that work or have been asked for
    bool coming_ = false;  // one has been asked for and has not looked yet

    ThreadpoolWork work_;
};

}  // namespace platform::win32
