#include "platform/win32/filestore.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "platform/win32/path.h"
#include "platform/win32/rawfile.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

using base::ErrorNumber;
using testing_win32::TempFolder;

std::vector<uint8_t> bytes(std::string_view text) {
    return {text.begin(), text.end()};
}

std::string text(std::span<const uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

std::string readAt(jet::File& file, uint64_t offset, size_t count) {
    std::vector<uint8_t> buffer(count);
    file.read(offset, buffer);
    return text(buffer);
}

class FileStoreTest : public testing::Test {
  protected:
    template <class Call>
    static ErrorNumber numberOf(Call call) {
        return static_cast<ErrorNumber>(testing_win32::errorOf(call));
    }

    TempFolder folder_;
    Win32FileStore store_;
    std::u16string path_ = folder_.file(u"Brivantole.mdb");
};

TEST_F(FileStoreTest, WritesAndReadsAnywhere) {
    const auto file = store_.create(path_);
    file->write(4, bytes("efgh"));
    file->write(0, bytes("abcd"));
    EXPECT_EQ(file->size(), 8u);
    EXPECT_EQ(readAt(*file, 2, 4), "cdef");
    file->flush();
    EXPECT_EQ(text(file->map(8)), "abcdefgh");
}

TEST_F(FileStoreTest, ReadingPastTheEndIsAnError) {
    const auto file = store_.create(path_);
    file->write(0, bytes("abcd"));
    EXPECT_EQ(numberOf([&] { readAt(*file, 2, 3); }), ErrorNumber::InputPastEnd);
    EXPECT_EQ(numberOf([&] { readAt(*file, 9, 1); }), ErrorNumber::InputPastEnd);
}

TEST_F(FileStoreTest, AViewShowsLaterWrites) {
    const auto file = store_.create(path_);
    file->resize(8192);
    const std::span<const uint8_t> view = file->map(8192);
    EXPECT_EQ(view[5000], 0);
    file->write(5000, bytes("x"));
    EXPECT_EQ(view[5000], 'x');
}

TEST_F(FileStoreTest, AFileGrowsAndShrinksAroundItsView) {
    const auto file = store_.create(path_);
    file->write(0, bytes("abcd"));
    const std::span<const uint8_t> view = file->map(4);
    file->write(4, bytes("efgh"));
    EXPECT_EQ(text(view), "abcd");
    EXPECT_EQ(text(file->map(8)), "abcdefgh");
    EXPECT_TRUE(file->map(0).empty());
    file->resize(2);
    EXPECT_EQ(file->size(), 2u);
    EXPECT_EQ(text(file->map(2)), "ab");
}

TEST_F(FileStoreTest, KeepsItsContent) {
    store_.create(path_)->write(0, bytes("abcd"));
    EXPECT_EQ(readAt(*store_.open(path_), 0, 4), "abcd");
    EXPECT_EQ(readAt(*store_.openReadOnly(path_), 0, 4), "abcd");
    EXPECT_EQ(store_.create(path_)->size(), 0u);
}

TEST_F(FileStoreTest, AMissingFileIsTheEnginesOwnError) {
    EXPECT_EQ(numberOf([&] { store_.open(path_); }), ErrorNumber::FileNotFoundByEngine);
    EXPECT_EQ(numberOf([&] { store_.openReadOnly(path_); }), ErrorNumber::FileNotFoundByEngine);
    EXPECT_EQ(numberOf([&] { store_.open(folder_.file(u"sans\\a.mdb")); }),
              ErrorNumber::FileNotFoundByEngine);
    EXPECT_FALSE(store_.exists(path_));
}

TEST_F(FileStoreTest, ASecondWriterIsToldThatTheCatalogueIsInUse) {
    const auto first = store_.create(path_);
    try {
        store_.open(path_);
        FAIL() << "two writers";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::FileInUse);
        EXPECT_EQ(error.text(), u"Le catalogue est déjà utilisé par un autre programme.");
        EXPECT_EQ(error.place(), path_);
    }
    EXPECT_EQ(numberOf([&] { store_.create(path_); }), ErrorNumber::FileInUse);
    EXPECT_EQ(numberOf([&] { store_.openReadOnly(path_); }), ErrorNumber::FileInUse);
}

TEST_F(FileStoreTest, AWriterThatSharesEverythingIsShutOutToo) {
    store_.create(path_);
    const RawFile other(path_, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                        OPEN_EXISTING, 0);
    EXPECT_EQ(numberOf([&] { store_.open(path_); }), ErrorNumber::FileInUse);
}

TEST_F(FileStoreTest, ABackupMayReadMeanwhile) {
    const auto file = store_.create(path_);
    file->write(0, bytes("abcd"));
    EXPECT_EQ(testing_win32::content(path_), "abcd");
}

TEST_F(FileStoreTest, AProtectedFileOpensForReadingAlone) {
    store_.create(path_)->write(0, bytes("abcd"));
    SetFileAttributesW(extendedPath(path_).c_str(), FILE_ATTRIBUTE_READONLY);
    {
        const auto file = store_.openReadOnly(path_);
        EXPECT_EQ(readAt(*file, 0, 4), "abcd");
        EXPECT_EQ(numberOf([&] { file->write(0, bytes("x")); }), ErrorNumber::PermissionDenied);
    }
    const ErrorNumber refused = numberOf([&] { store_.open(path_); });
    if (refused == ErrorNumber{}) GTEST_SKIP() << "this user may write to protected files";
    EXPECT_EQ(refused, ErrorNumber::PermissionDenied);
}

TEST_F(FileStoreTest, Removes) {
    store_.create(path_);
    EXPECT_TRUE(store_.exists(path_));
    store_.remove(path_);
    EXPECT_FALSE(store_.exists(path_));
    EXPECT_EQ(numberOf([&] { store_.remove(path_); }), ErrorNumber::FileNotFound);
}

}  // namespace
}  // namespace platform::win32
