#include "platform/win32/path.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>

namespace platform::win32 {
namespace {

TEST(ExtendedPath, PutsThePrefixBeforeAPlainPath) {
    EXPECT_EQ(extendedPath(u"C:\\Musique\\a.mp3"), L"\\\\?\\C:\\Musique\\a.mp3");
    EXPECT_EQ(extendedPath(u"e:\\"), L"\\\\?\\e:\\");
    EXPECT_EQ(extendedPath(u"E:\\Album\\"), L"\\\\?\\E:\\Album\\");
}

TEST(ExtendedPath, LeavesNamesThatTheSystemWouldRewrite) {
    EXPECT_EQ(extendedPath(u"E:\\fin.\\aux.mp3 "), L"\\\\?\\E:\\fin.\\aux.mp3 ");
    EXPECT_EQ(extendedPath(u"E:\\..a\\...b"), L"\\\\?\\E:\\..a\\...b");
}

TEST(ExtendedPath, ResolvesWhatIsNotPlain) {
    EXPECT_EQ(extendedPath(u"C:\\\\a.mp3"), L"\\\\?\\C:\\a.mp3");
    EXPECT_EQ(extendedPath(u"C:\\x\\\\a.mp3"), L"\\\\?\\C:\\x\\a.mp3");
    EXPECT_EQ(extendedPath(u"C:/x/a.mp3"), L"\\\\?\\C:\\x\\a.mp3");
    EXPECT_EQ(extendedPath(u"C:\\x\\.\\a.mp3"), L"\\\\?\\C:\\x\\a.mp3");
    EXPECT_EQ(extendedPath(u"C:\\x\\..\\a.mp3"), L"\\\\?\\C:\\a.mp3");
}

TEST(ExtendedPath, ResolvesARelativePath) {
    std::array<wchar_t, MAX_PATH> current{};
    GetCurrentDirectoryW(static_cast<DWORD>(current.size()), current.data());
    EXPECT_EQ(extendedPath(u"a.mp3"), L"\\\\?\\" + std::wstring(current.data()) + L"\\a.mp3");
}

TEST(ExtendedPath, KnowsNetworkShares) {
    EXPECT_EQ(extendedPath(u"\\\\serveur\\musique\\a.mp3"), L"\\\\?\\UNC\\serveur\\musique\\a.mp3");
}

TEST(ExtendedPath, LeavesWhatHasAPrefix) {
    EXPECT_EQ(extendedPath(u"\\\\?\\C:\\x\\..\\a"), L"\\\\?\\C:\\x\\..\\a");
    EXPECT_EQ(extendedPath(u"\\\\.\\NUL"), L"\\\\.\\NUL");
}

}  // namespace
}  // namespace platform::win32
