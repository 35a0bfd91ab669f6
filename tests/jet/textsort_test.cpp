#include "jet/textsort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace jet {
namespace {

class TextSortTest : public testing::TestWithParam<const TextOrder*> {
  protected:
    void add(const std::u16string& text) {
        std::vector<uint8_t> folded;
        TextFolder(*GetParam()).fold(text, folded);
        ASSERT_TRUE(texts_.append(folded));
        originals_.push_back(text);
    }
    void addNull() {
        texts_.appendNull();
        originals_.emplace_back(1, u'\uFFFF');
    }

    // Sorted by comparing two texts at a time; a later row has the smaller identity.
    void check() {
        const auto count = static_cast<uint32_t>(texts_.count());
        std::vector<RowId> ids;
        for (uint32_t row = 0; row < count; ++row)
            ids.push_back(RowId{1000000 - row});
        std::vector<uint32_t> expected(count);
        std::iota(expected.begin(), expected.end(), 0);
        std::ranges::sort(expected, [&](uint32_t a, uint32_t b) {
            if (texts_.isNull(a) != texts_.isNull(b)) return texts_.isNull(a);
            const int difference = GetParam()->compare(originals_[a], originals_[b]);
            return difference != 0 ? difference < 0 : ids[a] < ids[b];
        });
        std::vector<uint32_t> rows(count);
        std::iota(rows.begin(), rows.end(), 0);
        sortByText(rows, texts_, *GetParam(), ids);
        EXPECT_EQ(rows, expected);
    }

    FoldedTexts texts_;
    std::vector<std::u16string> originals_;
};

TEST_P(TextSortTest, SortsNothing) {
    check();
}

TEST_P(TextSortTest, SortsNullsBeforeEmptyTexts) {
    add(u"a");
    add(u"");
    addNull();
    add(u"  ");
    addNull();
    check();
}

TEST_P(TextSortTest, SortsTextsThatAgreeForLong) {
    const std::u16string common(10000, u'x');
    for (const std::u16string_view end : {u"b", u"a", u"", u"B", u"\u00E4", u"a-", u"ab"})
        add(common + std::u16string(end));
    add(std::u16string(9999, u'x'));
    check();
}

// A letter that stands for two may begin on one side of the eighth byte and end on the other.
TEST_P(TextSortTest, SortsLettersThatStandForTwo) {
    for (size_t before = 0; before < 9; ++before) {
        add(std::u16string(before, u'x') + u"\u00E6a");
        add(std::u16string(before, u'x') + u"a\u00E6b");
    }
    check();
}

TEST_P(TextSortTest, SortsAnyTexts) {
    const std::u16string alphabet =
        u"aAbB \t\u00E9\u00E6\u00DF-'1\u00BD^\u0153\u2013\u0416\u0436\u4E00\u4E01\u0001\uFFFD";
    std::mt19937 random(99);
    for (int i = 0; i < 3000; ++i) {
        std::u16string text(random() % 14, u'a');
        for (char16_t& character : text)
            character = alphabet[random() % (random() % 2 == 0 ? 4 : alphabet.size())];
        if (random() % 40 == 0) {
            addNull();
        } else {
            add(text);
        }
    }
    check();
}

INSTANTIATE_TEST_SUITE_P(Orders, TextSortTest,
                         testing::Values(&TextOrder::general4(), &TextOrder::general3()));

}  // namespace
}  // namespace jet
