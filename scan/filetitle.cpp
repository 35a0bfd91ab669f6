#include "scan/filetitle.h"

#include "base/text.h"

namespace scan {
namespace {

constexpr size_t kLongestExtension = 4;  // with its dot

}  // namespace

std::u16string TitleFromFileName(std::u16string_view path) {
    const size_t folderEnd = path.rfind(u'\\');
    std::u16string_view name =
        folderEnd == std::u16string_view::npos ? path : path.substr(folderEnd + 1);
    const size_t dot = name.rfind(u'.');
    if (dot != std::u16string_view::npos && name.size() - dot <= kLongestExtension) {
        name = name.substr(0, dot);
    }
    return name.empty() ? std::u16string(kUnknownTitle) : base::upperFirst(name);
}

}  // namespace scan
