#include "platform/win32/filecopier.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <random>
#include <string>

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

using base::ErrorNumber;

class FileCopierTest : public testing::Test {
  protected:
    std::u16string path(std::u16string_view name) const { return folder_.file(name); }
    size_t filesInFolder() const { return testing_win32::names(folder_.path()).size(); }
    void copy(std::u16string_view source, std::u16string_view target) {
        copier_.copy(source, target, [](uint64_t, uint64_t) {});
    }
    template <class Call>
    static ErrorNumber numberOf(Call call) {
        return static_cast<ErrorNumber>(testing_win32::errorOf(call));
    }

    testing_win32::TempFolder folder_;
    Win32FileCopier copier_;
};

std::string randomBytes(size_t count) {
    std::mt19937 random(4);
    std::string bytes(count, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    return bytes;
}

WIN32_FILE_ATTRIBUTE_DATA attributes(std::u16string_view path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    EXPECT_TRUE(GetFileAttributesExW(extendedPath(path).c_str(), GetFileExInfoStandard, &data));
    return data;
}

void setWriteTime(std::u16string_view path, FILETIME time) {
    const RawFile file(path, FILE_WRITE_ATTRIBUTES, 0, OPEN_EXISTING, 0);
    ASSERT_TRUE(SetFileTime(file.handle(), nullptr, nullptr, &time));
}

TEST_F(FileCopierTest, CopiesEveryByteAndTheTimeStamp) {
    constexpr FILETIME longAgo{.dwLowDateTime = 0, .dwHighDateTime = 0x01C00000};
    for (const size_t size : {size_t{0}, size_t{1}, size_t{3'000'001}}) {
        const std::string bytes = randomBytes(size);
        const std::u16string source = folder_.write(u"source.mp3", bytes);
        const std::u16string target =
            path(u"cible" + base::strNumber(static_cast<int64_t>(size)) + u".mp3");
        setWriteTime(source, longAgo);
        copy(source, target);
        EXPECT_EQ(testing_win32::content(target), bytes) << size;
        EXPECT_EQ(attributes(target).ftLastWriteTime.dwHighDateTime, longAgo.dwHighDateTime);
    }
    EXPECT_EQ(filesInFolder(), 4U);
}

TEST_F(FileCopierTest, LeavesAnExistingTargetAlone) {
    const std::u16string source = folder_.write(u"a.mp3", "new");
    const std::u16string target = folder_.write(u"b.mp3", "old");
    EXPECT_EQ(numberOf([&] { copy(source, target); }), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(testing_win32::content(target), "old");
    EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(FileCopierTest, TakesAFolderOfTheTargetsNameForTaken) {
    const std::u16string source = folder_.write(u"a.mp3", "new");
    const std::u16string target = folder_.folder(u"b.mp3");
    EXPECT_FALSE(copier_.opens(target));
    EXPECT_EQ(numberOf([&] { copy(source, target); }), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(FileCopierTest, LeavesNothingOfACopyThatFails) {
    EXPECT_EQ(numberOf([&] { copy(path(u"missing.mp3"), path(u"b.mp3")); }),
              ErrorNumber::FileNotFound);
    const std::u16string source = folder_.write(u"a.mp3", "new");
    EXPECT_EQ(numberOf([&] { copy(source, path(u"none\\b.mp3")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(FileCopierTest, LeavesNothingOfACopyThatIsStopped) {
    struct Stop {};
    const std::u16string source = folder_.write(u"a.wav", randomBytes(3'000'000));
    const auto stop = [](uint64_t, uint64_t) { throw Stop(); };
    EXPECT_THROW(copier_.copy(source, path(u"b.wav"), stop), Stop);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(FileCopierTest, ReportsOnTheCallingThreadUpToTheEnd) {
    const std::u16string source = folder_.write(u"a.wav", randomBytes(30'000'000));
    const DWORD caller = GetCurrentThreadId();
    uint64_t last = 0;
    copier_.copy(source, path(u"b.wav"), [&](uint64_t done, uint64_t total) {
        EXPECT_EQ(GetCurrentThreadId(), caller);
        EXPECT_EQ(total, 30'000'000U);
        EXPECT_GE(done, last);
        last = done;
    });
    EXPECT_EQ(last, 30'000'000U);
}

TEST_F(FileCopierTest, CopiesReadOnlyFiles) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    SetFileAttributesW(extendedPath(source).c_str(), FILE_ATTRIBUTE_READONLY);
    copy(source, path(u"b.mp3"));
    EXPECT_EQ(testing_win32::content(path(u"b.mp3")), "content");
    EXPECT_EQ(numberOf([&] { copy(source, path(u"b.mp3")); }), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(FileCopierTest, CopiesOverWhatAKilledProgramLeft) {
    const std::u16string number = base::trim(base::strNumber(GetCurrentProcessId()));
    const std::u16string left = folder_.write(u"~Brivantole" + number + u".tmp", "half a file");
    SetFileAttributesW(extendedPath(left).c_str(), FILE_ATTRIBUTE_READONLY);
    copy(folder_.write(u"a.mp3", "new"), path(u"b.mp3"));
    EXPECT_EQ(testing_win32::content(path(u"b.mp3")), "new");
    EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(FileCopierTest, WorksBeyondTheShortPathLimit) {
    const std::u16string deep = folder_.deepFolder(400);
    copier_.createFolder(deep + u"\\Album");
    const std::u16string target = deep + u"\\Album\\b.mp3";
    copy(folder_.write(u"a.mp3", "content"), target);
    EXPECT_TRUE(copier_.opens(target));
    copy(target, path(u"c.mp3"));
    EXPECT_EQ(testing_win32::content(path(u"c.mp3")), "content");
}

TEST_F(FileCopierTest, CreatesOneFolder) {
    copier_.createFolder(path(u"Album"));
    EXPECT_EQ(numberOf([&] { copier_.createFolder(path(u"Album")); }),
              ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(numberOf([&] { copier_.createFolder(path(u"X\\Y")); }), ErrorNumber::PathNotFound);
    EXPECT_EQ(testing_win32::names(folder_.path()), std::vector<std::u16string>{u"Album"});
}

TEST_F(FileCopierTest, OpensOnlyWhatIsThere) {
    EXPECT_TRUE(copier_.opens(folder_.write(u"a.mp3", "")));
    EXPECT_FALSE(copier_.opens(path(u"b.mp3")));
    EXPECT_FALSE(copier_.opens(path(u"X\\a.mp3")));
    EXPECT_FALSE(copier_.opens(path(u"a?.mp3")));
    EXPECT_FALSE(copier_.opens(u""));
}

}  // namespace
}  // namespace platform::win32
