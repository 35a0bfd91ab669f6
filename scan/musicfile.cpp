#include "scan/musicfile.h"

#include <algorithm>

#include "base/text.h"

namespace scan {
namespace {

// The extensions are in upper case already: what is not does not match.
bool endsWith(std::u16string_view path, std::u16string_view extension) {
    if (path.size() < extension.size()) return false;
    return std::equal(
        extension.begin(), extension.end(),
        path.end() - static_cast<std::ptrdiff_t>(extension.size()),
        [](char16_t expected, char16_t character) { return expected == base::upper(character); });
}

bool endsWithDotAnd(std::u16string_view path, std::u16string_view extension) {
    if (!endsWith(path, extension)) return false;
    path.remove_suffix(extension.size());
    return path.ends_with(u'.');
}

}  // namespace

bool IsMusicFile(const catalogue::Settings& settings, std::u16string_view path) {
    for (int i = 0; i <= settings.NbExtensions; ++i) {
        if (endsWithDotAnd(path, settings.ExtensionList(i))) return true;
    }
    return false;
}

const std::u16string* TypeOfTrack(const catalogue::Settings& settings, std::u16string_view path) {
    for (int i = 0; i <= settings.NbExtensions; ++i) {
        const std::u16string& extension = settings.ExtensionList(i);
        if (endsWith(path, extension)) return &extension;
    }
    return nullptr;
}

}  // namespace scan
