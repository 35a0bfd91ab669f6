#include "newcd/runlayout.h"

#include <gtest/gtest.h>

#include <vector>

namespace newcd {
namespace {

using platform::Box;

RunMetrics metrics(int width, int height, int dpi = 96) {
    return {.dpi = dpi,
            .clientWidth = width,
            .clientHeight = height,
            .headingHeight = 30 * dpi / 96,
            .progressHeight = 60 * dpi / 96};
}

int right(const Box& box) {
    return box.left + box.width;
}
int bottom(const Box& box) {
    return box.top + box.height;
}
int centre(const Box& box) {
    return box.left + box.width / 2;
}

// Each box ends above the next one begins, the last one inside the window.
void expectStacked(const std::vector<Box>& boxes, int height) {
    for (size_t i = 0; i + 1 < boxes.size(); ++i)
        EXPECT_LT(bottom(boxes[i]), boxes[i + 1].top) << i;
    EXPECT_LT(bottom(boxes.back()), height);
    for (const Box& box : boxes)
        EXPECT_GT(box.height, 0);
}

TEST(SearchLayout, SharesTheWidthBetweenTheLists) {
    for (const int width : {500, 501, 1200}) {
        const SearchLayout layout = layOutSearch(metrics(width, 400));
        EXPECT_EQ(layout.List1.left, 12);
        EXPECT_EQ(layout.List2.left - right(layout.List1), 12);
        EXPECT_EQ(right(layout.List2), width - 12);
        EXPECT_LE(layout.List2.width - layout.List1.width, 1);
        EXPECT_EQ(layout.List1.width, runListWidth(96, width, 2));
    }
}

TEST(SearchLayout, KeepsEachHeadingOverItsList) {
    const SearchLayout layout = layOutSearch(metrics(700, 400));
    EXPECT_EQ(layout.Label1[0].left, layout.List1.left);
    EXPECT_EQ(layout.Label1[0].width, layout.List1.width);
    EXPECT_EQ(layout.Label1[1].left, layout.List2.left);
    EXPECT_EQ(layout.Label1[1].width, layout.List2.width);
    EXPECT_EQ(layout.Label1[0].height, 30);
}

TEST(SearchLayout, StacksListsLabelBarAndButton) {
    const SearchLayout layout = layOutSearch(metrics(700, 400));
    expectStacked(
        {layout.Label1[0], layout.List1, layout.Label2, layout.progressBar, layout.CommandOkannul},
        400);
    EXPECT_EQ(layout.List2.height, layout.List1.height);
    EXPECT_EQ(layout.Label2.height, 60);
    EXPECT_EQ(centre(layout.CommandOkannul), 350);
}

TEST(CopyLayout, GivesTheListAllHeightThatIsLeft) {
    const CopyLayout low = layOutCopy(metrics(600, 400));
    const CopyLayout high = layOutCopy(metrics(600, 700));
    expectStacked({low.LabelTitrelist, low.ListInfocopy, low.LabelInfoCopy, low.progressBar,
                   low.CommandCopier},
                  400);
    EXPECT_EQ(high.ListInfocopy.height, low.ListInfocopy.height + 300);
    EXPECT_EQ(low.ListInfocopy.width, 600 - 24);
    EXPECT_EQ(low.LabelInfoCopy.width, 600 - 24);
}

TEST(CopyLayout, CentresTheButtonsAsAPair) {
    const CopyLayout layout = layOutCopy(metrics(600, 400));
    EXPECT_EQ(layout.CommandCopier.top, layout.ComAnnuleCopie.top);
    EXPECT_EQ(layout.ComAnnuleCopie.left - right(layout.CommandCopier), 8);
    EXPECT_EQ(layout.CommandCopier.left, 600 - right(layout.ComAnnuleCopie));
}

TEST(RunLayout, FollowsTheDotsPerInch) {
    const CopyLayout usual = layOutCopy(metrics(600, 400));
    const CopyLayout large = layOutCopy(metrics(900, 600, 144));
    EXPECT_EQ(large.CommandCopier.width, usual.CommandCopier.width * 3 / 2);
    EXPECT_EQ(large.ListInfocopy.height, usual.ListInfocopy.height * 3 / 2);
}

TEST(RunLayout, OfAWindowThatIsTooSmallHasNoNegativeSizes) {
    const SearchLayout layout = layOutSearch(metrics(10, 10));
    EXPECT_GE(layout.List1.height, 0);
    EXPECT_GE(layout.List2.width, 0);
}

}  // namespace
}  // namespace newcd
