#include "platform/drives.h"

#include <gtest/gtest.h>

#include "tests/fakes/fakedrives.h"

namespace platform {
namespace {

const fakes::FakeDrives kDrives({{u'C', DriveType::Fixed}, {u'E', DriveType::CdRom}});

TEST(DriveTypeOfPath, IsThatOfTheLetter) {
    EXPECT_EQ(driveType(kDrives, u"E:"), DriveType::CdRom);
    EXPECT_EQ(driveType(kDrives, u"E:\\Album\\01.mp3"), DriveType::CdRom);
    EXPECT_EQ(driveType(kDrives, u"C:\\"), DriveType::Fixed);
}

TEST(DriveTypeOfPath, IgnoresTheCaseOfTheLetter) {
    EXPECT_EQ(driveType(kDrives, u"e:\\album"), DriveType::CdRom);
}

TEST(DriveTypeOfPath, IsUnknownWithoutSuchADrive) {
    EXPECT_EQ(driveType(kDrives, u"F:\\"), DriveType::Unknown);
    EXPECT_EQ(driveType(kDrives, u""), DriveType::Unknown);
    EXPECT_EQ(driveType(kDrives, u"E"), DriveType::Unknown);
    EXPECT_EQ(driveType(kDrives, u"[CD]\\Album"), DriveType::Unknown);
    EXPECT_EQ(driveType(kDrives, u"\\\\serveur\\E:"), DriveType::Unknown);
}

TEST(DriveTypeNumbers, AreThoseOfTheScriptingObjects) {
    EXPECT_EQ(static_cast<int>(DriveType::CdRom), 4);
    EXPECT_EQ(static_cast<int>(DriveType::RamDisk), 5);
}

}  // namespace
}  // namespace platform
