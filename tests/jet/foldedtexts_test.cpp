#include "jet/foldedtexts.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace jet {
namespace {

using Folded = std::vector<uint8_t>;

Folded fold(std::u16string_view text, const TextOrder& order = TextOrder::general4()) {
    Folded folded;
    TextFolder(order).fold(text, folded);
    return folded;
}

Folded fold(std::string_view bytes, TextCoding coding,
            const TextOrder& order = TextOrder::general4()) {
    Folded folded;
    std::vector<uint8_t> stored(bytes.begin(), bytes.end());
    stored.push_back(0);  // so that even an empty text has an address
    TextFolder(order).fold(RawText{stored.data(), bytes.size(), coding}, folded);
    return folded;
}

TEST(FoldedTexts, TextsFoldAlikeWhenTheirCharactersMatch) {
    EXPECT_EQ(fold(u"L'\u00C9T\u00C9"), fold(u"l'\u00E9t\u00E9"));
    EXPECT_NE(fold(u"\u00E9"), fold(u"e"));
    EXPECT_NE(fold(u"a "), fold(u"a"));
    EXPECT_EQ(fold(u"\u0416"), fold(u"\u0436"));
}

TEST(FoldedTexts, EveryCodingFoldsAlike) {
    const Folded expected = fold(u"\u00C9t\u00E9 1");
    EXPECT_EQ(fold("\xE9T\xC9 1", TextCoding::Compressed), expected);
    EXPECT_EQ(fold("\xE9T\xC9 1", TextCoding::CodePage), expected);
    EXPECT_EQ(fold(std::string_view("\xE9\0T\0\xC9\0 \0001\0", 10), TextCoding::Utf16), expected);
    // A byte 0 switches to two-byte characters and back.
    EXPECT_EQ(fold(std::string_view("\xE9T\0\xC9\0\0 1", 8), TextCoding::Compressed), expected);
    EXPECT_EQ(fold("\x80", TextCoding::CodePage), fold(u"\u20AC"));
    EXPECT_EQ(fold("", TextCoding::Compressed), Folded());
}

// Bytes are folded many at once; whatever stands where, that must not show.
TEST(FoldedTexts, BytesFoldAlikeWhereverTheyStand) {
    for (const TextOrder* order : {&TextOrder::general4(), &TextOrder::general3()}) {
        for (unsigned byte = 1; byte < 256; ++byte) {
            for (size_t before = 0; before < 10; ++before) {
                const size_t after = 19 - before;
                const std::string bytes =
                    std::string(before, 'B') + static_cast<char>(byte) + std::string(after, 'z');
                std::u16string text(before, u'B');
                text += static_cast<char16_t>(byte);
                text.append(after, u'z');
                ASSERT_EQ(fold(bytes, TextCoding::Compressed, *order), fold(text, *order)) << byte;
            }
        }
    }
}

TEST(FoldedTexts, FoldedCharactersNeedOnlyTheirForm) {
    for (const std::u16string_view text :
         {u"", u"l'\u00C9t\u00E9 n\u00B0 1", u"\u0416\u4E00\uFFFF"}) {
        std::u16string folded;
        TextFolder::decode(fold(text), folded);
        EXPECT_EQ(TextFolder::encode(folded), fold(text));
    }
}

TEST(FoldedTexts, FoldingKeepsTheOrder) {
    for (const TextOrder* order : {&TextOrder::general4(), &TextOrder::general3()}) {
        for (const std::u16string_view text : {u"L'\u00C9T\u00C9 -\u2013 1\u00B9\u00BD\u20AC",
                                               u"\u0152uvre\t \u00A0", u"\u4E00\uFFFF"}) {
            std::u16string decoded;
            TextFolder::decode(fold(text, *order), decoded);
            EXPECT_EQ(decoded.size(), text.size());
            EXPECT_TRUE(order->equal(text, decoded));
        }
    }
}

class FoldedTextsColumn : public testing::Test {
  protected:
    void add(std::u16string_view text) { ASSERT_TRUE(texts_.append(fold(text))); }
    std::vector<size_t> rowsHolding(std::u16string_view wanted) const {
        std::vector<size_t> rows;
        texts_.forEachHolding(fold(wanted), 0, texts_.count(),
                              [&](size_t row) { rows.push_back(row); });
        return rows;
    }
    FoldedTexts texts_;
};

TEST_F(FoldedTextsColumn, KeepsTextsAndNulls) {
    add(u"Abc");
    texts_.appendNull();
    add(u"");
    add(u"\u00E9");
    EXPECT_EQ(texts_.count(), 4u);
    EXPECT_TRUE(texts_.isNull(1));
    EXPECT_FALSE(texts_.isNull(2));
    EXPECT_TRUE(texts_.text(1).empty());
    EXPECT_TRUE(texts_.text(2).empty());
    EXPECT_EQ(Folded(texts_.text(0).begin(), texts_.text(0).end()), fold(u"abc"));
    EXPECT_EQ(Folded(texts_.text(3).begin(), texts_.text(3).end()), fold(u"\u00C9"));
}

TEST_F(FoldedTextsColumn, FindsEachRowThatHoldsAText) {
    for (const std::u16string_view text :
         {u"The Wall", u"wall wall", u"", u"wa", u"ll", u"\u00E9wall", u"none"})
        add(text);
    texts_.appendNull();
    add(u"WALL");
    EXPECT_EQ(rowsHolding(u"wall"), (std::vector<size_t>{0, 1, 5, 8}));
    EXPECT_EQ(rowsHolding(u"\u00C9"), (std::vector<size_t>{5}));
    EXPECT_EQ(rowsHolding(u"wall wall wall"), std::vector<size_t>());
    EXPECT_EQ(rowsHolding(u"ll"), (std::vector<size_t>{0, 1, 4, 5, 8}));
}

TEST_F(FoldedTextsColumn, FindsRowsFarApart) {
    for (int i = 0; i < 3000; ++i)
        add(i % 1000 == 7 ? u"needle" : u"hay");
    EXPECT_EQ(rowsHolding(u"eed"), (std::vector<size_t>{7, 1007, 2007}));
    EXPECT_EQ(rowsHolding(u"hay").size(), 2997u);
}

TEST_F(FoldedTextsColumn, AnEmptyColumnHoldsNothing) {
    EXPECT_EQ(rowsHolding(u"x"), std::vector<size_t>());
}

}  // namespace
}  // namespace jet
