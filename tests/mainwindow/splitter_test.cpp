#include "mainwindow/splitter.h"

#include <gtest/gtest.h>

namespace {

using mainwindow::Splitter;

constexpr int kDpi = 96;

TEST(Splitter, MovesNothingWithoutAPressedButton) {
    Splitter splitter;
    EXPECT_FALSE(splitter.dragging());
    EXPECT_EQ(splitter.mouseMove(50, 200, 300, kDpi), 0);
}

TEST(Splitter, FollowsThePointerFromWhereItWasLastApplied) {
    Splitter splitter;
    splitter.mouseDown(200);
    EXPECT_TRUE(splitter.dragging());
    EXPECT_EQ(splitter.mouseMove(200, 200, 300, kDpi), 0);
    EXPECT_EQ(splitter.mouseMove(210, 200, 300, kDpi), 10);
    EXPECT_EQ(splitter.mouseMove(210, 210, 290, kDpi), 0);
    EXPECT_EQ(splitter.mouseMove(195, 210, 290, kDpi), -15);
}

TEST(Splitter, KeepsItsStartWhenASecondButtonIsPressed) {
    Splitter splitter;
    splitter.mouseDown(200);
    splitter.mouseDown(230);
    EXPECT_EQ(splitter.mouseMove(240, 200, 300, kDpi), 40);
}

TEST(Splitter, EndsWithTheRelease) {
    Splitter splitter;
    splitter.mouseDown(200);
    splitter.mouseUp();
    EXPECT_FALSE(splitter.dragging());
    EXPECT_EQ(splitter.mouseMove(210, 200, 300, kDpi), 0);
}

TEST(Splitter, LeavesTheTrackList120Wide) {
    Splitter splitter;
    splitter.mouseDown(0);
    EXPECT_EQ(splitter.mouseMove(181, 200, 300, kDpi), 0);
    EXPECT_EQ(splitter.mouseMove(180, 200, 300, kDpi), 180);
    EXPECT_EQ(splitter.mouseMove(181, 380, 120, kDpi), 0);
}

TEST(Splitter, LeavesTheCdList80Wide) {
    Splitter splitter;
    splitter.mouseDown(0);
    EXPECT_EQ(splitter.mouseMove(-121, 200, 300, kDpi), 0);
    EXPECT_EQ(splitter.mouseMove(-120, 200, 300, kDpi), -120);
    EXPECT_EQ(splitter.mouseMove(-121, 80, 420, kDpi), 0);
}

TEST(Splitter, CountsARefusedDistanceFromWhereTheBarStands) {
    Splitter splitter;
    splitter.mouseDown(0);
    EXPECT_EQ(splitter.mouseMove(500, 200, 300, kDpi), 0);
    EXPECT_EQ(splitter.mouseMove(20, 200, 300, kDpi), 20);
}

TEST(Splitter, ScalesItsLimits) {
    Splitter splitter;
    splitter.mouseDown(0);
    EXPECT_EQ(splitter.mouseMove(121, 300, 300, 144), 0);
    EXPECT_EQ(splitter.mouseMove(120, 300, 300, 144), 120);
    EXPECT_EQ(splitter.mouseMove(-181, 420, 180, 144), 0);
    EXPECT_EQ(splitter.mouseMove(-180, 420, 180, 144), -300);
}

TEST(KeyDistance, IsWhatTheKeyAsksFor) {
    EXPECT_EQ(mainwindow::keyDistance(10, 200, 300, kDpi), 10);
    EXPECT_EQ(mainwindow::keyDistance(-10, 200, 300, kDpi), -10);
}

TEST(KeyDistance, EndsWhereAListWouldBecomeTooNarrow) {
    EXPECT_EQ(mainwindow::keyDistance(10, 200, 125, kDpi), 5);
    EXPECT_EQ(mainwindow::keyDistance(1000, 200, 300, kDpi), 180);
    EXPECT_EQ(mainwindow::keyDistance(-10, 85, 300, kDpi), -5);
    EXPECT_EQ(mainwindow::keyDistance(-1000, 200, 300, kDpi), -120);
}

TEST(KeyDistance, ScalesItsLimits) {
    EXPECT_EQ(mainwindow::keyDistance(1000, 300, 300, 144), 120);
    EXPECT_EQ(mainwindow::keyDistance(-1000, 300, 300, 144), -180);
}

TEST(KeyDistance, IsNothingForAListThatIsTooNarrowAlready) {
    EXPECT_EQ(mainwindow::keyDistance(10, 200, 100, kDpi), 0);
    EXPECT_EQ(mainwindow::keyDistance(-10, 60, 300, kDpi), 0);
}

}  // namespace
