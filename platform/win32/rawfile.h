// Positioned reading and writing on a system file handle.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/win32/handle.h"

namespace platform::win32 {

// Owns the handle of one open file and the path it was opened by, which its errors name. Each call
// names its place in the file; the file pointer is moved only when that is not where the call
// before ended. Calls that carry their position themselves (OVERLAPPED) take twice as long under
// Wine.
class RawFile {
  public:
    // Opens or creates; throws systemError. The arguments are those of CreateFileW.
    RawFile(std::u16string_view path, DWORD access, DWORD share, DWORD disposition, DWORD flags);

    uint64_t size() const;
    // Gives how many bytes were there, fewer than asked for only at the end of the file.
    size_t read(uint64_t offset, std::span<uint8_t> bytes);
    void write(uint64_t offset, std::span<const uint8_t> bytes);
    void resize(uint64_t size);
    // Returns once what was written is on the medium.
    void flush();

    HANDLE handle() const { return handle_.get(); }
    const std::u16string& path() const { return path_; }

  private:
    void moveTo(uint64_t offset);

    std::u16string path_;
    FileHandle handle_;
    uint64_t position_ = 0;  // of the file pointer
};

}  // namespace platform::win32
