// What the engine needs of the system: random-access files and their names. Implemented by
// platform/win32 and platform/posix, and by fault-injecting layers in tests.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace jet {

// One open file. All calls throw base::Error (DeviceIo, DiskFull, ...) on failure.
class File {
  public:
    virtual ~File() = default;
    virtual uint64_t size() = 0;
    // Reads exactly bytes.size() bytes at `offset`; reading past the end is an error.
    virtual void read(uint64_t offset, std::span<uint8_t> bytes) = 0;
    // Writes all of `bytes` at `offset`; extends the file when needed.
    virtual void write(uint64_t offset, std::span<const uint8_t> bytes) = 0;
    virtual void resize(uint64_t size) = 0;
    // Returns once everything written so far is on the medium.
    virtual void flush() = 0;
    // A read-only view of the first `size` bytes that shows later writes made through this object;
    // valid until the next call of map() or the end of the file object. The file may grow
    // meanwhile; it must not be made smaller than `size` while the view is used (call map(0)
    // first).
    virtual std::span<const uint8_t> map(uint64_t size) = 0;
};

class FileStore {
  public:
    virtual ~FileStore() = default;
    // Opens for reading and writing, other writers shut out; FileInUse, FileNotFoundByEngine,
    // PermissionDenied and so on when that fails.
    virtual std::unique_ptr<File> open(std::u16string_view path) = 0;
    // Opens for reading alone, where writing is refused (read-only medium or file).
    virtual std::unique_ptr<File> openReadOnly(std::u16string_view path) = 0;
    // Creates or empties.
    virtual std::unique_ptr<File> create(std::u16string_view path) = 0;
    virtual bool exists(std::u16string_view path) = 0;
    virtual void remove(std::u16string_view path) = 0;
};

}  // namespace jet
