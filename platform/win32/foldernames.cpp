#include "platform/win32/foldernames.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/path.h"

namespace platform::win32 {
namespace {

std::u16string nameKey(std::u16string_view path) {
    return base::upper(path.substr(folderOf(path).size()));
}

}  // namespace

bool FolderNames::mayHold(std::u16string_view path) {
    look(path);
    return !listed_ || names_.contains(nameKey(path));
}

void FolderNames::add(std::u16string_view path) {
    if (folderOf(path) == folder_) names_.insert(nameKey(path));
}

void FolderNames::forget() {
    folder_.clear();
    names_.clear();
    listed_ = false;
}

void FolderNames::look(std::u16string_view path) {
    const std::u16string_view folder = folderOf(path);
    if (!folder_.empty() && folder == folder_) return;
    forget();
    folder_ = folder;
    try {
        const auto cursor = Win32FileSystem().openFolder(folder);
        for (FolderEntry entry; cursor->next(entry);)
            names_.insert(base::upper(entry.name));
        listed_ = true;
    } catch (const base::Error&) {
        // Then each name is looked for.
    }
}

}  // namespace platform::win32
