#include "scan/filetitle.h"

#include <gtest/gtest.h>

namespace {

using scan::TitleFromFileName;

TEST(TitleFromFileName, CutsFoldersAndExtensionAndBeginsInUpperCase) {
    EXPECT_EQ(TitleFromFileName(u"C:\\A\\B\\my_song.mid"), u"My_song");
    EXPECT_EQ(TitleFromFileName(u"D:\\été.mp3"), u"Été");
    EXPECT_EQ(TitleFromFileName(u"D:\\œuvre.wav"), u"Œuvre");
}

TEST(TitleFromFileName, CutsExtensionsOfAnyLengthUpToThreeCharacters) {
    EXPECT_EQ(TitleFromFileName(u"D:\\Song.xm"), u"Song");
    EXPECT_EQ(TitleFromFileName(u"D:\\Song.x"), u"Song");
    EXPECT_EQ(TitleFromFileName(u"D:\\Song."), u"Song");
    EXPECT_EQ(TitleFromFileName(u"D:\\Song.mp2"), u"Song");
}

TEST(TitleFromFileName, KeepsALongerExtension) {
    EXPECT_EQ(TitleFromFileName(u"D:\\Song.aiff"), u"Song.aiff");
    EXPECT_EQ(TitleFromFileName(u"D:\\Song.mp3.flac"), u"Song.mp3.flac");
}

TEST(TitleFromFileName, KeepsANameWithoutADot) {
    EXPECT_EQ(TitleFromFileName(u"D:\\Folder\\song"), u"Song");
}

TEST(TitleFromFileName, DotOfAFolderIsNotAnExtension) {
    EXPECT_EQ(TitleFromFileName(u"D:\\V.1\\x"), u"X");
}

TEST(TitleFromFileName, CutsOnlyTheLastExtension) {
    EXPECT_EQ(TitleFromFileName(u"D:\\a.b.mod"), u"A.b");
}

TEST(TitleFromFileName, KeepsCharactersThatTheTitleFilterWouldDrop) {
    EXPECT_EQ(TitleFromFileName(u"D:\\^a_b¦.mid"), u"^a_b¦");
    EXPECT_EQ(TitleFromFileName(u"D:\\ world\u4E16\u754C .mid"), u" world\u4E16\u754C ");
}

TEST(TitleFromFileName, NamesANamelessFile) {
    EXPECT_EQ(TitleFromFileName(u"D:\\.mid"), u"Titre inconnu");
    EXPECT_EQ(TitleFromFileName(u"D:\\A\\.xm"), u"Titre inconnu");
}

}  // namespace
