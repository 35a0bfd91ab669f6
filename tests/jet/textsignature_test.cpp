#include "jet/textsignature.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace jet {
namespace {

constexpr size_t kBlock = TextSignature::kRowsOfBlock;
constexpr size_t kGroup = TextSignature::kRowsOfGroup;

std::span<const uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const uint8_t*>(text.data()), text.size()};
}

class TextSignatureTest : public testing::Test {
  protected:
    void add(std::string_view text) { ASSERT_TRUE(texts_.append(bytesOf(text))); }
    void addNumbered(size_t count) {
        for (size_t i = 0; i < count; ++i)
            add("title " + std::to_string(texts_.count()));
    }
    std::vector<TextSignature::Run> candidates(std::string_view wanted) const {
        return signature_.candidates(bytesOf(wanted), texts_.count());
    }
    size_t candidateRows(std::string_view wanted) const {
        size_t rows = 0;
        for (const TextSignature::Run& run : candidates(wanted))
            rows += run.last - run.first;
        return rows;
    }

    FoldedTexts texts_;
    TextSignature signature_;
    CacheLimits limits_;
};

TEST_F(TextSignatureTest, LeavesOutNoRowThatHoldsTheText) {
    std::mt19937 random(7);
    const auto word = [&random] {
        std::string text;
        for (size_t length = 1 + random() % 6; length > 0; --length)
            text += static_cast<char>('a' + random() % 20);
        return text;
    };
    for (size_t row = 0; row < 2 * kGroup + 100; ++row) {
        if (row % 17 == 0)
            texts_.appendNull();
        else
            add(word() + " " + word());
    }
    for (const size_t processors : {1u, 2u, 5u}) {
        limits_ = {.rowsOfPart = 100, .processors = processors};
        signature_ = TextSignature();
        signature_.update(texts_, limits_);
        for (int i = 0; i < 300; ++i) {
            const std::string wanted = word();
            const auto runs = candidates(wanted);
            size_t before = 0;
            std::vector<size_t> found;
            for (const TextSignature::Run& run : runs) {
                ASSERT_LT(run.first, run.last);
                ASSERT_GE(run.first, before);
                ASSERT_EQ(run.first % kBlock, 0u);
                ASSERT_EQ(run.first / kGroup, (run.last - 1) / kGroup);
                before = run.last;
                texts_.forEachHolding(bytesOf(wanted), run.first, run.last,
                                      [&](size_t row) { found.push_back(row); });
            }
            std::vector<size_t> expected;
            texts_.forEachHolding(bytesOf(wanted), 0, texts_.count(),
                                  [&](size_t row) { expected.push_back(row); });
            ASSERT_EQ(found, expected) << wanted;
        }
    }
}

TEST_F(TextSignatureTest, LeavesOutBlocksThatDoNotHoldIt) {
    addNumbered(kGroup);
    signature_.update(texts_, limits_);
    EXPECT_EQ(candidateRows("xqxqxqxq"), 0u);
    EXPECT_LE(candidateRows("title 1234"), kGroup / 8);
    EXPECT_GE(candidateRows("title 1234"), kBlock);
    EXPECT_EQ(candidateRows("title"), kGroup);
}

TEST_F(TextSignatureTest, LooksEverywhereForWhatIsTooShort) {
    addNumbered(kGroup + kBlock + 1);
    signature_.update(texts_, limits_);
    EXPECT_EQ(candidateRows("xq"), texts_.count());
    EXPECT_EQ(candidateRows("x"), texts_.count());
}

TEST_F(TextSignatureTest, KnowsWholeBlocksOnceThereIsAGroup) {
    addNumbered(kGroup - 1);
    signature_.update(texts_, limits_);
    EXPECT_EQ(signature_.bytes(), 0u);
    EXPECT_EQ(TextSignature::bytesFor(texts_.count()), 0u);
    EXPECT_EQ(candidateRows("xqxq"), kGroup - 1);
    addNumbered(2);
    EXPECT_EQ(candidateRows("xqxq"), kGroup + 1);
    signature_.update(texts_, limits_);
    EXPECT_EQ(signature_.bytes(), TextSignature::bytesFor(texts_.count()));
    EXPECT_EQ(candidateRows("xqxq"), 1u);
    for (const size_t more : {kBlock, kBlock - 1, size_t{1}, 5 * kBlock, kGroup}) {
        const size_t rest = texts_.count() % kBlock;
        addNumbered(more);
        EXPECT_EQ(candidateRows("xqxq"), rest + more);
        signature_.update(texts_, limits_);
        EXPECT_EQ(signature_.bytes(), TextSignature::bytesFor(texts_.count()));
        EXPECT_EQ(candidateRows("xqxq"), texts_.count() % kBlock);
        EXPECT_EQ(candidateRows("title"), texts_.count());
    }
    EXPECT_GE(candidateRows("title 5000"), kBlock);
    EXPECT_LE(candidateRows("title 5000"), kGroup);
}

TEST_F(TextSignatureTest, KnowsLongSequencesFromTheirParts) {
    // All sequences of three of "abcd" are in each block, but not those of four.
    for (size_t row = 0; row < kGroup; ++row)
        add(row == 70 ? "abcd" : row % 2 == 0 ? "abc" : "bcd");
    signature_.update(texts_, limits_);
    EXPECT_EQ(candidateRows("abcd"), kBlock);
    EXPECT_EQ(candidateRows("bcd"), kGroup);
}

TEST_F(TextSignatureTest, KnowsManyGroups) {
    constexpr size_t kGroups = 70;
    constexpr size_t kSteps[] = {1, 2, 33, 64, kGroups};  // the work is cut in several places
    size_t groups = 0;
    for (const size_t step : kSteps) {
        for (; groups < step; ++groups)
            for (size_t row = 0; row < kGroup; ++row)
                add(row == groups ? "here: " + std::to_string(groups) + "." : "x");
        signature_.update(texts_, limits_);
        EXPECT_EQ(signature_.bytes(), TextSignature::bytesFor(texts_.count()));
        for (size_t group = 0; group < groups; ++group) {
            const auto runs = candidates("here: " + std::to_string(group) + ".");
            const size_t row = group * kGroup + group;
            const bool holds = std::ranges::any_of(
                runs, [row](const auto& run) { return run.first <= row && row < run.last; });
            ASSERT_TRUE(holds) << group << " of " << groups;
            ASSERT_LE(runs.size(), 2u);
        }
    }
}

TEST_F(TextSignatureTest, NothingIsFoundAmongNoRows) {
    signature_.update(texts_, limits_);
    EXPECT_TRUE(candidates("abc").empty());
}

}  // namespace
}  // namespace jet
