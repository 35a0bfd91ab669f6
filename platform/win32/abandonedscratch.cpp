#include "platform/win32/abandonedscratch.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/scratchname.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/scratchfile.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

struct Scratch {
    std::u16string path;
    uint32_t owner = 0;
    DWORD attributes = 0;

    bool isFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    bool isLink() const { return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }
};

std::vector<Scratch> scratchIn(std::u16string_view folder) {
    std::vector<Scratch> all;
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileExW((extendedPath(folder) + L"~Brivantole*.tmp").c_str(),
                                             FindExInfoBasic, &found, FindExSearchNameMatch,
                                             nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!search) return all;
    do {
        const std::u16string name = fromWide(found.cFileName);
        if (const std::optional<uint32_t> owner = scratchOwner(name)) {
            all.push_back({.path = std::u16string(folder) + name,
                           .owner = *owner,
                           .attributes = found.dwFileAttributes});
        }
    } while (FindNextFileW(search.get(), &found));
    return all;
}

bool isAbandoned(uint32_t process) {
    if (process == GetCurrentProcessId()) return true;
    const KernelHandle handle(OpenProcess(SYNCHRONIZE, FALSE, process));
    // A process that may not be opened runs.
    if (!handle) return GetLastError() == ERROR_INVALID_PARAMETER;
    return WaitForSingleObject(handle.get(), 0) == WAIT_OBJECT_0;
}

bool isOnNetwork(std::u16string_view folder) {
    if (folder.starts_with(u"\\\\")) return true;
    const std::wstring root(folder.begin(), folder.begin() + folder.find(u'\\') + 1);
    return GetDriveTypeW(root.c_str()) == DRIVE_REMOTE;
}

void removeFolder(const Scratch& folder) {
    if (folder.isLink()) return;
    for (const Scratch& inner : scratchIn(folder.path + u'\\')) {
        if (inner.owner == folder.owner && !inner.isFolder()) removeScratch(inner.path);
    }
    RemoveDirectoryW(extendedPath(folder.path).c_str());
}

}  // namespace

void removeAbandonedScratch(std::u16string_view folder) {
    const std::vector<Scratch> all = scratchIn(folder);
    if (all.empty() || isOnNetwork(folder)) return;
    for (const Scratch& scratch : all) {
        if (!isAbandoned(scratch.owner)) continue;
        if (scratch.isFolder()) {
            removeFolder(scratch);
        } else {
            removeScratch(scratch.path);
        }
    }
}

}  // namespace platform::win32
