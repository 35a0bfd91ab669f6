#include "newcd/listedtracks.h"

#include <gtest/gtest.h>

#include "tests/fakes/memoryfilesystem.h"
#include "tests/fakes/recordingprograms.h"

namespace newcd {
namespace {

class ListedTracksTest : public testing::Test {
  protected:
    ListedTracksTest() {
        settings.CdRomDrive = u"E:";
        settings.CurrentPlayer = 1;
        settings.PlayerPath = u"C:\\lecteur.exe";
        files.addFolder(u"C:\\Brivantole");
        run.workList.add(u"Un", u"E:\\1.mp3", 11);
        run.workList.add(u"Deux", u"[CD]\\2.mp3", 22);
        run.workList.add(u"Trois", u"E:\\3.mp3", 33);
    }
    void know(size_t column, size_t track) {
        run.tables.store(static_cast<size_t>(run.knownCounts[column]++), column, track);
    }
    void play(List list) {
        playKnownTracks(programs, files, base::CodePage::windows1252(), u"C:\\Brivantole\\",
                        settings, run, list);
    }

    catalogue::Settings settings;
    scan::ScanState scanState;
    RunState run{scanState};
    fakes::MemoryFileSystem files;
    fakes::RecordingPrograms programs;
};

TEST_F(ListedTracksTest, StandAtTheirRowOfTheTables) {
    run.tables.store(1, 0, 2);
    EXPECT_EQ(listedTrack(run, List::Copy, 0).title, u"Trois");
    EXPECT_EQ(listedTrack(run, List::Copy, 1).title, u"");
    know(0, 0);
    know(1, 1);
    EXPECT_EQ(listedTrack(run, List::KnownTitles, 0).title, u"Un");
    EXPECT_EQ(listedTrack(run, List::KnownTitlesAndSizes, 0).title, u"Deux");
    EXPECT_EQ(listedTrack(run, List::KnownTitlesAndSizes, 0).size, 22);
}

TEST_F(ListedTracksTest, ArePlayedFromThePresentDrive) {
    know(0, 0);
    know(0, 1);
    EXPECT_EQ(playablePath(run, settings, List::KnownTitles, 0), u"E:\\1.mp3");
    EXPECT_EQ(playablePath(run, settings, List::KnownTitles, 1), u"E:\\2.mp3");
}

TEST_F(ListedTracksTest, ArePlayedAsAListInItsOrder) {
    know(0, 2);
    know(0, 0);
    know(1, 1);
    play(List::KnownTitles);
    EXPECT_EQ(files.content(u"C:\\Brivantole\\Brivantole.m3u"), "E:\\3.mp3\r\nE:\\1.mp3\r\n");
    ASSERT_EQ(programs.started.size(), 1U);
    EXPECT_EQ(programs.started[0].commandLine,
              u"C:\\lecteur.exe \"C:\\Brivantole\\Brivantole.m3u\"");
    play(List::KnownTitlesAndSizes);
    EXPECT_EQ(files.content(u"C:\\Brivantole\\Brivantole.m3u"), "E:\\2.mp3\r\n");
}

TEST_F(ListedTracksTest, AreNotPlayedWithoutAPlayer) {
    settings.CurrentPlayer = 0;
    know(0, 0);
    play(List::KnownTitles);
    EXPECT_TRUE(programs.started.empty());
    EXPECT_FALSE(files.exists(u"C:\\Brivantole\\Brivantole.m3u"));
}

}  // namespace
}  // namespace newcd
