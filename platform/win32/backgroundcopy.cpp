#include "platform/win32/backgroundcopy.h"

#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// How long the caller's windows may wait for a report, milliseconds.
constexpr DWORD kReportInterval = 15;

class Locked {
  public:
    explicit Locked(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    ~Locked() { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK& lock_;
};

uint64_t sizeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return 0;
    return (static_cast<uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

std::u16string_view folderOf(std::u16string_view path) {
    return path.substr(0, path.rfind(u'\\') + 1);
}

}  // namespace

BackgroundCopy::BackgroundCopy(std::u16string_view source, std::u16string_view target, int number)
    : source_(source),
      scratch_(target, number),
      sourcePath_(extendedPath(source)),
      scratchPath_(extendedPath(scratch_.path())) {
    if (!QueueUserWorkItem(run, this, WT_EXECUTELONGFUNCTION)) throw systemError(GetLastError());
}

BackgroundCopy::~BackgroundCopy() {
    cancel_ = TRUE;
    // The thread uses the object up to the copy's end.
    while (!wait()) {
    }
}

bool BackgroundCopy::wait() {
    const Locked locked(lock_);
    if (!ended_) SleepConditionVariableSRW(&end_, &lock_, kReportInterval, 0);
    return ended_;
}

uint64_t BackgroundCopy::done() const {
    // Not every system tells how far it is; the file that grows does, then.
    return reports_ ? done_.load() : sizeOf(scratchPath_);
}

bool BackgroundCopy::isBeside(std::u16string_view target) const {
    return folderOf(scratch_.path()) == folderOf(target);
}

DWORD WINAPI BackgroundCopy::run(void* data) noexcept {
    auto& self = *static_cast<BackgroundCopy*>(data);
    self.error_ = self.copy();
    const Locked locked(self.lock_);
    self.ended_ = true;
    WakeConditionVariable(&self.end_);
    return 0;
}

DWORD BackgroundCopy::copy() {
    const DWORD error = copyOnce();
    if (error != ERROR_FILE_EXISTS) return error;
    // A killed program has left it.
    scratch_.remove();
    return copyOnce();
}

DWORD BackgroundCopy::copyOnce() {
    const BOOL copied =
        CopyFileExW(sourcePath_.c_str(), scratchPath_.c_str(), onProgress, this, &cancel_, 0);
    return copied ? ERROR_SUCCESS : GetLastError();
}

DWORD CALLBACK BackgroundCopy::onProgress(LARGE_INTEGER, LARGE_INTEGER done, LARGE_INTEGER,
                                          LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE,
                                          void* data) noexcept {
    auto& self = *static_cast<BackgroundCopy*>(data);
    self.done_ = static_cast<uint64_t>(done.QuadPart);
    self.reports_ = true;
    return PROGRESS_CONTINUE;
}

}  // namespace platform::win32
