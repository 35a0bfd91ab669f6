#include "base/textfile.h"

#include <algorithm>

#include "base/text.h"

namespace base {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::string encodeText(std::u16string_view text, const CodePage& codePage) {
    std::optional<std::string> bytes = codePage.encode(text);
    if (bytes && !bytes->starts_with(byteOrderMark)) return *std::move(bytes);
    return std::string(byteOrderMark) + toUtf8(text);
}

std::string encodeLines(const std::vector<std::u16string>& lines, const CodePage& codePage) {
    std::u16string text;
    for (const std::u16string& line : lines) {
        text += line;
        text += u"\r\n";
    }
    return encodeText(text, codePage);
}

std::u16string decodeText(std::string_view bytes, const CodePage& codePage) {
    if (bytes.starts_with(byteOrderMark)) return fromUtf8(bytes.substr(byteOrderMark.size()));
    return codePage.decode(bytes);
}

std::vector<std::u16string> splitLines(std::u16string_view text) {
    std::vector<std::u16string> lines;
    while (!text.empty()) {
        const size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
        lines.emplace_back(text.substr(0, end));
        const size_t lineEnd = text.substr(end).starts_with(u"\r\n") ? 2 : 1;
        text.remove_prefix(std::min(end + lineEnd, text.size()));
    }
    return lines;
}

}  // namespace base
