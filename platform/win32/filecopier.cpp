#include "platform/win32/filecopier.h"

#include <windows.h>

#include <string>
#include <utility>

#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// Sees `copy` to its end; false for an error.
bool succeeds(BackgroundCopy& copy, const CopyProgress& progress) {
    while (!copy.wait())
        progress(copy.done());
    return copy.error() == ERROR_SUCCESS;
}

}  // namespace

void Win32FileCopier::createFolder(std::u16string_view path) {
    if (!CreateDirectoryW(extendedPath(path).c_str(), nullptr)) {
        throw systemError(GetLastError(), path);
    }
}

bool Win32FileCopier::opens(std::u16string_view path) {
    if (!names_.mayHold(path)) return false;
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
                           std::u16string_view next, const CopyProgress& progress) {
    std::unique_ptr<BackgroundCopy> copy = takeAhead(source, target);
    if (!copy || !succeeds(*copy, progress)) {
        // What failed ahead of its time may succeed in its turn.
        copy = start(source, target);
        if (!succeeds(*copy, progress)) {
            throw systemError(copy->error(),
                              std::u16string(source) + u" → " + std::u16string(target));
        }
    }
    if (!next.empty()) ahead_ = start(next, target);
    copy->moveTo(target);
    names_.add(target);
}

void Win32FileCopier::endCopies() {
    ahead_.reset();
    names_.forget();
}

std::unique_ptr<BackgroundCopy> Win32FileCopier::start(std::u16string_view source,
                                                       std::u16string_view target) {
    number_ = 1 - number_;
    return std::make_unique<BackgroundCopy>(source, target, number_);
}

std::unique_ptr<BackgroundCopy> Win32FileCopier::takeAhead(std::u16string_view source,
                                                           std::u16string_view target) {
    std::unique_ptr<BackgroundCopy> copy = std::exchange(ahead_, nullptr);
    if (!copy || copy->source() != source || !copy->isBeside(target)) return nullptr;
    return copy;
}

}  // namespace platform::win32
