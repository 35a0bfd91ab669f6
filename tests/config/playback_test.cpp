#include "config/playback.h"

#include <gtest/gtest.h>

#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/recordingprograms.h"

namespace config {
namespace {

class Playback : public testing::Test {
  protected:
    Playback() {
        settings_.CurrentPlayer = 1;
        settings_.PlayerPath = u"C:\\Program Files\\lecteur.exe";
        files_.addFolder(u"C:\\Prog");
    }
    void play(const Playlist& playlist) {
        playlist.play(programs_, files_, base::CodePage::windows1252(), u"C:\\Prog\\", settings_);
    }

    catalogue::Settings settings_;
    fakes::RecordingPrograms programs_;
    fakes::MemoryFileSystem files_;
};

TEST_F(Playback, StartsThePlayerOnOneFile) {
    playFile(programs_, settings_, u"E:\\a b.mp3");
    ASSERT_EQ(programs_.started.size(), 1U);
    EXPECT_EQ(programs_.started[0].program, u"C:\\Program Files\\lecteur.exe");
    EXPECT_EQ(programs_.started[0].commandLine, u"C:\\Program Files\\lecteur.exe \"E:\\a b.mp3\"");
}

TEST_F(Playback, WritesTheFilesAndStartsThePlayerOnTheList) {
    files_.addFile(u"C:\\Prog\\Brivantole.m3u", "older and longer than the new one\r\n");
    Playlist playlist;
    playlist.add(u"E:\\été.mp3");
    playlist.add(u"C:\\1.mp3");
    play(playlist);
    EXPECT_EQ(files_.content(u"C:\\Prog\\Brivantole.m3u"), "E:\\\xE9t\xE9.mp3\r\nC:\\1.mp3\r\n");
    ASSERT_EQ(programs_.started.size(), 1U);
    EXPECT_EQ(programs_.started[0].commandLine,
              u"C:\\Program Files\\lecteur.exe \"C:\\Prog\\Brivantole.m3u\"");
}

TEST_F(Playback, HandsThePlayerAnEmptyListToo) {
    play({});
    EXPECT_EQ(files_.content(u"C:\\Prog\\Brivantole.m3u"), "");
    EXPECT_EQ(programs_.started.size(), 1U);
}

TEST_F(Playback, DoesNothingWithoutAPlayer) {
    settings_.CurrentPlayer = 0;
    playFile(programs_, settings_, u"E:\\1.mp3");
    play({});
    EXPECT_TRUE(programs_.started.empty());
    EXPECT_FALSE(files_.exists(u"C:\\Prog\\Brivantole.m3u"));
}

}  // namespace
}  // namespace config
