#include "newcd/folderlist.h"

#include <algorithm>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "newcd/copytargets.h"

namespace newcd {
namespace {

// "C:\".
constexpr size_t kRootLength = 3;

// A path below the root, with no backslash at its end, or the root.
std::u16string normalised(std::u16string_view path) {
    if (path.substr(kRootLength - 1, 1) != u"\\")
        return std::u16string(path.substr(0, kRootLength - 1)) + u'\\';
    while (path.size() > kRootLength && path.ends_with(u'\\'))
        path.remove_suffix(1);
    return std::u16string(path);
}

bool isRoot(std::u16string_view path) {
    return path.size() <= kRootLength;
}

std::u16string_view parentOf(std::u16string_view path) {
    return path.substr(0, std::max(path.rfind(u'\\'), kRootLength));
}

std::vector<std::u16string> foldersIn(platform::FileSystem& files, std::u16string_view path) {
    std::vector<std::u16string> names;
    const std::unique_ptr<platform::FolderCursor> cursor = files.openFolder(path);
    for (platform::FolderEntry entry; cursor->next(entry);) {
        if (entry.isFolder) names.push_back(entry.name);
    }
    std::ranges::sort(names, {}, [](const std::u16string& name) { return base::upper(name); });
    return names;
}

}  // namespace

void FolderList::setPath(std::u16string_view path) {
    for (std::u16string folder = normalised(path);; folder = parentOf(folder)) {
        try {
            list(folder);
            return;
        } catch (const base::Error&) {
            if (isRoot(folder)) throw;
        }
    }
}

void FolderList::list(std::u16string_view path) {
    const std::vector<std::u16string> names = foldersIn(files_, path);
    std::vector<Row> rows = {{std::u16string(path.substr(0, kRootLength)), 0, true}};
    for (size_t start = kRootLength; start < path.size();) {
        const size_t end = std::min(path.find(u'\\', start), path.size());
        rows.push_back(
            {std::u16string(path.substr(start, end - start)), static_cast<int>(rows.size()), true});
        start = end + 1;
    }
    chosenRow_ = rows.size() - 1;
    for (const std::u16string& name : names)
        rows.push_back({name, static_cast<int>(chosenRow_) + 1, false});
    rows_ = std::move(rows);
    path_ = path;
}

std::u16string FolderList::pathOf(size_t row) const {
    std::u16string path = rows_.front().name;
    for (size_t above = 1; above <= std::min(row, chosenRow_); ++above)
        path = pathIn(path, rows_[above].name);
    return row > chosenRow_ ? pathIn(path, rows_[row].name) : path;
}

void FolderList::open(size_t row) {
    if (row < rows_.size()) list(pathOf(row));
}

void FolderList::openParent() {
    if (chosenRow_ > 0) open(chosenRow_ - 1);
}

void FolderList::makeFolder(platform::FileCopier& copier, std::u16string_view name) {
    const std::u16string folder = pathIn(path_, name);
    copier.createFolder(folder);
    list(folder);
}

}  // namespace newcd
