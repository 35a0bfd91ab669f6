#include "platform/win32/scratchfile.h"

#include <cstring>
#include <vector>

#include "base/number.h"
#include "base/text.h"
#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::u16string scratchName(int number) {
    std::u16string name = u"~Brivantole" + base::trim(base::strNumber(GetCurrentProcessId()));
    if (number > 0) name += u'-' + base::trim(base::strNumber(number));
    return name + u".tmp";
}

}  // namespace

ScratchFile::ScratchFile(std::u16string_view target, int number)
    : path_(target.substr(0, target.rfind(u'\\') + 1)) {
    path_ += scratchName(number);
}

ScratchFile::~ScratchFile() {
    if (!moved_) remove();
}

void ScratchFile::moveTo(std::u16string_view target) {
    // By handle, which asks for the new name once; MoveFileExW looks for it first.
    const RawFile file(path_, DELETE | SYNCHRONIZE, kShareAll, OPEN_EXISTING, 0);
    const std::wstring name = extendedPath(target);
    const size_t nameSize = name.size() * sizeof(wchar_t);
    // The name stands at the structure's end and goes beyond it.
    std::vector<FILE_RENAME_INFO> request(2 + nameSize / sizeof(FILE_RENAME_INFO));
    request.front().FileNameLength = static_cast<DWORD>(nameSize);
    std::memcpy(request.front().FileName, name.c_str(), nameSize + sizeof(wchar_t));
    if (!SetFileInformationByHandle(
            file.handle(), FileRenameInfo, request.data(),
            static_cast<DWORD>(request.size() * sizeof(FILE_RENAME_INFO)))) {
        throw systemError(GetLastError(), target);
    }
    moved_ = true;
}

void ScratchFile::replace(std::u16string_view target) {
    if (!MoveFileExW(extendedPath(path_).c_str(), extendedPath(target).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        throw systemError(GetLastError(), target);
    }
    moved_ = true;
}

void ScratchFile::remove() const {
    const std::wstring path = extendedPath(path_);
    if (DeleteFileW(path.c_str()) || GetLastError() != ERROR_ACCESS_DENIED) return;
    // Files of a CD are read-only, and so is their copy; the system deletes no such file.
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(path.c_str());
}

}  // namespace platform::win32
