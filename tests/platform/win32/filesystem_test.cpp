#include "platform/win32/filesystem.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

using base::ErrorNumber;
using testing_win32::content;
using testing_win32::names;
using testing_win32::TempFolder;
using Names = std::vector<std::u16string>;

class FileSystemTest : public testing::Test {
  protected:
    template <class Call>
    static ErrorNumber numberOf(Call call) {
        return static_cast<ErrorNumber>(testing_win32::errorOf(call));
    }

    std::string readAt(std::u16string_view path, uint64_t offset, size_t count) {
        std::vector<uint8_t> bytes(count);
        bytes.resize(files_.openInput(path)->read(offset, bytes));
        return {bytes.begin(), bytes.end()};
    }

    TempFolder folder_;
    Win32FileSystem files_;
};

TEST_F(FileSystemTest, ReadsAtAnyPlace) {
    const std::u16string path = folder_.write(u"a.mp3", "abcdef");
    EXPECT_EQ(files_.openInput(path)->size(), 6u);
    EXPECT_EQ(readAt(path, 0, 6), "abcdef");
    EXPECT_EQ(readAt(path, 2, 2), "cd");
    EXPECT_EQ(readAt(path, 4, 10), "ef");
    EXPECT_EQ(readAt(path, 6, 1), "");
    EXPECT_EQ(readAt(path, 600, 1), "");
    EXPECT_EQ(content(folder_.write(u"vide.mp3", "")), "");
}

TEST_F(FileSystemTest, ReadsBeyondFourGigabytes) {
    const std::u16string path = folder_.file(u"grand.wav");
    constexpr uint64_t kSize = 5'000'000'000;
    {
        RawFile file(path, GENERIC_WRITE, 0, CREATE_NEW, 0);
        const uint8_t last = 'z';
        file.write(kSize - 1, {&last, 1});
    }
    EXPECT_EQ(files_.openInput(path)->size(), kSize);
    EXPECT_EQ(readAt(path, kSize - 1, 4), "z");
}

TEST_F(FileSystemTest, SaysWhatIsMissing) {
    const std::u16string missing = folder_.file(u"absent.mp3");
    EXPECT_EQ(numberOf([&] { files_.openInput(missing); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(numberOf([&] { files_.openInput(folder_.file(u"sans\\a.mp3")); }),
              ErrorNumber::PathNotFound);
    try {
        files_.openInput(missing);
    } catch (const base::Error& error) {
        EXPECT_EQ(error.place(), missing);
        EXPECT_FALSE(error.text().empty());
    }
}

TEST_F(FileSystemTest, ReadsWhatAnotherProgramIsWriting) {
    const std::u16string path = folder_.write(u"a.mp3", "abc");
    const RawFile writer(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_EXISTING, 0);
    EXPECT_EQ(content(path), "abc");
}

TEST_F(FileSystemTest, AFileThatAnotherProgramKeepsToItselfIsInUse) {
    const std::u16string path = folder_.write(u"a.mp3", "abc");
    const RawFile owner(path, GENERIC_READ, 0, OPEN_EXISTING, 0);
    EXPECT_EQ(numberOf([&] { files_.openInput(path); }), ErrorNumber::FileInUse);
}

TEST_F(FileSystemTest, WritesPieceByPiece) {
    const std::u16string path = folder_.write(u"liste.tmp", "what was there before");
    {
        const auto file = files_.createOutput(path);
        file->write("abc");
        file->write("");
        file->write("def");
    }
    EXPECT_EQ(content(path), "abcdef");
}

TEST_F(FileSystemTest, ListsFilesAndFolders) {
    folder_.write(u"b.mp3", "");
    folder_.folder(u"Dossier");
    folder_.write(u"a été – 日本語 ♫.mp3", "");
    std::vector<std::pair<std::u16string, bool>> found;
    const auto cursor = files_.openFolder(folder_.path());
    FolderEntry entry;
    while (cursor->next(entry)) {
        found.emplace_back(entry.name, entry.isFolder);
        EXPECT_FALSE(entry.isLink);
    }
    EXPECT_FALSE(cursor->next(entry));
    std::sort(found.begin(), found.end());
    const std::vector<std::pair<std::u16string, bool>> expected = {
        {u"Dossier", true}, {u"a été – 日本語 ♫.mp3", false}, {u"b.mp3", false}};
    EXPECT_EQ(found, expected);
}

TEST_F(FileSystemTest, ListsHiddenAndReadOnlyFiles) {
    const std::wstring path = extendedPath(folder_.write(u"caché.mp3", ""));
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(names(folder_.path()), Names{u"caché.mp3"});
    EXPECT_EQ(content(folder_.file(u"caché.mp3")), "");
}

TEST_F(FileSystemTest, ListsAnEmptyFolder) {
    EXPECT_EQ(names(folder_.folder(u"vide")), Names{});
}

TEST_F(FileSystemTest, TakesAFolderWithItsBackslash) {
    folder_.write(u"a.mp3", "");
    EXPECT_EQ(names(folder_.path() + u"\\"), Names{u"a.mp3"});
}

TEST_F(FileSystemTest, ListsTheRootOfADrive) {
    const Names root = names(u"C:\\");
    EXPECT_NE(std::find(root.begin(), root.end(), u"windows"), root.end());
}

TEST_F(FileSystemTest, AMissingFolderIsAnError) {
    EXPECT_EQ(numberOf([&] { files_.openFolder(folder_.file(u"absent")); }),
              ErrorNumber::PathNotFound);
    EXPECT_NE(numberOf([&] { files_.openFolder(u"Q:\\"); }), ErrorNumber{});
    const std::u16string file = folder_.write(u"a.mp3", "");
    EXPECT_NE(numberOf([&] { files_.openFolder(file); }), ErrorNumber{});
}

TEST_F(FileSystemTest, WorksBeyond260Characters) {
    const std::u16string deep = folder_.deepFolder(400);
    const std::u16string path = deep + u"\\titre.mp3";
    files_.createOutput(path)->write("abc");
    EXPECT_EQ(names(deep), Names{u"titre.mp3"});
    EXPECT_EQ(content(path), "abc");
    files_.replaceFile(path, "def");
    EXPECT_EQ(content(path), "def");
    EXPECT_FALSE(files_.folderIdentity(deep).empty());
}

TEST_F(FileSystemTest, OpensTheVeryNameThatAListingGave) {
    const std::u16string path = folder_.write(u"aux.mp3", "abc");
    folder_.write(u"fin.", "point");
    EXPECT_EQ(names(folder_.path()), (Names{u"aux.mp3", u"fin."}));
    EXPECT_EQ(content(path), "abc");
    EXPECT_EQ(content(folder_.file(u"fin.")), "point");
}

TEST_F(FileSystemTest, AFolderHasOneIdentity) {
    const std::u16string one = folder_.folder(u"Un");
    const std::u16string two = folder_.folder(u"deux");
    EXPECT_EQ(files_.folderIdentity(one), files_.folderIdentity(folder_.file(u"UN")));
    EXPECT_EQ(files_.folderIdentity(one), files_.folderIdentity(one + u"\\"));
    EXPECT_NE(files_.folderIdentity(one), files_.folderIdentity(two));
    EXPECT_EQ(numberOf([&] { files_.folderIdentity(folder_.file(u"absent")); }),
              ErrorNumber::FileNotFound);
}

TEST_F(FileSystemTest, ALinkHasTheIdentityOfItsFolder) {
    const std::u16string target = folder_.folder(u"Album");
    const std::u16string link = folder_.folder(u"Liens") + u"\\Album";
    if (!testing_win32::makeFolderLink(link, target)) GTEST_SKIP() << "no links here";
    FolderEntry entry;
    ASSERT_TRUE(files_.openFolder(folder_.file(u"Liens"))->next(entry));
    EXPECT_TRUE(entry.isFolder);
    EXPECT_TRUE(entry.isLink);
    EXPECT_EQ(files_.folderIdentity(link), files_.folderIdentity(target));
}

TEST_F(FileSystemTest, ReplacesAFileWhole) {
    const std::u16string path = folder_.file(u"Brivantole.ini");
    files_.replaceFile(path, "un");
    EXPECT_EQ(content(path), "un");
    files_.replaceFile(path, "deux");
    EXPECT_EQ(content(path), "deux");
    EXPECT_EQ(names(folder_.path()), Names{u"Brivantole.ini"});
}

TEST_F(FileSystemTest, AFailedReplacementLeavesTheOldFileAlone) {
    const std::u16string path = folder_.write(u"Brivantole.ini", "ancien");
    {
        const RawFile owner(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, 0);
        EXPECT_NE(numberOf([&] { files_.replaceFile(path, "nouveau"); }), ErrorNumber{});
    }
    EXPECT_EQ(content(path), "ancien");
    EXPECT_EQ(names(folder_.path()), Names{u"Brivantole.ini"});
    EXPECT_EQ(numberOf([&] { files_.replaceFile(folder_.file(u"sans\\x.ini"), "x"); }),
              ErrorNumber::PathNotFound);
}

TEST_F(FileSystemTest, AFailedReplacementNamesTheFileItself) {
    const std::u16string path = folder_.file(u"sans\\liste.txt");
    try {
        files_.replaceFile(path, "x");
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.place(), path);
    }
}

}  // namespace
}  // namespace platform::win32
