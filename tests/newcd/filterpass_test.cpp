#include "newcd/filterpass.h"

#include <gtest/gtest.h>

#include "tests/fakes/fakerunwindows.h"

namespace newcd {
namespace {

class FilterPassTest : public testing::Test {
  protected:
    void addTracks(size_t count) {
        for (size_t i = 0; i < count; ++i)
            run.workList.add(u"Titre", u"E:\\a.mid", 1);
    }
    scan::ScanState scanState;
    RunState run{scanState};
    fakes::FakeCopyWindow window;
};

TEST_F(FilterPassTest, CountsEachTrackBeforeItIsTaken) {
    addTracks(3);
    scanState.ScanFileCount = 3;
    run.FoundCount = run.SelectedCount = 17;
    std::vector<std::pair<size_t, int64_t>> taken;
    EXPECT_TRUE(filterTracks(run, window,
                             [&](size_t index) { taken.emplace_back(index, run.FoundCount); }));
    EXPECT_EQ(taken, (std::vector<std::pair<size_t, int64_t>>{{0, 1}, {1, 2}, {2, 3}}));
    EXPECT_EQ(run.SelectedCount, 0);
    EXPECT_EQ(window.yields, 3U);
}

TEST_F(FilterPassTest, CountsPercentOfTheListedFilesWithThoseLeftOut) {
    addTracks(2);
    scanState.ScanFileCount = 3;
    filterTracks(run, window, [](size_t) {});
    EXPECT_EQ(window.labels, (std::vector<std::u16string>{
                                 u"Filtrage des morceaux en cours... 33%",
                                 u"Filtrage des morceaux en cours... 66%",
                             }));
}

TEST_F(FilterPassTest, RewritesTheLabelOnlyWhenTheWholePercentageChanges) {
    addTracks(1000);
    scanState.ScanFileCount = 1000;
    filterTracks(run, window, [](size_t) {});
    EXPECT_EQ(window.labels.size(), 101U);
    EXPECT_EQ(window.labels.front(), u"Filtrage des morceaux en cours... 0%");
    EXPECT_EQ(window.labels.back(), u"Filtrage des morceaux en cours... 100%");
}

TEST_F(FilterPassTest, ShowsItsAdvanceAndThenNone) {
    addTracks(2);
    scanState.ScanFileCount = 3;
    filterTracks(run, window, [](size_t) {});
    EXPECT_EQ(window.advances, (std::vector<std::pair<int64_t, int64_t>>{{1, 3}, {2, 3}, {0, 0}}));
}

TEST_F(FilterPassTest, StopsAfterTheYieldThatAsksForIt) {
    addTracks(5);
    scanState.ScanFileCount = 5;
    window.atYield = [&](size_t number) {
        if (number == 3) scanState.ScanAnswer = 1;
    };
    size_t taken = 0;
    EXPECT_FALSE(filterTracks(run, window, [&](size_t) { ++taken; }));
    EXPECT_EQ(taken, 3U);
}

TEST_F(FilterPassTest, OfAnEmptyListShowsNothing) {
    EXPECT_TRUE(filterTracks(run, window, [](size_t) { FAIL(); }));
    EXPECT_TRUE(window.labels.empty());
}

}  // namespace
}  // namespace newcd
