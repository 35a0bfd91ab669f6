#include "platform/win32/path.h"

#include <windows.h>

#include <algorithm>

#include "platform/win32/systemerror.h"
#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

constexpr std::wstring_view kVerbatim = LR"(\\?\)";
constexpr std::wstring_view kVerbatimShare = LR"(\\?\UNC\)";
constexpr std::wstring_view kShare = LR"(\\)";
constexpr std::wstring_view kDevice = LR"(\\.\)";

bool isLetter(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

// Whether `path` is "X:\" and then names that the system would leave as they are.
bool isPlain(std::wstring_view path) {
    if (path.size() < 3 || !isLetter(path[0]) || path[1] != L':' || path[2] != L'\\') return false;
    if (path.find(L'/') != path.npos) return false;
    size_t start = 3;
    while (start < path.size()) {
        const size_t end = std::min(path.find(L'\\', start), path.size());
        const std::wstring_view name = path.substr(start, end - start);
        if (name.empty() || name == L"." || name == L"..") return false;
        start = end + 1;
    }
    return true;
}

std::wstring fullPath(const std::wstring& path) {
    const DWORD needed = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(needed, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), needed, full.data(), nullptr);
    if (length == 0 || length >= needed) throw systemError(GetLastError(), fromWide(path));
    full.resize(length);
    return full;
}

}  // namespace

std::wstring extendedPath(std::u16string_view path) {
    std::wstring wide = toWide(path);
    if (wide.starts_with(kVerbatim) || wide.starts_with(kDevice)) return wide;
    if (!isPlain(wide)) wide = fullPath(wide);
    if (wide.starts_with(kDevice)) return wide;
    if (wide.starts_with(kShare)) {
        return wide.replace(0, kShare.size(), kVerbatimShare);
    }
    return wide.insert(0, kVerbatim);
}

}  // namespace platform::win32
