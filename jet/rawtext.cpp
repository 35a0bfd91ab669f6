#include "jet/rawtext.h"

#include <algorithm>
#include <cstring>

#include "base/codepage.h"
#include "jet/bytes.h"

namespace jet {

namespace {

constexpr uint8_t kMarkLow = 0xFF;
constexpr uint8_t kMarkHigh = 0xFE;
constexpr char16_t kMarkCharacter = 0xFEFF;
constexpr size_t kShortestCompressed = 3;

void decodeCompressed(const uint8_t* bytes, size_t length, std::u16string& out) {
    if (std::memchr(bytes, 0, length) == nullptr) {
        out.resize(length);
        std::copy(bytes, bytes + length, out.begin());
        return;
    }
    out.clear();
    bool compressed = true;
    for (size_t at = 0; at < length;) {
        if (bytes[at] == 0) {
            compressed = !compressed;
            ++at;
        } else if (compressed) {
            out.push_back(bytes[at++]);
        } else {
            if (length - at < 2) return;
            out.push_back(static_cast<char16_t>(get16(bytes + at)));
            at += 2;
        }
    }
}

// Puts the low bytes of the characters at `out`; false when that loses something. Without a way out
// on the first misfit, so that the loop can take many characters at a time.
bool compress(std::u16string_view text, uint8_t* __restrict out) {
    uint32_t outside = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        outside |= static_cast<uint32_t>(c == 0) | (c & 0xFF00u);
        out[i] = static_cast<uint8_t>(c);
    }
    return outside == 0;
}

}  // namespace

RawText rawJet4Text(const uint8_t* bytes, size_t length) {
    if (length >= 2 && bytes[0] == kMarkLow && bytes[1] == kMarkHigh)
        return {bytes + 2, length - 2, TextCoding::Compressed};
    return {bytes, length, TextCoding::Utf16};
}

void decodeText(const RawText& raw, std::u16string& out) {
    switch (raw.coding) {
        case TextCoding::Utf16:
            out.resize(raw.length / 2);
            std::memcpy(out.data(), raw.bytes, out.size() * 2);
            break;
        case TextCoding::Compressed:
            decodeCompressed(raw.bytes, raw.length, out);
            break;
        case TextCoding::CodePage: {
            const base::CodePage& codePage = base::CodePage::windows1252();
            out.resize(raw.length);
            for (size_t i = 0; i < raw.length; ++i)
                out[i] = codePage.decode(raw.bytes[i]);
            break;
        }
    }
}

void encodeJet4Text(std::u16string_view text, Compression compression, std::vector<uint8_t>& out) {
    while (!text.empty() && text.front() == kMarkCharacter)
        text.remove_prefix(1);
    if (compression == Compression::WhenSmaller && text.size() >= kShortestCompressed) {
        out.resize(text.size() + 2);
        out[0] = kMarkLow;
        out[1] = kMarkHigh;
        if (compress(text, out.data() + 2)) return;
    }
    out.resize(text.size() * 2);
    if (!text.empty()) std::memcpy(out.data(), text.data(), out.size());
}

}  // namespace jet
