#include "mainwindow/trackinfo.h"

#include <gtest/gtest.h>

#include "tests/mainwindow/trackfixture.h"

namespace {

using mainwindow::TrackInfo;

class TrackInfos : public mainwindow::TrackFixture {};

TEST_F(TrackInfos, TellTitlePathSizeAndCd) {
    addTrack(u"Abc", u"C:\\Music\\abc.mp3", u"Disk", 1572864);
    EXPECT_EQ(mainwindow::trackInfo(*tracksBy(u"Nom"), u"E:", u','),
              (TrackInfo{u"Disk", u"1,5 Mo", u"C:\\Music\\abc.mp3", u"Abc"}));
}

TEST_F(TrackInfos, ShowACdsPathInThePresentDrive) {
    addTrack(u"Abc", u"[CD]\\Album\\01.mp3", u"Rock 1", 3000000000.0);
    EXPECT_EQ(mainwindow::trackInfo(*tracksBy(u"Nom"), u"E:", u'.'),
              (TrackInfo{u"Rock 1", u"2861.02 Mo", u"E:\\Album\\01.mp3", u"Abc"}));
}

TEST_F(TrackInfos, CopeWithARowWithoutValues) {
    const auto rows = catalogue_->OpenRecordset(u"ListDonnees");
    rows->AddNew();
    rows->Update();
    EXPECT_EQ(mainwindow::trackInfo(*tracksBy(u"Nom"), u"E:", u','),
              (TrackInfo{u"", u"0 Octets", u"", u""}));
}

}  // namespace
