#include "newcd/copying.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "newcd/selection.h"
#include "tests/fakes/fakerunwindows.h"
#include "tests/newcd/runfixture.h"

namespace newcd {
namespace {

using Conflict = fakes::FakeCopyWindow::Conflict;
using Copied = fakes::MemoryFileCopier::Copied;

class CopyingTest : public RunFixture {
  protected:
    // A file of the medium that the filter pass has listed.
    void addListed(std::u16string_view title, std::u16string_view path, bool checked = true,
                   int64_t size = 1024) {
        addFile(path, static_cast<size_t>(size));
        addTrack(title, path, size);
        ++run.FoundCount;
        run.tables.store(static_cast<size_t>(run.FoundCount), 0, run.workList.count() - 1);
        addToSelection(run, size, checked);
    }
    // The copy, the user closing the window at its end.
    bool copyAll() {
        window.whileWaiting.push_back([this] { scanState.ScanAnswer = 1; });
        return copySelection(tools, run, window);
    }
    std::vector<std::u16string> targets() const {
        std::vector<std::u16string> paths;
        for (const Copied& copied : copier.copied())
            paths.push_back(copied.second);
        return paths;
    }
    void answer(std::u16string_view name, bool renameAll = false) {
        window.inConflict.push_back([this, name = std::u16string(name), renameAll] {
            run.CopyFileName = name;
            if (renameAll) run.AutoRenameAll = 1;
        });
    }

    fakes::FakeCopyWindow window;
};

using Paths = std::vector<std::u16string>;

TEST_F(CopyingTest, StartIsEnabledWhileATrackIsChecked) {
    addListed(u"Un", u"E:\\1.mid", false);
    std::vector<bool> enabled;
    const auto step = [&](bool check) {
        return [this, &enabled, check] {
            enabled.push_back(window.startEnabled);
            checkTrack(run, 0, check);
        };
    };
    window.whileWaiting = {step(true), step(false), step(true), [&] {
                               enabled.push_back(window.startEnabled);
                               run.CopyStarted = 1;
                           }};
    EXPECT_TRUE(waitForStart(run, window));
    EXPECT_EQ(enabled, (std::vector<bool>{false, true, false, true}));
}

TEST_F(CopyingTest, StopWhileWaitingEndsTheRun) {
    addListed(u"Un", u"E:\\1.mid");
    window.whileWaiting.push_back([this] {
        scanState.ScanAnswer = 1;
        run.CopyStarted = 1;
    });
    EXPECT_FALSE(waitForStart(run, window));
}

TEST_F(CopyingTest, RebuildsTheFoldersOfTheMedium) {
    addListed(u"Un", u"E:\\Album\\Face A\\1.mid");
    addListed(u"Deux", u"E:\\Album\\2.mid");
    addListed(u"Trois", u"E:\\3.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), (Paths{u"C:\\Musique\\Album\\Face A\\1.mid", u"C:\\Musique\\Album\\2.mid",
                                u"C:\\Musique\\3.mid"}));
    EXPECT_EQ(copier.createdFolders(),
              (Paths{u"C:\\Musique\\Album", u"C:\\Musique\\Album\\Face A"}));
    EXPECT_EQ(files.content(u"C:\\Musique\\3.mid"), std::string(1024, 'x'));
}

TEST_F(CopyingTest, FlatPutsAllInTheDestination) {
    settings.CopyOption3 = 1;
    addListed(u"Un", u"E:\\Album\\Face A\\1.mid");
    addListed(u"Deux", u"E:\\2.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), (Paths{u"C:\\Musique\\1.mid", u"C:\\Musique\\2.mid"}));
    EXPECT_TRUE(copier.createdFolders().empty());
}

TEST_F(CopyingTest, TakesTheRootOfADriveAsDestination) {
    settings.CopyDestination = u"C:\\";
    addListed(u"Un", u"E:\\Album\\1.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), Paths{u"C:\\Album\\1.mid"});
}

TEST_F(CopyingTest, CopiesWhatIsCheckedInTheEnd) {
    addListed(u"Un", u"E:\\1.mid", true);
    addListed(u"Deux", u"E:\\2.mid", false);
    addListed(u"Trois", u"E:\\3.mid", true);
    checkTrack(run, 0, false);
    checkTrack(run, 1, true);
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), (Paths{u"C:\\Musique\\2.mid", u"C:\\Musique\\3.mid"}));
}

TEST_F(CopyingTest, ShowsEachFileAndTheSummary) {
    addListed(u"Un", u"E:\\1.mid");
    addListed(u"Deux", u"E:\\2.mid", false);
    bool startEnabled = true;
    bool listEnabled = true;
    window.atYield = [&](size_t) {
        startEnabled = window.startEnabled;
        listEnabled = window.listEnabled;
    };
    window.startEnabled = true;
    copyAll();
    EXPECT_EQ(window.labels,
              (Paths{u"Copie en cours...", u"Copie de E:\\1.mid\r\n\nUn",
                     u"Copie terminée.\r\n\n1 morceaux copiés (1 Ko) sur 2 morceaux trouvés (2 "
                     u"Ko)."}));
    EXPECT_FALSE(startEnabled);
    EXPECT_FALSE(listEnabled);
    EXPECT_TRUE(window.listEnabled);
    EXPECT_TRUE(window.cancelIsOk);
}

TEST_F(CopyingTest, AsksForANewNameUntilItIsFree) {
    files.addFile(u"C:\\Musique\\1.mid", "old");
    files.addFile(u"C:\\Musique\\autre.mid", "old");
    addListed(u"Un", u"E:\\1.mid");
    answer(u"autre.mid");
    answer(u"libre.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(window.conflicts,
              (std::vector<Conflict>{{u"1.mid", u"1 2.mid"}, {u"autre.mid", u"autre 2.mid"}}));
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\libre.mid"});
    EXPECT_EQ(files.content(u"C:\\Musique\\1.mid"), "old");
    EXPECT_EQ(files.content(u"C:\\Musique\\autre.mid"), "old");
}

TEST_F(CopyingTest, ClosingTheConflictByItsFrameTakesTheProposal) {
    files.addFile(u"C:\\Musique\\1.mid", "old");
    addListed(u"Un", u"E:\\1.mid");
    window.inConflict.push_back([] {});
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\1 2.mid"});
}

TEST_F(CopyingTest, RenamingAllAsksNoMore) {
    for (const char16_t* name : {u"titre.mid", u"titre 2.mid", u"fin.mid"})
        files.addFile(u"C:\\Musique\\" + std::u16string(name), "old");
    addListed(u"Un", u"E:\\titre.mid");
    addListed(u"Deux", u"E:\\fin.mid");
    answer(u"titre 2.mid", true);
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(window.conflicts.size(), 1U);
    EXPECT_EQ(targets(), (Paths{u"C:\\Musique\\titre 2 2.mid", u"C:\\Musique\\fin 2.mid"}));
}

TEST_F(CopyingTest, RenamingAllEndsWithTheRun) {
    run.AutoRenameAll = 1;
    files.addFile(u"C:\\Musique\\1.mid", "old");
    addListed(u"Un", u"E:\\1.mid");
    answer(u"libre.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(window.conflicts.size(), 1U);
}

TEST_F(CopyingTest, ANameThatTheSystemRefusesBringsTheConflictBack) {
    files.addFile(u"C:\\Musique\\1.mid", "old");
    addListed(u"Un", u"E:\\1.mid");
    answer(u"..\\..\\1.mid");
    answer(u"a:b.mid");
    answer(u"libre.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(window.conflicts, (std::vector<Conflict>(3, {u"1.mid", u"1 2.mid"})));
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\libre.mid"});
}

TEST_F(CopyingTest, RenamingAllWithAnEmptyNameTakesTheProposal) {
    files.addFile(u"C:\\Musique\\1.mid", "old");
    addListed(u"Un", u"E:\\1.mid");
    answer(u"", true);
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\1 2.mid"});
}

TEST_F(CopyingTest, EachFileStartsWithItsOwnFolderAndName) {
    files.addFile(u"C:\\Musique\\Album\\1.mid", "old");
    addListed(u"Un", u"E:\\Album\\1.mid");
    addListed(u"Deux", u"E:\\2.mid");
    answer(u"autre.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), (Paths{u"C:\\Musique\\Album\\autre.mid", u"C:\\Musique\\2.mid"}));
}

TEST_F(CopyingTest, AFileThatComesUpBetweenTestAndCopyIsAConflict) {
    addListed(u"Un", u"E:\\1.mid");
    copier.beforeNextCopy([&] { files.addFile(u"C:\\Musique\\1.mid", "just now"); });
    answer(u"libre.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(files.content(u"C:\\Musique\\1.mid"), "just now");
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\libre.mid"});
}

TEST_F(CopyingTest, AFolderOfThatNameIsAConflict) {
    files.addFolder(u"C:\\Musique\\1.mid");
    addListed(u"Un", u"E:\\1.mid");
    answer(u"libre.mid");
    EXPECT_TRUE(copyAll());
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\libre.mid"});
}

TEST_F(CopyingTest, FailureLeavesTheFilesBeforeIt) {
    addListed(u"Un", u"E:\\1.mid");
    addListed(u"Deux", u"E:\\2.mid");
    window.atYield = [&](size_t) {
        if (copier.copied().size() == 1)
            copier.failNextCopy(base::Error(base::ErrorNumber::DiskFull, u"Disque plein."));
    };
    EXPECT_THROW(copySelection(tools, run, window), base::Error);
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\1.mid"});
}

TEST_F(CopyingTest, KeepsTheWindowAliveDuringALongFile) {
    addListed(u"Un", u"E:\\1.mid");
    copyAll();
    EXPECT_EQ(window.yields, 3U);  // half of the file, all of it, after it
}

TEST_F(CopyingTest, ShowsItsAdvanceInBytes) {
    addListed(u"Un", u"E:\\1.mid");
    addListed(u"Deux", u"E:\\2.mid", false);
    addListed(u"Trois", u"E:\\3.mid");
    copyAll();
    EXPECT_EQ(window.advances, (std::vector<std::pair<int64_t, int64_t>>{{512, 2048},
                                                                         {1024, 2048},
                                                                         {1024, 2048},
                                                                         {1536, 2048},
                                                                         {2048, 2048},
                                                                         {2048, 2048},
                                                                         {0, 0}}));
}

TEST_F(CopyingTest, AFileThatHasGrownAdvancesByWhatItHad) {
    addListed(u"Un", u"E:\\1.mid");
    addListed(u"Deux", u"E:\\2.mid");
    files.addFile(u"E:\\1.mid", std::string(5000, 'y'));
    copyAll();
    EXPECT_EQ(window.advances.front(), (std::pair<int64_t, int64_t>{1024, 2048}));
}

TEST_F(CopyingTest, StopDuringAFileCountsAfterIt) {
    addListed(u"Un", u"E:\\1.mid");
    addListed(u"Deux", u"E:\\2.mid");
    window.atYield = [&](size_t number) {
        if (number == 1) scanState.ScanAnswer = 1;
    };
    EXPECT_FALSE(copySelection(tools, run, window));
    EXPECT_EQ(targets(), Paths{u"C:\\Musique\\1.mid"});
    EXPECT_EQ(files.content(u"C:\\Musique\\1.mid"), std::string(1024, 'x'));
    EXPECT_FALSE(window.cancelIsOk);
}

TEST_F(CopyingTest, AnnouncesTheNextFilesOfTheFolder) {
    addListed(u"Un", u"E:\\A\\1.mid");
    addListed(u"Deux", u"E:\\A\\2.mid", false);
    addListed(u"Trois", u"E:\\A\\3.mid");
    addListed(u"Quatre", u"E:\\B\\4.mid");
    addListed(u"Cinq", u"E:\\B\\5.mid", false);
    copyAll();
    EXPECT_EQ(copier.announced(), (std::vector<Paths>{{u"E:\\A\\3.mid"}, {}, {}}));
}

TEST_F(CopyingTest, AnnouncesTheNextFileOfAnotherFolderWhenAllGoToOne) {
    settings.CopyOption3 = 1;
    addListed(u"Un", u"E:\\A\\1.mid");
    addListed(u"Deux", u"E:\\B\\2.mid");
    copyAll();
    EXPECT_EQ(copier.announced(), (std::vector<Paths>{{u"E:\\B\\2.mid"}, {}}));
}

TEST_F(CopyingTest, TellsHowLongTheFilesAre) {
    addListed(u"Un", u"E:\\1.mid", true, 100);
    addListed(u"Deux", u"E:\\2.mid", true, 20);
    addListed(u"Trois", u"E:\\3.mid", true, 3);
    copyAll();
    EXPECT_EQ(copier.sizes(),
              (std::vector<fakes::MemoryFileCopier::Sizes>{{100, 20, 3}, {20, 3}, {3}}));
}

TEST_F(CopyingTest, AnnouncesNoMoreFilesThanTheCopierTakes) {
    constexpr size_t most = platform::FileCopier::kMostAhead;
    for (char16_t name = u'a'; name < u'a' + most + 3; ++name)
        addListed(u"Un", std::u16string(u"E:\\") + name + u".mid");
    copyAll();
    ASSERT_EQ(copier.announced().size(), most + 3);
    EXPECT_EQ(copier.announced()[0].front(), u"E:\\b.mid");
    EXPECT_EQ(copier.announced()[0].size(), most);
    EXPECT_EQ(copier.announced()[most].size(), 2U);
}

TEST_F(CopyingTest, AnnouncesNoMoreBytesThanAStopCanWaitFor) {
    constexpr int64_t most = int64_t{8} << 20;
    addListed(u"Un", u"E:\\1.mid");
    addListed(u"Deux", u"E:\\2.mid", true, most - 1);
    addListed(u"Trois", u"E:\\3.mid", true, 1);
    addListed(u"Quatre", u"E:\\4.mid", true, 1);
    addListed(u"Cinq", u"E:\\5.mid", true, most + 1);
    copyAll();
    EXPECT_EQ(
        copier.announced(),
        (std::vector<Paths>{
            {u"E:\\2.mid", u"E:\\3.mid"}, {u"E:\\3.mid", u"E:\\4.mid"}, {u"E:\\4.mid"}, {}, {}}));
}

TEST_F(CopyingTest, EndsItsRowOfCopiesBeforeTheUserSeesItsEnd) {
    addListed(u"Un", u"E:\\1.mid");
    window.whileWaiting.push_back([this] {
        EXPECT_EQ(copier.rowsEnded(), 1);
        scanState.ScanAnswer = 1;
    });
    copySelection(tools, run, window);
}

TEST_F(CopyingTest, EndsItsRowOfCopiesAfterAStopAndAfterAnError) {
    addListed(u"Un", u"E:\\1.mid");
    window.atYield = [this](size_t) { scanState.ScanAnswer = 1; };
    EXPECT_FALSE(copySelection(tools, run, window));
    EXPECT_EQ(copier.rowsEnded(), 1);
    files.remove(u"C:\\Musique\\1.mid");
    copier.failNextCopy(base::Error(base::ErrorNumber::DiskFull, u"Disque plein."));
    EXPECT_THROW(copySelection(tools, run, window), base::Error);
    EXPECT_EQ(copier.rowsEnded(), 2);
}

}  // namespace
}  // namespace newcd
