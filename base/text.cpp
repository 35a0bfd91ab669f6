#include "base/text.h"

#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "base/uppertable.h"

namespace base {
namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The code point that begins at text[at]; moves `at` past it.
char32_t nextCodePoint(std::u16string_view text, size_t& at) {
    const char16_t unit = text[at++];
    if (isHighSurrogate(unit) && at < text.size() && isLowSurrogate(text[at]))
        return 0x10000u + ((unit - 0xD800u) << 10) + (text[at++] - 0xDC00u);
    return isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : unit;
}

// What a lead byte promises: how many bytes follow, its own bits, and the smallest code point
// that may be written so (anything below is an overlong form).
struct Utf8Lead {
    unsigned following;
    uint32_t bits;
    uint32_t smallest;
};

Utf8Lead utf8Lead(uint8_t byte) {
    if (byte >= 0xF0 && byte <= 0xF4) return {3, byte & 0x07u, 0x10000};
    if (byte >= 0xE0 && byte < 0xF0) return {2, byte & 0x0Fu, 0x800};
    if (byte >= 0xC2 && byte < 0xE0) return {1, byte & 0x1Fu, 0x80};
    return {0, replacement, 0};
}

// The code point that begins at bytes[at]; a byte that begins none gives the replacement
// character and only that byte is passed over.
char32_t nextUtf8(std::string_view bytes, size_t& at) {
    const auto first = static_cast<uint8_t>(bytes[at++]);
    if (first < 0x80) return first;
    const Utf8Lead lead = utf8Lead(first);
    if (lead.following == 0 || bytes.size() - at < lead.following) return replacement;
    uint32_t code = lead.bits;
    for (unsigned i = 0; i < lead.following; ++i) {
        const auto byte = static_cast<uint8_t>(bytes[at + i]);
        if ((byte & 0xC0) != 0x80) return replacement;
        code = code << 6 | (byte & 0x3Fu);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < lead.smallest || code > 0x10FFFF || surrogate) return replacement;
    at += lead.following;
    return code;
}

// One character, to be looked for in eight places at once.
class EightOf {
  public:
    static constexpr size_t kPlaces = sizeof(__m128i) / sizeof(char16_t);

    explicit EightOf(char16_t character)
        : character_(_mm_set1_epi16(static_cast<int16_t>(character))) {}

    // In which of the places from `text` on it stands first; kPlaces or more when in none.
    size_t placeIn(const char16_t* text) const {
        __m128i there;
        std::memcpy(&there, text, sizeof there);
        const int bytes = _mm_movemask_epi8(_mm_cmpeq_epi16(there, character_));  // a bit each
        return static_cast<size_t>(std::countr_zero(static_cast<unsigned>(bytes))) / 2;
    }

  private:
    __m128i character_;
};

}  // namespace

std::u16string trim(std::u16string_view text) {
    const size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) return {};
    return std::u16string(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

char16_t upper(char16_t character) {
    if (character < 0x80) {
        const bool small = character >= u'a' && character <= u'z';
        return small ? static_cast<char16_t>(character - 0x20) : character;
    }
    const auto after =
        std::upper_bound(std::begin(upperRuns), std::end(upperRuns), character,
                         [](char16_t wanted, const UpperRun& run) { return wanted < run.first; });
    const UpperRun& run = *std::prev(after);
    if (character > run.last || (character - run.first) % run.stride != 0) return character;
    return static_cast<char16_t>(character + run.delta);
}

std::u16string upper(std::u16string_view text) {
    std::u16string result(text);
    for (char16_t& character : result)
        character = upper(character);
    return result;
}

std::u16string upperFirst(std::u16string_view text) {
    std::u16string result(text);
    if (!result.empty()) result.front() = upper(result.front());
    return result;
}

std::string toUtf8(std::u16string_view text) {
    constexpr size_t kLongest = 3;  // bytes of a unit; a pair of them takes 4
    std::string bytes(text.size() * kLongest, '\0');
    char* end = bytes.data();
    const auto put = [&end](uint32_t byte) { *end++ = static_cast<char>(byte); };
    for (size_t at = 0; at < text.size();) {
        const uint32_t code = nextCodePoint(text, at);
        if (code < 0x80) {
            put(code);
        } else if (code < 0x800) {
            put(0xC0 | code >> 6);
            put(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            put(0xE0 | code >> 12);
            put(0x80 | (code >> 6 & 0x3F));
            put(0x80 | (code & 0x3F));
        } else {
            put(0xF0 | code >> 18);
            put(0x80 | (code >> 12 & 0x3F));
            put(0x80 | (code >> 6 & 0x3F));
            put(0x80 | (code & 0x3F));
        }
    }
    bytes.resize(static_cast<size_t>(end - bytes.data()));
    return bytes;
}

std::u16string fromUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    for (size_t at = 0; at < bytes.size();) {
        const uint32_t code = nextUtf8(bytes, at);
        if (code < 0x10000) {
            text.push_back(static_cast<char16_t>(code));
        } else {
            text.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        }
    }
    return text;
}

size_t find(std::u16string_view text, char16_t character, size_t from) {
    const EightOf wanted(character);
    size_t at = from;
    if (at + EightOf::kPlaces > text.size()) {
        while (at < text.size() && text[at] != character)
            ++at;
        return at < text.size() ? at : text.npos;
    }
    // The last eight overlap those before them, in which there was none.
    for (const size_t last = text.size() - EightOf::kPlaces;; at = std::min(at, last)) {
        const size_t place = wanted.placeIn(text.data() + at);
        if (place < EightOf::kPlaces) return at + place;
        if (at == last) return text.npos;
        at += EightOf::kPlaces;
    }
}

std::u16string_view right(std::u16string_view text, size_t count) {
    return count >= text.size() ? text : text.substr(text.size() - count);
}

std::u16string quoted(std::u16string_view text) {
    std::u16string result;
    result.reserve(text.size() + 2);
    appendQuoted(result, text);
    return result;
}

void appendQuoted(std::u16string& out, std::u16string_view text) {
    constexpr char16_t kQuote = u'"';
    out += kQuote;
    size_t from = 0;
    for (size_t quote = find(text, kQuote); quote != text.npos; quote = find(text, kQuote, from)) {
        out += text.substr(from, quote + 1 - from);
        out += kQuote;
        from = quote + 1;
    }
    out += text.substr(from);
    out += kQuote;
}

}  // namespace base
