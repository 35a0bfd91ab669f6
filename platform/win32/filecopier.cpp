#include "platform/win32/filecopier.h"

#include <windows.h>

#include <exception>
#include <string>

#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/scratchfile.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

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
    ScratchFile scratch(target);
    ProgressCall call{progress, nullptr};
    if (!CopyFileExW(extendedPath(source).c_str(), extendedPath(scratch.path()).c_str(), onProgress,
                     &call, nullptr, 0)) {
        const DWORD code = GetLastError();
        if (call.error) std::rethrow_exception(call.error);
        throw systemError(code, std::u16string(source) + u" → " + std::u16string(target));
    }
    scratch.moveTo(0);
}

}  // namespace platform::win32
