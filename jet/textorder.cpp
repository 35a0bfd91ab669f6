#include "jet/textorder.h"

#include <algorithm>

#include "base/text.h"
#include "jet/textordertables.h"

namespace jet {
namespace {

constexpr uint8_t kPlainAccent = 2;
constexpr uint8_t kControlWeight3 = 0x10;
constexpr uint8_t kFirstControlCode4 = 0x03;
// Above every known primary weight; two bytes with the code unit follow.
constexpr uint8_t kAfterZ = 0xF0;
constexpr uint8_t kKeyEnd = 0;
constexpr uint8_t kPartEnd = 1;
// Positions of deferred characters are stored as 7 + 4 x position, with the top bit set.
constexpr unsigned kDeferredFlag = 0x8000;
constexpr unsigned kDeferredStart = 7;
constexpr unsigned kDeferredStep = 4;
constexpr uint8_t kDeferredMark = 6;
// The only letters of Jet 3 that take a place among the accents.
constexpr std::u16string_view kAccentCarriers3 = u"ACEINOSUY";

std::u16string_view withoutTrailingSpaces(std::u16string_view text) {
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

CharacterWeight ownWeight(uint16_t primary, uint8_t accent) {
    CharacterWeight weight;
    if (primary > 0xFF) weight.primary[weight.primaryLength++] = static_cast<uint8_t>(primary >> 8);
    weight.primary[weight.primaryLength++] = static_cast<uint8_t>(primary & 0xFF);
    weight.accent = accent;
    return weight;
}

CharacterWeight weightAfterZ(char16_t character) {
    CharacterWeight weight;
    weight.primary[0] = kAfterZ;
    weight.primary[1] = static_cast<uint8_t>(character >> 8);
    weight.primary[2] = static_cast<uint8_t>(character & 0xFF);
    weight.primaryLength = 3;
    weight.accent = kPlainAccent;
    return weight;
}

// The primary bytes of a text, one by one; -1 at the end.
class PrimaryBytes {
  public:
    PrimaryBytes(const TextOrder& order, std::u16string_view text) : order_(order), text_(text) {}
    int next() {
        while (at_ == weight_.primaryLength) {
            if (text_.empty()) return -1;
            weight_ = order_.weight(text_.front());
            at_ = 0;
            text_.remove_prefix(1);
        }
        return weight_.primary[at_++];
    }

  private:
    const TextOrder& order_;
    std::u16string_view text_;
    CharacterWeight weight_;
    uint8_t at_ = 0;
};

// The accents of a text; plain ones without end behind the last, as trailing ones do not count.
class Accents {
  public:
    Accents(const TextOrder& order, std::u16string_view text) : order_(order), text_(text) {}
    bool atEnd() const { return text_.empty(); }
    uint8_t next() {
        while (!text_.empty()) {
            const uint8_t accent = order_.weight(text_.front()).accent;
            text_.remove_prefix(1);
            if (accent != 0) return accent;
        }
        return kPlainAccent;
    }

  private:
    const TextOrder& order_;
    std::u16string_view text_;
};

// The deferred characters of a text with their positions; 0 at the end.
class Deferred {
  public:
    Deferred(const TextOrder& order, std::u16string_view text) : order_(order), text_(text) {}
    uint64_t next() {
        while (!text_.empty()) {
            const CharacterWeight weight = order_.weight(text_.front());
            text_.remove_prefix(1);
            if (weight.deferred != 0) return ((position_ + 1) << 8) | weight.deferred;
            if (weight.primaryLength > 0) ++position_;
        }
        return 0;
    }
    static uint64_t position(uint64_t item) { return (item >> 8) - 1; }
    static uint8_t code(uint64_t item) { return static_cast<uint8_t>(item & 0xFF); }

  private:
    const TextOrder& order_;
    std::u16string_view text_;
    uint64_t position_ = 0;
};

int order(uint64_t a, uint64_t b) {
    return a < b ? -1 : (a > b ? 1 : 0);
}

int comparePrimaries(const TextOrder& textOrder, std::u16string_view a, std::u16string_view b) {
    PrimaryBytes left(textOrder, a);
    PrimaryBytes right(textOrder, b);
    while (true) {
        const int x = left.next();
        const int y = right.next();
        if (x != y) return x < y ? -1 : 1;
        if (x < 0) return 0;
    }
}

int compareAccents(const TextOrder& textOrder, std::u16string_view a, std::u16string_view b) {
    Accents left(textOrder, a);
    Accents right(textOrder, b);
    while (!left.atEnd() || !right.atEnd()) {
        const uint8_t x = left.next();
        const uint8_t y = right.next();
        if (x != y) return order(x, y);
    }
    return 0;
}

int compareDeferred(const TextOrder& textOrder, std::u16string_view a, std::u16string_view b) {
    Deferred left(textOrder, a);
    Deferred right(textOrder, b);
    while (true) {
        const uint64_t x = left.next();
        const uint64_t y = right.next();
        if (x != y) return order(x, y);
        if (x == 0) return 0;
    }
}

int compareWeights(const TextOrder& textOrder, std::u16string_view a, std::u16string_view b) {
    if (const int result = comparePrimaries(textOrder, a, b)) return result;
    if (const int result = compareAccents(textOrder, a, b)) return result;
    return compareDeferred(textOrder, a, b);
}

}  // namespace

const TextOrder& TextOrder::general4() {
    static const TextOrder order(Version::General4);
    return order;
}

const TextOrder& TextOrder::general3() {
    static const TextOrder order(Version::General3);
    return order;
}

TextOrder::TextOrder(Version version) : version_(version), weights_(), folded_(), hashSteps_() {
    addControls();
    addOwnWeights();
    addAccentedLetters();
    addSmallAndUnknown();
    addFolding();
    std::ranges::transform(weights_, hashSteps_.begin(), hashStepOf);
}

uint64_t TextOrder::hash(std::u16string_view text) const {
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    // Both halves at once: the multiplications of one need not wait for those of the other.
    const size_t half = text.size() / 2;
    uint64_t first = 0;
    HashStep second;
    for (size_t at = 0; at < half; ++at) {
        first = hashStep(text[at]).after(first);
        second = second.then(hashStep(text[half + at]));
    }
    if (text.size() % 2 != 0) second = second.then(hashStep(text.back()));
    return mixed(second.after(first));
}

TextOrder::HashStep TextOrder::hashStepOf(const CharacterWeight& weight) {
    constexpr uint64_t kBase = 0x100000001B3;
    constexpr uint64_t kSpread = 0xBF58476D1CE4E5B9;
    HashStep step;
    for (uint8_t at = 0; at < weight.primaryLength; ++at) {
        step.factor *= kBase;
        step.term = step.term * kBase + (weight.primary[at] + 1u) * kSpread;
    }
    return step;
}

void TextOrder::addControls() {
    const auto isControl = [](char16_t c) {
        return (c > 0 && c < u' ') || (c >= 0x7F && c < 0xA0);
    };
    uint8_t code = kFirstControlCode4;
    for (char16_t c = 0; c < 0xA0; ++c) {
        if (!isControl(c)) continue;
        if (version_ == Version::General3) {
            weights_[c] = ownWeight(kControlWeight3, 0);
        } else if (c < u'\t' || c > u'\r') {
            weights_[c].deferred = code++;
        }
    }
}

void TextOrder::addOwnWeights() {
    const bool four = version_ == Version::General4;
    for (const OwnWeight& own : four ? generalWeights4() : generalWeights3()) {
        const bool carrier = four || kAccentCarriers3.find(own.character) != kAccentCarriers3.npos;
        setWeight(own.character, ownWeight(own.primary, carrier ? kPlainAccent : uint8_t{0}));
    }
    if (!four) return;
    for (const DeferredCharacter& deferred : generalDeferred4()) {
        CharacterWeight weight;
        weight.deferred = deferred.code;
        setWeight(deferred.character, weight);
    }
}

void TextOrder::addAccentedLetters() {
    const bool four = version_ == Version::General4;
    for (const AccentedLetter& letter : accentedLetters()) {
        const uint8_t accent = four ? accentWeight4(letter.accent) : accentWeight3(letter.accent);
        if (accent == 0 || hasWeight(letter.character)) continue;
        CharacterWeight accented = weight(letter.base);
        accented.accent = accent;
        setWeight(letter.character, accented);
    }
}

// U+0000 stays without any weight: Jet passes over it.
void TextOrder::addSmallAndUnknown() {
    for (char16_t c = 1; c < kTableSize; ++c) {
        if (hasWeight(c)) continue;
        const char16_t capital = base::upper(c);
        weights_[c] = hasWeight(capital) ? weight(capital) : weightAfterZ(capital);
    }
}

void TextOrder::addFolding() {
    const auto lowest = [this](char16_t character, const CharacterWeight& weight) {
        const auto same = std::ranges::find(weights_, weight);
        if (same == weights_.end() || character == u' ') return character;
        return static_cast<char16_t>(same - weights_.begin());
    };
    for (char16_t c = 0; c < kTableSize; ++c)
        folded_[c] = lowest(c, weights_[c]);
    for (OtherCharacter& other : others_)
        other.folded = lowest(other.character, other.weight);
}

void TextOrder::setWeight(char16_t character, const CharacterWeight& weight) {
    if (character < kTableSize) {
        weights_[character] = weight;
        return;
    }
    const auto place = std::ranges::lower_bound(others_, character, {}, &OtherCharacter::character);
    others_.insert(place, {character, weight, character});
}

bool TextOrder::hasWeight(char16_t character) const {
    if (character >= kTableSize) return findOther(character) != nullptr;
    return weights_[character] != CharacterWeight{};
}

const TextOrder::OtherCharacter* TextOrder::findOther(char16_t character) const {
    const auto place = std::ranges::lower_bound(others_, character, {}, &OtherCharacter::character);
    return place != others_.end() && place->character == character ? &*place : nullptr;
}

CharacterWeight TextOrder::otherWeight(char16_t character) const {
    if (const OtherCharacter* other = findOther(character)) return other->weight;
    return weightAfterZ(base::upper(character));
}

char16_t TextOrder::foldOther(char16_t character) const {
    if (const OtherCharacter* other = findOther(character)) return other->folded;
    return base::upper(character);
}

int TextOrder::compare(std::u16string_view a, std::u16string_view b) const {
    a = withoutTrailingSpaces(a);
    b = withoutTrailingSpaces(b);
    const size_t shorter = std::min(a.size(), b.size());
    size_t same = 0;
    while (same < shorter && (a[same] == b[same] || fold(a[same]) == fold(b[same])))
        ++same;
    a.remove_prefix(same);
    b.remove_prefix(same);
    if (a.empty() && b.empty()) return 0;
    return compareWeights(*this, a, b);
}

int TextOrder::compareCharacters(char16_t a, char16_t b) const {
    return compareWeights(*this, {&a, 1}, {&b, 1});
}

uint64_t TextOrder::prefix(std::u16string_view text, size_t skip) const {
    PrimaryBytes bytes(*this, withoutTrailingSpaces(text));
    while (skip > 0 && bytes.next() >= 0)
        --skip;
    uint64_t prefix = 0;
    for (unsigned shift = 64; shift > 0;) {
        const int byte = bytes.next();
        if (byte < 0) break;
        shift -= 8;
        prefix |= static_cast<uint64_t>(byte) << shift;
    }
    return prefix;
}

void TextOrder::appendKey(std::u16string_view text, std::vector<uint8_t>& key) const {
    text = withoutTrailingSpaces(text);
    PrimaryBytes bytes(*this, text);
    for (int byte = bytes.next(); byte >= 0; byte = bytes.next())
        key.push_back(static_cast<uint8_t>(byte));
    if (version_ == Version::General4) {
        appendTies4(text, key);
    } else {
        appendAccents3(text, key);
    }
}

void TextOrder::appendTies4(std::u16string_view text, std::vector<uint8_t>& key) const {
    key.push_back(kPartEnd);
    Accents accents(*this, text);
    const size_t firstAccent = key.size();
    while (!accents.atEnd())
        key.push_back(accents.next());
    while (key.size() > firstAccent && key.back() == kPlainAccent)
        key.pop_back();

    Deferred deferred(*this, text);
    bool first = true;
    while (const uint64_t item = deferred.next()) {
        if (first) key.insert(key.end(), 3, kPartEnd);
        first = false;
        const uint64_t at = kDeferredStart + kDeferredStep * Deferred::position(item);
        const uint64_t stored = std::min<uint64_t>(at, kDeferredFlag - 1) | kDeferredFlag;
        key.push_back(static_cast<uint8_t>(stored >> 8));
        key.push_back(static_cast<uint8_t>(stored & 0xFF));
        key.push_back(kDeferredMark);
        key.push_back(Deferred::code(item));
    }
    key.push_back(kKeyEnd);
}

// Accents are nibbles between two 0 nibbles; none at all is a single 0 byte.
void TextOrder::appendAccents3(std::u16string_view text, std::vector<uint8_t>& key) const {
    std::vector<uint8_t> nibbles = {0};
    for (Accents accents(*this, text); !accents.atEnd();)
        nibbles.push_back(accents.next());
    while (nibbles.back() == kPlainAccent)
        nibbles.pop_back();
    nibbles.push_back(0);
    if (nibbles.size() % 2 != 0) nibbles.push_back(0);
    for (size_t i = 0; i < nibbles.size(); i += 2)
        key.push_back(static_cast<uint8_t>((nibbles[i] << 4) | nibbles[i + 1]));
}

}  // namespace jet
