// How Jet compares texts: the "General" sort order, in the form of Jet 4 and in that of Jet 3.
// Case is ignored, accents only break ties, trailing spaces do not count; two texts are equal when
// their index keys would be. In Jet 4 the apostrophe and the hyphen are ties too ("co-op" comes
// next to "coop"); in Jet 3 they are characters like any other.
//
// Known characters are those of code page 1252 and of Latin Extended-A. All others follow Z, in
// the order of the code units of their upper case. An index key covers 255 characters; comparison
// here covers the whole text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet {

// What one code unit adds to the three parts of a key.
struct CharacterWeight {
    uint8_t primary[3] = {};
    uint8_t primaryLength = 0;
    // 0: the character takes no place among the accents; 2: it takes one and has no accent.
    uint8_t accent = 0;
    // Code of a character that only breaks ties; 0: it is none.
    uint8_t deferred = 0;

    bool operator==(const CharacterWeight&) const = default;
};

// A text and the order's hash of it, worked out once for all that look for the text.
struct HashedText {
    std::u16string_view text;
    uint64_t hash = 0;
};

class TextOrder {
  public:
    static const TextOrder& general4();
    static const TextOrder& general3();

    // Negative, 0 or positive. Allocates nothing.
    int compare(std::u16string_view a, std::u16string_view b) const;
    bool equal(std::u16string_view a, std::u16string_view b) const { return compare(a, b) == 0; }

    // Appends the bytes that an index holds for `text` behind the entry's flag byte; comparing two
    // keys bytewise gives the order of the texts (their first 8190 characters at least).
    void appendKey(std::u16string_view text, std::vector<uint8_t>& key) const;

    // The first eight primary bytes after `skip` of them, first byte highest, missing ones 0. Of
    // two texts the one with the smaller prefix comes first; equal prefixes decide nothing.
    uint64_t prefix(std::u16string_view text, size_t skip = 0) const;

    // Equal for equal texts.
    uint64_t hash(std::u16string_view text) const;
    HashedText hashed(std::u16string_view text) const { return {text, hash(text)}; }
    // The same for a text whose characters come one by one: next(character) gives them, and false
    // behind the last that is no space.
    template <typename Next>
    uint64_t hashOf(Next&& next) const {
        uint64_t hash = 0;
        for (char16_t character = 0; next(character);)
            hash = hashStep(character).after(hash);
        return mixed(hash);
    }

    // One character for all those that the order cannot tell apart, so that two characters match
    // exactly when their folded forms are the same. A space stays apart from all others, as it is
    // the only one that does not count at the end of a text; so folding a text does not change how
    // it compares.
    char16_t fold(char16_t character) const {
        return character < kTableSize ? folded_[character] : foldOther(character);
    }

    // Order of two single characters; 0 for characters of the same weight.
    int compareCharacters(char16_t a, char16_t b) const;

    // The weight of `character`, for the walks over a text's key.
    CharacterWeight weight(char16_t character) const {
        return character < kTableSize ? weights_[character] : otherWeight(character);
    }

  private:
    static constexpr size_t kTableSize = 0x180;
    struct OtherCharacter {
        char16_t character;
        CharacterWeight weight;
        char16_t folded;
    };
    enum class Version { General3, General4 };
    // The hash is a polynomial whose coefficients stand for the primary bytes: what the bytes of
    // one character, however many, do to that of the text before it.
    struct HashStep {
        uint64_t factor = 1;
        uint64_t term = 0;

        uint64_t after(uint64_t hash) const { return hash * factor + term; }
        HashStep then(const HashStep& next) const {
            return {factor * next.factor, next.after(term)};
        }
    };

    explicit TextOrder(Version version);
    static HashStep hashStepOf(const CharacterWeight& weight);
    HashStep hashStep(char16_t character) const {
        if (character < kTableSize) [[likely]]
            return hashSteps_[character];
        return hashStepOf(otherWeight(character));
    }
    // The low bits of such a polynomial know nothing of the high ones.
    static uint64_t mixed(uint64_t hash) {
        hash = (hash ^ hash >> 32) * 0x9E3779B97F4A7C15;
        return hash ^ hash >> 32;
    }
    void setWeight(char16_t character, const CharacterWeight& weight);
    void addControls();
    void addOwnWeights();
    void addAccentedLetters();
    void addSmallAndUnknown();
    void addFolding();
    bool hasWeight(char16_t character) const;
    const OtherCharacter* findOther(char16_t character) const;
    CharacterWeight otherWeight(char16_t character) const;
    char16_t foldOther(char16_t character) const;
    void appendAccents3(std::u16string_view text, std::vector<uint8_t>& key) const;
    void appendTies4(std::u16string_view text, std::vector<uint8_t>& key) const;

    Version version_;
    std::array<CharacterWeight, kTableSize> weights_;
    std::array<char16_t, kTableSize> folded_;
    std::array<HashStep, kTableSize> hashSteps_;
    std::vector<OtherCharacter> others_;  // sorted by character
};

}  // namespace jet
