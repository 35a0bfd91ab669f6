#include "platform/win32/copyqueue.h"

#include <algorithm>
#include <utility>

#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// How long the caller's windows may wait for a report, milliseconds.
constexpr DWORD kReportInterval = 15;

// Bytes that a drive reads without going anywhere else in between.
constexpr uint64_t kSmall = uint64_t{256} << 10;

// Numbers are used again when the copies that had them have long got their names.
constexpr int kNumbers = 2 * static_cast<int>(FileCopier::kMostAhead + 2);

class Locked {
  public:
    explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK& lock_;
};

}  // namespace

CopyQueue::CopyQueue(SystemCopy systemCopy) : systemCopy_(systemCopy) {
    for (KernelHandle& thread : threads_) {
        thread.reset(CreateThread(nullptr, 0, run, this, 0, nullptr));
        if (thread) continue;
        const DWORD error = GetLastError();
        close();
        throw systemError(error);
    }
}

CopyQueue::~CopyQueue() {
    clear();
    close();
}

void CopyQueue::close() {
    {
        const Locked locked(lock_);
        closing_ = true;
    }
    WakeAllConditionVariable(&added_);
    for (const KernelHandle& thread : threads_) {
        if (thread) WaitForSingleObject(thread.get(), INFINITE);
    }
}

void CopyQueue::add(const CopySource& source, std::u16string_view target) {
    number_ = number_ % kNumbers + 1;
    auto copy = std::make_unique<BackgroundCopy>(systemCopy_, source.path, target, number_);
    {
        const Locked locked(lock_);
        copies_.push_back({.copy = std::move(copy), .small = source.size <= kSmall});
    }
    WakeConditionVariable(&added_);
}

bool CopyQueue::holds(std::u16string_view source, std::u16string_view target) const {
    return std::any_of(copies_.begin(), copies_.end(),
                       [&](const Entry& entry) { return entry.copy->isOf(source, target); });
}

bool CopyQueue::startsWith(std::u16string_view source, std::u16string_view target) const {
    return !copies_.empty() && copies_.front().copy->isOf(source, target);
}

bool CopyQueue::waitForFirst() {
    const Locked locked(lock_);
    const bool& ended = copies_.front().ended;
    if (!ended) SleepConditionVariableSRW(&ended_, &lock_, kReportInterval, 0);
    return ended;
}

std::unique_ptr<BackgroundCopy> CopyQueue::takeFirst() {
    const Locked locked(lock_);
    auto copy = std::move(copies_.front().copy);
    copies_.pop_front();
    --begun_;
    return copy;
}

void CopyQueue::clear() {
    std::deque<Entry> gone;
    {
        const Locked locked(lock_);
        // What has not begun never will.
        copies_.resize(begun_);
        for (const Entry& entry : copies_)
            entry.copy->cancel();
        while (underWay() > 0)
            SleepConditionVariableSRW(&ended_, &lock_, INFINITE, 0);
        gone.swap(copies_);
        begun_ = 0;
    }
}

bool CopyQueue::mayBegin() const {
    if (begun_ == copies_.size()) return false;
    const auto first = copies_.begin();
    const auto firstWaiting = first + static_cast<std::ptrdiff_t>(begun_);
    return underWay() == 0 ||
           (firstWaiting->small && std::all_of(first, firstWaiting, [](const Entry& entry) {
                return entry.ended || entry.small;
            }));
}

size_t CopyQueue::underWay() const {
    const auto first = copies_.begin();
    return static_cast<size_t>(std::count_if(first, first + static_cast<std::ptrdiff_t>(begun_),
                                             [](const Entry& entry) { return !entry.ended; }));
}

DWORD WINAPI CopyQueue::run(void* data) noexcept {
    static_cast<CopyQueue*>(data)->work();
    return 0;
}

void CopyQueue::work() {
    AcquireSRWLockExclusive(&lock_);
    while (!closing_) {
        if (!mayBegin()) {
            SleepConditionVariableSRW(&added_, &lock_, INFINITE, 0);
            continue;
        }
        Entry& entry = copies_[begun_++];
        ReleaseSRWLockExclusive(&lock_);
        entry.copy->run();
        AcquireSRWLockExclusive(&lock_);
        entry.ended = true;
        // The owner takes them in their order, and waits for all of them only to clear.
        if (copies_.front().ended) WakeConditionVariable(&ended_);
        // What could not begin beside this one may now.
        WakeConditionVariable(&added_);
    }
    ReleaseSRWLockExclusive(&lock_);
}

}  // namespace platform::win32
