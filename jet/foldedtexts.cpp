#include "jet/foldedtexts.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "base/codepage.h"

namespace jet {
namespace {

unsigned encodeOne(char16_t character, uint8_t* bytes) {
    const unsigned code = character;
    if (code < 0x80) {
        bytes[0] = static_cast<uint8_t>(code);
        return 1;
    }
    if (code < 0x800) {
        bytes[0] = static_cast<uint8_t>(0xC0 | code >> 6);
        bytes[1] = static_cast<uint8_t>(0x80 | (code & 0x3F));
        return 2;
    }
    bytes[0] = static_cast<uint8_t>(0xE0 | code >> 12);
    bytes[1] = static_cast<uint8_t>(0x80 | (code >> 6 & 0x3F));
    bytes[2] = static_cast<uint8_t>(0x80 | (code & 0x3F));
    return 3;
}

// So many characters are folded at once where they are ASCII.
constexpr size_t kAsciiStep = 8;

bool startsWithAscii(const uint8_t* bytes) {
    constexpr uint64_t kHighBits = 0x8080808080808080;
    uint64_t step = 0;
    std::memcpy(&step, bytes, sizeof step);
    return (step & kHighBits) == 0;
}

// Doubling, as a vector does by itself, would waste too much here.
template <typename Item>
void growFor(std::vector<Item>& items, size_t more) {
    const size_t needed = items.size() + more;
    if (needed > items.capacity()) items.reserve(needed + items.size() / 8);
}

}  // namespace

TextFolder::TextFolder(const TextOrder& order) : order_(&order), latin1_(), codePage_() {
    for (unsigned byte = 0; byte < 256; ++byte) {
        const char16_t latin1 = order.fold(static_cast<char16_t>(byte));
        latin1_[byte].length = encodeOne(latin1, latin1_[byte].bytes);
        const auto code = static_cast<uint8_t>(byte);
        const char16_t other = order.fold(base::CodePage::windows1252().decode(code));
        codePage_[byte].length = encodeOne(other, codePage_[byte].bytes);
    }
}

void TextFolder::fold(const RawText& text, std::vector<uint8_t>& out) {
    if (text.coding == TextCoding::CodePage) {
        foldBytes(text, codePage_, out);
    } else if (text.coding == TextCoding::Compressed &&
               std::memchr(text.bytes, 0, text.length) == nullptr) {
        foldBytes(text, latin1_, out);
    } else {
        decodeText(text, decoded_);
        fold(decoded_, out);
    }
}

void TextFolder::foldBytes(const RawText& text, const std::array<ByteForm, 256>& forms,
                           std::vector<uint8_t>& out) const {
    const size_t start = out.size();
    out.resize(start + 3 * text.length + 1);
    uint8_t* at = out.data() + start;
    const uint8_t* from = text.bytes;
    const uint8_t* const end = from + text.length;
    while (from != end) {
        if (static_cast<size_t>(end - from) >= kAsciiStep && startsWithAscii(from)) {
            // The forms of ASCII are single bytes, in every order.
            for (size_t i = 0; i < kAsciiStep; ++i)
                at[i] = forms[from[i]].bytes[0];
            from += kAsciiStep;
            at += kAsciiStep;
            continue;
        }
        const ByteForm& form = forms[*from++];
        std::memcpy(at, form.bytes, sizeof form.bytes);
        at += form.length;
    }
    out.resize(static_cast<size_t>(at - out.data()));
}

void TextFolder::fold(std::u16string_view text, std::vector<uint8_t>& out) const {
    const size_t start = out.size();
    out.resize(start + 3 * text.size() + 1);
    uint8_t* at = out.data() + start;
    for (const char16_t character : text) {
        if (character >= latin1_.size()) {
            at += encodeOne(order_->fold(character), at);
            continue;
        }
        const ByteForm& form = latin1_[character];
        std::memcpy(at, form.bytes, sizeof form.bytes);
        at += form.length;
    }
    out.resize(static_cast<size_t>(at - out.data()));
}

std::vector<uint8_t> TextFolder::encode(std::u16string_view folded) {
    std::vector<uint8_t> bytes(3 * folded.size());
    size_t length = 0;
    for (const char16_t character : folded)
        length += encodeOne(character, bytes.data() + length);
    bytes.resize(length);
    return bytes;
}

uint64_t TextFolder::hash(const TextOrder& order, std::span<const uint8_t> folded) {
    while (!folded.empty() && folded.back() == ' ')
        folded = folded.first(folded.size() - 1);
    size_t at = 0;
    return order.hashOf([&](char16_t& character) {
        if (at == folded.size()) return false;
        character = decodeOne(folded, at);
        return true;
    });
}

void TextFolder::decode(std::span<const uint8_t> folded, std::u16string& out) {
    out.clear();
    for (size_t at = 0; at < folded.size();)
        out.push_back(decodeOne(folded, at));
}

bool FoldedTexts::append(std::span<const uint8_t> folded) {
    if (folded.size() >= std::numeric_limits<uint32_t>::max() - buffer_.size()) return false;
    growFor(buffer_, folded.size() + 1);
    growFor(ends_, 1);
    buffer_.insert(buffer_.end(), folded.begin(), folded.end());
    ends_.push_back(static_cast<uint32_t>(buffer_.size()));
    buffer_.push_back(kEnd);
    return true;
}

bool FoldedTexts::append(const FoldedTexts& texts) {
    const size_t start = buffer_.size();
    if (texts.buffer_.size() > std::numeric_limits<uint32_t>::max() - start) return false;
    growFor(buffer_, texts.buffer_.size());
    growFor(ends_, texts.count());
    buffer_.insert(buffer_.end(), texts.buffer_.begin(), texts.buffer_.end());
    for (const uint32_t end : texts.ends_)
        ends_.push_back(static_cast<uint32_t>(start + end));
    return true;
}

bool FoldedTexts::appendNull() {
    const uint8_t null = kNull;
    return append({&null, 1});
}

void FoldedTexts::reserve(size_t rows) {
    if (count() == 0) return;
    ends_.reserve(rows);
    buffer_.reserve(rows * (buffer_.size() / count() + 1));
}

// The row whose text holds the byte at `place`; no row before `firstRow` does. Hits mostly follow
// each other closely, so the search widens from there.
size_t FoldedTexts::rowAt(size_t place, size_t firstRow) const {
    size_t step = 1;
    size_t low = firstRow;
    while (low + step < count() && ends_[low + step] < place) {
        low += step;
        step *= 2;
    }
    const auto from = ends_.begin() + static_cast<std::ptrdiff_t>(low);
    const auto to = ends_.begin() + static_cast<std::ptrdiff_t>(std::min(low + step + 1, count()));
    return static_cast<size_t>(std::lower_bound(from, to, place) - ends_.begin());
}

}  // namespace jet
