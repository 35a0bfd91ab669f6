#include "tests/platform/win32/tempfolder.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/text.h"
#include "platform/win32/filesystem.h"
#include "platform/win32/handle.h"
#include "platform/win32/path.h"
#include "platform/win32/wide.h"

namespace testing_win32 {
namespace {

using platform::win32::extendedPath;
using platform::win32::fromWide;
using platform::win32::toWide;

void check(BOOL done, const char* what) {
    if (!done) throw std::runtime_error(what + std::to_string(GetLastError()));
}

bool exists(std::u16string_view path) {
    return GetFileAttributesW(extendedPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void createFolder(std::u16string_view path) {
    check(CreateDirectoryW(extendedPath(path).c_str(), nullptr), "CreateDirectoryW: ");
}

void removeTree(std::u16string_view path) {
    platform::win32::Win32FileSystem files;
    std::vector<platform::FolderEntry> entries;
    {
        const auto cursor = files.openFolder(path);
        for (platform::FolderEntry entry; cursor->next(entry);)
            entries.push_back(entry);
    }
    for (const platform::FolderEntry& entry : entries) {
        const std::u16string inner = std::u16string(path) + u"\\" + entry.name;
        const std::wstring system = extendedPath(inner);
        if (!entry.isFolder) {
            SetFileAttributesW(system.c_str(), FILE_ATTRIBUTE_NORMAL);
            DeleteFileW(system.c_str());
        } else if (entry.isLink) {
            RemoveDirectoryW(system.c_str());
        } else {
            removeTree(inner);
        }
    }
    RemoveDirectoryW(extendedPath(path).c_str());
}

// Under Wine, which makes no links of its own, the host's program makes one.
bool makeLinkUnderWine(std::u16string_view link, std::u16string_view target) {
    using UnixName = char*(CDECL*)(LPCWSTR);
    const HMODULE kernel = GetModuleHandleW(L"kernel32");
    const auto unixName = reinterpret_cast<UnixName>(
        reinterpret_cast<void*>(GetProcAddress(kernel, "wine_get_unix_file_name")));
    if (unixName == nullptr) return false;
    const auto hostPath = [&](std::u16string_view path) {
        char* const name = unixName(toWide(path).c_str());
        std::u16string text = name == nullptr ? u"" : base::fromUtf8(name);
        if (name != nullptr) HeapFree(GetProcessHeap(), 0, name);
        return text;
    };
    std::wstring command =
        toWide(u"ln -s \"" + hostPath(target) + u"\" \"" + hostPath(link) + u"\"");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(L"Z:\\bin\\ln", command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &started)) {
        return false;
    }
    const platform::win32::KernelHandle process(started.hProcess);
    const platform::win32::KernelHandle thread(started.hThread);
    // The host's program is not the system's to wait for: its result is.
    for (int attempt = 0; attempt < 1000; ++attempt) {
        if (exists(link)) return true;
        Sleep(10);
    }
    return false;
}

}  // namespace

TempFolder::TempFolder() {
    std::array<wchar_t, MAX_PATH + 1> temp{};
    check(GetTempPathW(static_cast<DWORD>(temp.size()), temp.data()) != 0, "GetTempPathW: ");
    // A number may be taken: by another test program, or by a folder that could not be removed.
    for (int number = 0; path_.empty(); ++number) {
        const std::u16string path = fromWide(temp.data()) + u"brivantole Été 日本 " +
                                    base::fromUtf8(std::to_string(number));
        if (CreateDirectoryW(extendedPath(path).c_str(), nullptr)) {
            path_ = path;
        } else {
            check(GetLastError() == ERROR_ALREADY_EXISTS, "CreateDirectoryW: ");
        }
    }
}

TempFolder::~TempFolder() {
    try {
        removeTree(path_);
    } catch (const base::Error&) {
        // What a failed test left open stays; the folder is the system's to clear.
        return;
    }
}

std::u16string TempFolder::file(std::u16string_view name) const {
    return path_ + u"\\" + std::u16string(name);
}

std::u16string TempFolder::write(std::u16string_view name, std::string_view bytes) const {
    const std::u16string path = file(name);
    const platform::win32::FileHandle created(CreateFileW(extendedPath(path).c_str(), GENERIC_WRITE,
                                                          0, nullptr, CREATE_ALWAYS, 0, nullptr));
    check(static_cast<bool>(created), "CreateFileW: ");
    DWORD count = 0;
    check(WriteFile(created.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr),
          "WriteFile: ");
    return path;
}

std::u16string TempFolder::folder(std::u16string_view name) const {
    createFolder(file(name));
    return file(name);
}

std::u16string TempFolder::deepFolder(size_t characters) const {
    std::u16string path = path_;
    while (path.size() <= characters) {
        path += u"\\" + std::u16string(60, u'é');
        createFolder(path);
    }
    return path;
}

std::string content(std::u16string_view path) {
    platform::win32::Win32FileSystem files;
    return platform::readWholeFile(files, path);
}

std::vector<std::u16string> names(std::u16string_view folder) {
    platform::win32::Win32FileSystem files;
    const auto cursor = files.openFolder(folder);
    std::vector<std::u16string> found;
    for (platform::FolderEntry entry; cursor->next(entry);)
        found.push_back(entry.name);
    std::sort(found.begin(), found.end());
    return found;
}

bool makeFolderLink(std::u16string_view link, std::u16string_view target) {
    constexpr DWORD kWithoutPrivilege = 2;
    // Wine claims success here without a link.
    const bool made = CreateSymbolicLinkW(extendedPath(link).c_str(), toWide(target).c_str(),
                                          SYMBOLIC_LINK_FLAG_DIRECTORY | kWithoutPrivilege) != 0;
    return (made && exists(link)) || makeLinkUnderWine(link, target);
}

std::u16string programFolder() {
    std::array<wchar_t, 1024> path{};
    GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::u16string program = fromWide(path.data());
    return program.substr(0, program.rfind(u'\\'));
}

}  // namespace testing_win32
