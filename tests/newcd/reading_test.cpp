#include "newcd/reading.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "tests/fakes/fakerunwindows.h"
#include "tests/newcd/runfixture.h"

namespace newcd {
namespace {

class ReadingTest : public RunFixture {
  protected:
    std::vector<std::u16string> pathsRead() const {
        std::vector<std::u16string> paths;
        for (size_t i = 0; i < run.workList.count(); ++i)
            paths.emplace_back(run.workList[i].path);
        return paths;
    }
    fakes::FakeCopyWindow window;
};

TEST_F(ReadingTest, ListsEveryReadableTrack) {
    addFile(u"E:\\intro.mid", 10);
    addFile(u"E:\\Album\\fin.mid", 20);
    addFile(u"E:\\faux.wav", 30);  // no RIFF: left out
    addFile(u"E:\\lisez-moi.txt", 40);
    EXPECT_TRUE(readMedium(tools, run, window));
    ASSERT_EQ(run.workList.count(), 2U);
    EXPECT_EQ(run.workList[0].title, u"Intro");
    EXPECT_EQ(run.workList[0].path, u"E:\\intro.mid");
    EXPECT_EQ(run.workList[0].size, 10);
    EXPECT_EQ(run.workList[1].title, u"Fin");
    EXPECT_EQ(run.workList[1].size, 20);
    EXPECT_EQ(scanState.ScanFileCount, 3);
}

TEST_F(ReadingTest, WritesTheListBesideTheProgram) {
    addFile(u"E:\\intro.mid", 10);
    readMedium(tools, run, window);
    EXPECT_EQ(files.content(u"C:\\Brivantole\\tmp.tmp"), "E:\\intro.mid\r\n");
}

TEST_F(ReadingTest, UsesDriveLetterAndColonAlone) {
    settings.CdRomDrive = u"E: [ROCK]";
    addFile(u"E:\\intro.mid", 10);
    EXPECT_TRUE(readMedium(tools, run, window));
    EXPECT_EQ(pathsRead(), std::vector<std::u16string>{u"E:\\intro.mid"});
}

TEST_F(ReadingTest, ShowsWaitingThenThePercentageOfTheLines) {
    for (const char16_t* name : {u"E:\\a.mid", u"E:\\faux.wav", u"E:\\b.mid", u"E:\\c.mid"})
        addFile(name, 10);
    readMedium(tools, run, window);
    EXPECT_EQ(window.labels, (std::vector<std::u16string>{
                                 u"Lecture en cours. Patientez quelques instants...",
                                 u"Analyse des morceaux en cours... 25%",
                                 u"Analyse des morceaux en cours... 50%",
                                 u"Analyse des morceaux en cours... 75%",
                                 u"Analyse des morceaux en cours... 100%",
                             }));
    EXPECT_EQ(window.advances,
              (std::vector<std::pair<int64_t, int64_t>>{{1, 4}, {2, 4}, {3, 4}, {4, 4}}));
}

TEST_F(ReadingTest, RewritesTheLabelOnlyWhenTheWholePercentageChanges) {
    for (char16_t c = u'a'; c < u'a' + 400; ++c)
        addFile(std::u16string(u"E:\\") + c + u'_' + c + u".mid", 1);
    readMedium(tools, run, window);
    EXPECT_EQ(window.labels.size(), 102U);
    EXPECT_EQ(window.label(), u"Analyse des morceaux en cours... 100%");
}

TEST_F(ReadingTest, StartsAnewEachTime) {
    run.SizeTexts[SizeOfAll] = u"1 Ko";
    run.SizeSums[SizeOfAll] = 1024;
    run.CopyStarted = 1;
    run.knownCounts = {1, 1};
    run.checked = {true};
    addTrack(u"Vieux", u"E:\\vieux.mid", 1);
    run.tables.store(0, 1, 0);
    EXPECT_TRUE(readMedium(tools, run, window));
    EXPECT_EQ(run.SizeTexts[SizeOfAll], u"");
    EXPECT_EQ(run.SizeSums[SizeOfAll], 0);
    EXPECT_EQ(run.CopyStarted, 0);
    EXPECT_EQ(run.knownCounts[0] + run.knownCounts[1], 0);
    EXPECT_TRUE(run.checked.empty());
    EXPECT_EQ(run.workList.count(), 0U);
    EXPECT_EQ(run.tables.TrackFileTable(0, 1), u"");
}

TEST_F(ReadingTest, StopDuringTheWalkCountsAfterIt) {
    addFile(u"E:\\intro.mid", 10);
    addFile(u"E:\\fin.mid", 10);
    window.atYield = [&](size_t number) {
        if (number == 1) scanState.ScanAnswer = 1;
    };
    EXPECT_FALSE(readMedium(tools, run, window));
    EXPECT_EQ(scanState.ScanFileCount, 2);
    EXPECT_EQ(run.workList.count(), 0U);
    EXPECT_EQ(window.label(), u"Lecture en cours. Patientez quelques instants...");
}

TEST_F(ReadingTest, CancelAtAnErrorOfTheWalkEndsTheRun) {
    addFile(u"E:\\Album\\intro.mid", 10);
    files.fail(fakes::MemoryFileSystem::Step::OpenFolder, u"E:\\Album",
               base::Error(base::ErrorNumber::PermissionDenied, u"Accès refusé."));
    messages.answer(platform::Answer::Cancel);
    EXPECT_FALSE(readMedium(tools, run, window));
    EXPECT_EQ(messages.shown().size(), 1U);
}

TEST_F(ReadingTest, StopsAfterTheLineInHand) {
    addFile(u"E:\\intro.mid", 10);
    addFile(u"E:\\fin.mid", 10);
    const size_t walked = 2;
    window.atYield = [&](size_t number) {
        if (number == walked + 1) scanState.ScanAnswer = 1;
    };
    EXPECT_FALSE(readMedium(tools, run, window));
    EXPECT_EQ(pathsRead(), std::vector<std::u16string>{u"E:\\intro.mid"});
}

TEST_F(ReadingTest, OfADiscThatIsTakenOutKeepsWhatWasRead) {
    for (const char16_t* name : {u"E:\\a.mid", u"E:\\b.mid", u"E:\\c.mid"})
        addFile(name, 10);
    const size_t walked = 3;
    window.atYield = [&](size_t number) {
        if (number != walked + 1) return;
        files.remove(u"E:\\b.mid");
        files.remove(u"E:\\c.mid");
    };
    EXPECT_TRUE(readMedium(tools, run, window));
    EXPECT_EQ(pathsRead(), std::vector<std::u16string>{u"E:\\a.mid"});
    EXPECT_EQ(window.label(), u"Analyse des morceaux en cours... 100%");
}

TEST_F(ReadingTest, OfADriveThatIsNotThereFails) {
    settings.CdRomDrive = u"F:";
    EXPECT_THROW(readMedium(tools, run, window), base::Error);
}

class ReadingLimitTest : public ReadingTest {
  protected:
    // A walk over so many files would take long here: the list is there already.
    void readTracks(Mode mode, int count) {
        files.addFile(u"E:\\a.mid", "x");
        std::string lines;
        for (int i = 1; i < count; ++i)
            lines += "E:\\a.mid\r\n";  // before the one that the walk writes
        window.yields = 0;
        window.atYield = [&, lines](size_t number) {
            if (number == 1) files.addFile(u"C:\\Brivantole\\tmp.tmp", lines);
        };
        run.RunMode = mode;
        readMedium(tools, run, window);
    }
};

TEST_F(ReadingLimitTest, OfACopyIsTheLastRowCountedFromOne) {
    readTracks(Mode::Copy, 50000);
    EXPECT_EQ(run.workList.count(), 50000U);
    EXPECT_THROW(readTracks(Mode::Copy, 50001), base::Error);
}

TEST_F(ReadingLimitTest, OfASearchIsTheLastRowCountedFromZero) {
    readTracks(Mode::Search, 50001);
    EXPECT_EQ(run.workList.count(), 50001U);
    EXPECT_THROW(readTracks(Mode::Search, 50002), base::Error);
}

}  // namespace
}  // namespace newcd
