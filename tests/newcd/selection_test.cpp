#include "newcd/selection.h"

#include <gtest/gtest.h>

namespace newcd {
namespace {

class SelectionTest : public testing::Test {
  protected:
    SelectionTest() {
        for (const int64_t size : {1000, 2000, 4000}) {
            run.workList.add(u"Titre", u"E:\\a.mid", size);
            ++run.FoundCount;
            run.tables.store(static_cast<size_t>(run.FoundCount), 0, run.workList.count() - 1);
            addToSelection(run, size, size != 2000);
        }
    }
    scan::ScanState scanState;
    RunState run{scanState};
};

TEST_F(SelectionTest, SumsWhatIsAdded) {
    EXPECT_EQ(run.SelectedCount, 2);
    EXPECT_EQ(run.SizeSums[SizeOfAll], 7000);
    EXPECT_EQ(run.SizeSums[SizeOfSelected], 5000);
    EXPECT_EQ(run.checked, (std::vector<bool>{true, false, true}));
}

TEST_F(SelectionTest, FollowsTheChecks) {
    checkTrack(run, 1, true);
    EXPECT_EQ(run.SelectedCount, 3);
    EXPECT_EQ(run.SizeSums[SizeOfSelected], 7000);
    checkTrack(run, 0, false);
    checkTrack(run, 2, false);
    EXPECT_EQ(run.SelectedCount, 1);
    EXPECT_EQ(run.SizeSums[SizeOfSelected], 2000);
    EXPECT_EQ(run.SizeSums[SizeOfAll], 7000);
    EXPECT_EQ(run.checked, (std::vector<bool>{false, true, false}));
}

TEST_F(SelectionTest, TakesARepeatedCheckOnce) {
    checkTrack(run, 0, true);
    checkTrack(run, 1, false);
    checkTrack(run, 3, true);
    EXPECT_EQ(run.SelectedCount, 2);
    EXPECT_EQ(run.SizeSums[SizeOfSelected], 5000);
}

TEST_F(SelectionTest, GivesCountsAndSizesForTheSummary) {
    const CopyResult result = copyResult(run, u',');
    EXPECT_EQ(result.selected, 2);
    EXPECT_EQ(result.selectedSize, u"5 Ko");
    EXPECT_EQ(result.found, 3);
    EXPECT_EQ(result.foundSize, u"7 Ko");
    EXPECT_EQ(run.SizeTexts[SizeOfSelected], u"5 Ko");
    EXPECT_EQ(run.SizeTexts[SizeOfAll], u"7 Ko");
}

}  // namespace
}  // namespace newcd
