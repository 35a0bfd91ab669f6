#include "platform/win32/backgroundcopy.h"

#include "platform/win32/path.h"

namespace platform::win32 {
namespace {

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
      scratchPath_(extendedPath(scratch_.path())) {}

uint64_t BackgroundCopy::done() const {
    // Not every system tells how far it is; the file that grows does, then.
    return reports_ ? done_.load() : sizeOf(scratchPath_);
}

bool BackgroundCopy::isOf(std::u16string_view source, std::u16string_view target) const {
    return source_ == source && folderOf(scratch_.path()) == folderOf(target);
}

DWORD BackgroundCopy::copy() {
    const DWORD error = copyOnce();
    if (error != ERROR_FILE_EXISTS) return error;
    // A killed program has left it.
    scratch_.remove();
    return copyOnce();
}

DWORD BackgroundCopy::copyOnce() {
    // Where it may overwrite, the system first looks whether both are the same file.
    const BOOL copied = CopyFileExW(sourcePath_.c_str(), scratchPath_.c_str(), onProgress, this,
                                    &cancel_, COPY_FILE_FAIL_IF_EXISTS);
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
