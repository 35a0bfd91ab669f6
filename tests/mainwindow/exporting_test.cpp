#include "mainwindow/exporting.h"

#include <gtest/gtest.h>

#include "tests/fakes/memoryfilesystem.h"
#include "tests/mainwindow/trackfixture.h"

namespace {

using mainwindow::exportText;

class Exporting : public mainwindow::TrackFixture {
  protected:
    Exporting() {
        addTrack(u"b", u"[CD]\\2.mp3", u"Rock 1");
        addTrack(u"[a]", u"C:\\1.mp3", u"Disk");
    }
};

TEST_F(Exporting, WritesTheDisplayedColumnInTheOrderOfTheList) {
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Nom", false, u"E:"}), u"[a]\r\nb\r\n");
    EXPECT_EQ(exportText(*tracksBy(u"Fichier"), {u"Nom", false, u"E:"}), u"b\r\n[a]\r\n");
}

TEST_F(Exporting, WritesTheCdInBracketsWhenItIsShown) {
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Nomcompil", false, u"E:"}),
              u"[a] [Disk]\r\nb [Rock 1]\r\n");
}

TEST_F(Exporting, WritesPathsOfCdsWithThePresentDrive) {
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Fichier", true, u"E:"}),
              u"C:\\1.mp3\r\nE:\\2.mp3\r\n");
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Fichiercompil", true, u"E:"}),
              u"C:\\1.mp3 [Disk]\r\nE:\\2.mp3 [Rock 1]\r\n");
}

TEST_F(Exporting, LeavesATitleInBracketsAloneWhateverThePathBoxSays) {
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Nom", true, u"E:"}), u"[a]\r\nb\r\n");
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Nomcompil", true, u"E:"}),
              u"[a] [Disk]\r\nb [Rock 1]\r\n");
}

TEST_F(Exporting, LeavesTheCdMarkOfAPathWithoutThePathBox) {
    EXPECT_EQ(exportText(*tracksBy(u"Nom"), {u"Fichier", false, u"E:"}),
              u"C:\\1.mp3\r\n[CD]\\2.mp3\r\n");
}

TEST_F(Exporting, BeginsAtTheFirstTrackWhereverTheListStands) {
    const auto tracks = tracksBy(u"Nom");
    tracks->MoveNext();
    EXPECT_EQ(exportText(*tracks, {u"Nom", false, u"E:"}), u"[a]\r\nb\r\n");
    EXPECT_EQ(exportText(*tracks, {u"Nom", false, u"E:"}), u"[a]\r\nb\r\n");
}

TEST_F(Exporting, IsEmptyWithoutTracks) {
    const auto none =
        catalogue_->OpenRecordset(u"SELECT * FROM Listdonnees WHERE Compilation=\"X\"");
    EXPECT_EQ(exportText(*none, {u"Nom", false, u"E:"}), u"");
}

TEST_F(Exporting, SavesInTheCodePageOrElseInUtf8) {
    fakes::MemoryFileSystem files;
    files.addFile(u"C:\\list.txt", "old");
    addTrack(u"été", u"C:\\3.mp3", u"Disk");
    mainwindow::saveExport(files, base::CodePage::windows1252(), u"C:\\list.txt", *tracksBy(u"Nom"),
                           {u"Nom", false, u"E:"});
    EXPECT_EQ(files.content(u"C:\\list.txt"), "[a]\r\nb\r\n\xE9t\xE9\r\n");
    addTrack(u"\u97F3", u"C:\\4.mp3", u"Disk");
    mainwindow::saveExport(files, base::CodePage::windows1252(), u"C:\\list.txt", *tracksBy(u"Nom"),
                           {u"Nom", false, u"E:"});
    EXPECT_TRUE(files.content(u"C:\\list.txt")->starts_with("\xEF\xBB\xBF[a]\r\n"));
}

}  // namespace
