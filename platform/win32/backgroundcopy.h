// One copy by the system, on a thread of its own.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/win32/scratchfile.h"

namespace platform::win32 {

// Copies a file beside its place. It runs on a thread of the system's pool, for a drive may keep a
// read waiting for seconds; the thread that waits for it looks after the windows meanwhile.
class BackgroundCopy {
  public:
    // Starts at once. `target` only tells the folder, where no other copy under way may have this
    // `number`. Throws systemError when there is no thread.
    BackgroundCopy(std::u16string_view source, std::u16string_view target, int number);
    BackgroundCopy(const BackgroundCopy&) = delete;
    BackgroundCopy& operator=(const BackgroundCopy&) = delete;
    // Cancels what is not over and removes it.
    ~BackgroundCopy();

    // Waits for the end, but no longer than a window may; true at the end.
    bool wait();
    // Bytes copied so far.
    uint64_t done() const;
    // The system's error, ERROR_SUCCESS for none; after the end.
    DWORD error() const { return error_; }
    // Gives the copy its name, which must be free; after an end without error. Throws systemError.
    void moveTo(std::u16string_view target) { scratch_.moveTo(target); }

    const std::u16string& source() const { return source_; }
    // Whether the copy lies in the folder of `target`.
    bool isBeside(std::u16string_view target) const;

  private:
    static DWORD WINAPI run(void* data) noexcept;
    static DWORD CALLBACK onProgress(LARGE_INTEGER size, LARGE_INTEGER done, LARGE_INTEGER,
                                     LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE,
                                     void* data) noexcept;
    DWORD copy();
    DWORD copyOnce();

    const std::u16string source_;
    ScratchFile scratch_;
    const std::wstring sourcePath_;  // as the system takes it; likewise below
    const std::wstring scratchPath_;
    std::atomic<uint64_t> done_ = 0;
    std::atomic<bool> reports_ = false;
    BOOL cancel_ = FALSE;  // the system looks at it while it copies
    DWORD error_ = ERROR_SUCCESS;

    // A lock rather than an event: a copy of a small file is over in the time that it takes to make
    // and close an event.
    SRWLOCK lock_ = SRWLOCK_INIT;
    CONDITION_VARIABLE end_ = CONDITION_VARIABLE_INIT;
    bool ended_ = false;  // under lock_
};

}  // namespace platform::win32
