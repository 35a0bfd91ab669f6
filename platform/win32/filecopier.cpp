#include "platform/win32/filecopier.h"

#include <windows.h>

#include <exception>
#include <string>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

// A name in the folder of `target` that no other running program uses: one left behind by a program
// that was killed may be overwritten. It does not grow with the target's name, which may be as long
// as the file system allows already.
std::wstring scratchBeside(std::u16string_view target) {
    std::u16string name(target.substr(0, target.rfind(u'\\') + 1));
    name += u"~Brivantole" + base::trim(base::strNumber(GetCurrentProcessId())) + u".tmp";
    return extendedPath(name);
}

// The copy under way, under its own name until it is whole.
class ScratchFile {
  public:
    explicit ScratchFile(std::wstring path) : path_(std::move(path)) { remove(); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile() {
        if (!path_.empty()) remove();
    }

    const wchar_t* path() const { return path_.c_str(); }

    void moveTo(std::u16string_view target) {
        if (!MoveFileExW(path(), extendedPath(target).c_str(), 0)) {
            throw systemError(GetLastError(), target);
        }
        path_.clear();
    }

  private:
    void remove() const {
        // Files of a CD are read-only, and so is their copy; the system deletes no such file.
        SetFileAttributesW(path(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW(path());
    }

    std::wstring path_;
};

struct ProgressCall {
    const CopyProgress& report;
    std::exception_ptr error;
};

DWORD CALLBACK onProgress(LARGE_INTEGER total, LARGE_INTEGER done, LARGE_INTEGER, LARGE_INTEGER,
                          DWORD, DWORD, HANDLE, HANDLE, void* data) noexcept {
    auto& call = *static_cast<ProgressCall*>(data);
    try {
        call.report(static_cast<uint64_t>(done.QuadPart), static_cast<uint64_t>(total.QuadPart));
        return PROGRESS_CONTINUE;
    } catch (...) {
        call.error = std::current_exception();
        return PROGRESS_CANCEL;
    }
}

}  // namespace

void Win32FileCopier::createFolder(std::u16string_view path) {
    if (!CreateDirectoryW(extendedPath(path).c_str(), nullptr)) {
        throw systemError(GetLastError(), path);
    }
}

bool Win32FileCopier::opens(std::u16string_view path) {
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
                           const CopyProgress& progress) {
    ScratchFile scratch(scratchBeside(target));
    ProgressCall call{progress, nullptr};
    if (!CopyFileExW(extendedPath(source).c_str(), scratch.path(), onProgress, &call, nullptr, 0)) {
        const DWORD code = GetLastError();
        if (call.error) std::rethrow_exception(call.error);
        throw systemError(code, std::u16string(source) + u" → " + std::u16string(target));
    }
    scratch.moveTo(target);
}

}  // namespace platform::win32
