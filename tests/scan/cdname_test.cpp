#include "scan/cdname.h"

#include <gtest/gtest.h>

namespace {

TEST(CdName, NeedsMoreThanBlanks) {
    EXPECT_FALSE(scan::isCdName(u""));
    EXPECT_FALSE(scan::isCdName(u"   "));
    EXPECT_TRUE(scan::isCdName(u" Rock 1 "));
}

}  // namespace
