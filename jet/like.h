// Patterns of the LIKE operator: `*` any characters, `?` one, `#` one digit, `[list]` one of the
// list, `[!list]` one that is not, with ranges as in `[a-f]`. A wildcard stands for itself inside a
// list (`[*]`); so does `]` outside one, a hyphen at either end of a list, and a `[` that nothing
// closes. `[]` matches nothing at all, `[!]` an exclamation mark. Characters match, and ranges
// extend, as in the text order: case ignored, accents apart.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/textorder.h"

namespace jet {

class LikePattern {
  public:
    // `order` must outlive the pattern. Every text is a valid pattern.
    LikePattern(std::u16string_view pattern, const TextOrder& order);

    // Time grows at most with the product of both lengths; allocates nothing.
    bool matches(std::u16string_view text) const;

    // For a pattern of the form *text* without further wildcards: that text, folded character by
    // character. It may be empty ("*" matches every text).
    const std::optional<std::u16string>& containedText() const { return contained_; }
    // The same text as FoldedTexts would hold it; empty when there is none.
    std::span<const uint8_t> containedBytes() const { return containedBytes_; }

  private:
    enum class Kind : uint8_t { Character, AnyCharacter, Digit, List, AnyText };
    struct Range {
        char16_t first;
        char16_t last;
    };
    struct Element {
        Kind kind;
        bool negated = false;        // List
        char16_t character = u'\0';  // Character: folded
        size_t firstRange = 0;       // List: into ranges_
        size_t rangeCount = 0;
    };

    void addStar();
    size_t addList(std::u16string_view pattern, size_t open);
    void addCharacter(char16_t character);
    void findContainedText();
    bool contains(std::u16string_view text) const;
    bool matchesOne(const Element& element, char16_t character) const;
    bool inRanges(const Element& list, char16_t character) const;

    const TextOrder* order_;
    std::vector<Element> elements_;
    std::vector<Range> ranges_;
    std::optional<std::u16string> contained_;
    std::vector<uint8_t> containedBytes_;
};

}  // namespace jet
