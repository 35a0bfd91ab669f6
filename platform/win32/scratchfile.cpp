#include "platform/win32/scratchfile.h"

#include "base/number.h"
#include "base/text.h"
#include "platform/win32/path.h"
#include "platform/win32/systemerror.h"

namespace platform::win32 {
namespace {

std::u16string scratchName() {
    return u"~Brivantole" + base::trim(base::strNumber(GetCurrentProcessId())) + u".tmp";
}

}  // namespace

ScratchFile::ScratchFile(std::u16string_view target)
    : target_(target), path_(target.substr(0, target.rfind(u'\\') + 1)) {
    path_ += scratchName();
    remove();
}

ScratchFile::~ScratchFile() {
    if (!moved_) remove();
}

void ScratchFile::moveTo(DWORD flags) {
    if (!MoveFileExW(extendedPath(path_).c_str(), extendedPath(target_).c_str(), flags)) {
        throw systemError(GetLastError(), target_);
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
