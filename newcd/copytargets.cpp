#include "newcd/copytargets.h"

namespace newcd {
namespace {

// "D:": what stands before the first backslash of a walked path.
constexpr size_t kDriveLength = 2;

std::u16string_view withoutTrailingBackslash(std::u16string_view folder) {
    if (folder.ends_with(u'\\')) folder.remove_suffix(1);
    return folder;
}

}  // namespace

std::u16string pathIn(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(withoutTrailingBackslash(folder));
    path += u'\\';
    path += name;
    return path;
}

CopyTarget copyTarget(std::u16string_view destination, std::u16string_view sourcePath, bool flat) {
    const size_t lastBackslash = sourcePath.rfind(u'\\');
    CopyTarget target;
    target.folder = withoutTrailingBackslash(destination);
    target.name = sourcePath.substr(lastBackslash + 1);
    if (flat) return target;
    for (size_t start = kDriveLength + 1; start <= lastBackslash;) {
        const size_t end = sourcePath.find(u'\\', start);
        target.folder = pathIn(target.folder, sourcePath.substr(start, end - start));
        target.foldersToCreate.push_back(target.folder);
        start = end + 1;
    }
    return target;
}

}  // namespace newcd
