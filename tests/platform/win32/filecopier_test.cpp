#include "platform/win32/filecopier.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <initializer_list>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/number.h"
#include "platform/scratchname.h"
#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "platform/win32/wide.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

using base::ErrorNumber;

class FileCopierTest : public testing::Test {
  protected:
    std::u16string path(std::u16string_view name) const { return folder_.file(name); }
    size_t filesInFolder() { return names().size(); }
    // As it is now; without bytes where it is not there.
    static CopySource seen(std::u16string_view path) {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExW(extendedPath(path).c_str(), GetFileExInfoStandard, &data);
        return {.path = path, .size = data.nFileSizeLow};
    }
    void copy(std::u16string_view source, std::u16string_view target,
              std::initializer_list<std::u16string_view> next = {}) {
        std::vector<CopySource> sources;
        for (const std::u16string_view path : next)
            sources.push_back(seen(path));
        copier_.copy(seen(source), target, sources, ignore);
    }
    static void ignore(uint64_t /*done*/) {}
    using Names = std::vector<std::u16string>;
    // What there is in the end.
    Names names() {
        copier_.endCopies();
        return testing_win32::names(folder_.path());
    }
    static std::u16string underWay() { return scratchName(GetCurrentProcessId(), 1); }
    // "Cible", with as many files as make a folder for those under way worth while.
    std::u16string largeFolder() const {
        std::u16string folder = folder_.folder(u"Cible");
        for (int number = 0; number < kLargeFolder; ++number)
            folder_.write(u"Cible\\plein" + base::strNumber(number), "");
        return folder;
    }
    static Names otherNames(std::u16string_view largeFolder) {
        Names all = testing_win32::names(largeFolder);
        std::erase_if(all, [](const std::u16string& name) { return name.starts_with(u"plein"); });
        return all;
    }
    // A file that takes longer to copy than a window may wait; all zeros.
    std::u16string writeLong(std::u16string_view name) const {
        const std::u16string file = folder_.write(name, "");
        RawFile(file, GENERIC_WRITE, 0, OPEN_EXISTING, 0).resize(kLong);
        return file;
    }
    // Waits for a file under way with this content, and for its source to be let go.
    void waitUntilAhead(std::u16string_view source, std::string_view content) const {
        const auto isFree = [&] {
            return static_cast<bool>(
                FileHandle(CreateFileW(extendedPath(source).c_str(), GENERIC_READ | DELETE, 0,
                                       nullptr, OPEN_EXISTING, 0, nullptr)));
        };
        const auto isAhead = [&] {
            const Names all = testing_win32::names(folder_.path());
            return std::ranges::any_of(all, [&](const std::u16string& name) {
                return name.starts_with(u"~") && testing_win32::content(path(name)) == content;
            });
        };
        const ULONGLONG deadline = GetTickCount64() + 60'000;
        while (!isAhead() || !isFree()) {
            ASSERT_LT(GetTickCount64(), deadline) << "nothing is read ahead";
            Sleep(1);
        }
    }
    template <class Call>
    static ErrorNumber numberOf(Call call) {
        return static_cast<ErrorNumber>(testing_win32::errorOf(call));
    }

    static constexpr int kLargeFolder = 64;
    static constexpr uint64_t kLong = 100'000'000;

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
    const std::u16string nowhere = path(u"none\\b.mp3");
    try {
        copy(source, nowhere);
        ADD_FAILURE() << "no error";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::PathNotFound);
        EXPECT_EQ(error.place(), source + u" → " + nowhere);
    }
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(FileCopierTest, LeavesNothingOfACopyThatIsStopped) {
    struct Stop {};
    const std::u16string source = writeLong(u"a.wav");
    const auto stop = [](uint64_t) { throw Stop(); };
    EXPECT_THROW(copier_.copy(seen(source), path(u"b.wav"), {}, stop), Stop);
    EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(FileCopierTest, ReportsOnTheCallingThreadHowFarItIs) {
    const std::u16string source = writeLong(u"a.wav");
    const DWORD caller = GetCurrentThreadId();
    uint64_t last = 0;
    int reports = 0;
    copier_.copy(seen(source), path(u"b.wav"), {}, [&](uint64_t done) {
        EXPECT_EQ(GetCurrentThreadId(), caller);
        EXPECT_GE(done, last);
        EXPECT_LE(done, kLong);
        last = done;
        ++reports;
    });
    EXPECT_GT(reports, 0);
}

TEST_F(FileCopierTest, ReadsTheNextFileAhead) {
    const std::u16string first = folder_.write(u"a.mp3", "first");
    const std::u16string second = folder_.write(u"b.mp3", "second");
    copy(first, path(u"x.mp3"), {second});
    EXPECT_EQ(testing_win32::content(path(u"x.mp3")), "first");
    waitUntilAhead(second, "second");
    // What is ahead needs its source no more.
    ASSERT_TRUE(DeleteFileW(extendedPath(second).c_str()));
    copy(second, path(u"y.mp3"));
    EXPECT_EQ(testing_win32::content(path(u"y.mp3")), "second");
    EXPECT_EQ(names(), (Names{u"a.mp3", u"x.mp3", u"y.mp3"}));
}

TEST_F(FileCopierTest, ReadsARowOfFilesAhead) {
    constexpr int files = 100;
    std::vector<std::u16string> sources;
    for (int number = 0; number < files; ++number)
        sources.push_back(
            folder_.write(base::strNumber(number) + u".mid", randomBytes(size_t{1000} + number)));
    const std::u16string target = folder_.folder(u"Cible");
    std::vector<CopySource> row;
    for (const std::u16string& source : sources)
        row.push_back(seen(source));
    for (size_t index = 0; index < row.size(); ++index) {
        const auto next = std::span(row).subspan(index + 1);
        copier_.copy(row[index], target + sources[index].substr(sources[index].rfind(u'\\')),
                     next.first(std::min(next.size(), FileCopier::kMostAhead)), ignore);
    }
    copier_.endCopies();
    ASSERT_EQ(testing_win32::names(target).size(), size_t{files});
    for (int number = 0; number < files; ++number) {
        EXPECT_EQ(testing_win32::content(target + u"\\" + base::strNumber(number) + u".mid"),
                  randomBytes(size_t{1000} + number));
    }
}

TEST_F(FileCopierTest, WhatWasReadAheadInVainGoes) {
    const std::u16string first = folder_.write(u"a.mp3", "first");
    const std::u16string second = folder_.write(u"b.mp3", "second");
    const std::u16string third = folder_.write(u"c.mp3", "third");
    copy(first, path(u"x.mp3"), {second});
    copy(third, path(u"y.mp3"), {second});
    EXPECT_EQ(testing_win32::content(path(u"y.mp3")), "third");
    EXPECT_EQ(names(), (Names{u"a.mp3", u"b.mp3", u"c.mp3", u"x.mp3", u"y.mp3"}));
}

TEST_F(FileCopierTest, WhatWasReadAheadForOneFolderDoesNotGoToAnother) {
    const std::u16string first = folder_.write(u"a.mp3", "first");
    const std::u16string second = folder_.write(u"b.mp3", "second");
    const std::u16string other = folder_.folder(u"Autre");
    copy(first, path(u"x.mp3"), {second});
    waitUntilAhead(second, "second");
    folder_.write(u"b.mp3", "changed");
    copy(second, other + u"\\y.mp3");
    EXPECT_EQ(testing_win32::content(other + u"\\y.mp3"), "changed");
    EXPECT_EQ(testing_win32::names(folder_.path()),
              (Names{u"Autre", u"a.mp3", u"b.mp3", u"x.mp3"}));
}

TEST_F(FileCopierTest, WhatFailedAheadMaySucceedInItsTurn) {
    const std::u16string first = folder_.write(u"a.mp3", "first");
    copy(first, path(u"x.mp3"), {path(u"b.mp3")});
    const std::u16string second = folder_.write(u"b.mp3", "second");
    copy(second, path(u"y.mp3"));
    EXPECT_EQ(testing_win32::content(path(u"y.mp3")), "second");
    copy(first, path(u"z.mp3"), {path(u"missing.mp3")});
    EXPECT_EQ(numberOf([&] { copy(path(u"missing.mp3"), path(u"w.mp3")); }),
              ErrorNumber::FileNotFound);
    EXPECT_EQ(names(), (Names{u"a.mp3", u"b.mp3", u"x.mp3", u"y.mp3", u"z.mp3"}));
}

// Stand for a system that does not tell when it could not read the whole source, and for a source
// that grows meanwhile.
void resizeTo(LPCWSTR path, uint64_t size) {
    RawFile(fromWide(path), GENERIC_WRITE, 0, OPEN_EXISTING, 0).resize(size);
}
BOOL WINAPI copyTheFirstByte(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress,
                             LPVOID data, LPBOOL cancel, DWORD flags) {
    if (!CopyFileExW(source, target, progress, data, cancel, flags)) return FALSE;
    resizeTo(target, 1);
    return TRUE;
}
BOOL WINAPI copyNothing(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress, LPVOID data,
                        LPBOOL cancel, DWORD flags) {
    if (!CopyFileExW(source, target, progress, data, cancel, flags)) return FALSE;
    resizeTo(target, 0);
    return TRUE;
}
BOOL WINAPI copyWithAByteMore(LPCWSTR source, LPCWSTR target, LPPROGRESS_ROUTINE progress,
                              LPVOID data, LPBOOL cancel, DWORD flags) {
    if (!CopyFileExW(source, target, progress, data, cancel, flags)) return FALSE;
    resizeTo(target, 8);
    return TRUE;
}

TEST_F(FileCopierTest, ACopyOfAnotherLengthThanItsSourceFails) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    const std::u16string next = folder_.write(u"b.mp3", "next");
    for (const SystemCopy systemCopy : {&copyTheFirstByte, &copyWithAByteMore}) {
        Win32FileCopier copier(systemCopy);
        const std::vector<CopySource> ahead{seen(next)};
        EXPECT_EQ(numberOf([&] { copier.copy(seen(source), path(u"x.mp3"), ahead, ignore); }),
                  ErrorNumber::DeviceIo);
        EXPECT_EQ(numberOf([&] { copier.copy(ahead.front(), path(u"y.mp3"), {}, ignore); }),
                  ErrorNumber::DeviceIo);
        copier.endCopies();
        EXPECT_EQ(names(), (Names{u"a.mp3", u"b.mp3"}));
    }
}

TEST_F(FileCopierTest, ASourceMayHaveChangedSinceItWasSeen) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    for (const uint64_t size : {uint64_t{0}, uint64_t{6}, uint64_t{8}, uint64_t{1} << 40}) {
        const std::u16string name = u"x" + base::wholeNumber(static_cast<int64_t>(size));
        copier_.copy({.path = source, .size = size}, path(name), {}, ignore);
        EXPECT_EQ(testing_win32::content(path(name)), "content");
        Win32FileCopier copier(copyTheFirstByte);
        EXPECT_EQ(numberOf([&] {
                      copier.copy({.path = source, .size = size}, path(u"y.mp3"), {}, ignore);
                  }),
                  ErrorNumber::DeviceIo);
    }
}

TEST_F(FileCopierTest, AnEmptyCopyOfWhatWasSeenWithoutASizeIsNotTakenForWhole) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    Win32FileCopier copier(copyNothing);
    EXPECT_EQ(
        numberOf([&] { copier.copy({.path = source, .size = 0}, path(u"x.mp3"), {}, ignore); }),
        ErrorNumber::DeviceIo);
    copier.endCopies();
    EXPECT_EQ(names(), Names{u"a.mp3"});
}

TEST_F(FileCopierTest, AnEmptyFileIsWholeWhenItsCopyIsEmpty) {
    const std::u16string source = folder_.write(u"a.mp3", "");
    Win32FileCopier copier(copyTheFirstByte);
    EXPECT_EQ(numberOf([&] { copier.copy(seen(source), path(u"x.mp3"), {}, ignore); }),
              ErrorNumber::DeviceIo);
    copier.endCopies();
    copy(source, path(u"x.mp3"));
    EXPECT_EQ(names(), (Names{u"a.mp3", u"x.mp3"}));
}

TEST_F(FileCopierTest, CopiesReadOnlyFiles) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    SetFileAttributesW(extendedPath(source).c_str(), FILE_ATTRIBUTE_READONLY);
    copy(source, path(u"b.mp3"));
    EXPECT_EQ(testing_win32::content(path(u"b.mp3")), "content");
    EXPECT_EQ(numberOf([&] { copy(source, path(u"b.mp3")); }), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(filesInFolder(), 2U);
}

TEST_F(FileCopierTest, FilesUnderWayToALargeFolderLieInOneOfTheirOwn) {
    const std::u16string first = folder_.write(u"a.mp3", "first");
    const std::u16string second = folder_.write(u"b.mp3", "second");
    const std::u16string target = largeFolder();
    EXPECT_FALSE(copier_.opens(target + u"\\x.mp3"));
    copy(first, target + u"\\x.mp3", {second});
    EXPECT_EQ(otherNames(target), (Names{u"x.mp3", underWay()}));
    copy(second, target + u"\\y.mp3");
    EXPECT_TRUE(testing_win32::names(target + u"\\" + underWay()).empty());
    copier_.endCopies();
    EXPECT_EQ(otherNames(target), (Names{u"x.mp3", u"y.mp3"}));
}

TEST_F(FileCopierTest, AFolderThatBecomesLargeInTheCourseOfTheCopiesGetsOne) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    const std::u16string target = folder_.folder(u"Cible");
    EXPECT_FALSE(copier_.opens(target + u"\\0.mp3"));
    for (int number = 0; number <= kLargeFolder; ++number) {
        EXPECT_EQ(testing_win32::names(target).size(), static_cast<size_t>(number));
        copy(source, target + u"\\" + base::strNumber(number) + u".mp3");
    }
    EXPECT_EQ(testing_win32::names(target).size(), size_t{kLargeFolder} + 2);
    copier_.endCopies();
    EXPECT_EQ(testing_win32::names(target).size(), size_t{kLargeFolder} + 1);
}

TEST_F(FileCopierTest, TheFolderOfFilesUnderWayGoesWhenItsTurnIsOver) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    const std::u16string target = largeFolder();
    EXPECT_FALSE(copier_.opens(target + u"\\x.mp3"));
    copy(source, target + u"\\x.mp3", {source});
    copy(source, path(u"x.mp3"));
    EXPECT_EQ(otherNames(target), Names{u"x.mp3"});
}

TEST_F(FileCopierTest, CopiesWhereThereIsNoFolderForThoseUnderWay) {
    const std::u16string first = folder_.write(u"a.mp3", "first");
    const std::u16string second = folder_.write(u"b.mp3", "second");
    const std::u16string target = largeFolder();
    folder_.folder(u"Cible\\" + underWay());
    const std::u16string inner = folder_.write(u"Cible\\" + underWay() + u"\\à moi.txt", "mine");
    EXPECT_FALSE(copier_.opens(target + u"\\x.mp3"));
    copy(first, target + u"\\x.mp3", {second});
    copy(second, target + u"\\y.mp3");
    copy(first, target + u"\\z.mp3", {second});
    copier_.endCopies();
    EXPECT_EQ(testing_win32::content(target + u"\\y.mp3"), "second");
    EXPECT_EQ(otherNames(target), (Names{u"x.mp3", u"y.mp3", u"z.mp3", underWay()}));
    EXPECT_EQ(testing_win32::content(inner), "mine");
}

TEST_F(FileCopierTest, ClearsAwayWhatEndedProgramsLeftInEachFolder) {
    // No process has a number that is no multiple of four, let alone this one.
    const std::u16string left = scratchName(4'000'000'001, 1);
    const std::u16string source = folder_.write(u"a.mp3", "content");
    for (const char16_t* name : {u"Un", u"Deux"}) {
        const std::u16string target = folder_.folder(name);
        folder_.folder(std::u16string(name) + u"\\" + left);
        copy(source, target + u"\\b.mp3");
        EXPECT_EQ(testing_win32::names(target), Names{u"b.mp3"});
    }
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

TEST_F(FileCopierTest, SeesWhatItHasCopiedItself) {
    const std::u16string source = folder_.write(u"a.mp3", "content");
    EXPECT_FALSE(copier_.opens(path(u"Été.mp3")));
    copy(source, path(u"Été.mp3"));
    EXPECT_TRUE(copier_.opens(path(u"Été.mp3")));
    EXPECT_TRUE(copier_.opens(path(u"ÉTÉ.MP3")));
    EXPECT_TRUE(copier_.opens(source));
}

TEST_F(FileCopierTest, LeavesAloneWhatOthersHaveMadeMeanwhile) {
    const std::u16string source = folder_.write(u"a.mp3", "new");
    EXPECT_FALSE(copier_.opens(path(u"b.mp3")));
    const std::u16string target = folder_.write(u"b.mp3", "old");
    EXPECT_EQ(numberOf([&] { copy(source, target); }), ErrorNumber::FileAlreadyExists);
    EXPECT_EQ(testing_win32::content(target), "old");
    copier_.endCopies();
    EXPECT_TRUE(copier_.opens(target));
}

TEST_F(FileCopierTest, DoesNotTakeAFileThatIsGoneForThere) {
    const std::u16string gone = folder_.write(u"b.mp3", "old");
    EXPECT_TRUE(copier_.opens(gone));
    ASSERT_TRUE(DeleteFileW(extendedPath(gone).c_str()));
    EXPECT_FALSE(copier_.opens(gone));
}

}  // namespace
}  // namespace platform::win32
