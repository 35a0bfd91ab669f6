#include "newcd/newcdengine.h"

#include <gtest/gtest.h>

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
    // Runs with a stop at yield `stopAt`; gives false when the run has no such yield.
    template <class Window, class Run>
    bool stopsAt(size_t stopAt, Window& window, Run runOnce) {
        scanState.ScanAnswer = 0;
        window.atYield = [&](size_t number) {
            ASSERT_LE(number, stopAt + yieldsAfterStop) << "the run went on";
            if (number == stopAt) scanState.ScanAnswer = 1;
        };
        runOnce();
        return window.yields >= stopAt;
    }
    // The rest of a walk or of a file is still gone through.
    size_t yieldsAfterStop = 0;
};

TEST_F(StopTest, EndsASearchAtEveryYield) {
    yieldsAfterStop = 4;
    size_t stopAt = 1;
    for (;; ++stopAt) {
        fakes::FakeSearchWindow window;
        if (!stopsAt(stopAt, window, [&] { engine.search(window); })) break;
        EXPECT_FALSE(window.cancelIsOk) << stopAt;
        EXPECT_TRUE(window.labels.back().find(u"terminée") == std::u16string::npos) << stopAt;
    }
    // Five entries walked, four lines read, three tracks filtered.
    EXPECT_EQ(stopAt, 5U + 4 + 3 + 1);
}

TEST_F(StopTest, EndsACopyAtEveryYieldAndLeavesNoMarker) {
    yieldsAfterStop = 4;
    for (uint8_t rule = 0; rule <= 2; ++rule) {
        settings.CopyOption2 = rule;
        size_t stopAt = 1;
        for (;; ++stopAt) {
            files.remove(u"C:\\Musique\\intro.mid");
            files.remove(u"C:\\Musique\\Album");
            fakes::FakeCopyWindow window;
            window.whileWaiting = {[&] { run.CopyStarted = 1; }, [&] { scanState.ScanAnswer = 1; }};
            if (!stopsAt(stopAt, window, [&] { engine.copy(window); })) break;
            EXPECT_FALSE(window.cancelIsOk) << stopAt;
            EXPECT_EQ(catalogue_.markerCount(), 0U) << stopAt;
            EXPECT_EQ(catalogue_.markerCountInFile(), 0U) << stopAt;
            EXPECT_EQ(catalogue_.rowCount(), 1U) << stopAt;
        }
        const size_t copied = rule == 1 ? 2 : 3;
        EXPECT_EQ(stopAt, 5U + 4 + 3 + 3 * copied + 1);
    }
    EXPECT_TRUE(messages.shown().empty());
}

}  // namespace
}  // namespace newcd
