#include "scan/percentage.h"

#include <gtest/gtest.h>

namespace scan {
namespace {

TEST(Percentage, IsToldOnlyWhenItsWholePartChanges) {
    Percentage percentage(300);
    EXPECT_EQ(percentage.change(1), 0);
    EXPECT_EQ(percentage.change(2), std::nullopt);
    EXPECT_EQ(percentage.change(3), 1);
    EXPECT_EQ(percentage.change(299), 99);
    EXPECT_EQ(percentage.change(300), 100);
    EXPECT_EQ(percentage.change(300), std::nullopt);
}

}  // namespace
}  // namespace scan
