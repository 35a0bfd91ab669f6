#include "mainwindow/look.h"

#include <gtest/gtest.h>

namespace {

using catalogue::ListLook;
using mainwindow::FontChoice;

ListLook someLook() {
    return {u"Tahoma", true, false, 9, 0x112233, 0x445566};
}

TEST(Look, DialogsOpenWithThePresentLook) {
    const mainwindow::FontDialog font = mainwindow::fontDialog(someLook());
    EXPECT_EQ(font.font, (FontChoice{true, false, u"Tahoma", 9}));
    EXPECT_EQ(font.colour, 0x112233);
    EXPECT_FALSE(font.strikeThrough);
    EXPECT_FALSE(font.underline);
    EXPECT_EQ(font.flags, 65793);
    EXPECT_EQ(mainwindow::textColourDialog(someLook()).colour, 0x112233);
    EXPECT_EQ(mainwindow::textColourDialog(someLook()).flags, 10);
    EXPECT_EQ(mainwindow::backColourDialog(someLook()).colour, 0x445566);
    EXPECT_EQ(mainwindow::backColourDialog(someLook()).flags, 10);
}

TEST(Look, ChoosingAFontLeavesTheColours) {
    ListLook look = someLook();
    mainwindow::chooseFont({false, true, u"Arial", 12}, look);
    EXPECT_EQ(look, (ListLook{u"Arial", false, true, 12, 0x112233, 0x445566}));
}

TEST(Look, TheDesignedColoursAreTheSystems) {
    EXPECT_EQ(mainwindow::designedLook(),
              (ListLook{u"Segoe UI", false, false, 9, -2147483640, -2147483643}));
}

TEST(Look, AbsurdFontSizesAreShownReadable) {
    EXPECT_EQ(mainwindow::readableFontSize(-32768), 9);
    EXPECT_EQ(mainwindow::readableFontSize(0), 9);
    EXPECT_EQ(mainwindow::readableFontSize(1), 5);
    EXPECT_EQ(mainwindow::readableFontSize(5), 5);
    EXPECT_EQ(mainwindow::readableFontSize(72), 72);
    EXPECT_EQ(mainwindow::readableFontSize(32767), 72);
    ListLook look = someLook();
    look.FontSize = 2000;
    EXPECT_EQ(mainwindow::fontDialog(look).font.size, 72);
}

}  // namespace
