// The texts of a column, row after row in one buffer, folded as the text order does and written in
// UTF-8 (each code unit on its own). Two texts hold the same bytes exactly when their characters
// match one by one, whatever their case; a pattern's text is found by looking for its bytes.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/rawtext.h"
#include "jet/textorder.h"
#include "jet/textsearch.h"

namespace jet {

// Turns texts into that form.
class TextFolder {
  public:
    // `order` must outlive the folder.
    explicit TextFolder(const TextOrder& order);

    const TextOrder& order() const { return *order_; }

    // Append to `out`.
    void fold(const RawText& text, std::vector<uint8_t>& out);
    void fold(std::u16string_view text, std::vector<uint8_t>& out) const;

    // That form of a text whose characters are folded already.
    static std::vector<uint8_t> encode(std::u16string_view folded);
    // The character that begins at folded[at]; moves `at` past it.
    static char16_t decodeOne(std::span<const uint8_t> folded, size_t& at) {
        const unsigned lead = folded[at++];
        if (lead < 0x80) return static_cast<char16_t>(lead);
        const unsigned second = folded[at++] & 0x3Fu;
        if (lead < 0xE0) return static_cast<char16_t>((lead & 0x1F) << 6 | second);
        const unsigned third = folded[at++] & 0x3Fu;
        return static_cast<char16_t>((lead & 0xF) << 12 | second << 6 | third);
    }
    // The bytes of those characters that end within the first `length` bytes.
    static size_t wholeCharacters(std::span<const uint8_t> folded, size_t length) {
        while (length > 0 && length < folded.size() && (folded[length] & 0xC0) == 0x80)
            --length;
        return length;
    }
    // The text order's hash of a folded text.
    static uint64_t hash(const TextOrder& order, std::span<const uint8_t> folded);
    // Replaces `out` by the folded characters.
    static void decode(std::span<const uint8_t> folded, std::u16string& out);

  private:
    struct ByteForm {
        uint8_t bytes[4];  // copied as a whole, the last for nothing
        uint32_t length;
    };
    void foldBytes(const RawText& text, const std::array<ByteForm, 256>& forms,
                   std::vector<uint8_t>& out) const;

    const TextOrder* order_;
    std::array<ByteForm, 256> latin1_;
    std::array<ByteForm, 256> codePage_;
    std::u16string decoded_;
};

class FoldedTexts {
  public:
    size_t count() const { return ends_.size(); }
    size_t bytes() const { return buffer_.capacity() + ends_.capacity() * sizeof(uint32_t); }

    // False, and nothing done, when the buffer cannot grow any more (4 GB).
    bool append(std::span<const uint8_t> folded);
    bool append(const FoldedTexts& texts);
    bool appendNull();
    // Makes room for `rows` rows like those there are.
    void reserve(size_t rows);

    bool isNull(size_t row) const { return buffer_[begin(row)] == kNull; }
    // Empty for Null.
    std::span<const uint8_t> text(size_t row) const {
        if (isNull(row)) return {};
        return {buffer_.data() + begin(row), ends_[row] - begin(row)};
    }

    // visit(row) for each row from `first` to before `last` whose text holds `wanted`, in ascending
    // order; `wanted` is not empty.
    template <typename Visitor>
    void forEachHolding(std::span<const uint8_t> wanted, size_t first, size_t last,
                        Visitor&& visit) const {
        const auto texts = std::span(buffer_).first(begin(last));
        for (size_t row = first; row < last; ++row) {
            const size_t place = findBytes(texts, wanted, begin(row));
            if (place == kNotFound) return;
            row = rowAt(place, row);
            visit(row);
        }
    }

  private:
    // Neither occurs in UTF-8.
    static constexpr uint8_t kEnd = 0xFF;
    static constexpr uint8_t kNull = 0xFE;

    size_t begin(size_t row) const { return row == 0 ? 0 : size_t{ends_[row - 1]} + 1; }
    size_t rowAt(size_t place, size_t firstRow) const;

    std::vector<uint8_t> buffer_;
    std::vector<uint32_t> ends_;  // where each row's kEnd stands
};

}  // namespace jet
