// One copy by the system, under a name of its own until it is given its final one.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/filecopier.h"
#include "platform/win32/scratchfile.h"

namespace platform::win32 {

// The system's call that copies a file: CopyFileExW, or what stands for it in a test.
using SystemCopy = decltype(&CopyFileExW);

// Made and destroyed by one thread, which may watch while another one runs the copy. What there is
// of it goes with the object unless it was given its name.
class BackgroundCopy {
  public:
    // It is made in `folder` (with its backslash), where no other one under way may have this
    // `number`.
    BackgroundCopy(SystemCopy systemCopy, const CopySource& source, std::u16string_view folder,
                   uint32_t number);
    BackgroundCopy(const BackgroundCopy&) = delete;
    BackgroundCopy& operator=(const BackgroundCopy&) = delete;

    // Copies; returns at the end, soon after cancel() where the system can do that.
    void run() noexcept { error_ = copy(); }
    // Looks whether all has arrived, and makes ready for moveTo(). Comes after run(), on whatever
    // thread, and does nothing when it comes again. Gives the system's error, also that of run();
    // ERROR_SUCCESS for none.
    DWORD finish() noexcept;
    void cancel() { cancel_ = TRUE; }
    // Bytes copied so far.
    uint64_t done() const;

    // Gives the copy its name on the same drive, which must be free; after finish() without error.
    // Throws systemError.
    void moveTo(std::u16string_view target) { scratch_.moveTo(target); }

    const std::u16string& source() const { return source_; }
    // Bytes, as the source was last seen.
    uint64_t size() const { return size_; }

  private:
    static DWORD CALLBACK onProgress(LARGE_INTEGER size, LARGE_INTEGER done, LARGE_INTEGER,
                                     LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE,
                                     void* data) noexcept;
    DWORD copy();
    DWORD copyOnce();
    // Whether there is as much of the copy as of its source.
    bool isWhole() const;

    const SystemCopy systemCopy_;
    const std::u16string source_;
    const uint64_t size_;
    ScratchFile scratch_;
    const std::wstring sourcePath_;  // as the system takes it; likewise below
    const std::wstring scratchPath_;
    std::atomic<uint64_t> done_ = 0;
    std::atomic<bool> reports_ = false;
    BOOL cancel_ = FALSE;  // the system looks at it while it copies
    DWORD error_ = ERROR_SUCCESS;
    bool finished_ = false;
};

}  // namespace platform::win32
