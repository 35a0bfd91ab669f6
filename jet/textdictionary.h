// The different texts of a column that repeats few of them over many rows, each with a small code.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "jet/textorder.h"

namespace jet {

class TextDictionary {
  public:
    using Code = uint16_t;
    static constexpr Code kNull = 0;  // stands for Null; texts begin at 1
    static constexpr size_t kMostTexts = 65535;

    // Takes at most `mostTexts` texts, and never more than kMostTexts. `order` must outlive it.
    TextDictionary(const TextOrder& order, size_t mostTexts);

    // The code of a folded text (see foldedtexts.h), a new one when it is met for the first time;
    // nothing when the dictionary is full.
    std::optional<Code> add(std::span<const uint8_t> folded);

    // Codes run from 0 below this.
    size_t codeCount() const { return entries_.size(); }
    // Folded; empty for Null.
    std::u16string_view text(Code code) const { return entries_[code].text; }
    std::span<const uint8_t> folded(Code code) const { return entries_[code].folded; }

    // The codes of the texts that the order holds equal to `wanted`: mostly one, but "Rock 1" and
    // "Rock 1 " have two.
    std::vector<Code> codesEqualTo(const HashedText& wanted) const;

    // For each code, its place among the texts in the text order, Null first; the same for equal
    // texts.
    std::vector<uint32_t> ranks() const;

    size_t bytes() const { return bytes_; }

  private:
    struct Entry {
        std::vector<uint8_t> folded;
        std::u16string text;
    };

    const TextOrder* order_;
    size_t mostTexts_;
    std::vector<Entry> entries_;
    std::unordered_multimap<uint64_t, Code> codes_;  // by the order's hash
    std::u16string decoded_;
    size_t bytes_ = 0;
};

}  // namespace jet
