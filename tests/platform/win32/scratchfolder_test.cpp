#include "platform/win32/scratchfolder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "platform/scratchname.h"
#include "tests/platform/win32/tempfolder.h"

namespace platform::win32 {
namespace {

class ScratchFolderTest : public testing::Test {
  protected:
    testing_win32::TempFolder folder_;
    const std::u16string target_ = folder_.folder(u"Cible") + u"\\";
    const std::u16string name_ = scratchName(GetCurrentProcessId(), 1);
};

TEST_F(ScratchFolderTest, LiesInTheTargetAndGoes) {
    {
        ScratchFolder scratch(target_);
        EXPECT_EQ(scratch.target(), target_);
        EXPECT_EQ(scratch.path(), target_);
        EXPECT_TRUE(testing_win32::names(target_).empty());
        scratch.make();
        scratch.make();
        EXPECT_EQ(scratch.path(), target_ + name_ + u"\\");
        EXPECT_TRUE(testing_win32::names(scratch.path()).empty());
    }
    EXPECT_TRUE(testing_win32::names(target_).empty());
}

TEST_F(ScratchFolderTest, StaysWithWhatSomebodyPutIntoIt) {
    const std::u16string inner = u"Cible\\" + name_ + u"\\à moi.txt";
    {
        ScratchFolder scratch(target_);
        scratch.make();
        folder_.write(inner, "mine");
    }
    EXPECT_EQ(testing_win32::content(folder_.file(inner)), "mine");
}

TEST_F(ScratchFolderTest, IsTheTargetItselfWhereItsNameIsTaken) {
    folder_.write(u"Cible\\" + name_, "mine");
    {
        ScratchFolder scratch(target_);
        scratch.make();
        EXPECT_EQ(scratch.path(), target_);
    }
    EXPECT_EQ(testing_win32::content(target_ + name_), "mine");
}

TEST_F(ScratchFolderTest, IsTheTargetItselfWhereAFolderHasItsName) {
    folder_.folder(u"Cible\\" + name_);
    {
        ScratchFolder scratch(target_);
        scratch.make();
        EXPECT_EQ(scratch.path(), target_);
    }
    EXPECT_EQ(testing_win32::names(target_).size(), 1U);
}

TEST_F(ScratchFolderTest, IsTheTargetItselfWhenThatIsNotThere) {
    const std::u16string missing = target_ + u"X\\";
    ScratchFolder scratch(missing);
    scratch.make();
    EXPECT_EQ(scratch.path(), missing);
}

}  // namespace
}  // namespace platform::win32
