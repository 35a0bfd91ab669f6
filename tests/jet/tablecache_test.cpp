#include "jet/tablecache.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/jet/opentable.h"

namespace jet {
namespace {

class TableCacheTest : public testing::Test {
  protected:
    RowId addRow(const std::u16string& name, double size = 1) {
        const std::vector<Value> values = {name, Null{}, Null{}, Null{}, size, u"CD", u"MP3"};
        return table_->append(values);
    }
    void addRows(int count) {
        for (int i = 0; i < count; ++i) {
            const std::string digits = std::to_string(i);
            addRow(u"Title " + std::u16string(digits.begin(), digits.end()), i);
        }
    }
    const Column& column(std::u16string_view name) const {
        return *table_->definition().find(name);
    }
    TableCache cache(const CacheLimits& limits = {}) const {
        return TableCache(*table_, TextOrder::general4(), limits);
    }

    OpenTable open_;
    Table* const table_ = &open_.table();
};

TEST_F(TableCacheTest, KeepsEachColumnInItsForm) {
    addRows(10);
    TableCache all = cache();
    EXPECT_NE(all.column(column(u"Taille"))->numbers(), nullptr);
    EXPECT_NE(all.column(column(u"Type"))->dictionary(), nullptr);
    EXPECT_EQ(all.column(column(u"Nom")), all.column(column(u"Nom")));
    TableCache few = cache({.dictionaryTexts = 9});
    EXPECT_NE(few.column(column(u"Nom"))->texts(), nullptr);
    EXPECT_NE(few.column(column(u"Type"))->dictionary(), nullptr);
}

TEST_F(TableCacheTest, RefusesWhatIsBeyondItsBound) {
    addRows(5000);
    TableCache tight = cache({.bytesPerRow = 13});
    EXPECT_NE(tight.column(column(u"Type")), nullptr);
    EXPECT_EQ(tight.column(column(u"Taille")), nullptr);
    EXPECT_EQ(tight.ranking(column(u"Type")), nullptr);
    EXPECT_EQ(tight.ranking(column(u"Taille")), nullptr);
    TableCache wide = cache({.bytesPerRow = 24});
    EXPECT_NE(wide.column(column(u"Taille")), nullptr);
    EXPECT_NE(wide.ranking(column(u"Taille")), nullptr);
    EXPECT_EQ(wide.column(column(u"Nom")), nullptr);
}

TEST_F(TableCacheTest, KeepsTextsThatHardlyRepeatInNoDictionary) {
    addRows(3000);
    TableCache rows = cache();
    const TextValues* names = rows.column(column(u"Nom"))->texts();
    ASSERT_NE(names, nullptr);
    EXPECT_EQ(names->texts.count(), 3000u);
    std::u16string last;
    TextFolder::decode(names->texts.text(2999), last);
    EXPECT_EQ(last, u"TITLE 2999");
}

TEST_F(TableCacheTest, TakesInRowsThatAreAdded) {
    const RowId first = addRow(u"b");
    TableCache rows = cache();
    ASSERT_EQ(rows.ranking(column(u"Nom"))->rows(), (std::vector<uint32_t>{0}));
    const RowId second = addRow(u"a");
    rows.rowAdded(second);
    EXPECT_EQ(rows.freshRanking(column(u"Nom")), nullptr);
    EXPECT_EQ(rows.ranking(column(u"Nom"))->rows(), (std::vector<uint32_t>{1, 0}));
    EXPECT_EQ(rows.ids(), (std::vector<RowId>{first, second}));
    rows.rowRemoved(second);
    rows.rowRemoved(first);
    EXPECT_EQ(rows.live().size(), 0u);
    EXPECT_EQ(rows.live().limit(), 2u);
}

// A column takes in what was added when it is asked for; some of that is gone by then.
TEST_F(TableCacheTest, TakesInLaterWhatWasAddedAndRemovedMeanwhile) {
    addRow(u"a", 1);
    TableCache rows = cache();
    ASSERT_EQ(rows.column(column(u"Taille"))->count(), 1u);
    const RowId gone = addRow(u"b", 2);
    rows.rowAdded(gone);
    table_->remove(gone);
    rows.rowRemoved(gone);
    rows.rowAdded(addRow(u"c", 3));
    const CachedColumn* sizes = rows.column(column(u"Taille"));
    ASSERT_EQ(sizes->count(), 3u);
    EXPECT_TRUE(std::isnan((*sizes->numbers())[1]));
    EXPECT_EQ((*sizes->numbers())[2], 3);
    EXPECT_EQ(rows.live().size(), 2u);
}

TEST_F(TableCacheTest, TellsRowsOfTheSameIdentityApart) {
    const RowId id = addRow(u"a");
    TableCache rows = cache();
    rows.rowRemoved(id);
    rows.rowAdded(id);
    EXPECT_TRUE(rows.live().contains(1));
    EXPECT_FALSE(rows.live().contains(0));
    rows.rowRemoved(id);
    EXPECT_EQ(rows.live().size(), 0u);
}

TEST_F(TableCacheTest, WearsOut) {
    addRows(10);
    TableCache rows = cache();
    const RowId id = rows.ids().front();
    for (int i = 0; i < 2048; ++i) {
        EXPECT_FALSE(rows.isWorn());
        rows.rowRemoved(id);
        rows.rowAdded(id);
    }
    rows.rowRemoved(id);
    EXPECT_TRUE(rows.isWorn());
}

TEST_F(TableCacheTest, ReadsAColumnAfterRowsWereRemoved) {
    const RowId first = addRow(u"a", 1);
    addRow(u"b", 2);
    TableCache rows = cache();
    table_->remove(first);
    rows.rowRemoved(first);
    const CachedColumn* sizes = rows.column(column(u"Taille"));
    ASSERT_EQ(sizes->count(), 2u);
    EXPECT_EQ((*sizes->numbers())[1], 2);
}

// What several processors read in parts is what one reads.
TEST_F(TableCacheTest, JoinsThePartsOfItsColumns) {
    addRows(1500);
    table_->append(std::vector<Value>{u"last", Null{}, Null{}, Null{}, Null{}, Null{}, u"WAV"});
    TableCache parts = cache({.rowsOfPart = 200, .processors = 4});
    TableCache one = cache({.processors = 1});
    const std::vector<const Column*> wanted = {&column(u"Nom"), &column(u"Taille"),
                                               &column(u"Type"), &column(u"Compilation")};
    parts.load(wanted);
    for (const Column* each : wanted) {
        EXPECT_FALSE(parts.isMissing(*each));
        const CachedColumn& joined = *parts.column(*each);
        const CachedColumn& whole = *one.column(*each);
        EXPECT_EQ(joined.dictionary() == nullptr, whole.dictionary() == nullptr);
        ASSERT_EQ(joined.count(), 1501u);
        for (size_t row = 0; row + 1 < joined.count(); ++row)
            ASSERT_EQ(joined.compare(row, row + 1), whole.compare(row, row + 1)) << row;
    }
    EXPECT_EQ(parts.column(column(u"Type"))->countEqualTo(TextOrder::general4().hashed(u"mp3")),
              1500u);
    EXPECT_EQ(
        parts.column(column(u"Nom"))->rowsEqualTo(TextOrder::general4().hashed(u"TITLE 1499")),
        (std::vector<uint32_t>{1499}));
    EXPECT_EQ(parts.column(column(u"Nom"))->rowsEqualTo(TextOrder::general4().hashed(u"last")),
              (std::vector<uint32_t>{1500}));
}

// 900 texts for two rows each. Each part finds room for its own in a dictionary, but not for those
// of the others.
TEST_F(TableCacheTest, GivesUpTheDictionariesOfPartsThatDoNotFitTogether) {
    for (int i = 0; i < 1800; ++i) {
        const std::string digits = std::to_string(i / 2);
        addRow(u"Title " + std::u16string(digits.begin(), digits.end()), i);
    }
    const CacheLimits inParts = {.dictionaryTexts = 700, .rowsOfPart = 600, .processors = 3};
    TableCache parts = cache(inParts);
    const CachedColumn& names = *parts.column(column(u"Nom"));
    ASSERT_NE(names.texts(), nullptr);
    ASSERT_EQ(names.count(), 1800u);
    for (size_t row = 0; row + 2 < 1800; row += 2) {
        EXPECT_EQ(names.compare(row, row + 1), 0);
        EXPECT_NE(names.compare(row, row + 2), 0);
    }
}

TEST_F(TableCacheTest, GivesUpTheLastColumnsThatFindNoRoom) {
    addRows(5000);
    TableCache rows = cache({.bytesPerRow = 24, .rowsOfPart = 1000, .processors = 2});
    const std::vector<const Column*> wanted = {&column(u"Taille"), &column(u"Nom"),
                                               &column(u"Type")};
    rows.load(wanted);
    EXPECT_NE(rows.column(column(u"Taille")), nullptr);
    EXPECT_EQ(rows.column(column(u"Nom")), nullptr);
    EXPECT_FALSE(rows.isMissing(column(u"Nom")));
}

TEST_F(TableCacheTest, SearchesTheSameWithAndWithoutASignature) {
    addRows(9000);
    TableCache signedRows = cache({.rowsOfPart = 500, .processors = 2});
    TableCache plainRows = cache();
    CachedColumn& names = *signedRows.column(column(u"Nom"));
    CachedColumn& plain = *plainRows.column(column(u"Nom"));
    for (const std::u16string_view text : {u"TLE 12", u"e 8", u"77", u"title 4095", u"nowhere"}) {
        ColumnTest test;
        test.column = &column(u"Nom");
        test.kind = ColumnTest::Kind::Like;
        test.pattern = LikePattern(u"*" + std::u16string(text) + u"*", TextOrder::general4());
        const RowSet found = names.filter(test, signedRows.live(), signedRows.room());
        const RowSet expected = plain.filter(test, plainRows.live(), 0);
        for (size_t row = 0; row < 9000; ++row)
            ASSERT_EQ(found.contains(row), expected.contains(row)) << row;
    }
    EXPECT_GT(names.texts()->signature.bytes(), 0u);
    EXPECT_EQ(plain.texts()->signature.bytes(), 0u);
}

}  // namespace
}  // namespace jet
