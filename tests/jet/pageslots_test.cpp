#include "jet/pageslots.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "base/error.h"

namespace jet {

namespace {

using Page = std::vector<uint8_t>;

Page emptyPage(const Format& format) {
    Page page(format.pageSize, 0xEE);
    initDataPage(format, page.data(), 0x123456);
    return page;
}

uint32_t insert(const Format& format, Page& page, const std::string& row) {
    return insertRow(format, page.data(),
                     {reinterpret_cast<const uint8_t*>(row.data()), row.size()});
}

std::string row(const Format& format, const Page& page, uint32_t slot) {
    const auto bytes = PageSlots(format, page.data(), 1).live(slot);
    return {bytes.begin(), bytes.end()};
}

TEST(PageSlotsTest, AnEmptyPageHasItsHeaderAndZeros) {
    for (const Format* format : {&jet3, &jet4}) {
        const Page page = emptyPage(*format);
        const uint32_t header = format == &jet4 ? 14 : 10;
        Page expected(format->pageSize, 0);
        expected[0] = 1;
        expected[1] = 1;
        put16(expected.data() + 2, format->pageSize - header);
        put32(expected.data() + 4, 0x123456);
        EXPECT_EQ(page, expected);
    }
}

TEST(PageSlotsTest, RowsFillFromTheEndAndTheFreeBytesAreExact) {
    Page page = emptyPage(jet4);
    EXPECT_EQ(insert(jet4, page, "abcde"), 0u);
    EXPECT_EQ(insert(jet4, page, "xyz"), 1u);
    EXPECT_EQ(get16(&page[12]), 2);
    EXPECT_EQ(get16(&page[14]), 4091);
    EXPECT_EQ(get16(&page[16]), 4088);
    EXPECT_EQ(get16(&page[2]), 4088 - 14 - 4);
    EXPECT_EQ(std::string(page.begin() + 4088, page.end()), "xyzabcde");
}

TEST(PageSlotsTest, ErasingMarksTheSlotAndClosesTheGap) {
    Page page = emptyPage(jet4);
    for (const char* text : {"first", "second", "third"})
        insert(jet4, page, text);
    eraseRow(jet4, page.data(), 1);
    EXPECT_EQ(get16(&page[12]), 3);
    EXPECT_EQ(get16(&page[14]), 4091);
    EXPECT_EQ(get16(&page[16]), 0xC000 | 4091);
    EXPECT_EQ(get16(&page[18]), 4086);
    EXPECT_EQ(get16(&page[2]), 4086 - 14 - 6);
    EXPECT_EQ(std::string(page.begin() + 4080, page.end()), std::string(6, '\0') + "thirdfirst");
    EXPECT_EQ(row(jet4, page, 0), "first");
    EXPECT_EQ(row(jet4, page, 1), "");
    EXPECT_EQ(row(jet4, page, 2), "third");
    EXPECT_EQ(PageSlots(jet4, page.data(), 1).liveCount(), 2u);
}

TEST(PageSlotsTest, ErasingTheFirstOfAFullPageGivesTheSlotD000) {
    Page page = emptyPage(jet4);
    insert(jet4, page, "only");
    eraseRow(jet4, page.data(), 0);
    EXPECT_EQ(get16(&page[14]), 0xD000);
}

TEST(PageSlotsTest, DeletedSlotsAtTheEndAreUsedAgainOthersNot) {
    Page page = emptyPage(jet4);
    for (const char* text : {"a", "b", "c", "d"})
        insert(jet4, page, text);
    eraseRow(jet4, page.data(), 1);
    eraseRow(jet4, page.data(), 2);
    EXPECT_EQ(insert(jet4, page, "e"), 4u);
    eraseRow(jet4, page.data(), 4);
    eraseRow(jet4, page.data(), 3);
    EXPECT_EQ(insert(jet4, page, "f"), 1u);
    EXPECT_EQ(get16(&page[12]), 2);
    EXPECT_EQ(get16(&page[2]), 4094 - 14 - 4);
    EXPECT_EQ(row(jet4, page, 1), "f");
}

TEST(PageSlotsTest, ADeletedSlotThatKeptItsBytesIsNotReused) {
    Page page = emptyPage(jet4);
    insert(jet4, page, "a");
    insert(jet4, page, "b");
    put16(&page[16], get16(&page[16]) | 0xC000u);
    EXPECT_EQ(insert(jet4, page, "c"), 2u);
}

TEST(PageSlotsTest, RoomCountsTheSlotToo) {
    Page page = emptyPage(jet4);
    EXPECT_TRUE(hasRoom(jet4, page.data(), 4080));
    EXPECT_FALSE(hasRoom(jet4, page.data(), 4081));
    insert(jet4, page, std::string(4000, 'x'));
    EXPECT_TRUE(hasRoom(jet4, page.data(), 78));
    EXPECT_FALSE(hasRoom(jet4, page.data(), 79));
}

TEST(PageSlotsTest, APageTakesNoMoreThan255Rows) {
    Page page = emptyPage(jet4);
    for (int i = 0; i < 255; ++i) {
        ASSERT_TRUE(hasRoom(jet4, page.data(), 1));
        insert(jet4, page, "x");
    }
    EXPECT_FALSE(hasRoom(jet4, page.data(), 1));
}

TEST(PageSlotsTest, ARowGrowsAtItsEndAndShrinksThere) {
    Page page = emptyPage(jet4);
    for (const char* text : {"first", "second", "third"})
        insert(jet4, page, text);
    resizeRow(jet4, page.data(), 1, 8);
    EXPECT_EQ(row(jet4, page, 0), "first");
    EXPECT_EQ(row(jet4, page, 1), std::string("second\0\0", 8));
    EXPECT_EQ(row(jet4, page, 2), "third");
    EXPECT_EQ(get16(&page[2]), 4096 - 18 - 14 - 6);
    resizeRow(jet4, page.data(), 0, 2);
    EXPECT_EQ(row(jet4, page, 0), "fi");
    EXPECT_EQ(row(jet4, page, 2), "third");
    EXPECT_EQ(get16(&page[2]), 4096 - 15 - 14 - 6);
}

TEST(PageSlotsTest, ImpossibleSlotsAreDamage) {
    const auto isDamaged = [](const Page& page) {
        try {
            checkSlots(jet4, page.data(), 7);
        } catch (const base::Error& error) {
            EXPECT_EQ(error.number(), base::ErrorNumber::DatabaseCorrupt);
            EXPECT_EQ(error.place(), u"page 7");
            return true;
        }
        return false;
    };
    Page page = emptyPage(jet4);
    for (const char* text : {"first", "second", "third"})
        insert(jet4, page, text);
    EXPECT_FALSE(isDamaged(page));
    Page risen = page;
    put16(&risen[16], 4093);  // above the row before it
    EXPECT_TRUE(isDamaged(risen));
    Page low = page;
    put16(&low[18], 19);  // inside the slot table
    EXPECT_TRUE(isDamaged(low));
    Page many = page;
    put16(&many[12], 5000);
    EXPECT_TRUE(isDamaged(many));
    Page other = page;
    other[0] = 2;
    EXPECT_TRUE(isDamaged(other));
}

}  // namespace

}  // namespace jet
