#include "catalogue/cdromdrive.h"

#include "gtest/gtest.h"
#include "tests/fakes/fakedrives.h"

namespace catalogue {
namespace {

using platform::DriveType;

const fakes::FakeDrives twoCdDrives({{u'C', DriveType::Fixed},
                                     {u'D', DriveType::Removable},
                                     {u'e', DriveType::CdRom},
                                     {u'F', DriveType::CdRom}});
const fakes::FakeDrives noCdDrive({{u'C', DriveType::Fixed}, {u'D', DriveType::Remote}});

TEST(FirstCdRomDrive, IsTheFirstOfThatType) {
    EXPECT_EQ(firstCdRomDrive(twoCdDrives), u"E:");
    EXPECT_EQ(firstCdRomDrive(noCdDrive), std::nullopt);
    EXPECT_EQ(firstCdRomDrive(fakes::FakeDrives()), std::nullopt);
}

TEST(CheckedCdRomDrive, KeepsACdRomDrive) {
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u"E:"), u"E:");
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u"F:"), u"F:");
}

TEST(CheckedCdRomDrive, ReplacesWhatIsNone) {
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u"C:"), u"E:");
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u"Z:"), u"E:");
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u"f:"), u"E:");
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u"F"), u"E:");
    EXPECT_EQ(checkedCdRomDrive(twoCdDrives, u""), u"E:");
}

TEST(CheckedCdRomDrive, StaysWhereThereIsNone) {
    EXPECT_EQ(checkedCdRomDrive(noCdDrive, u"E:"), u"E:");
    EXPECT_EQ(checkedCdRomDrive(noCdDrive, u"C:"), u"C:");
    EXPECT_EQ(checkedCdRomDrive(noCdDrive, u""), u"");
}

TEST(DriveLabel, IsTheRootOfTheDrive) {
    EXPECT_EQ(driveLabel(u"E:"), u"E:\\");
    EXPECT_EQ(driveLabel(u"E"), u"E:\\");
    EXPECT_EQ(driveLabel(u""), u":\\");
}

}  // namespace
}  // namespace catalogue
