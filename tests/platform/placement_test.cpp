#include "platform/placement.h"

#include <gtest/gtest.h>

namespace {

using platform::Box;
using platform::centred;
using platform::clamped;

constexpr Box kScreen = {0, 0, 1000, 800};

TEST(Centred, SharesTheCentre) {
    EXPECT_EQ(centred({100, 200, 400, 300}, 200, 100), (Box{200, 300, 200, 100}));
}

TEST(Centred, SticksOutEquallyWhenLarger) {
    EXPECT_EQ(centred({100, 200, 100, 100}, 300, 200), (Box{0, 150, 300, 200}));
}

TEST(Clamped, LeavesABoxInsideAlone) {
    EXPECT_EQ(clamped({10, 20, 300, 200}, kScreen), (Box{10, 20, 300, 200}));
    EXPECT_EQ(clamped({700, 600, 300, 200}, kScreen), (Box{700, 600, 300, 200}));
}

TEST(Clamped, MovesABoxInFromEachSide) {
    EXPECT_EQ(clamped({-50, 20, 300, 200}, kScreen), (Box{0, 20, 300, 200}));
    EXPECT_EQ(clamped({10, -5000, 300, 200}, kScreen), (Box{10, 0, 300, 200}));
    EXPECT_EQ(clamped({900, 20, 300, 200}, kScreen), (Box{700, 20, 300, 200}));
    EXPECT_EQ(clamped({10, 5000, 300, 200}, kScreen), (Box{10, 600, 300, 200}));
}

TEST(Clamped, CutsABoxThatIsTooLarge) {
    EXPECT_EQ(clamped({-50, -50, 3000, 2000}, kScreen), kScreen);
}

TEST(Clamped, KnowsAreasThatDoNotBeginAtZero) {
    EXPECT_EQ(clamped({0, 0, 300, 200}, {-1000, 40, 1000, 760}), (Box{-300, 40, 300, 200}));
}

}  // namespace
