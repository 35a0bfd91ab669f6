#include "jet/like.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "jet/foldedtexts.h"

namespace jet {
namespace {

bool like(std::u16string_view text, std::u16string_view pattern,
          const TextOrder& order = TextOrder::general4()) {
    return LikePattern(pattern, order).matches(text);
}

TEST(Like, MatchesTheWholeTextWithoutWildcards) {
    EXPECT_TRUE(like(u"abc", u"abc"));
    EXPECT_FALSE(like(u"abcd", u"abc"));
    EXPECT_FALSE(like(u"xabc", u"abc"));
    EXPECT_TRUE(like(u"", u""));
    EXPECT_FALSE(like(u"a", u""));
    EXPECT_FALSE(like(u"", u"a"));
}

TEST(Like, IgnoresCaseAndKeepsAccentsApart) {
    EXPECT_TRUE(like(u"L'\u00E9t\u00E9 INDIEN", u"*\u00C9T\u00C9 indien"));
    EXPECT_FALSE(like(u"L'ete indien", u"*\u00E9t\u00E9*"));
    EXPECT_TRUE(like(u"\u0416\u0443\u043A", u"*\u0436\u0423*"));
}

TEST(Like, StarMatchesAnyNumberOfCharacters) {
    EXPECT_TRUE(like(u"", u"*"));
    EXPECT_TRUE(like(u"anything", u"*"));
    EXPECT_TRUE(like(u"abc", u"a*c"));
    EXPECT_TRUE(like(u"ac", u"a*c"));
    EXPECT_FALSE(like(u"abd", u"a*c"));
    EXPECT_TRUE(like(u"abcabc", u"*bc"));
    EXPECT_TRUE(like(u"abcabc", u"a*b*c"));
    EXPECT_TRUE(like(u"abc", u"**b**"));
}

TEST(Like, FindsATextInside) {
    EXPECT_TRUE(like(u"The Wall", u"*WALL*"));
    EXPECT_TRUE(like(u"wall", u"*wall*"));
    EXPECT_FALSE(like(u"wal", u"*wall*"));
    EXPECT_TRUE(like(u"aaab", u"*aab*"));
    EXPECT_TRUE(like(u"", u"**"));
}

TEST(Like, QuestionMarkMatchesOneCharacter) {
    EXPECT_TRUE(like(u"abc", u"a?c"));
    EXPECT_FALSE(like(u"ac", u"a?c"));
    EXPECT_FALSE(like(u"", u"?"));
    EXPECT_TRUE(like(u"xay", u"*?a?*"));
}

TEST(Like, NumberSignMatchesOneDigit) {
    EXPECT_TRUE(like(u"CD 7", u"cd #"));
    EXPECT_FALSE(like(u"CD x", u"cd #"));
    EXPECT_FALSE(like(u"CD 12", u"cd #"));
    EXPECT_TRUE(like(u"CD 12", u"cd ##"));
}

TEST(Like, ListsMatchOneOfTheirCharacters) {
    EXPECT_TRUE(like(u"bat", u"[bc]at"));
    EXPECT_TRUE(like(u"CAT", u"[bc]at"));
    EXPECT_FALSE(like(u"rat", u"[bc]at"));
    EXPECT_TRUE(like(u"rat", u"[!bc]at"));
    EXPECT_FALSE(like(u"bat", u"[!bc]at"));
    EXPECT_FALSE(like(u"at", u"[!bc]at"));
}

TEST(Like, ListsHoldRanges) {
    EXPECT_TRUE(like(u"m", u"[a-z]"));
    EXPECT_TRUE(like(u"M", u"[a-z]"));
    EXPECT_FALSE(like(u"5", u"[a-z]"));
    EXPECT_TRUE(like(u"5", u"[a-z0-9]"));
    EXPECT_TRUE(like(u"\u00E9", u"[e-f]"));
    EXPECT_FALSE(like(u"\u00E9", u"[a-e]"));
    EXPECT_FALSE(like(u"\u00E9", u"[e]"));
    EXPECT_FALSE(like(u"m", u"[z-a]"));
    EXPECT_TRUE(like(u"5", u"[!a-z]"));
}

TEST(Like, HyphensAtTheEndsOfAListStandForThemselves) {
    EXPECT_TRUE(like(u"-", u"[-a]"));
    EXPECT_TRUE(like(u"-", u"[a-]"));
    EXPECT_TRUE(like(u"a", u"[a-]"));
    EXPECT_FALSE(like(u"b", u"[a-]"));
    EXPECT_FALSE(like(u"-", u"[!-a]"));
}

TEST(Like, WildcardsInAListStandForThemselves) {
    EXPECT_TRUE(like(u"a*b", u"a[*]b"));
    EXPECT_FALSE(like(u"axb", u"a[*]b"));
    EXPECT_TRUE(like(u"why?", u"*[?]"));
    EXPECT_TRUE(like(u"#1", u"[#]1"));
    EXPECT_TRUE(like(u"[live]", u"*[[]live]*"));
    EXPECT_FALSE(like(u"live]", u"*[[]live]*"));
}

TEST(Like, AnUnclosedBracketStandsForItself) {
    EXPECT_TRUE(like(u"Song [live", u"*[live*"));
    EXPECT_FALSE(like(u"Song live", u"*[live*"));
    EXPECT_TRUE(like(u"[", u"["));
    EXPECT_TRUE(like(u"a]b", u"a]b"));
    EXPECT_TRUE(like(u"[x", u"[?"));
}

TEST(Like, EmptyListsMatchNothingOrAnExclamationMark) {
    EXPECT_TRUE(like(u"ab", u"a[]b"));
    EXPECT_TRUE(like(u"!", u"[!]"));
    EXPECT_FALSE(like(u"a", u"[!]"));
    EXPECT_TRUE(like(u"hello!", u"*!"));
}

TEST(Like, SpacesCount) {
    EXPECT_FALSE(like(u"abc ", u"abc"));
    EXPECT_FALSE(like(u"abc", u"abc "));
    EXPECT_TRUE(like(u"co-op", u"*-*"));
    EXPECT_FALSE(like(u"coop", u"*-*"));
}

TEST(Like, Jet3MatchesItsOwnEqualCharacters) {
    const TextOrder& order = TextOrder::general3();
    EXPECT_TRUE(like(u"l\u2019ami", u"l'ami", order));
    EXPECT_FALSE(like(u"l\u2019ami", u"l'ami"));
}

TEST(Like, OnlyTextBetweenStarsCountsAsContained) {
    const auto contained = [](std::u16string_view pattern) {
        return LikePattern(pattern, TextOrder::general4()).containedText();
    };
    EXPECT_EQ(contained(u"*a\u00E9*"), contained(u"*A\u00C9*"));
    EXPECT_EQ(contained(u"*abc*")->size(), 3u);
    EXPECT_EQ(contained(u"*"), std::u16string());
    EXPECT_EQ(contained(u"*[x*")->size(), 2u);
    EXPECT_EQ(contained(u"abc*"), std::nullopt);
    EXPECT_EQ(contained(u"*abc"), std::nullopt);
    EXPECT_EQ(contained(u"*a?c*"), std::nullopt);
    EXPECT_EQ(contained(u"*a*c*"), std::nullopt);
    EXPECT_EQ(contained(u"abc"), std::nullopt);
}

TEST(Like, TheContainedTextHasTheFormOfFoldedTexts) {
    std::vector<uint8_t> folded;
    TextFolder(TextOrder::general4()).fold(u"L'\u00C9t\u00E9 \u4E00", folded);
    const LikePattern pattern(u"*l'\u00E9T\u00C9 \u4E00*", TextOrder::general4());
    EXPECT_TRUE(std::ranges::equal(pattern.containedBytes(), folded));
    EXPECT_TRUE(LikePattern(u"a*", TextOrder::general4()).containedBytes().empty());
}

TEST(Like, ManyStarsStayFast) {
    std::u16string pattern;
    for (int i = 0; i < 30; ++i)
        pattern += u"*a";
    pattern += u"*b";
    EXPECT_FALSE(like(std::u16string(20000, u'a'), pattern));
    EXPECT_TRUE(like(std::u16string(20000, u'a') + u"b", pattern));
}

// The definition, by recursion, for stars, question marks and characters.
bool slowLike(std::u16string_view text, std::u16string_view pattern) {
    if (pattern.empty()) return text.empty();
    if (pattern.front() == u'*') {
        if (slowLike(text, pattern.substr(1))) return true;
        return !text.empty() && slowLike(text.substr(1), pattern);
    }
    if (text.empty() || (pattern.front() != u'?' && pattern.front() != text.front())) return false;
    return slowLike(text.substr(1), pattern.substr(1));
}

TEST(Like, AgreesWithItsDefinition) {
    std::mt19937 random(7);
    const auto draw = [&random](std::u16string_view alphabet, size_t longest) {
        std::u16string text(random() % (longest + 1), u' ');
        for (char16_t& character : text)
            character = alphabet[random() % alphabet.size()];
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::u16string text = draw(u"ab", 8);
        const std::u16string pattern = draw(u"ab*?*", 6);
        ASSERT_EQ(like(text, pattern), slowLike(text, pattern));
    }
}

}  // namespace
}  // namespace jet
