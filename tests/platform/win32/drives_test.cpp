#include "platform/win32/drives.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>

#include "platform/win32/wide.h"

namespace platform::win32 {
namespace {

std::optional<DriveType> typeIn(const std::vector<Drive>& drives, char16_t letter) {
    const auto found = std::find_if(drives.begin(), drives.end(),
                                    [&](const Drive& drive) { return drive.letter == letter; });
    if (found == drives.end()) return std::nullopt;
    return found->type;
}

TEST(Win32Drives, ListsThemByLetter) {
    const std::vector<Drive> drives = Win32Drives().list();
    EXPECT_EQ(typeIn(drives, u'C'), DriveType::Fixed);
    EXPECT_TRUE(std::is_sorted(drives.begin(), drives.end(),
                               [](const Drive& a, const Drive& b) { return a.letter < b.letter; }));
    EXPECT_EQ(typeIn(drives, u'Q'), std::nullopt);
}

TEST(Win32Drives, KnowsAReadyDrive) {
    EXPECT_TRUE(Win32Drives().isReady(u'C'));
    EXPECT_FALSE(Win32Drives().isReady(u'Q'));
    EXPECT_EQ(Win32Drives().volumeLabel(u'Q'), u"");
}

// Drive E: as a CD-ROM drive whose medium is a folder, which BRIVANTOLE_MEDIUM names.
class CdRomDrive : public testing::Test {
  protected:
    void SetUp() override {
        std::array<wchar_t, 1024> path{};
        if (GetEnvironmentVariableW(L"BRIVANTOLE_MEDIUM", path.data(),
                                    static_cast<DWORD>(path.size())) == 0) {
            GTEST_SKIP() << "no CD-ROM drive has been set up";
        }
        medium_ = L"Z:" + std::wstring(path.data());
        aside_ = medium_ + L".aside";
    }
    void TearDown() override { MoveFileW(aside_.c_str(), medium_.c_str()); }

    void takeMediumOut() { ASSERT_TRUE(MoveFileW(medium_.c_str(), aside_.c_str())); }

    std::wstring medium_;
    std::wstring aside_;
};

TEST_F(CdRomDrive, IsListedAsSuch) {
    EXPECT_EQ(typeIn(Win32Drives().list(), u'E'), DriveType::CdRom);
    EXPECT_EQ(driveType(Win32Drives(), u"e:\\Album"), DriveType::CdRom);
}

TEST_F(CdRomDrive, IsReadyWhileItHoldsAMedium) {
    EXPECT_TRUE(Win32Drives().isReady(u'E'));
    takeMediumOut();
    EXPECT_FALSE(Win32Drives().isReady(u'E'));
}

}  // namespace
}  // namespace platform::win32
