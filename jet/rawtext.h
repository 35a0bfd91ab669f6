// Text as it is stored, without a copy, and the way to and from UTF-16.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet {

enum class TextCoding : uint8_t {
    Utf16,       // two bytes a character, low byte first
    Compressed,  // U+0001 to U+00FF as one byte each; a byte 0 switches to two bytes and back
    CodePage,    // Jet 3: bytes of code page 1252
};

// Points into a page (or into the caller's scratch buffer); the compression mark is left out.
// `bytes` is never null; an empty text has length 0.
struct RawText {
    const uint8_t* bytes = nullptr;
    size_t length = 0;
    TextCoding coding = TextCoding::Utf16;
};

// The stored bytes of a Jet 4 text, mark included, told apart.
RawText rawJet4Text(const uint8_t* bytes, size_t length);

// Replaces `out`.
void decodeText(const RawText& raw, std::u16string& out);

enum class Compression : uint8_t { Never, WhenSmaller };

// Replaces `out` by the stored Jet 4 form, as Access itself chooses it: compressed from three
// characters on, when all are U+0001 to U+00FF. Leading U+FEFF are dropped: they would be taken for
// the compression mark.
void encodeJet4Text(std::u16string_view text, Compression compression, std::vector<uint8_t>& out);

}  // namespace jet
