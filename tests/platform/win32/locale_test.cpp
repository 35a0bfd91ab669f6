#include "platform/win32/locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>

namespace platform::win32 {
namespace {

TEST(SystemCodePage, IsTheSystemsOwn) {
    const base::CodePage codePage = systemCodePage();
    EXPECT_EQ(codePage.decode('A'), u'A');
    EXPECT_EQ(codePage.decode(0), u'\0');
    if (GetACP() != 1252) GTEST_SKIP() << "not a Western European system";
    EXPECT_EQ(codePage.decode(0x80), u'€');
    EXPECT_EQ(codePage.decode(0x9C), u'œ');
    EXPECT_EQ(codePage.decode(0xE9), u'é');
    EXPECT_EQ(codePage.decode(0x81), u'\x81');
    EXPECT_EQ(codePage.encode(u'Ÿ'), 0x9F);
    EXPECT_EQ(codePage.encode(u'日'), std::nullopt);
}

// Another separator for the user, until the end of the test.
class OtherSeparator {
  public:
    explicit OtherSeparator(const wchar_t* separator) {
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, before_.data(),
                        static_cast<int>(before_.size()));
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator);
    }
    OtherSeparator(const OtherSeparator&) = delete;
    OtherSeparator& operator=(const OtherSeparator&) = delete;
    ~OtherSeparator() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_.data()); }

  private:
    std::array<wchar_t, 8> before_{};
};

TEST(DecimalSeparator, FollowsTheUsersSettings) {
    {
        const OtherSeparator changed(L"#");
        EXPECT_EQ(decimalSeparator(), u'#');
    }
    EXPECT_NE(decimalSeparator(), u'#');
}

}  // namespace
}  // namespace platform::win32
