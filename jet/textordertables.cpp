#include "jet/textordertables.h"

namespace jet {
namespace {

using enum Accent;

// Capitals, and the few small kLetters that have no capital of the same weight.
constexpr AccentedLetter kLetters[] = {
    {u'À', u'A', Grave},        {u'Á', u'A', Acute},       {u'Â', u'A', Circumflex},
    {u'Ã', u'A', Tilde},        {u'Ä', u'A', Diaeresis},   {u'Å', u'A', Ring},
    {u'ª', u'A', Variant},      {u'Ç', u'C', Cedilla},     {u'È', u'E', Grave},
    {u'É', u'E', Acute},        {u'Ê', u'E', Circumflex},  {u'Ë', u'E', Diaeresis},
    {u'Ì', u'I', Grave},        {u'Í', u'I', Acute},       {u'Î', u'I', Circumflex},
    {u'Ï', u'I', Diaeresis},    {u'Ð', u'D', Eth},         {u'Ñ', u'N', Tilde},
    {u'Ò', u'O', Grave},        {u'Ó', u'O', Acute},       {u'Ô', u'O', Circumflex},
    {u'Õ', u'O', Tilde},        {u'Ö', u'O', Diaeresis},   {u'Ø', u'O', Stroke},
    {u'º', u'O', Variant},      {u'Ù', u'U', Grave},       {u'Ú', u'U', Acute},
    {u'Û', u'U', Circumflex},   {u'Ü', u'U', Diaeresis},   {u'Ý', u'Y', Acute},
    {u'Ÿ', u'Y', Diaeresis},    {u'Š', u'S', Caron},       {u'Ž', u'Z', Caron},
    {u'Ā', u'A', Macron},       {u'Ă', u'A', Breve},       {u'Ą', u'A', Ogonek},
    {u'Ć', u'C', Acute},        {u'Ĉ', u'C', Circumflex},  {u'Ċ', u'C', DotAbove},
    {u'Č', u'C', Caron},        {u'Ď', u'D', Caron},       {u'Đ', u'D', Bar},
    {u'Ē', u'E', Macron},       {u'Ĕ', u'E', Breve},       {u'Ė', u'E', DotAbove},
    {u'Ę', u'E', Ogonek},       {u'Ě', u'E', Caron},       {u'Ĝ', u'G', Circumflex},
    {u'Ğ', u'G', Breve},        {u'Ġ', u'G', DotAbove},    {u'Ģ', u'G', Cedilla},
    {u'Ĥ', u'H', Circumflex},   {u'Ħ', u'H', Bar},         {u'Ĩ', u'I', Tilde},
    {u'Ī', u'I', Macron},       {u'Ĭ', u'I', Breve},       {u'Į', u'I', Ogonek},
    {u'İ', u'I', DotAbove},     {u'ı', u'I', Variant},     {u'Ĵ', u'J', Circumflex},
    {u'Ķ', u'K', Cedilla},      {u'ĸ', u'K', Variant},     {u'Ĺ', u'L', Acute},
    {u'Ļ', u'L', Cedilla},      {u'Ľ', u'L', Caron},       {u'Ŀ', u'L', DotMiddle},
    {u'Ł', u'L', LetterStroke}, {u'Ń', u'N', Acute},       {u'Ņ', u'N', Cedilla},
    {u'Ň', u'N', Caron},        {u'ŉ', u'N', Apostrophe},  {u'Ō', u'O', Macron},
    {u'Ŏ', u'O', Breve},        {u'Ő', u'O', DoubleAcute}, {u'Ŕ', u'R', Acute},
    {u'Ŗ', u'R', Cedilla},      {u'Ř', u'R', Caron},       {u'Ś', u'S', Acute},
    {u'Ŝ', u'S', Circumflex},   {u'Ş', u'S', Cedilla},     {u'Ţ', u'T', Cedilla},
    {u'Ť', u'T', Caron},        {u'Ũ', u'U', Tilde},       {u'Ū', u'U', Macron},
    {u'Ŭ', u'U', Breve},        {u'Ů', u'U', Ring},        {u'Ű', u'U', DoubleAcute},
    {u'Ų', u'U', Ogonek},       {u'Ŵ', u'W', Circumflex},  {u'Ŷ', u'Y', Circumflex},
    {u'Ź', u'Z', Acute},        {u'Ż', u'Z', DotAbove},    {u'\u0192', u'F', Hook},
    {u'\u02C6', u'^', Variant},
};

constexpr OwnWeight kWeights4[] = {
    {u' ', 0x07},        {u'\u00A0', 0x0802}, {u'\t', 0x0803},     {u'\n', 0x0804},
    {u'\v', 0x0805},     {u'\f', 0x0806},     {u'\r', 0x0807},     {u'!', 0x09},
    {u'"', 0x0A},        {u'#', 0x0C},        {u'$', 0x0E},        {u'%', 0x10},
    {u'&', 0x12},        {u'(', 0x14},        {u')', 0x16},        {u'*', 0x18},
    {u',', 0x1A},        {u'.', 0x1C},        {u'/', 0x1E},        {u':', 0x20},
    {u';', 0x22},        {u'?', 0x24},        {u'@', 0x26},        {u'[', 0x27},
    {u'\\', 0x29},       {u']', 0x2A},        {u'^', 0x2B02},      {u'_', 0x2B03},
    {u'`', 0x2B07},      {u'{', 0x2B09},      {u'|', 0x2B0B},      {u'}', 0x2B0D},
    {u'~', 0x2B0F},      {u'¡', 0x2B10},      {u'¦', 0x2B11},      {u'¨', 0x2B12},
    {u'¯', 0x2B13},      {u'´', 0x2B14},      {u'¸', 0x2B15},      {u'¿', 0x2B16},
    {u'\u02DC', 0x2B1C}, {u'\u2018', 0x2B37}, {u'\u2019', 0x2B38}, {u'\u201A', 0x2B39},
    {u'\u201C', 0x2B3B}, {u'\u201D', 0x2B3C}, {u'\u201E', 0x2B3D}, {u'\u2039', 0x2B46},
    {u'\u203A', 0x2B47}, {u'+', 0x2C},        {u'<', 0x2E},        {u'=', 0x30},
    {u'>', 0x32},        {u'±', 0x3304},      {u'«', 0x3305},      {u'»', 0x3307},
    {u'×', 0x3309},      {u'÷', 0x330A},      {u'¢', 0x34A6},      {u'£', 0x34A7},
    {u'¤', 0x34A8},      {u'¥', 0x34A9},      {u'§', 0x34AA},      {u'©', 0x34AB},
    {u'¬', 0x34AC},      {u'®', 0x34AD},      {u'°', 0x34AE},      {u'µ', 0x34AF},
    {u'¶', 0x34B0},      {u'·', 0x34B1},      {u'\u2020', 0x34B3}, {u'\u2021', 0x34B4},
    {u'\u2022', 0x34B5}, {u'\u2026', 0x34B9}, {u'\u2030', 0x34BA}, {u'\u20AC', 0x35A1},
    {u'0', 0x36},        {u'¼', 0x3712},      {u'½', 0x3716},      {u'¾', 0x371A},
    {u'1', 0x38},        {u'¹', 0x38},        {u'2', 0x3A},        {u'²', 0x3A},
    {u'3', 0x3C},        {u'³', 0x3C},        {u'4', 0x3E},        {u'5', 0x40},
    {u'6', 0x42},        {u'7', 0x44},        {u'8', 0x46},        {u'9', 0x48},
    {u'A', 0x4A},        {u'Æ', 0x4A51},      {u'B', 0x4C},        {u'C', 0x4D},
    {u'D', 0x4F},        {u'E', 0x51},        {u'F', 0x53},        {u'G', 0x55},
    {u'H', 0x57},        {u'I', 0x59},        {u'Ĳ', 0x595B},      {u'J', 0x5B},
    {u'K', 0x5C},        {u'L', 0x5E},        {u'M', 0x60},        {u'N', 0x62},
    {u'Ŋ', 0x6305},      {u'O', 0x64},        {u'Œ', 0x6451},      {u'P', 0x66},
    {u'Q', 0x68},        {u'R', 0x69},        {u'S', 0x6B},        {u'ß', 0x6B6B},
    {u'ſ', 0x6C06},      {u'T', 0x6D},        {u'Þ', 0x6D57},      {u'\u2122', 0x6E04},
    {u'Ŧ', 0x6E06},      {u'U', 0x6F},        {u'V', 0x71},        {u'W', 0x73},
    {u'X', 0x75},        {u'Y', 0x76},        {u'Z', 0x78},
};

constexpr DeferredCharacter kDeferred4[] = {
    {u'\'', 0x80},     {u'-', 0x82},      {u'\u00AD', 0x83}, {u'\u2010', 0x84}, {u'\u2011', 0x85},
    {u'\u2012', 0x88}, {u'\u2013', 0x89}, {u'\u2014', 0x8B}, {u'\u2015', 0x8C},
};

// The characters of code page 1252 only: a file of this order holds no others.
constexpr OwnWeight kWeights3[] = {
    {u'\t', 0x11},     {u' ', 0x11},      {u'\u00A0', 0x11}, {u'!', 0x12},      {u'"', 0x13},
    {u'«', 0x13},      {u'»', 0x13},      {u'\u201C', 0x13}, {u'\u201D', 0x13}, {u'\u201E', 0x13},
    {u'#', 0x14},      {u'$', 0x15},      {u'%', 0x16},      {u'&', 0x17},      {u'\'', 0x18},
    {u'\u2018', 0x18}, {u'\u2019', 0x18}, {u'\u201A', 0x18}, {u'\u2039', 0x18}, {u'\u203A', 0x18},
    {u'(', 0x19},      {u')', 0x1A},      {u'*', 0x1B},      {u'+', 0x1C},      {u',', 0x1D},
    {u'-', 0x1E},      {u'\u00AD', 0x1E}, {u'\u2013', 0x1E}, {u'\u2014', 0x1E}, {u'.', 0x1F},
    {u'/', 0x20},      {u':', 0x21},      {u';', 0x22},      {u'<', 0x23},      {u'=', 0x24},
    {u'>', 0x25},      {u'?', 0x26},      {u'@', 0x27},      {u'[', 0x28},      {u'\\', 0x29},
    {u']', 0x2A},      {u'^', 0x2B},      {u'_', 0x2C},      {u'`', 0x2D},      {u'{', 0x2E},
    {u'|', 0x2F},      {u'}', 0x30},      {u'~', 0x31},      {u'\u0192', 0x32}, {u'\u2026', 0x33},
    {u'\u2020', 0x34}, {u'\u2021', 0x35}, {u'\u02C6', 0x36}, {u'\u2030', 0x37}, {u'\u2022', 0x38},
    {u'\u02DC', 0x39}, {u'\u2122', 0x3A}, {u'¡', 0x3B},      {u'¢', 0x3C},      {u'£', 0x3D},
    {u'¤', 0x3E},      {u'¥', 0x3F},      {u'¦', 0x40},      {u'§', 0x41},      {u'¨', 0x42},
    {u'©', 0x43},      {u'ª', 0x44},      {u'¬', 0x45},      {u'®', 0x46},      {u'¯', 0x47},
    {u'°', 0x48},      {u'±', 0x49},      {u'´', 0x4A},      {u'µ', 0x4B},      {u'¶', 0x4C},
    {u'·', 0x4D},      {u'¸', 0x4E},      {u'º', 0x4F},      {u'¼', 0x50},      {u'½', 0x51},
    {u'¾', 0x52},      {u'¿', 0x53},      {u'×', 0x54},      {u'÷', 0x55},      {u'0', 0x56},
    {u'1', 0x57},      {u'¹', 0x57},      {u'2', 0x58},      {u'²', 0x58},      {u'3', 0x59},
    {u'³', 0x59},      {u'4', 0x5A},      {u'5', 0x5B},      {u'6', 0x5C},      {u'7', 0x5D},
    {u'8', 0x5E},      {u'9', 0x5F},      {u'A', 0x60},      {u'Æ', 0x6066},    {u'B', 0x61},
    {u'C', 0x62},      {u'D', 0x64},      {u'Ð', 0x65},      {u'E', 0x66},      {u'F', 0x67},
    {u'G', 0x68},      {u'H', 0x69},      {u'I', 0x6A},      {u'J', 0x6B},      {u'K', 0x6C},
    {u'L', 0x6D},      {u'M', 0x6F},      {u'N', 0x70},      {u'O', 0x72},      {u'Œ', 0x7266},
    {u'P', 0x73},      {u'Q', 0x74},      {u'R', 0x75},      {u'S', 0x76},      {u'ß', 0x7676},
    {u'T', 0x77},      {u'U', 0x78},      {u'V', 0x7A},      {u'W', 0x7B},      {u'X', 0x7C},
    {u'Y', 0x7D},      {u'Z', 0x7E},      {u'Þ', 0x7F},      {u'Ø', 0x81},      {u'Ž', 0x10},
    {u'\u20AC', 0x10},
};

}  // namespace

std::span<const AccentedLetter> accentedLetters() {
    return kLetters;
}
std::span<const OwnWeight> generalWeights4() {
    return kWeights4;
}
std::span<const DeferredCharacter> generalDeferred4() {
    return kDeferred4;
}
std::span<const OwnWeight> generalWeights3() {
    return kWeights3;
}

uint8_t accentWeight4(Accent accent) {
    switch (accent) {
        case Variant:
            return 0x03;
        case Acute:
            return 0x0E;
        case Grave:
            return 0x0F;
        case DotAbove:
            return 0x10;
        case DotMiddle:
            return 0x11;
        case Circumflex:
            return 0x12;
        case Diaeresis:
            return 0x13;
        case Caron:
            return 0x14;
        case Breve:
            return 0x15;
        case Macron:
            return 0x17;
        case Tilde:
            return 0x19;
        case Ring:
            return 0x1A;
        case Ogonek:
            return 0x1B;
        case Cedilla:
            return 0x1C;
        case DoubleAcute:
            return 0x1D;
        case Bar:
            return 0x1E;
        case LetterStroke:
            return 0x1F;
        case Stroke:
            return 0x21;
        case Apostrophe:
            return 0x48;
        case Hook:
            return 0x7B;
        case Eth:
            return 0x68;
    }
    return 0;
}

uint8_t accentWeight3(Accent accent) {
    switch (accent) {
        case Grave:
            return 0x3;
        case Acute:
            return 0x4;
        case Circumflex:
            return 0x5;
        case Diaeresis:
            return 0x6;
        case Tilde:
            return 0x7;
        case Ring:
            return 0x8;
        case Cedilla:
            return 0x9;
        case Caron:
            return 0xA;
        default:
            return 0;
    }
}

}  // namespace jet
