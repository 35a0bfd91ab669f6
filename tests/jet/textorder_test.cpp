#include "jet/textorder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace jet {
namespace {

using Key = std::vector<uint8_t>;

Key keyOf(const TextOrder& order, std::u16string_view text) {
    Key key;
    order.appendKey(text, key);
    return key;
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

// The texts stand in strictly ascending order.
void expectAscending(const TextOrder& order, const std::vector<std::u16string>& texts) {
    for (size_t i = 0; i < texts.size(); ++i) {
        for (size_t j = 0; j < texts.size(); ++j) {
            const int expected = i < j ? -1 : (i > j ? 1 : 0);
            EXPECT_EQ(sign(order.compare(texts[i], texts[j])), expected) << i << " against " << j;
        }
    }
}

TEST(TextOrderGeneral4, KeysHaveTheBytesOfAnIndex) {
    const TextOrder& order = TextOrder::general4();
    EXPECT_EQ(keyOf(order, u""), (Key{0x01, 0x00}));
    EXPECT_EQ(keyOf(order, u"Abc"), (Key{0x4A, 0x4C, 0x4D, 0x01, 0x00}));
    EXPECT_EQ(keyOf(order, u"\u00E9t\u00E9"),
              (Key{0x51, 0x6D, 0x51, 0x01, 0x0E, 0x02, 0x0E, 0x00}));
    EXPECT_EQ(keyOf(order, u"\u00C9cole"), (Key{0x51, 0x4D, 0x64, 0x5E, 0x51, 0x01, 0x0E, 0x00}));
    EXPECT_EQ(keyOf(order, u"co-op"),
              (Key{0x4D, 0x64, 0x64, 0x66, 0x01, 0x01, 0x01, 0x01, 0x80, 0x0F, 0x06, 0x82, 0x00}));
    EXPECT_EQ(keyOf(order, u"l'\u00E9t\u00E9"),
              (Key{0x5E, 0x51, 0x6D, 0x51, 0x01, 0x02, 0x0E, 0x02, 0x0E, 0x01, 0x01, 0x01, 0x80,
                   0x0B, 0x06, 0x80, 0x00}));
    EXPECT_EQ(keyOf(order, u"\u00C6\u00E9"), (Key{0x4A, 0x51, 0x51, 0x01, 0x02, 0x0E, 0x00}));
}

TEST(TextOrderGeneral3, KeysHaveTheBytesOfAnIndex) {
    const TextOrder& order = TextOrder::general3();
    EXPECT_EQ(keyOf(order, u"Abc"), (Key{0x60, 0x61, 0x62, 0x00}));
    // B, T and R take no place among the accents; nibbles 0 4 0, padded.
    EXPECT_EQ(keyOf(order, u"b\u00E9"), (Key{0x61, 0x66, 0x04, 0x00}));
    // nibbles 0 2 4 0: a is plain, e acute.
    EXPECT_EQ(keyOf(order, u"Tat\u00E9"), (Key{0x77, 0x60, 0x77, 0x66, 0x02, 0x40}));
}

TEST(TextOrderGeneral4, IgnoresCaseAndTrailingSpaces) {
    const TextOrder& order = TextOrder::general4();
    EXPECT_TRUE(order.equal(u"Rock 1", u"rOCK 1"));
    EXPECT_TRUE(order.equal(u"\u00C9T\u00C9", u"\u00E9t\u00E9"));
    EXPECT_TRUE(order.equal(u"\u0178", u"\u00FF"));
    EXPECT_TRUE(order.equal(u"abc", u"abc   "));
    EXPECT_TRUE(order.equal(u"", u"  "));
    EXPECT_FALSE(order.equal(u"abc", u" abc"));
    EXPECT_FALSE(order.equal(u"ab c", u"abc"));
}

TEST(TextOrderGeneral4, KeepsAccentsApartButOnlyAsTies) {
    expectAscending(TextOrder::general4(),
                    {u"cote", u"cot\u00E9", u"c\u00F4te", u"c\u00F4t\u00E9", u"cotf"});
}

TEST(TextOrderGeneral4, HyphenAndApostropheAreTies) {
    expectAscending(TextOrder::general4(),
                    {u"coo", u"coop", u"co'op", u"co-op", u"coop-", u"coops"});
}

TEST(TextOrderGeneral3, HyphenAndApostropheAreCharacters) {
    expectAscending(TextOrder::general3(), {u"co'op", u"co-op", u"coo", u"coop", u"coop-"});
}

TEST(TextOrderGeneral4, PutsSignsBeforeDigitsBeforeLetters) {
    expectAscending(
        TextOrder::general4(),
        {u" z",     u"!z", u"\"", u"#",  u"(x)",    u"*", u",", u".",      u"/",      u":",
         u"?",      u"@",  u"[",  u"\\", u"]",      u"_", u"{", u"+",      u"\u20AC", u"0",
         u"\u00BD", u"1",  u"9",  u"A",  u"\u00C5", u"b", u"Z", u"\u03B1", u"\u0416", u"\u4E00"});
}

TEST(TextOrderGeneral4, LigaturesWeighTheirLetters) {
    const TextOrder& order = TextOrder::general4();
    EXPECT_TRUE(order.equal(u"\u0153uvre", u"OEUVRE"));
    EXPECT_TRUE(order.equal(u"stra\u00DFe", u"STRASSE"));
    expectAscending(order, {u"ad", u"\u00C6", u"af"});
}

TEST(TextOrderGeneral3, StrokedOIsALetterAfterZ) {
    expectAscending(TextOrder::general3(), {u"O", u"Z", u"\u00D8"});
    expectAscending(TextOrder::general4(), {u"O", u"\u00D8", u"P", u"Z"});
}

TEST(TextOrderGeneral4, OrdersCzechAndPolishLettersBesideTheirBase) {
    expectAscending(TextOrder::general4(), {u"C", u"\u010D", u"D", u"L", u"\u0142", u"M", u"Z"});
}

TEST(TextOrderGeneral4, IgnoresTheCaseOfOtherScripts) {
    const TextOrder& order = TextOrder::general4();
    EXPECT_TRUE(order.equal(u"\u0416\u0443\u043A", u"\u0436\u0423\u041A"));
    EXPECT_FALSE(order.equal(u"\u4E00", u"\u4E01"));
    EXPECT_FALSE(order.equal(u"a\u4E00", u"a"));
}

TEST(TextOrderGeneral4, ComparesBeyondTheLengthOfAnIndexKey) {
    const TextOrder& order = TextOrder::general4();
    const std::u16string longText(300, u'a');
    EXPECT_LT(order.compare(longText + u"b", longText + u"c"), 0);
    EXPECT_TRUE(order.equal(longText + u"b", longText + u"B "));
    EXPECT_LT(order.compare(longText, longText + u"-"), 0);
}

TEST(TextOrderGeneral4, ZeroCharactersAreIgnored) {
    const std::u16string zero(1, u'\0');
    EXPECT_TRUE(TextOrder::general4().equal(u"a" + zero + u"b", u"ab"));
}

class TextOrderBoth : public testing::TestWithParam<const TextOrder*> {};

std::u16string randomText(std::mt19937& random) {
    static const std::u16string alphabet =
        u"aAbB \u00E9\u00C9\u00E6e'-s\u00DF1\u00B9\u0153o\u2013\u0416\u0436\u4E00\u0001\u00A0";
    std::u16string text(random() % 7, u'a');
    for (char16_t& character : text)
        character = alphabet[random() % alphabet.size()];
    return text;
}

TEST_P(TextOrderBoth, ComparisonAgreesWithKeysHashAndPrefix) {
    const TextOrder& order = *GetParam();
    std::mt19937 random(12345);
    for (int i = 0; i < 5000; ++i) {
        const std::u16string a = randomText(random);
        const std::u16string b = randomText(random);
        const Key left = keyOf(order, a);
        const Key right = keyOf(order, b);
        const int byKey = left < right ? -1 : (left > right ? 1 : 0);
        ASSERT_EQ(sign(order.compare(a, b)), byKey);
        ASSERT_TRUE(byKey != 0 || order.hash(a) == order.hash(b));
        const std::pair prefixA(order.prefix(a), order.prefix(a, 8));
        const std::pair prefixB(order.prefix(b), order.prefix(b, 8));
        ASSERT_TRUE(prefixA >= prefixB || byKey < 0);
    }
}

TEST_P(TextOrderBoth, EqualTextsHaveOneHashWhereverALigatureStands) {
    const TextOrder& order = *GetParam();
    const auto expectOneHash = [&order](const std::u16string& a, const std::u16string& b) {
        ASSERT_TRUE(order.equal(a, b));
        EXPECT_EQ(order.hash(a), order.hash(b));
    };
    expectOneHash(u"\u00DF", u"ss");
    expectOneHash(u"Stra\u00DFe", u"STRASSE");
    expectOneHash(u"l'\u00E6on", u"L'AEON ");
    expectOneHash(u"c\u0153ur", u"coeur");
}

TEST_P(TextOrderBoth, FoldingAgreesWithComparison) {
    const TextOrder& order = *GetParam();
    for (uint32_t a = 0; a < 0x2200; ++a) {
        const auto character = static_cast<char16_t>(a);
        const char16_t folded = order.fold(character);
        ASSERT_EQ(order.fold(folded), folded) << a;
        ASSERT_EQ(order.compareCharacters(character, folded), 0) << a;
    }
    for (uint16_t a = 0; a < 0x180; ++a) {
        for (uint16_t b = 0; b < 0x180; ++b) {
            // A space stays apart even from what weighs the same.
            const bool spaceAndOther = (a == u' ') != (b == u' ');
            const bool same = order.compareCharacters(a, b) == 0 && !spaceAndOther;
            ASSERT_EQ(order.fold(a) == order.fold(b), same) << a << " and " << b;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, TextOrderBoth,
                         testing::Values(&TextOrder::general4(), &TextOrder::general3()));

}  // namespace
}  // namespace jet
