// Files at the largest size of their format. They are full of holes, so that they take no room.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <memory>

#include "base/error.h"
#include "jet/store.h"
#include "tests/platform/posix/cataloguefolder.h"

namespace platform::posix {

namespace {

constexpr uint64_t kLargest = uint64_t{2} << 30;
constexpr uint64_t kPage = 4096;
constexpr int kRows = 800;
// Pages so far from the others need some of their own to be mapped, before there is one with a row.
constexpr uint64_t kFilled = kLargest - 20 * kPage;

class HugeFileTest : public CatalogueFolderTest {
  protected:
    // The map of free pages names some before the file has them; rows come first to use these up.
    // The holes behind them belong to nobody.
    void SetUp() override {
        CatalogueFolderTest::SetUp();
        appendRows(kRows);
        fillTo(kFilled);
    }

    void fillTo(uint64_t bytes) const { std::filesystem::resize_file(file(), bytes); }

    void appendRows(int count, size_t length = 3000) {
        const auto store = jet::Store::open(files_, path_);
        store->begin();
        append(store->table(u"ListDonnees"), count, length);
        store->commit();
    }
    // Row by row until the file takes no more; gives how many it took.
    uint64_t appendUntilFull(size_t length) {
        uint64_t count = 0;
        try {
            for (; count < kRows; ++count)
                appendRows(1, length);
            ADD_FAILURE();
        } catch (const base::Error& error) {
            EXPECT_EQ(error.number(), base::ErrorNumber::NotSupported);
            EXPECT_EQ(error.text(), u"La base de données a atteint la taille maximale de 2 Go.");
        }
        return count;
    }
    uint64_t rows() { return jet::Store::open(files_, path_)->table(u"ListDonnees").rowCount(); }
};

TEST_F(HugeFileTest, TakesRowsUpToTheLargestSize) {
    const uint64_t count = kRows + appendUntilFull(3000) + appendUntilFull(300);
    EXPECT_EQ(std::filesystem::file_size(file()), kLargest);
    EXPECT_EQ(rows(), count);
}

TEST_F(HugeFileTest, WhatDoesNotFitLeavesEverythingAsItWas) {
    EXPECT_THROW(appendRows(100), base::Error);
    EXPECT_EQ(std::filesystem::file_size(file()), kFilled);
    EXPECT_EQ(rows(), uint64_t{kRows});
}

TEST_F(HugeFileTest, ALargerFileIsRefused) {
    fillTo(kLargest + kPage);
    try {
        rows();
        ADD_FAILURE();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), base::ErrorNumber::NotSupported);
        EXPECT_EQ(error.text(), u"Cette base de données dépasse la taille maximale de son format.");
    }
    EXPECT_EQ(std::filesystem::file_size(file()), kLargest + kPage);
}

}  // namespace

}  // namespace platform::posix
