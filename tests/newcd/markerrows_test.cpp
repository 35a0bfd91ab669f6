#include "newcd/markerrows.h"

#include <gtest/gtest.h>

#include "tests/newcd/runfixture.h"

namespace newcd {
namespace {

const Track kTrack{.title = u"Intro", .path = u"E:\\1.mid", .size = 100};
const Track kOtherSize{.title = u"INTRO", .path = u"E:\\2.mid", .size = 200};
const Track kOtherTitle{.title = u"Fin", .path = u"E:\\3.mid", .size = 100};

TEST(MarkerRows, RememberTitles) {
    CatalogueCopy catalogue;
    catalogue.addRow(u"Fin", 100, u"MID");
    MarkerRows markers(catalogue.database());
    EXPECT_FALSE(markers.has(DuplicateRule::OncePerTitle, kTrack));
    markers.add(kTrack);
    EXPECT_TRUE(markers.has(DuplicateRule::OncePerTitle, kTrack));
    EXPECT_TRUE(markers.has(DuplicateRule::OncePerTitle, kOtherSize));
    EXPECT_FALSE(markers.has(DuplicateRule::OncePerTitle, kOtherTitle));
}

TEST(MarkerRows, RememberTitlesAndSizes) {
    CatalogueCopy catalogue;
    MarkerRows markers(catalogue.database());
    markers.add(kTrack);
    EXPECT_TRUE(markers.has(DuplicateRule::OncePerTitleAndSize, kTrack));
    EXPECT_FALSE(markers.has(DuplicateRule::OncePerTitleAndSize, kOtherSize));
}

TEST(MarkerRows, AreNeverInTheFile) {
    CatalogueCopy catalogue;
    catalogue.addRow(u"Fin", 100, u"MID");
    const std::string before = catalogue.bytes();
    {
        MarkerRows markers(catalogue.database());
        markers.add(kTrack);
        EXPECT_EQ(catalogue.markerCount(), 1U);
        EXPECT_EQ(catalogue.markerCountInFile(), 0U);
    }
    EXPECT_EQ(catalogue.markerCount(), 0U);
    EXPECT_EQ(catalogue.rowCount(), 1U);
    EXPECT_EQ(catalogue.bytes(), before);
}

TEST(DeleteMarkerRows, RemovesThoseThatAnOlderRunLeft) {
    CatalogueCopy catalogue;
    catalogue.addRow(u"Fin", 100, u"MID");
    jet::Transaction olderRun(catalogue.database());
    for (int i = 0; i < 500; ++i)
        catalogue.addRow(u"Reste", i, u"T");
    olderRun.Commit();
    const size_t seenByOthers = CatalogueCopy::kHasOtherReader ? 500 : 0;
    ASSERT_EQ(catalogue.markerCountInFile(), seenByOthers);
    deleteMarkerRows(catalogue.database());
    EXPECT_EQ(catalogue.markerCount(), 0U);
    EXPECT_EQ(catalogue.markerCountInFile(), 0U);
    EXPECT_EQ(catalogue.rowCount(), 1U);
}

TEST(DeleteMarkerRows, WritesNothingWhenThereAreNone) {
    CatalogueCopy catalogue;
    catalogue.addRow(u"Fin", 100, u"MID");
    const std::string before = catalogue.bytes();
    deleteMarkerRows(catalogue.database());
    EXPECT_EQ(catalogue.bytes(), before);
}

}  // namespace
}  // namespace newcd
