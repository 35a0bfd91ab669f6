#include "scan/cdpath.h"

#include <gtest/gtest.h>

namespace {

using platform::DriveType;
using scan::RealPath;
using scan::StoredPath;

TEST(StoredPath, OfACdRomHasAMarkInPlaceOfItsDrive) {
    EXPECT_EQ(StoredPath(u"D:\\ALBUM\\A.MP3", DriveType::CdRom), u"[CD]\\ALBUM\\A.MP3");
}

TEST(StoredPath, OfAnyOtherDriveIsThePath) {
    for (const DriveType type : {DriveType::Unknown, DriveType::Removable, DriveType::Fixed,
                                 DriveType::Remote, DriveType::RamDisk})
        EXPECT_EQ(StoredPath(u"D:\\A.MP3", type), u"D:\\A.MP3");
}

TEST(RealPath, PutsTheCdRomDriveBack) {
    EXPECT_EQ(RealPath(u"[CD]\\Album\\01.mp3", u"E:"), u"E:\\Album\\01.mp3");
    EXPECT_EQ(RealPath(u"[CD]\\Album\\01.mp3", u"E:\\"), u"E:\\Album\\01.mp3");
}

TEST(RealPath, LeavesOtherPathsAlone) {
    EXPECT_EQ(RealPath(u"C:\\[CD]\\01.mp3", u"E:"), u"C:\\[CD]\\01.mp3");
    EXPECT_EQ(RealPath(u"", u"E:"), u"");
}

TEST(RealPath, GoesByTheFirstCharacterAlone) {
    EXPECT_EQ(RealPath(u"[XY]\\01.mp3", u"E:"), u"E:\\01.mp3");
    EXPECT_EQ(RealPath(u"[", u"E:"), u"E:");
    EXPECT_EQ(RealPath(u"[CD]\\01.mp3", u""), u"\\01.mp3");
}

}  // namespace
