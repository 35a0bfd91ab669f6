// The weights behind the text orders, as data. A weight's bytes compare unsigned.
#pragma once

#include <cstdint>
#include <span>

namespace jet {

enum class Accent : uint8_t {
    Grave,
    Acute,
    Circumflex,
    Tilde,
    Diaeresis,
    Ring,
    Cedilla,
    Stroke,
    Variant,
    Eth,
    Caron,
    Macron,
    Breve,
    Ogonek,
    DotAbove,
    DotMiddle,
    DoubleAcute,
    Bar,
    LetterStroke,
    Apostrophe,
    Hook,
};

// A character with a weight of its own: one byte, or two when the high byte is not 0.
struct OwnWeight {
    char16_t character;
    uint16_t primary;
};

// A capital letter that weighs like `base`, told apart from it by an accent.
struct AccentedLetter {
    char16_t character;
    char16_t base;
    Accent accent;
};

// A character without primary weight, which only breaks ties.
struct DeferredCharacter {
    char16_t character;
    uint8_t code;
};

std::span<const AccentedLetter> accentedLetters();

std::span<const OwnWeight> generalWeights4();
std::span<const DeferredCharacter> generalDeferred4();
uint8_t accentWeight4(Accent accent);

std::span<const OwnWeight> generalWeights3();
// 0 for an accent that this order does not know.
uint8_t accentWeight3(Accent accent);

}  // namespace jet
