#include "base/codepage.h"

namespace base {
namespace {

constexpr int16_t lacking = -1;

// 1252 is Latin-1 but for these: the characters of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> windows1252Block = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::array<char16_t, 256> windows1252Table() {
    std::array<char16_t, 256> table{};
    for (size_t byte = 0; byte < table.size(); ++byte) {
        const bool special = byte >= 0x80 && byte < 0xA0;
        table[byte] = special ? windows1252Block[byte - 0x80] : static_cast<char16_t>(byte);
    }
    return table;
}

}  // namespace

CodePage::CodePage(const std::array<char16_t, 256>& toUnicode) : toUnicode_(toUnicode) {
    toByte_.fill(lacking);
    // Downwards, so that of two bytes with one character the lower is written.
    for (size_t byte = toUnicode.size(); byte-- > 0;)
        toByte_[toUnicode[byte]] = static_cast<int16_t>(byte);
}

const CodePage& CodePage::windows1252() {
    static const CodePage codePage(windows1252Table());
    return codePage;
}

std::u16string CodePage::decode(std::string_view bytes) const {
    std::u16string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text.push_back(decode(static_cast<uint8_t>(byte)));
    return text;
}

std::optional<uint8_t> CodePage::encode(char16_t character) const {
    const int16_t byte = toByte_[character];
    if (byte == lacking) return std::nullopt;
    return static_cast<uint8_t>(byte);
}

std::optional<std::string> CodePage::encode(std::u16string_view text) const {
    std::string bytes;
    bytes.reserve(text.size());
    for (const char16_t character : text) {
        const int16_t byte = toByte_[character];
        if (byte == lacking) return std::nullopt;
        bytes.push_back(static_cast<char>(byte));
    }
    return bytes;
}

}  // namespace base
