#include "bench/samples.h"

#include <array>
#include <string_view>

namespace bench {
namespace {

constexpr std::array<std::string_view, 48> kSyllables = {
    "ba", "bel", "bri", "ca",  "chan", "cla", "da",  "de", "dor", "é",  "fa",  "fleur",
    "ga", "go",  "gri", "i",   "ja",   "jou", "ka",  "la", "lè",  "lu", "ma",  "mé",
    "mi", "mon", "na",  "neu", "ni",   "o",   "ou",  "pa", "pri", "ra", "ro",  "rou",
    "sa", "sol", "su",  "ta",  "tem",  "tou", "tri", "va", "vé",  "vi", "vol", "zi"};

// Words that many titles share, so that a search finds many.
constexpr std::array<std::string_view, 24> kCommonWords = {
    "Amour", "Love",  "Nuit",  "Soleil", "Dance", "Rock",  "Blues", "Été",
    "The",   "Les",   "Night", "Dream",  "Coeur", "Noël",  "Mix",   "Live",
    "Vie",   "World", "Paris", "Song",   "Fire",  "Temps", "Bleu",  "Remix"};

// The first letter of a syllable in upper case; only "é" among them begins with an accent.
std::string begun(std::string_view syllable) {
    if (syllable == "é") return "É";
    std::string text(syllable);
    text[0] = static_cast<char>(text[0] - 'a' + 'A');
    return text;
}

std::string word(Chance& chance) {
    if (chance.percent(30)) return std::string(kCommonWords[chance.below(kCommonWords.size())]);
    std::string text = begun(kSyllables[chance.below(kSyllables.size())]);
    const uint64_t more = 1 + chance.below(3);
    for (uint64_t i = 0; i < more; ++i)
        text += kSyllables[chance.below(kSyllables.size())];
    return text;
}

}  // namespace

std::string title(Chance& chance, uint64_t mostWords) {
    std::string text = word(chance);
    const uint64_t more = chance.below(mostWords);
    for (uint64_t i = 0; i < more; ++i)
        text += " " + word(chance);
    return text;
}

std::string artist(Chance& chance) {
    return title(chance, 2);
}

}  // namespace bench
