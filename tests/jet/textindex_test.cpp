#include "jet/textindex.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace jet {
namespace {

class TextIndexTest : public testing::Test {
  protected:
    void add(std::u16string_view text) {
        std::vector<uint8_t> folded;
        folder_.fold(text, folded);
        ASSERT_TRUE(texts_.append(folded));
    }
    std::vector<uint32_t> rows(std::u16string_view text) {
        index_.update(texts_, limits_);
        return index_.rowsEqualTo(TextOrder::general4().hashed(text), folder_, texts_);
    }
    static std::u16string numbered(int number) {
        const std::string digits = std::to_string(number);
        return u"Title " + std::u16string(digits.begin(), digits.end());
    }

    TextFolder folder_{TextOrder::general4()};
    FoldedTexts texts_;
    CacheLimits limits_;
    TextIndex index_{TextOrder::general4()};
};

TEST_F(TextIndexTest, FindsAllRowsOfAText) {
    add(u"Intro");
    add(u"Other");
    texts_.appendNull();
    add(u"INTRO ");
    add(u"");
    EXPECT_EQ(rows(u"intro"), (std::vector<uint32_t>{3, 0}));
    EXPECT_EQ(rows(u"  "), (std::vector<uint32_t>{4}));
    EXPECT_EQ(rows(u"none"), std::vector<uint32_t>());
}

TEST_F(TextIndexTest, LigaturesEqualTheirLetters) {
    add(u"\u0152uvre");
    add(u"oeuvre");
    EXPECT_EQ(rows(u"OEUVRE"), (std::vector<uint32_t>{1, 0}));
    EXPECT_EQ(rows(u"\u0153uvre"), (std::vector<uint32_t>{1, 0}));
}

TEST_F(TextIndexTest, AnEmptyOneFindsNothing) {
    EXPECT_EQ(rows(u"x"), std::vector<uint32_t>());
}

TEST_F(TextIndexTest, GrowsWithItsTexts) {
    for (int i = 0; i < 5000; ++i) {
        add(numbered(i % 2000));
        if (i % 37 == 0) index_.update(texts_, limits_);
    }
    for (int i = 0; i < 2000; ++i)
        ASSERT_EQ(rows(numbered(i)).size(), i < 1000 ? 3u : 2u) << i;
    EXPECT_EQ(rows(numbered(3)), (std::vector<uint32_t>{4003, 2003, 3}));
    EXPECT_LE(index_.bytes(), 2 * TextIndex::bytesFor(5000));
}

// The more rows, the fewer bits of a hash are kept, so that some texts look like others.
TEST_F(TextIndexTest, TellsManyTextsApart) {
    constexpr int kTexts = 200'000;
    for (int i = 0; i < kTexts; ++i)
        add(numbered(2 * i));
    for (int i = 0; i < kTexts; ++i) {
        ASSERT_EQ(rows(numbered(2 * i)), std::vector<uint32_t>{static_cast<uint32_t>(i)});
        ASSERT_EQ(rows(numbered(2 * i + 1)), std::vector<uint32_t>());
    }
}

TEST_F(TextIndexTest, IsTheSameWhoeverFillsIt) {
    // Full enough that texts run over the end of a processor's part, and of the table.
    constexpr int kTexts = 3000;
    for (int i = 0; i < 2 * kTexts; ++i)
        add(numbered(i % kTexts));
    for (size_t processors = 1; processors <= 64; processors *= 2) {
        limits_ = {.rowsOfPart = 1, .processors = processors};
        index_ = TextIndex(TextOrder::general4());
        for (int i = 0; i < kTexts; ++i) {
            const auto row = static_cast<uint32_t>(i);
            ASSERT_EQ(rows(numbered(i)), (std::vector<uint32_t>{row + kTexts, row}))
                << processors << " processors";
        }
    }
}

}  // namespace
}  // namespace jet
