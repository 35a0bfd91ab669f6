// Paths in the form that the system takes at any length.
#pragma once

#include <string>
#include <string_view>

namespace platform::win32 {

// `path` behind "\\?\" ("\\?\UNC\" for a network share), so that neither the limit of 260
// characters nor the system's rewriting of names (trailing dots, "con", ...) applies: a name that a
// folder listing gave opens that very file. A path that is not yet absolute and plain (doubled
// backslashes, slashes, "." or "..") is made so by the system first.
std::wstring extendedPath(std::u16string_view path);

// What `path` begins with, as far as its last backslash; nothing when it has none.
constexpr std::u16string_view folderOf(std::u16string_view path) {
    return path.substr(0, path.rfind(u'\\') + 1);
}

}  // namespace platform::win32
