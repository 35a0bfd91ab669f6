#include "mainwindow/playing.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/recordingprograms.h"
#include "tests/mainwindow/trackfixture.h"

namespace {

using Started = std::vector<fakes::RecordingPrograms::Started>;

class Playing : public mainwindow::TrackFixture {
  protected:
    Playing() {
        settings_.CurrentPlayer = 1;
        settings_.PlayerPath = u"C:\\Program Files\\Player\\player.exe";
        settings_.CdRomDrive = u"E:";
        files_.addFolder(u"C:\\Prog");
    }
    void playTrack() { mainwindow::playTrack(programs_, settings_, *tracksBy(u"Nom")); }
    void playList(const std::u16string& order = u"Nom") {
        mainwindow::playList(programs_, files_, base::CodePage::windows1252(),
                             catalogue::testFolder, settings_, *tracksBy(order));
    }
    std::optional<std::string> playlist() { return files_.content(u"C:\\Prog\\Brivantole.m3u"); }

    catalogue::Settings settings_;
    fakes::RecordingPrograms programs_;
    fakes::MemoryFileSystem files_;
};

TEST_F(Playing, StartsThePlayerOnATrackOfAHardDisk) {
    addTrack(u"Abc", u"D:\\My music\\abc.mp3", u"Disk");
    playTrack();
    EXPECT_EQ(programs_.started,
              (Started{{u"C:\\Program Files\\Player\\player.exe",
                        u"C:\\Program Files\\Player\\player.exe \"D:\\My music\\abc.mp3\""}}));
}

TEST_F(Playing, PlaysATrackOfACdFromThePresentDrive) {
    addTrack(u"Abc", u"[CD]\\Album\\01.mp3", u"Rock 1");
    playTrack();
    EXPECT_EQ(programs_.started.at(0).commandLine,
              u"C:\\Program Files\\Player\\player.exe \"E:\\Album\\01.mp3\"");
}

TEST_F(Playing, DoesNothingWithoutAPlayer) {
    addTrack(u"Abc", u"[CD]\\Album\\01.mp3", u"Rock 1");
    settings_.CurrentPlayer = 0;
    playTrack();
    playList();
    EXPECT_TRUE(programs_.started.empty());
    EXPECT_EQ(playlist(), std::nullopt);
}

TEST_F(Playing, WritesTheListInItsOrderAndStartsThePlayerOnIt) {
    addTrack(u"b", u"[CD]\\2.mp3", u"Rock 1");
    addTrack(u"a", u"C:\\Music\\été.mp3", u"Disk");
    addTrack(u"c", u"[CD]\\1.mp3", u"Rock 1");
    playList();
    EXPECT_EQ(playlist(), "C:\\Music\\\xE9t\xE9.mp3\r\nE:\\2.mp3\r\nE:\\1.mp3\r\n");
    EXPECT_EQ(programs_.started,
              (Started{{u"C:\\Program Files\\Player\\player.exe",
                        u"C:\\Program Files\\Player\\player.exe \"C:\\Prog\\Brivantole.m3u\""}}));
    playList(u"Fichier");
    EXPECT_EQ(playlist(), "E:\\1.mp3\r\nE:\\2.mp3\r\nC:\\Music\\\xE9t\xE9.mp3\r\n");
}

TEST_F(Playing, WritesTheListInUtf8WhenTheCodePageLacksACharacter) {
    addTrack(u"a", u"[CD]\\\u97F3.mp3", u"Rock 1");
    playList();
    EXPECT_EQ(playlist(),
              "\xEF\xBB\xBF"
              "E:\\\xE9\x9F\xB3.mp3\r\n");
}

TEST_F(Playing, HandsThePlayerAnEmptyListToo) {
    files_.addFile(u"C:\\Prog\\Brivantole.m3u", "old\r\n");
    playList();
    EXPECT_EQ(playlist(), "");
    EXPECT_EQ(programs_.started.size(), 1u);
}

TEST_F(Playing, StartsNothingWhenTheListCannotBeWritten) {
    addTrack(u"a", u"[CD]\\1.mp3", u"Rock 1");
    files_.fail(fakes::MemoryFileSystem::Step::Replace, u"C:\\Prog\\Brivantole.m3u",
                base::Error(base::ErrorNumber::DiskFull, u"Disque plein."));
    EXPECT_THROW(playList(), base::Error);
    EXPECT_TRUE(programs_.started.empty());
}

TEST(PlayedTrack, CountsAClickOnlyOnAnotherRow) {
    mainwindow::PlayedTrack played;
    EXPECT_FALSE(played.anyChosen());
    EXPECT_FALSE(played.clicked(std::nullopt));
    EXPECT_FALSE(played.anyChosen());
    EXPECT_TRUE(played.clicked(jet::RowId{7}));
    EXPECT_TRUE(played.anyChosen());
    EXPECT_FALSE(played.clicked(jet::RowId{7}));
    EXPECT_TRUE(played.clicked(jet::RowId{8}));
    EXPECT_TRUE(played.clicked(jet::RowId{7}));
}

TEST(PlayedTrack, ForgetsTheClickWhenTheListIsFilledAnew) {
    mainwindow::PlayedTrack played;
    EXPECT_TRUE(played.clicked(jet::RowId{7}));
    played.refreshed();
    EXPECT_FALSE(played.anyChosen());
    EXPECT_TRUE(played.clicked(jet::RowId{7}));
}

}  // namespace
