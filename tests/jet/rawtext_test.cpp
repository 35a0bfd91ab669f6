#include "jet/rawtext.h"

#include <gtest/gtest.h>

namespace jet {

namespace {

using Stored = std::vector<uint8_t>;

Stored encoded(std::u16string_view text, Compression compression = Compression::WhenSmaller) {
    Stored out{9, 9};
    encodeJet4Text(text, compression, out);
    return out;
}

std::u16string decoded(const Stored& stored) {
    std::u16string out = u"rest";
    decodeText(rawJet4Text(stored.data(), stored.size()), out);
    return out;
}

TEST(RawTextTest, ThreeLatinCharactersAreCompressed) {
    EXPECT_EQ(encoded(u"été"), (Stored{0xFF, 0xFE, 0xE9, 't', 0xE9}));
    EXPECT_EQ(encoded(u"\x01\x80\xFF"), (Stored{0xFF, 0xFE, 0x01, 0x80, 0xFF}));
}

TEST(RawTextTest, ShortOtherOrUnaskedTextIsPlain) {
    EXPECT_EQ(encoded(u"é"), (Stored{0xE9, 0}));
    EXPECT_EQ(encoded(u"ab"), (Stored{'a', 0, 'b', 0}));
    EXPECT_EQ(encoded(u"abΩ"), (Stored{'a', 0, 'b', 0, 0xA9, 0x03}));
    EXPECT_EQ(encoded(std::u16string(u"ab\0", 3)), (Stored{'a', 0, 'b', 0, 0, 0}));
    EXPECT_EQ(encoded(u"abc", Compression::Never), (Stored{'a', 0, 'b', 0, 'c', 0}));
    EXPECT_EQ(encoded(u""), Stored());
}

TEST(RawTextTest, TheCompressionMarkAsACharacterIsDropped) {
    EXPECT_EQ(encoded(u"\uFEFF\uFEFFaΩ"), (Stored{'a', 0, 0xA9, 0x03}));
    EXPECT_EQ(encoded(u"\uFEFF"), Stored());
}

TEST(RawTextTest, WhatIsEncodedIsDecoded) {
    for (const std::u16string_view text :
         {u"", u"a", u"ab", u"abc", u"Œuvres complètes", u"Été n° 1", u"日本語", u"😀 x"}) {
        EXPECT_EQ(decoded(encoded(text)), text);
        EXPECT_EQ(decoded(encoded(text, Compression::Never)), text);
    }
}

TEST(RawTextTest, AZeroByteSwitchesToTwoByteCharactersAndBack) {
    EXPECT_EQ(decoded({0xFF, 0xFE, 'a', 0x00, 0xA9, 0x03, 0x00, 'b'}), u"aΩb");
    // Inside a two-byte character a zero is a byte like any other.
    EXPECT_EQ(decoded({0xFF, 0xFE, 0x00, 'a', 0x00, 'b', 0x00}), u"ab");
    EXPECT_EQ(decoded({0xFF, 0xFE, 0x00, 0xA9}), u"");
}

TEST(RawTextTest, AnOddLastByteOfPlainTextIsLeftOut) {
    EXPECT_EQ(decoded({'a', 0, 'b'}), u"a");
}

TEST(RawTextTest, CodePageTextIs1252) {
    const Stored stored{0x80, 0xE9, 'x'};
    std::u16string out;
    decodeText({stored.data(), stored.size(), TextCoding::CodePage}, out);
    EXPECT_EQ(out, u"€éx");
}

}  // namespace

}  // namespace jet
