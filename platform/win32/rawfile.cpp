#include "platform/win32/rawfile.h"

#include <algorithm>

#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// The system takes 32-bit counts; whole megabytes keep long transfers aligned.
constexpr size_t kLongestTransfer = size_t{1} << 30;

DWORD transferLength(size_t bytes) {
    return static_cast<DWORD>(std::min(bytes, kLongestTransfer));
}

}  // namespace

RawFile::RawFile(std::u16string_view path, DWORD access, DWORD share, DWORD disposition,
                 DWORD flags)
    : path_(path),
      handle_(CreateFileW(extendedPath(path).c_str(), access, share, nullptr, disposition, flags,
                          nullptr)) {
    if (!handle_) throw systemError(GetLastError(), path);
}

uint64_t RawFile::size() const {
    LARGE_INTEGER size;
    if (!GetFileSizeEx(handle_.get(), &size)) throw systemError(GetLastError(), path_);
    return static_cast<uint64_t>(size.QuadPart);
}

void RawFile::moveTo(uint64_t offset) {
    if (offset == position_) return;
    LARGE_INTEGER distance;
    distance.QuadPart = static_cast<LONGLONG>(offset);
    if (!SetFilePointerEx(handle_.get(), distance, nullptr, FILE_BEGIN)) {
        throw systemError(GetLastError(), path_);
    }
    position_ = offset;
}

size_t RawFile::read(uint64_t offset, std::span<uint8_t> bytes) {
    moveTo(offset);
    size_t done = 0;
    while (done < bytes.size()) {
        DWORD count = 0;
        if (!ReadFile(handle_.get(), bytes.data() + done, transferLength(bytes.size() - done),
                      &count, nullptr)) {
            throw systemError(GetLastError(), path_);
        }
        if (count == 0) break;
        done += count;
        position_ += count;
    }
    return done;
}

void RawFile::write(uint64_t offset, std::span<const uint8_t> bytes) {
    moveTo(offset);
    size_t done = 0;
    while (done < bytes.size()) {
        DWORD count = 0;
        if (!WriteFile(handle_.get(), bytes.data() + done, transferLength(bytes.size() - done),
                       &count, nullptr)) {
            throw systemError(GetLastError(), path_);
        }
        if (count == 0) throw systemError(ERROR_WRITE_FAULT, path_);
        done += count;
        position_ += count;
    }
}

void RawFile::resize(uint64_t size) {
    FILE_END_OF_FILE_INFO end;
    end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
    if (!SetFileInformationByHandle(handle_.get(), FileEndOfFileInfo, &end, sizeof end)) {
        throw systemError(GetLastError(), path_);
    }
}

void RawFile::flush() {
    if (!FlushFileBuffers(handle_.get())) throw systemError(GetLastError(), path_);
}

}  // namespace platform::win32
