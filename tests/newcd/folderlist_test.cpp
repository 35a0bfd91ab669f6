#include "newcd/folderlist.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/fakes/memoryfilecopier.h"
#include "tests/fakes/memoryfilesystem.h"

namespace newcd {
namespace {

using Row = FolderList::Row;
using Rows = std::vector<Row>;
using Step = fakes::MemoryFileSystem::Step;

class FolderListTest : public testing::Test {
  protected:
    FolderListTest() {
        for (const char16_t* folder :
             {u"C:\\Musique\\Rock", u"C:\\Musique\\blues", u"C:\\Musique\\Été", u"C:\\Temp", u"D:"})
            files.addFolder(folder);
        files.addFile(u"C:\\Musique\\air.mp3", "x");
    }
    fakes::MemoryFileSystem files;
    fakes::MemoryFileCopier copier{files};
    FolderList list{files};
};

TEST_F(FolderListTest, StartsWithoutAnyFolder) {
    EXPECT_EQ(list.path(), u"");
    EXPECT_TRUE(list.rows().empty());
    list.open(0);
    list.openParent();
    EXPECT_EQ(list.path(), u"");
}

TEST_F(FolderListTest, ShowsTheWayAndTheFoldersInOrder) {
    list.setPath(u"C:\\Musique");
    EXPECT_EQ(list.path(), u"C:\\Musique");
    EXPECT_EQ(list.rows(), (Rows{{u"C:\\", 0, true},
                                 {u"Musique", 1, true},
                                 {u"blues", 2, false},
                                 {u"Rock", 2, false},
                                 {u"Été", 2, false}}));
    EXPECT_EQ(list.chosenRow(), 1U);
}

TEST_F(FolderListTest, TakesADriveForItsRoot) {
    for (const char16_t* drive : {u"C:", u"C:\\", u"C:\\\\", u"C:Musique"}) {
        list.setPath(drive);
        EXPECT_EQ(list.path(), u"C:\\");
        EXPECT_EQ(list.rows(),
                  (Rows{{u"C:\\", 0, true}, {u"Musique", 1, false}, {u"Temp", 1, false}}));
    }
}

TEST_F(FolderListTest, IgnoresABackslashAtTheEnd) {
    list.setPath(u"C:\\Musique\\Rock\\");
    EXPECT_EQ(list.path(), u"C:\\Musique\\Rock");
}

TEST_F(FolderListTest, OpensFoldersBothWays) {
    list.setPath(u"C:");
    list.open(1);
    EXPECT_EQ(list.path(), u"C:\\Musique");
    list.open(3);
    EXPECT_EQ(list.path(), u"C:\\Musique\\Rock");
    list.open(1);
    EXPECT_EQ(list.path(), u"C:\\Musique");
    list.open(0);
    EXPECT_EQ(list.path(), u"C:\\");
    list.open(99);
    EXPECT_EQ(list.path(), u"C:\\");
}

TEST_F(FolderListTest, GoesUpToTheRootAndNoFurther) {
    list.setPath(u"C:\\Musique\\Rock");
    list.openParent();
    EXPECT_EQ(list.path(), u"C:\\Musique");
    list.openParent();
    list.openParent();
    EXPECT_EQ(list.path(), u"C:\\");
}

TEST_F(FolderListTest, FallsBackToTheNearestFolderThatIsThere) {
    list.setPath(u"C:\\Musique\\Jazz\\1959\\Face A");
    EXPECT_EQ(list.path(), u"C:\\Musique");
    list.setPath(u"C:\\Nulle part");
    EXPECT_EQ(list.path(), u"C:\\");
}

TEST_F(FolderListTest, KeepsItsFolderWhenADriveCannotBeListed) {
    list.setPath(u"C:\\Musique");
    EXPECT_THROW(list.setPath(u"X:"), base::Error);
    EXPECT_THROW(list.setPath(u"X:\\Musique"), base::Error);
    EXPECT_EQ(list.path(), u"C:\\Musique");
    EXPECT_EQ(list.rows().size(), 5U);
}

TEST_F(FolderListTest, KeepsItsFolderWhenAnotherCannotBeOpened) {
    list.setPath(u"C:\\Musique");
    files.fail(Step::OpenFolder, u"C:\\Musique\\Rock",
               base::Error(base::ErrorNumber::PermissionDenied, u"Accès refusé."));
    EXPECT_THROW(list.open(3), base::Error);
    EXPECT_EQ(list.path(), u"C:\\Musique");
}

TEST_F(FolderListTest, MakesAFolderAndOpensIt) {
    list.setPath(u"C:\\Musique");
    list.makeFolder(copier, u"Jazz");
    EXPECT_EQ(list.path(), u"C:\\Musique\\Jazz");
    EXPECT_EQ(copier.createdFolders(), std::vector<std::u16string>{u"C:\\Musique\\Jazz"});
    list.setPath(u"D:");
    list.makeFolder(copier, u"Nouveau");
    EXPECT_EQ(list.path(), u"D:\\Nouveau");
}

TEST_F(FolderListTest, AFolderThatIsThereAlreadyIsAnError) {
    list.setPath(u"C:\\Musique");
    EXPECT_THROW(list.makeFolder(copier, u"rock"), base::Error);
    EXPECT_EQ(list.path(), u"C:\\Musique");
}

}  // namespace
}  // namespace newcd
