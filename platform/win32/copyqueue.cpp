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
    TP_CALLBACK_ENVIRON environment;
    InitializeThreadpoolEnvironment(&environment);
    SetThreadpoolCallbackRunsLong(&environment);
    work_.reset(CreateThreadpoolWork(run, this, &environment));
    if (!work_) throw systemError(GetLastError());
}

CopyQueue::~CopyQueue() {
    clear();
    WaitForThreadpoolWorkCallbacks(work_.get(), TRUE);
}

void CopyQueue::add(const CopySource& source, std::u16string_view folder) {
    number_ = (number_ + 1) % kNumbers;
    auto copy = std::make_unique<BackgroundCopy>(systemCopy_, source, folder,
                                                 ScratchFolder::kFirstNumber + number_);
    bool another = false;
    {
        const Locked locked(lock_);
        copies_.push_back({std::move(copy)});
        another = countNextThread();
    }
    if (another) SubmitThreadpoolWork(work_.get());
}

bool CopyQueue::holds(std::u16string_view source) const {
    return std::any_of(copies_.begin(), copies_.end(),
                       [&](const Place& place) { return place.copy->source() == source; });
}

bool CopyQueue::startsWith(std::u16string_view source) const {
    return !copies_.empty() && copies_.front().copy->source() == source;
}

bool CopyQueue::waitForFirst() {
    const Locked locked(lock_);
    if (ended_ == 0) SleepConditionVariableSRW(&advanced_, &lock_, kReportInterval, 0);
    return ended_ > 0;
}

std::unique_ptr<BackgroundCopy> CopyQueue::takeFirst() {
    const Locked locked(lock_);
    auto copy = std::move(copies_.front().copy);
    copies_.pop_front();
    --begun_;
    --ended_;
    return copy;
}

void CopyQueue::clear() {
    std::deque<Place> gone;
    {
        const Locked locked(lock_);
        // What has not begun never will.
        copies_.resize(begun_);
        for (const Place& place : copies_)
            place.copy->cancel();
        while (ended_ < begun_)
            SleepConditionVariableSRW(&advanced_, &lock_, INFINITE, 0);
        gone.swap(copies_);
        begun_ = ended_ = 0;
    }
}

void CALLBACK CopyQueue::run(PTP_CALLBACK_INSTANCE, void* data, PTP_WORK) noexcept {
    static_cast<CopyQueue*>(data)->work();
}

void CopyQueue::work() {
    const Locked locked(lock_);
    coming_ = false;
    while (mayBegin())
        see(copies_[begun_++]);
    --threads_;
}

void CopyQueue::see(Place& place) {
    BackgroundCopy& copy = *place.copy;
    alone_ = copy.size() > kSmall;
    const bool small = !alone_;
    const bool another = countNextThread();
    ReleaseSRWLockExclusive(&lock_);
    if (another) SubmitThreadpoolWork(work_.get());
    copy.run();
    // A large one is finished by its owner, while the next one is copied.
    if (small) copy.finish();
    AcquireSRWLockExclusive(&lock_);
    if (!small) alone_ = false;
    markEnded(place);
}

bool CopyQueue::countNextThread() {
    if (coming_ || threads_ == kThreads || !mayBegin()) return false;
    ++threads_;
    coming_ = true;
    return true;
}

void CopyQueue::markEnded(Place& place) {
    place.ended = true;
    while (ended_ < begun_ && copies_[ended_].ended)
        ++ended_;
    if (isWorthWaking(ended_, copies_.size() - ended_)) WakeConditionVariable(&advanced_);
}

}  // namespace platform::win32
