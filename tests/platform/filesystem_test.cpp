#include "platform/filesystem.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/fakes/memoryfilesystem.h"

namespace platform {
namespace {

TEST(ReadWholeFile, GivesEveryByte) {
    const std::string bytes("a\0b\xFF", 4);
    fakes::MemoryFileSystem files;
    files.addFile(u"C:\\x.ini", bytes);
    files.addFile(u"C:\\vide.ini", "");
    EXPECT_EQ(readWholeFile(files, u"C:\\x.ini"), bytes);
    EXPECT_EQ(readWholeFile(files, u"C:\\vide.ini"), "");
}

TEST(ReadWholeFile, PassesOnThatThereIsNone) {
    fakes::MemoryFileSystem files;
    EXPECT_THROW(readWholeFile(files, u"C:\\x.ini"), base::Error);
}

}  // namespace
}  // namespace platform
