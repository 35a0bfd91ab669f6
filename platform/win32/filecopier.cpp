#include "platform/win32/filecopier.h"

#include <windows.h>

#include <atomic>
#include <string>
#include <utility>

#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/scratchfile.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// How long the caller's windows may wait for a report, milliseconds.
constexpr DWORD kReportInterval = 15;

uint64_t sizeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return 0;
    return (static_cast<uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

// One copy by the system. It runs on a thread of the system's pool, for a drive may keep a read
// waiting for seconds; the thread that waits for it looks after the windows meanwhile.
class Copy {
  public:
    Copy(std::wstring source, std::wstring target)
        : source_(std::move(source)),
          target_(std::move(target)),
          total_(sizeOf(source_)),
          ended_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {
        if (!ended_ || !QueueUserWorkItem(run, this, WT_EXECUTELONGFUNCTION))
            throw systemError(GetLastError());
    }
    Copy(const Copy&) = delete;
    Copy& operator=(const Copy&) = delete;
    // The thread uses the object up to the copy's end.
    ~Copy() {
        cancel_ = TRUE;
        WaitForSingleObject(ended_.get(), INFINITE);
    }

    // Waits for the end, but no longer than a window may; true at the end.
    bool wait() const { return WaitForSingleObject(ended_.get(), kReportInterval) != WAIT_TIMEOUT; }
    // The system's error, ERROR_SUCCESS for none; after the end.
    DWORD error() const { return error_; }

    uint64_t total() const { return total_; }
    // Not every system tells how far it is; the file that grows does, then.
    uint64_t done() const { return reports_ ? done_.load() : sizeOf(target_); }

  private:
    static DWORD WINAPI run(void* data) noexcept {
        auto& copy = *static_cast<Copy*>(data);
        if (!CopyFileExW(copy.source_.c_str(), copy.target_.c_str(), onProgress, &copy,
                         &copy.cancel_, 0)) {
            copy.error_ = GetLastError();
        }
        SetEvent(copy.ended_.get());
        return 0;
    }

    static DWORD CALLBACK onProgress(LARGE_INTEGER, LARGE_INTEGER done, LARGE_INTEGER,
                                     LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE,
                                     void* data) noexcept {
        auto& copy = *static_cast<Copy*>(data);
        copy.done_ = static_cast<uint64_t>(done.QuadPart);
        copy.reports_ = true;
        return PROGRESS_CONTINUE;
    }

    const std::wstring source_;
    const std::wstring target_;
    const uint64_t total_;
    std::atomic<uint64_t> done_ = 0;
    std::atomic<bool> reports_ = false;
    BOOL cancel_ = FALSE;  // the system looks at it while it copies
    DWORD error_ = ERROR_SUCCESS;
    const KernelHandle ended_;
};

}  // namespace

void Win32FileCopier::createFolder(std::u16string_view path) {
    if (!CreateDirectoryW(extendedPath(path).c_str(), nullptr)) {
        throw systemError(GetLastError(), path);
    }
}

bool Win32FileCopier::opens(std::u16string_view path) {
    try {
        const FileHandle file(CreateFileW(extendedPath(path).c_str(), GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
        return static_cast<bool>(file);
    } catch (const base::Error&) {
        return false;
    }
}

void Win32FileCopier::copy(std::u16string_view source, std::u16string_view target,
                           const CopyProgress& progress) {
    ScratchFile scratch(target);
    {
        const Copy copy(extendedPath(source), extendedPath(scratch.path()));
        while (!copy.wait())
            progress(copy.done(), copy.total());
        if (copy.error() != ERROR_SUCCESS) {
            throw systemError(copy.error(),
                              std::u16string(source) + u" → " + std::u16string(target));
        }
        progress(copy.total(), copy.total());
    }
    scratch.moveTo(0);
}

}  // namespace platform::win32
