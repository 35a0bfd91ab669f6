#include "platform/win32/scratchfolder.h"

#include <windows.h>

#include "platform/scratchname.h"
#include "platform/win32/path.h"

namespace platform::win32 {

ScratchFolder::~ScratchFolder() {
    if (path_ == target_) return;
    path_.pop_back();
    RemoveDirectoryW(extendedPath(path_).c_str());
}

void ScratchFolder::make() {
    if (tried_) return;
    tried_ = true;
    const std::u16string own = target_ + scratchName(GetCurrentProcessId(), kFirstNumber - 1);
    if (CreateDirectoryW(extendedPath(own).c_str(), nullptr)) path_ = own + u'\\';
}

}  // namespace platform::win32
