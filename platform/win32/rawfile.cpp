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

OVERLAPPED at(uint64_t offset) {
    OVERLAPPED position{};
    position.Offset = static_cast<DWORD>(offset);
    position.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return position;
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

size_t RawFile::read(uint64_t offset, std::span<uint8_t> bytes) const {
    size_t done = 0;
    while (done < bytes.size()) {
        OVERLAPPED position = at(offset + done);
        DWORD count = 0;
        if (!ReadFile(handle_.get(), bytes.data() + done, transferLength(bytes.size() - done),
                      &count, &position)) {
            const DWORD code = GetLastError();
            if (code == ERROR_HANDLE_EOF) break;
            throw systemError(code, path_);
        }
        if (count == 0) break;
        done += count;
    }
    return done;
}

void RawFile::write(uint64_t offset, std::span<const uint8_t> bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        OVERLAPPED position = at(offset + done);
        DWORD count = 0;
        if (!WriteFile(handle_.get(), bytes.data() + done, transferLength(bytes.size() - done),
                       &count, &position)) {
            throw systemError(GetLastError(), path_);
        }
        if (count == 0) throw systemError(ERROR_WRITE_FAULT, path_);
        done += count;
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
