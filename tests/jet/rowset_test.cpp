#include "jet/rowset.h"

#include <gtest/gtest.h>

namespace jet {
namespace {

std::vector<size_t> members(const RowSet& rows) {
    std::vector<size_t> found;
    rows.forEach([&](size_t row) { found.push_back(row); });
    return found;
}

RowSet setOf(std::initializer_list<size_t> rows, size_t limit = 200) {
    RowSet set(limit);
    for (const size_t row : rows)
        set.add(row);
    return set;
}

TEST(RowSet, HoldsItsMembersInOrder) {
    RowSet rows = setOf({199, 0, 64, 63, 64});
    EXPECT_EQ(members(rows), (std::vector<size_t>{0, 63, 64, 199}));
    EXPECT_EQ(rows.size(), 4u);
    EXPECT_TRUE(rows.contains(63));
    EXPECT_FALSE(rows.contains(62));
    rows.remove(63);
    EXPECT_EQ(members(rows), (std::vector<size_t>{0, 64, 199}));
}

TEST(RowSet, GrowsByMembers) {
    RowSet rows;
    for (int i = 0; i < 130; ++i)
        rows.pushMember();
    EXPECT_EQ(rows.limit(), 130u);
    EXPECT_EQ(rows.size(), 130u);
}

TEST(RowSet, CountsItsMembersHoweverManyWordsThereAre) {
    for (const size_t limit : {1u, 64u, 65u, 1984u, 1985u, 10000u}) {
        RowSet rows(limit);
        EXPECT_TRUE(rows.isEmpty());
        EXPECT_EQ(rows.size(), 0u);
        rows.add(limit - 1);
        EXPECT_FALSE(rows.isEmpty());
        EXPECT_EQ(rows.size(), 1u);
        for (size_t row = 0; row < limit; ++row)
            rows.add(row);
        EXPECT_EQ(rows.size(), limit);
    }
}

TEST(RowSet, WithoutRoomForMembersHasNone) {
    RowSet none = RowSet::none(200);
    EXPECT_EQ(none.limit(), 200u);
    EXPECT_TRUE(none.isEmpty());
    EXPECT_EQ(none.size(), 0u);
    EXPECT_FALSE(none.contains(199));
    none.remove(199);
    none.removeAll(setOf({1, 199}));
    EXPECT_EQ(members(none), std::vector<size_t>{});
    EXPECT_EQ(members(none.where([](size_t) { return true; })), std::vector<size_t>{});

    RowSet some = setOf({1, 199});
    some.removeAll(none);
    some.addAll(none);
    EXPECT_EQ(members(some), (std::vector<size_t>{1, 199}));
    none.addAll(some);
    EXPECT_EQ(members(none), (std::vector<size_t>{1, 199}));
    some.keepOnly(RowSet::none(200));
    EXPECT_EQ(members(some), std::vector<size_t>{});
    some.keepOnly(none);
    EXPECT_EQ(some.size(), 0u);
}

TEST(RowSet, JoinsAndTakesApart) {
    const RowSet some = setOf({1, 70, 130});
    RowSet rows = setOf({1, 2, 130, 131});
    rows.keepOnly(some);
    EXPECT_EQ(members(rows), (std::vector<size_t>{1, 130}));
    rows.addAll(setOf({5}));
    EXPECT_EQ(members(rows), (std::vector<size_t>{1, 5, 130}));
    rows.removeAll(some);
    EXPECT_EQ(members(rows), (std::vector<size_t>{5}));
}

TEST(RowSet, KeepsMembersThatPassATest) {
    const RowSet rows = setOf({1, 2, 63, 64, 65, 199});
    const RowSet odd = rows.where([](size_t row) { return row % 2 == 1; });
    EXPECT_EQ(members(odd), (std::vector<size_t>{1, 63, 65, 199}));
    EXPECT_EQ(odd.limit(), rows.limit());
}

TEST(RowSet, NeverAsksBeyondItsLimit) {
    RowSet rows(70);
    rows.add(69);
    const RowSet all = rows.where([](size_t row) {
        EXPECT_LT(row, 70u);
        return true;
    });
    EXPECT_EQ(members(all), (std::vector<size_t>{69}));
}

}  // namespace
}  // namespace jet
