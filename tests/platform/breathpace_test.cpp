#include "platform/breathpace.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

constexpr uint64_t kNow = 1'000'000;

// The time without a turn for the windows after one that took so long, all milliseconds.
uint64_t waitAfter(uint64_t length) {
    BreathPace pace;
    pace.breathed(kNow, kNow + length);
    uint64_t wait = 0;
    while (!pace.isDue(kNow + length + wait))
        ++wait;
    return wait;
}

TEST(BreathPace, GivesTheWindowsTheirFirstTurnAtOnce) {
    EXPECT_TRUE(BreathPace().isDue(0));
    EXPECT_TRUE(BreathPace().isDue(kNow));
}

TEST(BreathPace, LetsThemWaitForTheIntervalAfterAShortTurn) {
    EXPECT_EQ(waitAfter(0), 40U);
    EXPECT_EQ(waitAfter(39), 40U);
}

TEST(BreathPace, LetsTheOperationHaveAsMuchTimeAsALongTurnTook) {
    EXPECT_EQ(waitAfter(41), 41U);
    EXPECT_EQ(waitAfter(300), 300U);
}

TEST(BreathPace, NeverLeavesThemWithoutATurnForLong) {
    EXPECT_EQ(waitAfter(501), 500U);
    EXPECT_EQ(waitAfter(60'000), 500U);  // a window that was dragged for a minute
}

TEST(BreathPace, ForgetsALongTurnAfterAShortOne) {
    BreathPace pace;
    pace.breathed(kNow, kNow + 300);
    pace.breathed(kNow + 600, kNow + 601);
    EXPECT_TRUE(pace.isDue(kNow + 641));
}

}  // namespace
}  // namespace platform
