#include "jet/textsearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace jet {
namespace {

std::vector<uint8_t> bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

size_t placeOf(std::string_view text, std::string_view wanted, size_t from = 0) {
    return findBytes(bytesOf(text), bytesOf(wanted), from);
}

TEST(TextSearch, FindsTheFirstPlace) {
    EXPECT_EQ(placeOf("abcabc", "abc"), 0u);
    EXPECT_EQ(placeOf("abcabc", "abc", 1), 3u);
    EXPECT_EQ(placeOf("abcabc", "c"), 2u);
    EXPECT_EQ(placeOf("abcabc", "abcd"), kNotFound);
    EXPECT_EQ(placeOf("ab", "abc"), kNotFound);
    EXPECT_EQ(placeOf("", "a"), kNotFound);
    EXPECT_EQ(placeOf("abc", "abc", 1), kNotFound);
    EXPECT_EQ(placeOf("abc", "c", 3), kNotFound);
    EXPECT_EQ(placeOf("abc", "c", 10), kNotFound);
}

// Every place and length around the width of a block, in a buffer that ends where the text does.
TEST(TextSearch, FindsAtEveryPlaceAroundABlock) {
    for (size_t length = 1; length < 70; ++length) {
        for (size_t place = 0; place < length; ++place) {
            for (const size_t size : {size_t{1}, size_t{2}, size_t{5}, size_t{17}}) {
                if (place + size > length) continue;
                std::string text(length, '.');
                std::fill_n(text.begin() + static_cast<std::ptrdiff_t>(place), size, 'x');
                ASSERT_EQ(placeOf(text, std::string(size, 'x')), place);
                ASSERT_EQ(placeOf(text, std::string(size, 'x') + "x"), kNotFound);
            }
        }
    }
}

TEST(TextSearch, AgreesWithAPlainSearch) {
    std::mt19937 random(5);
    const auto draw = [&random](size_t longest) {
        std::string text(1 + random() % longest, 'a');
        for (char& character : text)
            character = static_cast<char>('a' + random() % 2);
        return text;
    };
    for (int i = 0; i < 20000; ++i) {
        const std::string text = draw(120);
        const std::string wanted = draw(8);
        const size_t from = random() % 20;
        const size_t expected = text.find(wanted, from);
        ASSERT_EQ(placeOf(text, wanted, from),
                  expected == std::string::npos ? kNotFound : expected);
    }
}

}  // namespace
}  // namespace jet
