#include "newcd/tracktables.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace newcd {
namespace {

class TrackTablesTest : public testing::Test {
  protected:
    TrackTablesTest() {
        tracks.add(u"Un", u"D:\\1.mp3", 11);
        tracks.add(u"Deux", u"D:\\2.mp3", 22);
    }
    WorkList tracks;
    TrackTables tables{tracks};
};

TEST_F(TrackTablesTest, KeepTheirColumnsApart) {
    tables.store(0, 0, 1);
    tables.store(0, 1, 0);
    EXPECT_EQ(tables.TrackFileTable(0, 0), u"D:\\2.mp3");
    EXPECT_EQ(tables.TrackSizeTable(0, 0), 22);
    EXPECT_EQ(tables.TrackFileTable(0, 1), u"D:\\1.mp3");
    EXPECT_EQ(tables.TrackSizeTable(0, 1), 11);
}

TEST_F(TrackTablesTest, CellsWithoutATrackAreEmpty) {
    tables.store(2, 0, 1);
    EXPECT_EQ(tables.TrackFileTable(1, 0), u"");
    EXPECT_EQ(tables.TrackSizeTable(1, 0), 0);
    EXPECT_EQ(tables.TrackFileTable(3, 0), u"");
    tables.clear();
    EXPECT_EQ(tables.TrackFileTable(2, 0), u"");
}

TEST_F(TrackTablesTest, HoldRowsUpToFiftyThousand) {
    tables.store(50000, 0, 1);
    EXPECT_EQ(tables.TrackFileTable(50000, 0), u"D:\\2.mp3");
    try {
        tables.store(50001, 0, 1);
        FAIL() << "row 50001 was taken";
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::SubscriptOutOfRange);
        EXPECT_NE(error.text().find(u"plus de 50\u00A0000 morceaux"), std::u16string::npos);
    }
}

}  // namespace
}  // namespace newcd
