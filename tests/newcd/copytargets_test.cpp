#include "newcd/copytargets.h"

#include <gtest/gtest.h>

namespace newcd {
namespace {

using Folders = std::vector<std::u16string>;

TEST(CopyTarget, RebuildsTheFoldersOfTheSource) {
    const CopyTarget target = copyTarget(u"C:\\Musique", u"D:\\Album\\Face A\\01.mp3", false);
    EXPECT_EQ(target.folder, u"C:\\Musique\\Album\\Face A");
    EXPECT_EQ(target.name, u"01.mp3");
    EXPECT_EQ(target.foldersToCreate,
              (Folders{u"C:\\Musique\\Album", u"C:\\Musique\\Album\\Face A"}));
}

TEST(CopyTarget, FlatLeavesThemOut) {
    const CopyTarget target = copyTarget(u"C:\\Musique", u"D:\\Album\\Face A\\01.mp3", true);
    EXPECT_EQ(target.folder, u"C:\\Musique");
    EXPECT_EQ(target.name, u"01.mp3");
    EXPECT_TRUE(target.foldersToCreate.empty());
}

TEST(CopyTarget, FileInTheRootNeedsNoFolder) {
    for (const bool flat : {false, true}) {
        const CopyTarget target = copyTarget(u"C:\\Musique", u"D:\\01.mp3", flat);
        EXPECT_EQ(target.folder, u"C:\\Musique");
        EXPECT_EQ(target.name, u"01.mp3");
        EXPECT_TRUE(target.foldersToCreate.empty());
    }
}

TEST(CopyTarget, RootDestinationKeepsOneBackslash) {
    const CopyTarget deep = copyTarget(u"C:\\", u"D:\\Album\\01.mp3", false);
    EXPECT_EQ(deep.folder, u"C:\\Album");
    EXPECT_EQ(deep.foldersToCreate, Folders{u"C:\\Album"});
    const CopyTarget flat = copyTarget(u"C:\\", u"D:\\Album\\01.mp3", true);
    EXPECT_EQ(pathIn(flat.folder, flat.name), u"C:\\01.mp3");
}

TEST(PathIn, PutsOneBackslashBetween) {
    EXPECT_EQ(pathIn(u"C:\\Musique", u"a.mp3"), u"C:\\Musique\\a.mp3");
    EXPECT_EQ(pathIn(u"C:\\", u"a.mp3"), u"C:\\a.mp3");
}

}  // namespace
}  // namespace newcd
