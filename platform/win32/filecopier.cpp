#include "platform/win32/filecopier.h"

#include <windows.h>

#include <string>

#include "platform/win32/abandonedscratch.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// From here on a folder for the files under way costs less than it saves, even if only a few more
// are to come.
constexpr size_t kManyNames = 64;

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

void Win32FileCopier::copy(const CopySource& source, std::u16string_view target,
                           std::span<const CopySource> next, const CopyProgress& progress) {
    turnTo(folderOf(target));
    try {
        copied(source, target, next, progress)->moveTo(target);
    } catch (...) {
        queue_->clear();
        throw;
    }
    names_.add(target);
}

void Win32FileCopier::endCopies() {
    queue_.reset();
    scratch_.reset();
    names_.forget();
}

void Win32FileCopier::turnTo(std::u16string_view folder) {
    if (!queue_) queue_.emplace(systemCopy_);
    if (scratch_ && scratch_->target() == folder) return;
    queue_->clear();
    scratch_.reset();
    removeAbandonedScratch(folder);
    scratch_.emplace(folder);
}

void Win32FileCopier::add(const CopySource& source) {
    if (names_.count() >= kManyNames) scratch_->make();
    queue_->add(source, scratch_->path());
}

std::unique_ptr<BackgroundCopy> Win32FileCopier::firstEnded(const CopyProgress& progress) {
    while (!queue_->waitForFirst())
        progress(queue_->first().done());
    return queue_->takeFirst();
}

void Win32FileCopier::addMissing(std::span<const CopySource> next) {
    // Several at once, so that the thread need not be woken for each.
    if (queue_->size() > FileCopier::kMostAhead / 2) return;
    for (const CopySource& follower : next) {
        if (!queue_->holds(follower.path)) add(follower);
    }
}

std::unique_ptr<BackgroundCopy> Win32FileCopier::copied(const CopySource& source,
                                                        std::u16string_view target,
                                                        std::span<const CopySource> next,
                                                        const CopyProgress& progress) {
    for (bool ahead = queue_->startsWith(source.path);; ahead = false) {
        if (!ahead) {
            queue_->clear();
            add(source);
        }
        addMissing(next);
        std::unique_ptr<BackgroundCopy> copy = firstEnded(progress);
        const DWORD error = copy->finish();
        if (error == ERROR_SUCCESS) return copy;
        // What failed ahead of its time may succeed in its turn.
        if (ahead) continue;
        throw systemError(error, std::u16string(source.path) + u" → " + std::u16string(target));
    }
}

}  // namespace platform::win32
