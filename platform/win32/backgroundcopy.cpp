#include "platform/win32/backgroundcopy.h"

#include <optional>

#include "platform/win32/handle.h"
#include "platform/win32/path.h"

namespace platform::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The size of what a link leads to, which is what the system copies, too.
std::optional<uint64_t> sizeBehindLink(const std::wstring& path) {
    const FileHandle file(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.get(), &size)) return std::nullopt;
    return static_cast<uint64_t>(size.QuadPart);
}

// Bytes; none when the system does not tell.
std::optional<uint64_t> sizeOf(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return sizeBehindLink(path);
    return (static_cast<uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

}  // namespace

BackgroundCopy::BackgroundCopy(SystemCopy systemCopy, const CopySource& source,
                               std::u16string_view folder, uint32_t number)
    : systemCopy_(systemCopy),
      source_(source.path),
      size_(source.size),
      scratch_(folder, number),
      sourcePath_(extendedPath(source.path)),
      scratchPath_(extendedPath(scratch_.path())) {}

uint64_t BackgroundCopy::done() const {
    // Not every system tells how far it is; the file that grows does, then.
    return reports_ ? done_.load() : sizeOf(scratchPath_).value_or(0);
}

DWORD BackgroundCopy::copy() {
    DWORD error = copyOnce();
    if (error != ERROR_FILE_EXISTS) return error;
    // A killed program has left it.
    scratch_.remove();
    error = copyOnce();
    // That name is not the one the caller could choose another for.
    return error == ERROR_FILE_EXISTS ? ERROR_ACCESS_DENIED : error;
}

DWORD BackgroundCopy::copyOnce() {
    // Where it may overwrite, the system first looks whether both are the same file.
    const BOOL copied = systemCopy_(sourcePath_.c_str(), scratchPath_.c_str(), onProgress, this,
                                    &cancel_, COPY_FILE_FAIL_IF_EXISTS);
    return copied ? ERROR_SUCCESS : GetLastError();
}

DWORD BackgroundCopy::finish() noexcept {
    if (error_ != ERROR_SUCCESS || finished_) return error_;
    finished_ = true;
    // Not every system tells when the source could only be read in part.
    error_ = isWhole() ? scratch_.open() : ERROR_READ_FAULT;
    return error_;
}

bool BackgroundCopy::isWhole() const {
    const std::optional<uint64_t> copied = sizeOf(scratchPath_);
    // The source may have changed since it was seen, or could not be opened then and had no size.
    return copied && ((*copied == size_ && size_ > 0) || copied == sizeOf(sourcePath_));
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
