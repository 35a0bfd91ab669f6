// The system's 8-bit code page, as a table, so that the logic needs no platform call.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace base {

class CodePage {
  public:
    // `toUnicode[b]` is the character of byte b; every byte has one.
    explicit CodePage(const std::array<char16_t, 256>& toUnicode);

    // Western European (1252), the reference; its five undefined bytes map to U+0081 and so on.
    static const CodePage& windows1252();

    char16_t decode(uint8_t byte) const { return toUnicode_[byte]; }
    std::u16string decode(std::string_view bytes) const;

    // The byte of `character`; nothing when the code page lacks it (no best fit).
    std::optional<uint8_t> encode(char16_t character) const;
    // Nothing when any character is lacking.
    std::optional<std::string> encode(std::u16string_view text) const;

  private:
    std::array<char16_t, 256> toUnicode_;
    std::array<int16_t, 65536> toByte_;
};

}  // namespace base
