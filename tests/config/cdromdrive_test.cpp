#include "config/cdromdrive.h"

#include "base/error.h"
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
    for (const std::u16string_view other : {u"", u"F", u"FF"})
        EXPECT_EQ(acceptedCdRomDrive(drives, u"E:", other), u"E:");
}

TEST(AcceptedCdRomDrive, GivesBackWhateverWasRemembered) {
    EXPECT_EQ(acceptedCdRomDrive(drives, u"Q:", u"C:"), u"Q:");
}

TEST(AcceptedCdRomDrive, SaysThatADriveHasGone) {
    try {
        acceptedCdRomDrive(drives, u"E:", u"z: [ROCK]");
        FAIL() << "nothing was said";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::DeviceUnavailable);
        EXPECT_EQ(
            error.text(),
            u"Le lecteur Z: n'est plus là. Rebranchez-le ou choisissez un autre lecteur de CD "
            u"ROM.");
    }
}

}  // namespace
}  // namespace config
