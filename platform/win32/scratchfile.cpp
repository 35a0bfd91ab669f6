#include "platform/win32/scratchfile.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "platform/scratchname.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "platform/win32/systemerror.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool runs(uint32_t process) {
    const KernelHandle handle(OpenProcess(SYNCHRONIZE, FALSE, process));
    // A process that may not be opened runs.
    if (!handle) return GetLastError() != ERROR_INVALID_PARAMETER;
    return WaitForSingleObject(handle.get(), 0) != WAIT_OBJECT_0;
}

bool isOnNetwork(std::u16string_view folder) {
    if (folder.starts_with(u"\\\\")) return true;
    const std::wstring root(folder.begin(), folder.begin() + folder.find(u'\\') + 1);
    return GetDriveTypeW(root.c_str()) == DRIVE_REMOTE;
}

void removeFile(std::u16string_view path) {
    const std::wstring name = extendedPath(path);
    if (DeleteFileW(name.c_str()) || GetLastError() != ERROR_ACCESS_DENIED) return;
    // Files of a CD are read-only, and so is their copy; the system deletes no such file.
    SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(name.c_str());
}

}  // namespace

ScratchFile::ScratchFile(std::u16string_view target, int number)
    : path_(target.substr(0, target.rfind(u'\\') + 1)) {
    path_ += scratchName(GetCurrentProcessId(), static_cast<uint32_t>(number));
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
    removeFile(path_);
}

void removeAbandonedScratch(std::u16string_view folder) {
    if (isOnNetwork(folder)) return;
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileExW((extendedPath(folder) + L"~Brivantole*.tmp").c_str(),
                                             FindExInfoBasic, &found, FindExSearchNameMatch,
                                             nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!search) return;
    do {
        const std::u16string name = fromWide(found.cFileName);
        const std::optional<uint32_t> owner = scratchOwner(name);
        const bool isFile = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        if (owner && isFile && !runs(*owner)) removeFile(std::u16string(folder) + name);
    } while (FindNextFileW(search.get(), &found));
}

}  // namespace platform::win32
