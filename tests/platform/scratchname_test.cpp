#include "platform/scratchname.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace platform {
namespace {

TEST(ScratchName, NamesTheProcessAndTheNumber) {
    EXPECT_EQ(scratchName(1234, 0), u"~Brivantole1234.tmp");
    EXPECT_EQ(scratchName(1234, 7), u"~Brivantole1234-7.tmp");
}

TEST(ScratchOwner, IsTheProcessInTheName) {
    for (const uint32_t process : {0U, 8U, 1234U, UINT32_MAX}) {
        for (const uint32_t number : {0U, 1U, 15U, UINT32_MAX})
            EXPECT_EQ(scratchOwner(scratchName(process, number)), process);
    }
}

TEST(ScratchOwner, IsNobodyForAnyOtherName) {
    for (const std::u16string_view name : {u"",
                                           u".tmp",
                                           u"~Brivantole",
                                           u"~Brivantole.tmp",
                                           u"Brivantole12.tmp",
                                           u"~brivantole12.tmp",
                                           u"~Brivantole12.TMP",
                                           u"~Brivantole12.tmp.mp3",
                                           u"~Brivantole12",
                                           u" ~Brivantole12.tmp",
                                           u"~Brivantole 12.tmp",
                                           u"~Brivantole12 .tmp",
                                           u"~Brivantole012.tmp",
                                           u"~Brivantole-12.tmp",
                                           u"~Brivantole+12.tmp",
                                           u"~Brivantole1x.tmp",
                                           u"~Brivantole0x1.tmp",
                                           u"~Brivantole1.5.tmp",
                                           u"~Brivantole12-.tmp",
                                           u"~Brivantole12-0.tmp",
                                           u"~Brivantole12-01.tmp",
                                           u"~Brivantole12-1-1.tmp",
                                           u"~Brivantole12--1.tmp",
                                           u"~Brivantole12-x.tmp",
                                           u"~Brivantole12- copie.tmp",
                                           u"~Brivantole4294967296.tmp",
                                           u"~Brivantole12-4294967296.tmp",
                                           u"~Brivantole18446744073709551617.tmp",
                                           u"~Brivantole\u0661.tmp",
                                           u"~Brivantole12.mdb"}) {
        EXPECT_EQ(scratchOwner(name), std::nullopt) << base::toUtf8(name);
    }
}

}  // namespace
}  // namespace platform
