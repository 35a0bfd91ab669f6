#include "platform/win32/copyqueue.h"

#include <algorithm>
#include <utility>

#include "platform/win32/scratchfolder.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// How long the caller's windows may wait for a report, milliseconds.
constexpr DWORD kReportInterval = 15;

// Numbers are used again when the copies that had them have long got their names.
constexpr uint32_t kNumbers = 2 * static_cast<uint32_t>(FileCopier::kMostAhead + 2);

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
    thread_.reset(CreateThread(nullptr, 0, run, this, 0, nullptr));
    if (!thread_) throw systemError(GetLastError());
}

CopyQueue::~CopyQueue() {
    clear();
    {
        const Locked locked(lock_);
        closing_ = true;
    }
    WakeConditionVariable(&added_);
    WaitForSingleObject(thread_.get(), INFINITE);
}

void CopyQueue::add(std::u16string_view source, std::u16string_view folder) {
    number_ = (number_ + 1) % kNumbers;
    auto copy = std::make_unique<BackgroundCopy>(systemCopy_, source, folder,
                                                 ScratchFolder::kFirstNumber + number_);
    {
        const Locked locked(lock_);
        copies_.push_back(std::move(copy));
    }
    WakeConditionVariable(&added_);
}

bool CopyQueue::holds(std::u16string_view source) const {
    return std::any_of(copies_.begin(), copies_.end(),
                       [&](const auto& copy) { return copy->source() == source; });
}

bool CopyQueue::startsWith(std::u16string_view source) const {
    return !copies_.empty() && copies_.front()->source() == source;
}

bool CopyQueue::waitForFirst() {
    const Locked locked(lock_);
    if (ended_ == 0) SleepConditionVariableSRW(&advanced_, &lock_, kReportInterval, 0);
    return ended_ > 0;
}

std::unique_ptr<BackgroundCopy> CopyQueue::takeFirst() {
    const Locked locked(lock_);
    auto copy = std::move(copies_.front());
    copies_.pop_front();
    --ended_;
    return copy;
}

void CopyQueue::clear() {
    std::deque<std::unique_ptr<BackgroundCopy>> gone;
    {
        const Locked locked(lock_);
        // What has not begun never will.
        copies_.resize(ended_ + (busy_ ? 1 : 0));
        if (busy_) copies_.back()->cancel();
        while (busy_)
            SleepConditionVariableSRW(&advanced_, &lock_, INFINITE, 0);
        gone.swap(copies_);
        ended_ = 0;
    }
}

DWORD WINAPI CopyQueue::run(void* data) noexcept {
    static_cast<CopyQueue*>(data)->work();
    return 0;
}

void CopyQueue::work() {
    AcquireSRWLockExclusive(&lock_);
    while (!closing_) {
        if (ended_ == copies_.size()) {
            SleepConditionVariableSRW(&added_, &lock_, INFINITE, 0);
            continue;
        }
        BackgroundCopy& copy = *copies_[ended_];
        busy_ = true;
        ReleaseSRWLockExclusive(&lock_);
        copy.run();
        AcquireSRWLockExclusive(&lock_);
        busy_ = false;
        ++ended_;
        if (isWorthWaking(ended_, copies_.size() - ended_)) WakeConditionVariable(&advanced_);
    }
    ReleaseSRWLockExclusive(&lock_);
}

}  // namespace platform::win32
