#include "config/cdromdrive.h"

#include "gtest/gtest.h"
#include "tests/fakes/fakedrives.h"

namespace config {
namespace {

using platform::DriveType;

const fakes::FakeDrives drives({{u'A', DriveType::Removable},
                                {u'C', DriveType::Fixed},
                                {u'E', DriveType::CdRom},
                                {u'F', DriveType::CdRom},
                                {u'N', DriveType::Remote},
                                {u'R', DriveType::RamDisk},
                                {u'U', DriveType::Unknown}});

TEST(AcceptedCdRomDrive, TakesAnyCdRomDrive) {
    EXPECT_EQ(acceptedCdRomDrive(drives, u"E:", u"F:"), u"F:");
    EXPECT_EQ(acceptedCdRomDrive(drives, u"C:", u"e:"), u"E:");
    EXPECT_EQ(acceptedCdRomDrive(drives, u"E:", u"f: [ROCK]"), u"F:");
}

TEST(AcceptedCdRomDrive, RefusesEveryOtherType) {
    for (const std::u16string_view other : {u"A:", u"C:", u"N:", u"R:", u"U:", u"c: [DISQUE]"})
        EXPECT_EQ(acceptedCdRomDrive(drives, u"E:", other), u"E:");
}

TEST(AcceptedCdRomDrive, RefusesWhatIsNoDrive) {
    for (const std::u16string_view other : {u"Z:", u"", u"F", u"FF"})
        EXPECT_EQ(acceptedCdRomDrive(drives, u"E:", other), u"E:");
}

TEST(AcceptedCdRomDrive, GivesBackWhateverWasRemembered) {
    EXPECT_EQ(acceptedCdRomDrive(fakes::FakeDrives(), u"Q:", u"E:"), u"Q:");
}

}  // namespace
}  // namespace config
