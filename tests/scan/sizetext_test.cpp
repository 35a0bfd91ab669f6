#include "scan/sizetext.h"

#include <gtest/gtest.h>

namespace {

using scan::FormatSize;

TEST(FormatSize, WritesBytesPlainly) {
    EXPECT_EQ(FormatSize(0, u','), u"0 Octets");
    EXPECT_EQ(FormatSize(1, u','), u"1 Octets");
    EXPECT_EQ(FormatSize(1023, u','), u"1023 Octets");
}

TEST(FormatSize, WritesAFractionOfAByteWithAPoint) {
    EXPECT_EQ(FormatSize(12.5, u','), u"12.5 Octets");
}

TEST(FormatSize, RoundsKilobytesToWholeNumbersHalvesUp) {
    EXPECT_EQ(FormatSize(1024, u','), u"1 Ko");
    EXPECT_EQ(FormatSize(1535, u','), u"1 Ko");
    EXPECT_EQ(FormatSize(1536, u','), u"2 Ko");
    EXPECT_EQ(FormatSize(2560, u','), u"3 Ko");
}

TEST(FormatSize, ChoosesTheUnitBeforeRounding) {
    EXPECT_EQ(FormatSize(1023.6, u','), u"1023.6 Octets");
    EXPECT_EQ(FormatSize(1048575, u','), u"1024 Ko");
}

TEST(FormatSize, KeepsTheSeparatorOfWholeMegabytes) {
    EXPECT_EQ(FormatSize(1048576, u','), u"1, Mo");
    EXPECT_EQ(FormatSize(1048576, u'.'), u"1. Mo");
    EXPECT_EQ(FormatSize(4294967296.0, u','), u"4096, Mo");
}

TEST(FormatSize, WritesAtMostTwoDecimalsWithoutTrailingZeros) {
    EXPECT_EQ(FormatSize(1572864, u','), u"1,5 Mo");
    EXPECT_EQ(FormatSize(2621440, u','), u"2,5 Mo");
    EXPECT_EQ(FormatSize(1363149, u','), u"1,3 Mo");
    EXPECT_EQ(FormatSize(5368709, u'.'), u"5.12 Mo");
    EXPECT_EQ(FormatSize(1048577, u','), u"1, Mo");
}

TEST(FormatSize, RoundsDecimalsHalvesAwayFromZero) {
    EXPECT_EQ(FormatSize(1048576 * 1.125, u','), u"1,13 Mo");
    EXPECT_EQ(FormatSize(1048576 * 1.999, u','), u"2, Mo");
}

TEST(FormatSize, StaysInMegabytesForWholeMedia) {
    EXPECT_EQ(FormatSize(1099511627776.0, u','), u"1048576, Mo");
}

}  // namespace
