// One copy by the system, under a name of its own until it is given its final one.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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
    BackgroundCopy(SystemCopy systemCopy, std::u16string_view source, std::u16string_view folder,
                   uint32_t number);
    BackgroundCopy(const BackgroundCopy&) = delete;
    BackgroundCopy& operator=(const BackgroundCopy&) = delete;

    // Looks how long the source is; gives its bytes, 0 when the system does not tell. Comes before
    // run().
    uint64_t measure() noexcept;
    // Copies; returns at the end, soon after cancel() where the system can do that.
    void run() noexcept { error_ = copy(); }
    void cancel() { cancel_ = TRUE; }
    // Bytes copied so far.
    uint64_t done() const;

    // These are for the time after the end. The system's error, ERROR_SUCCESS for none.
    DWORD error() const { return error_; }
    // Gives the copy its name on the same drive, which must be free; after an end without error.
    // Throws systemError.
    void moveTo(std::u16string_view target) { scratch_.moveTo(target); }

    const std::u16string& source() const { return source_; }

  private:
    static DWORD CALLBACK onProgress(LARGE_INTEGER size, LARGE_INTEGER done, LARGE_INTEGER,
                                     LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE,
                                     void* data) noexcept;
    DWORD copy();
    DWORD copyOnce();

    const SystemCopy systemCopy_;
    const std::u16string source_;
    std::optional<uint64_t> size_;
    ScratchFile scratch_;
    const std::wstring sourcePath_;  // as the system takes it; likewise below
    const std::wstring scratchPath_;
    std::atomic<uint64_t> done_ = 0;
    std::atomic<bool> reports_ = false;
    BOOL cancel_ = FALSE;  // the system looks at it while it copies
    DWORD error_ = ERROR_SUCCESS;
};

}  // namespace platform::win32
