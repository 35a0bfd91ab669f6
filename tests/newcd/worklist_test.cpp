#include "newcd/worklist.h"

#include <gtest/gtest.h>

namespace newcd {
namespace {

TEST(WorkList, GivesBackWhatWasAdded) {
    WorkList tracks;
    tracks.add(u"Intro", u"D:\\Album\\01.mp3", 4096);
    tracks.add(u"", u"D:\\x.it", 0);
    tracks.add(u"Fin", u"D:\\z.mp3", 5'000'000'000);
    ASSERT_EQ(tracks.count(), 3U);
    EXPECT_EQ(tracks[0].title, u"Intro");
    EXPECT_EQ(tracks[0].path, u"D:\\Album\\01.mp3");
    EXPECT_EQ(tracks[0].size, 4096);
    EXPECT_EQ(tracks[1].title, u"");
    EXPECT_EQ(tracks[1].path, u"D:\\x.it");
    EXPECT_EQ(tracks[2].title, u"Fin");
    EXPECT_EQ(tracks[2].size, 5'000'000'000);
}

TEST(WorkList, KeepsTitlesWithTheLastLatinLetterWhole) {
    WorkList tracks;
    tracks.add(u"Pierre Louÿs", u"D:\\Louÿs\\a.mp3", 1);
    EXPECT_EQ(tracks[0].title, u"Pierre Louÿs");
    EXPECT_EQ(tracks[0].path, u"D:\\Louÿs\\a.mp3");
}

TEST(WorkList, StartsAnewAfterClear) {
    WorkList tracks;
    tracks.add(u"Intro", u"D:\\a.mp3", 1);
    tracks.clear();
    EXPECT_EQ(tracks.count(), 0U);
    tracks.add(u"Fin", u"D:\\b.mp3", 2);
    EXPECT_EQ(tracks[0].title, u"Fin");
}

}  // namespace
}  // namespace newcd
