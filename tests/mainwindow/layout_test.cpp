#include "mainwindow/layout.h"

#include <gtest/gtest.h>

namespace {

using mainwindow::Control;
using mainwindow::Layout;
using mainwindow::LayoutInput;
using platform::Box;

constexpr std::array<Control, 6> kFirstRow = {Control::Check1,  Control::Check3,  Control::Option1,
                                              Control::Option2, Control::Option3, Control::Label1};
constexpr std::array<Control, 5> kStack = {Control::Command1, Control::ComNouveau,
                                           Control::comcopier, Control::comsave, Control::Comaide};

int right(const Box& box) {
    return box.left + box.width;
}
int bottom(const Box& box) {
    return box.top + box.height;
}
int middle(const Box& box) {
    return box.top + box.height / 2;
}

LayoutInput inputAt96() {
    LayoutInput input;
    input.clientWidth = 800;
    input.clientHeight = 600;
    input.list1Width = 200;
    input.dbList2Width = 400;
    for (size_t i = 0; i < input.natural.size(); ++i)
        input.natural[i] = {70 + static_cast<int>(i), 17};
    input.of(Control::CheckAutoRefresh) = {80, 21};
    input.of(Control::Comaide) = {80, 25};
    input.of(Control::Image1) = {32, 32};
    input.of(Control::CommandExtMoins) = {20, 20};
    input.of(Control::CommandExtPlus) = {20, 20};
    input.naturalFormatBox = {50, 17};
    return input;
}

// Everything that the fonts decide grows with the resolution, too.
LayoutInput inputAt144() {
    LayoutInput input = inputAt96();
    input.dpi = 144;
    for (int* length :
         {&input.clientWidth, &input.clientHeight, &input.list1Width, &input.dbList2Width,
          &input.naturalFormatBox.width, &input.naturalFormatBox.height})
        *length = *length * 3 / 2;
    for (mainwindow::Size& size : input.natural)
        size = {size.width * 3 / 2, size.height * 3 / 2};
    return input;
}

TEST(ButtonLook, IsCompactBelow8000Twips) {
    EXPECT_TRUE(mainwindow::isCompact(6900));
    EXPECT_TRUE(mainwindow::isCompact(7999));
    EXPECT_FALSE(mainwindow::isCompact(8000));
}

TEST(ButtonLook, HasItsTextAsToolTipWhenCompact) {
    for (const Control button : kStack) {
        EXPECT_FALSE(mainwindow::lookOf(button, true).textAsCaption);
        EXPECT_EQ(mainwindow::lookOf(button, true).height, 45);
        EXPECT_TRUE(mainwindow::lookOf(button, false).textAsCaption);
    }
}

TEST(ButtonLook, HasAHeightOfItsOwnOtherwise) {
    EXPECT_EQ(mainwindow::lookOf(Control::Command1, false).height, 60);
    EXPECT_EQ(mainwindow::lookOf(Control::comcopier, false).height, 75);
    EXPECT_EQ(mainwindow::lookOf(Control::comsave, false).height, 75);
    EXPECT_EQ(mainwindow::lookOf(Control::ComNouveau, false).height, 60);
    EXPECT_EQ(mainwindow::lookOf(Control::Comaide, false).height, 60);
}

TEST(LayOut, DividesTheWidthInTheProportionOfTheLists) {
    const Layout layout = layOut(inputAt96());
    // Available: 800 - 64 - 80 = 656 for 200 and 400.
    EXPECT_EQ(layout[Control::List1].left, 16 + 80 + 16);
    EXPECT_EQ(layout[Control::List1].width, 218);
    EXPECT_EQ(layout[Control::DBList2].left, 112 + 218 + 16);
    EXPECT_EQ(right(layout[Control::DBList2]), 800 - 16);
}

TEST(LayOut, ChangesNothingAtTheSameWidth) {
    LayoutInput input = inputAt96();
    for (int width = 80; width < 536; ++width) {
        input.list1Width = width;
        input.dbList2Width = 656 - width;
        EXPECT_EQ(layOut(input)[Control::List1].width, width);
        EXPECT_EQ(layOut(input)[Control::DBList2].width, 656 - width);
    }
}

TEST(LayOut, SurvivesListsAndWindowsWithoutWidth) {
    LayoutInput input = inputAt96();
    input.list1Width = input.dbList2Width = 0;
    EXPECT_EQ(layOut(input)[Control::List1].width, 0);
    input = inputAt96();
    input.clientWidth = input.clientHeight = 0;
    const Layout layout = layOut(input);
    EXPECT_EQ(layout[Control::List1].width, 0);
    EXPECT_EQ(layout[Control::DBList2].width, 0);
    EXPECT_EQ(layout[Control::DBList2].height, 0);
    EXPECT_EQ(layout[Control::TextRech].width, 0);
}

TEST(LayOut, Leaves130PixelsAroundTheListsHeight) {
    const Layout layout = layOut(inputAt96());
    EXPECT_EQ(layout[Control::DBList2].height, 600 - 130);
    EXPECT_EQ(layout[Control::List1].height, 600 - 130);
    EXPECT_EQ(layout[Control::List1].top, layout[Control::DBList2].top);
}

TEST(LayOut, MovesTheBandWithTheBottomOfTheLists) {
    LayoutInput input = inputAt96();
    for (const int height : {410, 600, 900}) {
        input.clientHeight = height;
        const Layout layout = layOut(input);
        const int edge = bottom(layout[Control::DBList2]);
        for (const Control control : kFirstRow)
            EXPECT_EQ(layout[control].top, edge + 14);
        EXPECT_EQ(layout[Control::Label2].top, edge + 43);
    }
}

TEST(LayOut, KeepsTheBandInsideTheWindowAndItsRowsApart) {
    const LayoutInput input = inputAt96();
    const Layout layout = layOut(input);
    for (const Box& box : layout.boxes)
        EXPECT_LE(bottom(box), input.clientHeight);
    for (const Box& box : layout.formatBoxes) {
        EXPECT_LE(bottom(box), input.clientHeight);
        EXPECT_GE(box.top, bottom(layout[Control::TextRech]));
    }
    EXPECT_GE(layout[Control::TextRech].top, bottom(layout[Control::Check1]));
    EXPECT_GE(layout[Control::Label2].top, bottom(layout[Control::Check1]));
    EXPECT_GE(layout[Control::Image1].top, bottom(layout[Control::Label2]));
    EXPECT_GE(layout[Control::Label4].top, 0);
    EXPECT_GE(layout[Control::CheckAutoRefresh].top, 0);
    EXPECT_NEAR(middle(layout[Control::CheckAutoRefresh]), middle(layout[Control::Label4]), 1);
    EXPECT_LE(bottom(layout[Control::CheckAutoRefresh]), layout[Control::Command1].top);
    EXPECT_LE(bottom(layout[Control::Label4]), layout[Control::List1].top);
}

TEST(LayOut, StacksTheActionButtonsInOrder) {
    for (const bool compact : {false, true}) {
        LayoutInput input = inputAt96();
        input.compact = compact;
        const Layout layout = layOut(input);
        int edge = layout[Control::List1].top;
        for (const Control button : kStack) {
            EXPECT_GE(layout[button].top, edge);
            EXPECT_LE(layout[button].top, edge + 8);
            EXPECT_EQ(layout[button].left, 16);
            EXPECT_EQ(layout[button].width, 80);
            EXPECT_EQ(layout[button].height, mainwindow::lookOf(button, compact).height);
            edge = bottom(layout[button]);
        }
        EXPECT_EQ(layout[Control::Image1].left, 16);
        EXPECT_EQ(layout[Control::Label2].left, 16);
    }
}

// At both heights at which the look changes, the column must end above the band.
TEST(LayOut, ButtonColumnFitsBesideTheLists) {
    constexpr int frameAndMenu = 60;
    LayoutInput input = inputAt96();
    for (const auto& [outerTwips, compact] : {std::pair{6900, true}, std::pair{8010, false}}) {
        input.clientHeight = outerTwips / 15 - frameAndMenu;
        input.compact = compact;
        const Layout layout = layOut(input);
        EXPECT_LE(bottom(layout[Control::Comaide]), layout[Control::Check1].top);
        EXPECT_LE(bottom(layout[Control::Comaide]), layout[Control::Label2].top);
    }
}

TEST(LayOut, RightAlignsTheFirstRowWithoutGaps) {
    const LayoutInput input = inputAt96();
    const Layout layout = layOut(input);
    int sum = 0;
    for (const Control control : kFirstRow)
        sum += input.of(control).width;
    int left = input.clientWidth - 16 - sum;
    for (const Control control : kFirstRow) {
        EXPECT_EQ(layout[control].left, left);
        EXPECT_EQ(layout[control].width, input.of(control).width);
        left = right(layout[control]);
    }
}

TEST(LayOut, StretchesTheSearchBoxToTheEdgeOfTheTrackList) {
    const Layout layout = layOut(inputAt96());
    EXPECT_EQ(layout[Control::TextRech].left, right(layout[Control::Label3]) + 10);
    EXPECT_EQ(right(layout[Control::TextRech]), right(layout[Control::DBList2]));
}

TEST(LayOut, LaysThePlayerControlsRightToLeftFromTheSearchLabel) {
    const Layout layout = layOut(inputAt96());
    const Control order[] = {Control::LabelLecteur, Control::CommandLecteurMoins,
                             Control::CommandLecteurPlus, Control::Label3};
    for (size_t i = 1; i < std::size(order); ++i) {
        EXPECT_GE(layout[order[i]].left, right(layout[order[i - 1]]));
        EXPECT_LE(layout[order[i]].left, right(layout[order[i - 1]]) + 8);
    }
    EXPECT_EQ(layout[Control::LabelLecteur].left, layout[Control::List1].left);
}

TEST(LayOut, LaysTheFormatBoxesBetweenTheirButtons) {
    for (const int width : {584, 800, 1900}) {
        LayoutInput input = inputAt96();
        input.clientWidth = width;
        const Layout layout = layOut(input);
        int edge = right(layout[Control::CommandExtMoins]);
        EXPECT_GE(layout[Control::CommandExtMoins].left, right(layout[Control::Image1]));
        for (const Box& box : layout.formatBoxes) {
            EXPECT_GE(box.left, edge);
            EXPECT_GE(box.width, 45);
            edge = right(box);
        }
        EXPECT_GE(layout[Control::CommandExtPlus].left, edge);
        EXPECT_LE(right(layout[Control::CommandExtPlus]), right(layout[Control::DBList2]));
    }
}

TEST(LayOut, HeadingsAndBarFollowTheLists) {
    const Layout layout = layOut(inputAt96());
    EXPECT_EQ(layout[Control::Label4].left, layout[Control::List1].left);
    EXPECT_EQ(layout[Control::Label4].width, layout[Control::List1].width);
    EXPECT_EQ(layout[Control::Label5].left, layout[Control::DBList2].left);
    EXPECT_EQ(layout[Control::Label5].width, layout[Control::DBList2].width);
    const Box& bar = layout[Control::LabelReglage];
    EXPECT_EQ(bar.top, layout[Control::List1].top);
    EXPECT_EQ(bar.height, layout[Control::List1].height);
    EXPECT_EQ(bar.left, right(layout[Control::List1]));
    EXPECT_EQ(right(bar), layout[Control::DBList2].left);
}

TEST(LayOut, ScalesEveryLengthOfItsOwn) {
    const Layout small = layOut(inputAt96());
    const Layout large = layOut(inputAt144());
    for (size_t i = 0; i < small.boxes.size(); ++i) {
        EXPECT_NEAR(large.boxes[i].left, small.boxes[i].left * 1.5, 7) << i;
        EXPECT_NEAR(large.boxes[i].top, small.boxes[i].top * 1.5, 2) << i;
        EXPECT_NEAR(large.boxes[i].height, small.boxes[i].height * 1.5, 2) << i;
    }
    EXPECT_EQ(large[Control::DBList2].height, 900 - 195);
    EXPECT_EQ(large[Control::List1].left, 24 + 120 + 24);
    EXPECT_EQ(large[Control::Command1].height, 90);
}

TEST(MoveSplit, MovesBarListsAndHeadings) {
    for (const int distance : {37, -25}) {
        Layout layout = layOut(inputAt96());
        const Layout before = layout;
        moveSplit(layout, distance);
        EXPECT_EQ(layout[Control::List1].left, before[Control::List1].left);
        EXPECT_EQ(layout[Control::List1].width, before[Control::List1].width + distance);
        EXPECT_EQ(layout[Control::LabelReglage].left,
                  before[Control::LabelReglage].left + distance);
        EXPECT_EQ(layout[Control::LabelReglage].width, before[Control::LabelReglage].width);
        EXPECT_EQ(layout[Control::DBList2].left, before[Control::DBList2].left + distance);
        EXPECT_EQ(right(layout[Control::DBList2]), right(before[Control::DBList2]));
        EXPECT_EQ(layout[Control::Label4].width, layout[Control::List1].width);
        EXPECT_EQ(layout[Control::Label5].left, layout[Control::DBList2].left);
        EXPECT_EQ(layout[Control::Label5].width, layout[Control::DBList2].width);
        EXPECT_EQ(layout[Control::Label4].top, before[Control::Label4].top);
        EXPECT_EQ(layout[Control::Check1], before[Control::Check1]);
    }
}

}  // namespace
