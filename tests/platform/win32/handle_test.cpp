#include "platform/win32/handle.h"

#include <gtest/gtest.h>

namespace platform::win32 {
namespace {

int closed = 0;  // the sum of the values closed

struct CountingTraits {
    using Type = int;
    static Type none() { return -1; }
    static void close(Type value) { closed += value; }
};
using Counted = UniqueResource<CountingTraits>;

class HandleTest : public testing::Test {
  protected:
    HandleTest() { closed = 0; }
};

TEST_F(HandleTest, ClosesOnceAtTheEnd) {
    {
        const Counted handle(5);
        EXPECT_TRUE(handle);
        EXPECT_EQ(closed, 0);
    }
    EXPECT_EQ(closed, 5);
}

TEST_F(HandleTest, ClosesNothingWhenItHoldsNothing) {
    { const Counted handle; }
    EXPECT_EQ(closed, 0);
}

TEST_F(HandleTest, MovesWithoutClosing) {
    {
        Counted first(5);
        const Counted second(std::move(first));
        EXPECT_EQ(second.get(), 5);
        EXPECT_EQ(closed, 0);
    }
    EXPECT_EQ(closed, 5);
}

TEST_F(HandleTest, ClosesWhatItHeldWhenAnotherIsMovedIn) {
    Counted target(5);
    target = Counted(7);
    EXPECT_EQ(closed, 5);
    EXPECT_EQ(target.get(), 7);
    Counted& same = target;
    target = std::move(same);
    EXPECT_EQ(target.get(), 7);
    EXPECT_EQ(closed, 5);
}

TEST_F(HandleTest, ResetClosesAtOnce) {
    Counted handle(5);
    handle.reset();
    EXPECT_FALSE(handle);
    EXPECT_EQ(closed, 5);
}

}  // namespace
}  // namespace platform::win32
