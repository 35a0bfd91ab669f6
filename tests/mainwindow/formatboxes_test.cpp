#include "mainwindow/formatboxes.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace {

using catalogue::Settings;
using mainwindow::FormatBoxes;

// Extensions "E0", "E1", ...; those with an even index are shown.
Settings settingsWith(int extensions) {
    Settings settings;
    settings.NbExtensions = extensions - 1;
    for (int i = 0; i < extensions; ++i) {
        settings.ExtensionList(i) = base::fromUtf8("E" + std::to_string(i));
        settings.ExtensionFlags(i, catalogue::shownColumn) = i % 2 == 0;
        settings.ExtensionFlags(i, catalogue::copiedColumn) = 1;
    }
    return settings;
}

int visibleBoxes(const FormatBoxes& boxes) {
    int visible = 0;
    for (int k = 0; k < FormatBoxes::kBoxes; ++k)
        visible += boxes.box(k).visible;
    return visible;
}

TEST(FormatBoxes, ShowAsManyAsThereAreExtensions) {
    for (const int extensions : {0, 1, 6, 9, 10, 11, 12}) {
        Settings settings = settingsWith(extensions);
        const FormatBoxes boxes(settings);
        EXPECT_EQ(visibleBoxes(boxes), std::min(extensions, 10)) << extensions;
        EXPECT_EQ(boxes.buttonsVisible(), extensions >= 10) << extensions;
    }
}

TEST(FormatBoxes, ShowCaptionAndFlagOfTheExtensionsInView) {
    Settings settings = settingsWith(12);
    FormatBoxes boxes(settings);
    EXPECT_EQ(boxes.box(0), (FormatBoxes::Box{true, u"E0", 1}));
    EXPECT_EQ(boxes.box(9), (FormatBoxes::Box{true, u"E9", 0}));
    boxes.CommandExtPlus_Click();
    EXPECT_EQ(boxes.box(0), (FormatBoxes::Box{true, u"E1", 0}));
    EXPECT_EQ(boxes.box(9), (FormatBoxes::Box{true, u"E10", 1}));
}

TEST(FormatBoxes, ScrollBetweenTheEndsOfTheList) {
    Settings settings = settingsWith(12);
    FormatBoxes boxes(settings);
    EXPECT_FALSE(boxes.minusEnabled());
    EXPECT_TRUE(boxes.plusEnabled());
    boxes.CommandExtPlus_Click();
    EXPECT_EQ(boxes.ExtOffset(), 1);
    EXPECT_TRUE(boxes.minusEnabled());
    EXPECT_TRUE(boxes.plusEnabled());
    boxes.CommandExtPlus_Click();
    EXPECT_EQ(boxes.ExtOffset(), 2);
    EXPECT_FALSE(boxes.plusEnabled());
    boxes.CommandExtPlus_Click();
    EXPECT_EQ(boxes.ExtOffset(), 2);
    boxes.CommandExtMoins_Click();
    EXPECT_EQ(boxes.ExtOffset(), 1);
    EXPECT_TRUE(boxes.plusEnabled());
    boxes.CommandExtMoins_Click();
    EXPECT_EQ(boxes.ExtOffset(), 0);
    EXPECT_FALSE(boxes.minusEnabled());
    boxes.CommandExtMoins_Click();
    EXPECT_EQ(boxes.ExtOffset(), 0);
}

TEST(FormatBoxes, OfExactlyTenExtensionsCannotScroll) {
    Settings settings = settingsWith(10);
    FormatBoxes boxes(settings);
    EXPECT_TRUE(boxes.buttonsVisible());
    EXPECT_FALSE(boxes.plusEnabled());
    boxes.CommandExtPlus_Click();
    EXPECT_EQ(boxes.ExtOffset(), 0);
}

TEST(FormatBoxes, SetTheFlagOfTheExtensionInView) {
    Settings settings = settingsWith(12);
    FormatBoxes boxes(settings);
    boxes.CommandExtPlus_Click();
    boxes.CheckFormat_Click(2, 1);
    EXPECT_EQ(settings.ExtensionFlags(3, catalogue::shownColumn), 1);
    boxes.CheckFormat_Click(1, 0);
    EXPECT_EQ(settings.ExtensionFlags(2, catalogue::shownColumn), 0);
    EXPECT_EQ(settings.ExtensionFlags(2, catalogue::copiedColumn), 1);
}

TEST(FormatBoxes, OfTheCopyDialogSetTheOtherColumn) {
    Settings settings = settingsWith(12);
    FormatBoxes boxes(settings, catalogue::copiedColumn);
    EXPECT_EQ(boxes.box(1).value, 1);
    boxes.CheckFormat_Click(0, 0);
    EXPECT_EQ(settings.ExtensionFlags(0, catalogue::copiedColumn), 0);
    EXPECT_EQ(settings.ExtensionFlags(0, catalogue::shownColumn), 1);
}

TEST(FormatBoxes, StayWithinAListThatHasBecomeShorter) {
    Settings settings = settingsWith(14);
    FormatBoxes boxes(settings);
    for (int step = 0; step < 4; ++step)
        boxes.CommandExtPlus_Click();
    settings.NbExtensions = 10;
    boxes.listChanged();
    EXPECT_EQ(boxes.ExtOffset(), 1);
    EXPECT_FALSE(boxes.plusEnabled());
    settings.NbExtensions = 3;
    boxes.listChanged();
    EXPECT_EQ(boxes.ExtOffset(), 0);
    EXPECT_EQ(visibleBoxes(boxes), 4);
}

}  // namespace
