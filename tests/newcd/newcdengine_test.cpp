#include "newcd/newcdengine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "base/error.h"
#include "base/text.h"
#include "newcd/selection.h"
#include "platform/report.h"
#include "tests/fakes/fakerunwindows.h"
#include "tests/newcd/runfixture.h"

namespace newcd {
namespace {

class NewCdEngineTest : public RunFixture {
  protected:
    NewCdEngineTest() {
        addFile(u"E:\\intro.mid", 1000);
        addFile(u"E:\\Album\\fin.mid", 2000);
        addFile(u"E:\\Album\\intro.mid", 3000);
        addFile(u"E:\\Album\\faux.wav", 10);
        catalogue_.addRow(u"Fin", 2000, u"MID");
    }
    // At the first yield, when the walk has begun.
    void spoilCatalogue(size_t yield) {
        if (yield != 1) return;
        EXPECT_TRUE(
            catalogue_.database().hasTable(u"ListDonnees"));  // waits for what is read ahead
        catalogue_.spoil();
    }
    NewCdEngine engine{tools, run};
};

TEST_F(NewCdEngineTest, SearchesAMedium) {
    fakes::FakeSearchWindow window;
    engine.search(window);
    EXPECT_EQ(run.RunMode, Mode::Search);
    EXPECT_EQ(window.list1, std::vector<std::u16string>{u"Fin"});
    EXPECT_EQ(window.list2, std::vector<std::u16string>{u"Fin"});
    EXPECT_EQ(window.label(),
              u"Analyse terminée.\r\n\n"
              u"Méthode 1 : 2 nouveaux morceaux (4 Ko) sur 3 - 1 morceaux déjà mémorisés (2 Ko)."
              u"\r\n"
              u"Méthode 2 : 2 nouveaux morceaux (4 Ko) sur 3 - 1 morceaux déjà mémorisés (2 Ko).");
    EXPECT_TRUE(window.cancelIsOk);
    EXPECT_EQ(scanState.ScanAnswer, 0);
}

TEST_F(NewCdEngineTest, CopiesAMedium) {
    settings.CopyOption1 = 2;
    settings.CopyOption2 = 1;
    fakes::FakeCopyWindow window;
    window.whileWaiting = {[&] {
                               EXPECT_EQ(window.label(),
                                         u"Analyse terminée.\r\n\n1 morceaux sélectionnés (1000 "
                                         u"Octets) sur 3 morceaux trouvés (6 Ko).");
                               run.CopyStarted = 1;
                           },
                           [&] { scanState.ScanAnswer = 1; }};
    engine.copy(window);
    EXPECT_EQ(run.RunMode, Mode::Copy);
    EXPECT_TRUE(files.exists(u"C:\\Musique\\intro.mid"));
    EXPECT_FALSE(files.exists(u"C:\\Musique\\Album"));
    EXPECT_EQ(window.label(),
              u"Copie terminée.\r\n\n1 morceaux copiés (1000 Octets) sur 3 morceaux trouvés (6 "
              u"Ko).");
    EXPECT_EQ(catalogue_.rowCount(), 1U);
}

// While the medium is read, the catalogue comes into memory: its file is needed no more then.
TEST_F(NewCdEngineTest, ASearchReadsTheCatalogueMeanwhile) {
    if (!CatalogueCopy::kHasOtherReader) GTEST_SKIP() << "nobody else may write to the file here";
    fakes::FakeSearchWindow window;
    window.atYield = [&](size_t yield) { spoilCatalogue(yield); };
    engine.search(window);
    EXPECT_EQ(window.list2, std::vector<std::u16string>{u"Fin"});
}

TEST_F(NewCdEngineTest, ACopyReadsTheCatalogueMeanwhile) {
    if (!CatalogueCopy::kHasOtherReader) GTEST_SKIP() << "nobody else may write to the file here";
    settings.CopyOption1 = 2;
    fakes::FakeCopyWindow window;
    window.atYield = [&](size_t yield) { spoilCatalogue(yield); };
    window.whileWaiting = {[&] { scanState.ScanAnswer = 1; }};
    engine.copy(window);
    ASSERT_EQ(window.list.size(), 3U);
    EXPECT_EQ(window.list[1], (fakes::FakeCopyWindow::Item{u"Fin", false}));
}

TEST_F(NewCdEngineTest, RunsAgainOnAnotherMedium) {
    fakes::FakeSearchWindow first;
    engine.search(first);
    files.remove(u"E:\\Album");
    fakes::FakeSearchWindow second;
    engine.search(second);
    EXPECT_TRUE(second.list1.empty());
    EXPECT_TRUE(second.label().find(u"sur 1 - 0 morceaux") != std::u16string::npos);
}

TEST_F(NewCdEngineTest, AnEmptyMediumStillEndsInASummary) {
    files.remove(u"E:\\Album");
    files.remove(u"E:\\intro.mid");
    fakes::FakeCopyWindow window;
    window.whileWaiting = {[&] {
        EXPECT_FALSE(window.startEnabled);
        scanState.ScanAnswer = 1;
    }};
    engine.copy(window);
    EXPECT_EQ(window.label(),
              u"Analyse terminée.\r\n\n0 morceaux sélectionnés (0 Octets) sur 0 morceaux trouvés "
              u"(0 Octets).");
}

TEST_F(NewCdEngineTest, ShowsAnErrorAndEndsAsIfStopped) {
    settings.CdRomDrive = u"F:";
    fakes::FakeCopyWindow window;
    engine.copy(window);
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_EQ(messages.shown()[0].title, platform::kReportTitle);
    EXPECT_EQ(scanState.ScanAnswer, 1);
}

TEST_F(NewCdEngineTest, ShowsTheErrorOfACopyThatFails) {
    fakes::FakeCopyWindow window;
    window.whileWaiting = {[&] { run.CopyStarted = 1; }};
    copier.failNextCopy(base::Error(base::ErrorNumber::DiskFull, u"Disque plein."));
    engine.copy(window);
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_NE(messages.shown()[0].text.find(u"Disque plein."), std::u16string::npos);
    EXPECT_EQ(scanState.ScanAnswer, 1);
    EXPECT_TRUE(copier.copied().empty());
}

// Stops a run at each of its yields in turn, whatever phase that is in.
class StopTest : public NewCdEngineTest {
  protected:
    // What is gone through: five entries of folders, four lines of the list, three tracks, and
    // three yields for each file that is copied (half of it, all of it, after it).
    static constexpr size_t kWalked = 5;
    static constexpr size_t kAnalysed = kWalked + 4;
    static constexpr size_t kFiltered = kAnalysed + 3;
    static constexpr size_t kYieldsOfFile = 3;

    // Runs with a stop at yield `stopAt`; gives false when the run has no such yield.
    template <class Window, class Run>
    bool stopsAt(size_t stopAt, Window& window, Run runOnce) {
        scanState.ScanAnswer = 0;
        window.atYield = [&](size_t number) {
            ASSERT_LE(number, lastYield(stopAt)) << "the run went on";
            if (number == stopAt) scanState.ScanAnswer = 1;
        };
        runOnce();
        return window.yields >= stopAt;
    }

    // The yield after which a run that is stopped at `stopAt` is over: a walk is gone through to
    // its end, and so is a file.
    static size_t lastYield(size_t stopAt) {
        if (stopAt <= kWalked) return kWalked;
        if (stopAt <= kFiltered) return stopAt;
        return kFiltered + filesAt(stopAt) * kYieldsOfFile;
    }
    // How many files have been begun at that yield.
    static size_t filesAt(size_t stopAt) {
        if (stopAt <= kFiltered) return 0;
        return (stopAt - kFiltered + kYieldsOfFile - 1) / kYieldsOfFile;
    }

    // What both modes have in common.
    template <class Window>
    void expectPhase(size_t stopAt, const Window& window) {
        EXPECT_FALSE(window.cancelIsOk);
        EXPECT_EQ(scanState.ScanAnswer, 1);
        EXPECT_EQ(window.yields, lastYield(stopAt));
        EXPECT_TRUE(messages.shown().empty());
        if (stopAt <= kWalked) {
            EXPECT_EQ(window.label(), u"Lecture en cours. Patientez quelques instants...");
            EXPECT_EQ(run.workList.count(), 0U);
        } else if (stopAt <= kAnalysed) {
            EXPECT_TRUE(window.label().starts_with(u"Analyse des morceaux en cours..."));
        } else if (stopAt <= kFiltered) {
            EXPECT_TRUE(window.label().starts_with(u"Filtrage des morceaux en cours..."));
            EXPECT_EQ(run.FoundCount, static_cast<int64_t>(stopAt - kAnalysed));
        } else {
            EXPECT_TRUE(window.label().starts_with(u"Copie de "));
        }
    }
};

TEST_F(StopTest, EndsASearchAtEveryYield) {
    size_t stopAt = 1;
    for (;; ++stopAt) {
        SCOPED_TRACE(stopAt);
        fakes::FakeSearchWindow window;
        if (!stopsAt(stopAt, window, [&] { engine.search(window); })) break;
        expectPhase(stopAt, window);
        // The one known title is the second track.
        EXPECT_EQ(window.list1.size(), stopAt >= kAnalysed + 2 ? 1U : 0U);
        EXPECT_EQ(window.list2, window.list1);
    }
    EXPECT_EQ(stopAt, kFiltered + 1);
}

// The same for a copy under each pair of rules.
class StoppedCopyTest : public StopTest, public testing::WithParamInterface<std::tuple<int, int>> {
  protected:
    struct Source {
        std::u16string_view path;
        size_t size;
    };
    // What the pair of rules lets through: a row knows the title and the size of the second track,
    // and the third has the title of the first.
    static std::vector<Source> selected(int catalogueRule, int duplicateRule) {
        std::vector<Source> sources{{u"intro.mid", 1000}};
        if (catalogueRule == 0) sources.push_back({u"Album\\fin.mid", 2000});
        if (duplicateRule != 1) sources.push_back({u"Album\\intro.mid", 3000});
        return sources;
    }
    void emptyDestination() {
        files.remove(u"C:\\Musique\\intro.mid");
        files.remove(u"C:\\Musique\\Album");
    }
};

TEST_P(StoppedCopyTest, EndsAtEveryYield) {
    const auto [rule1, rule2] = GetParam();
    settings.CopyOption1 = static_cast<uint8_t>(rule1);
    settings.CopyOption2 = static_cast<uint8_t>(rule2);
    const std::vector<Source> sources = selected(rule1, rule2);
    const std::string catalogueBefore = catalogue_.bytes();
    size_t stopAt = 1;
    for (;; ++stopAt) {
        SCOPED_TRACE(stopAt);
        emptyDestination();
        fakes::FakeCopyWindow window;
        window.whileWaiting = {[&] { run.CopyStarted = 1; }, [&] { scanState.ScanAnswer = 1; }};
        if (!stopsAt(stopAt, window, [&] { engine.copy(window); })) break;
        expectPhase(stopAt, window);
        for (size_t file = 0; file < sources.size(); ++file) {
            const auto bytes = files.content(u"C:\\Musique\\" + std::u16string(sources[file].path));
            const bool copied = file < filesAt(stopAt);
            ASSERT_EQ(bytes.has_value(), copied) << file;
            EXPECT_EQ(bytes.value_or(""), std::string(copied ? sources[file].size : 0, 'x'));
        }
        EXPECT_EQ(window.list.size(), std::min(stopAt, kFiltered) - std::min(stopAt, kAnalysed));
        EXPECT_EQ(catalogue_.markerCount(), 0U);
        EXPECT_EQ(catalogue_.rowCount(), 1U);
        EXPECT_EQ(catalogue_.bytes(), catalogueBefore);
    }
    EXPECT_EQ(stopAt, kFiltered + kYieldsOfFile * sources.size() + 1);
    EXPECT_EQ(catalogue_.markerCountInFile(), 0U);
}

INSTANTIATE_TEST_SUITE_P(AllNine, StoppedCopyTest,
                         testing::Combine(testing::Range(0, 3), testing::Range(0, 3)));

TEST_F(NewCdEngineTest, AStopWhileTheUserChoosesCopiesNothing) {
    fakes::FakeCopyWindow window;
    window.whileWaiting = {[&] { scanState.ScanAnswer = 1; }};
    engine.copy(window);
    EXPECT_TRUE(copier.copied().empty());
    EXPECT_TRUE(window.label().starts_with(u"Analyse terminée."));
    EXPECT_FALSE(window.cancelIsOk);
}

}  // namespace
}  // namespace newcd
