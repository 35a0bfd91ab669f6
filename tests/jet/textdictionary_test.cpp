#include "jet/textdictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include "jet/foldedtexts.h"

namespace jet {
namespace {

using Code = TextDictionary::Code;

class TextDictionaryTest : public testing::Test {
  protected:
    std::optional<Code> add(std::u16string_view text) {
        std::vector<uint8_t> folded;
        folder_.fold(text, folded);
        return dictionary_.add(folded);
    }
    std::vector<Code> codesEqualTo(std::u16string_view text) const {
        std::vector<Code> codes = dictionary_.codesEqualTo(TextOrder::general4().hashed(text));
        std::ranges::sort(codes);
        return codes;
    }

    TextFolder folder_{TextOrder::general4()};
    TextDictionary dictionary_{TextOrder::general4(), 5};
};

TEST_F(TextDictionaryTest, GivesEqualTextsTheSameCode) {
    EXPECT_EQ(add(u"Rock 1"), Code{1});
    EXPECT_EQ(add(u"Blues"), Code{2});
    EXPECT_EQ(add(u"ROCK 1"), Code{1});
    EXPECT_EQ(dictionary_.codeCount(), 3u);
    EXPECT_TRUE(TextOrder::general4().equal(dictionary_.text(2), u"blues"));
}

TEST_F(TextDictionaryTest, FindsAllCodesOfEqualTexts) {
    add(u"Rock 1");
    add(u"Blues");
    add(u"Rock 1  ");
    EXPECT_EQ(codesEqualTo(u"rock 1 "), (std::vector<Code>{1, 3}));
    EXPECT_EQ(codesEqualTo(u"BLUES"), (std::vector<Code>{2}));
    EXPECT_EQ(codesEqualTo(u"Jazz"), std::vector<Code>());
    EXPECT_EQ(codesEqualTo(u""), std::vector<Code>());
}

TEST_F(TextDictionaryTest, TakesNoMoreThanItsLimit) {
    for (const std::u16string_view text : {u"a", u"b", u"c", u"d", u"e"})
        EXPECT_TRUE(add(text));
    EXPECT_EQ(add(u"f"), std::nullopt);
    EXPECT_EQ(add(u"E"), Code{5});
}

TEST_F(TextDictionaryTest, RanksTextsByTheirOrder) {
    add(u"z");
    add(u"\u00E9");
    add(u"e");
    add(u"Z ");
    EXPECT_EQ(dictionary_.ranks(), (std::vector<uint32_t>{0, 3, 2, 1, 3}));
}

}  // namespace
}  // namespace jet
