#include "platform/win32/scratchfile.h"

#include <cstring>
#include <vector>

#include "platform/scratchname.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

}  // namespace

ScratchFile::ScratchFile(std::u16string_view folder, uint32_t number) : path_(folder) {
    path_ += scratchName(GetCurrentProcessId(), number);
}

ScratchFile::~ScratchFile() {
    if (moved_) return;
    file_.reset();
    remove();
}

DWORD ScratchFile::open() {
    file_.reset(CreateFileW(extendedPath(path_).c_str(), DELETE | SYNCHRONIZE, kShareAll, nullptr,
                            OPEN_EXISTING, 0, nullptr));
    return file_ ? ERROR_SUCCESS : GetLastError();
}

void ScratchFile::moveTo(std::u16string_view target) {
    // By handle, which asks for the new name once; MoveFileExW looks for it first.
    const std::wstring name = extendedPath(target);
    const size_t nameSize = name.size() * sizeof(wchar_t);
    // The name stands at the structure's end and goes beyond it.
    std::vector<FILE_RENAME_INFO> request(2 + nameSize / sizeof(FILE_RENAME_INFO));
    request.front().FileNameLength = static_cast<DWORD>(nameSize);
    std::memcpy(request.front().FileName, name.c_str(), nameSize + sizeof(wchar_t));
    if (!SetFileInformationByHandle(
            file_.get(), FileRenameInfo, request.data(),
            static_cast<DWORD>(request.size() * sizeof(FILE_RENAME_INFO)))) {
        throw systemError(GetLastError(), target);
    }
    moved_ = true;
    file_.reset();
}

void ScratchFile::replace(std::u16string_view target) {
    if (!MoveFileExW(extendedPath(path_).c_str(), extendedPath(target).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        throw systemError(GetLastError(), target);
    }
    moved_ = true;
}

void ScratchFile::remove() const {
    removeScratch(path_);
}

void removeScratch(std::u16string_view path) {
    const std::wstring name = extendedPath(path);
    if (DeleteFileW(name.c_str()) || GetLastError() != ERROR_ACCESS_DENIED) return;
    // Files of a CD are read-only, and so is their copy; the system deletes no such file.
    SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(name.c_str());
}

}  // namespace platform::win32
