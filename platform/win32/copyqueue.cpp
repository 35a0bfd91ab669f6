#include "platform/win32/copyqueue.h"

#include <algorithm>
#include <utility>

#include "platform/filecopier.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// How long the caller's windows may wait for a report, milliseconds.
constexpr DWORD kReportInterval = 15;

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

CopyQueue::CopyQueue() : thread_(CreateThread(nullptr, 0, run, this, 0, nullptr)) {
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

void CopyQueue::add(std::u16string_view source, std::u16string_view target) {
    number_ = number_ % kNumbers + 1;
    auto copy = std::make_unique<BackgroundCopy>(source, target, number_);
    {
        const Locked locked(lock_);
        copies_.push_back(std::move(copy));
    }
    WakeConditionVariable(&added_);
}

bool CopyQueue::holds(std::u16string_view source, std::u16string_view target) const {
    return std::any_of(copies_.begin(), copies_.end(),
                       [&](const auto& copy) { return copy->isOf(source, target); });
}

bool CopyQueue::startsWith(std::u16string_view source, std::u16string_view target) const {
    return !copies_.empty() && copies_.front()->isOf(source, target);
}

bool CopyQueue::waitForFirst() {
    const Locked locked(lock_);
    if (done_ == 0) SleepConditionVariableSRW(&ended_, &lock_, kReportInterval, 0);
    return done_ > 0;
}

std::unique_ptr<BackgroundCopy> CopyQueue::takeFirst() {
    const Locked locked(lock_);
    auto copy = std::move(copies_.front());
    copies_.pop_front();
    --begun_;
    --done_;
    return copy;
}

void CopyQueue::clear() {
    std::deque<std::unique_ptr<BackgroundCopy>> gone;
    {
        const Locked locked(lock_);
        // What has not begun never will.
        copies_.resize(begun_);
        for (const auto& copy : copies_)
            copy->cancel();
        while (done_ < begun_)
            SleepConditionVariableSRW(&ended_, &lock_, INFINITE, 0);
        gone.swap(copies_);
        begun_ = 0;
        done_ = 0;
    }
}

DWORD WINAPI CopyQueue::run(void* data) noexcept {
    static_cast<CopyQueue*>(data)->work();
    return 0;
}

void CopyQueue::work() {
    AcquireSRWLockExclusive(&lock_);
    while (!closing_) {
        if (begun_ == copies_.size()) {
            SleepConditionVariableSRW(&added_, &lock_, INFINITE, 0);
            continue;
        }
        BackgroundCopy& copy = *copies_[begun_++];
        ReleaseSRWLockExclusive(&lock_);
        copy.run();
        AcquireSRWLockExclusive(&lock_);
        ++done_;
        WakeConditionVariable(&ended_);
    }
    ReleaseSRWLockExclusive(&lock_);
}

}  // namespace platform::win32
