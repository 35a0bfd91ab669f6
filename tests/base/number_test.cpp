#include "base/number.h"

#include <limits>

#include "gtest/gtest.h"

namespace base {
namespace {

TEST(StrNumber, PutsABlankBeforeWhatIsNotNegative) {
    EXPECT_EQ(strNumber(42), u" 42");
    EXPECT_EQ(strNumber(0), u" 0");
    EXPECT_EQ(strNumber(-7), u"-7");
    EXPECT_EQ(strNumber(std::numeric_limits<int64_t>::min()), u"-9223372036854775808");
    EXPECT_EQ(strNumber(std::numeric_limits<int64_t>::max()), u" 9223372036854775807");
}

TEST(WholeNumber, IsTheDigitsAlone) {
    EXPECT_EQ(wholeNumber(42), u"42");
    EXPECT_EQ(wholeNumber(0), u"0");
    EXPECT_EQ(wholeNumber(-7), u"-7");
    EXPECT_EQ(wholeNumber(std::numeric_limits<int64_t>::min()), u"-9223372036854775808");
    std::u16string text = u"a";
    appendWholeNumber(text, std::numeric_limits<int64_t>::max());
    EXPECT_EQ(text, u"a9223372036854775807");
}

TEST(PlainNumber, IsTheShortestDecimalForm) {
    EXPECT_EQ(plainNumber(0), u"0");
    EXPECT_EQ(plainNumber(-0.0), u"0");
    EXPECT_EQ(plainNumber(1023), u"1023");
    EXPECT_EQ(plainNumber(0.5), u"0.5");
    EXPECT_EQ(plainNumber(0.1), u"0.1");
    EXPECT_EQ(plainNumber(-2.25), u"-2.25");
    EXPECT_EQ(plainNumber(1e15), u"1000000000000000");
    EXPECT_EQ(plainNumber(9007199254740992.0), u"9007199254740992");
}

TEST(PlainNumber, TakesEveryNumberThereIs) {
    EXPECT_EQ(plainNumber(std::numeric_limits<double>::max()).size(), 309u);
    EXPECT_EQ(plainNumber(std::numeric_limits<double>::denorm_min()).substr(0, 6), u"0.0000");
    EXPECT_EQ(plainNumber(-std::numeric_limits<double>::denorm_min()).front(), u'-');
}

TEST(FormatTwoDecimals, AlwaysWritesTheSeparator) {
    EXPECT_EQ(formatTwoDecimals(1048576.0 / 1048576, u','), u"1,");
    EXPECT_EQ(formatTwoDecimals(1048576.0 / 1048576, u'.'), u"1.");
    EXPECT_EQ(formatTwoDecimals(4096, u','), u"4096,");
    EXPECT_EQ(formatTwoDecimals(0, u','), u",");
}

TEST(FormatTwoDecimals, ForcesNoLeadingZeroAndDropsTrailingOnes) {
    EXPECT_EQ(formatTwoDecimals(0.5, u','), u",5");
    EXPECT_EQ(formatTwoDecimals(1.5, u','), u"1,5");
    EXPECT_EQ(formatTwoDecimals(2.05, u','), u"2,05");
    EXPECT_EQ(formatTwoDecimals(1363149.0 / 1048576, u','), u"1,3");
    EXPECT_EQ(formatTwoDecimals(100.25, u','), u"100,25");
}

TEST(FormatTwoDecimals, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(formatTwoDecimals(0.125, u','), u",13");
    EXPECT_EQ(formatTwoDecimals(2.375, u','), u"2,38");
    EXPECT_EQ(formatTwoDecimals(2.625, u','), u"2,63");
    EXPECT_EQ(formatTwoDecimals(-2.625, u','), u"-2,63");
    EXPECT_EQ(formatTwoDecimals(1.005, u','), u"1,01");
    EXPECT_EQ(formatTwoDecimals(1.0049, u','), u"1,");
}

TEST(FormatTwoDecimals, CarriesIntoTheWholePart) {
    EXPECT_EQ(formatTwoDecimals(0.995, u','), u"1,");
    EXPECT_EQ(formatTwoDecimals(999.999, u','), u"1000,");
    EXPECT_EQ(formatTwoDecimals(9.989, u','), u"9,99");
}

TEST(FormatTwoDecimals, GivesZeroNoSign) {
    EXPECT_EQ(formatTwoDecimals(-0.001, u','), u",");
    EXPECT_EQ(formatTwoDecimals(-0.01, u','), u"-,01");
}

TEST(FormatWhole, RoundsHalvesAwayFromZero) {
    EXPECT_EQ(formatWhole(1), u"1");
    EXPECT_EQ(formatWhole(1.5), u"2");
    EXPECT_EQ(formatWhole(2.5), u"3");
    EXPECT_EQ(formatWhole(-2.5), u"-3");
    EXPECT_EQ(formatWhole(2.4999), u"2");
    EXPECT_EQ(formatWhole(1048575.0 / 1024), u"1024");
    EXPECT_EQ(formatWhole(99.5), u"100");
}

TEST(FormatWhole, WritesNoDigitForZero) {
    EXPECT_EQ(formatWhole(0), u"");
    EXPECT_EQ(formatWhole(0.4), u"");
    EXPECT_EQ(formatWhole(-0.4), u"");
    EXPECT_EQ(formatWhole(0.5), u"1");
}

TEST(NumberForms, TakeWhatIsNoNumber) {
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_EQ(formatWhole(infinite), plainNumber(infinite));
    EXPECT_EQ(formatTwoDecimals(std::numeric_limits<double>::quiet_NaN(), u','), u"nan");
}

}  // namespace
}  // namespace base
