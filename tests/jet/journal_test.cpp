#include "jet/journal.h"

#include "tests/jet/storefixture.h"

namespace jet {

namespace {

constexpr uint32_t kPageSize = 4096;

class JournalTest : public testing::Test {
  protected:
    void SetUp() override {
        files_.put(kPath, shippedFile());
        size_ = files_.get(kPath).size();
        old_ = identify(*files_.open(kPath), kPageSize);
    }

    // Begins the journal of a transaction that makes the file longer, and breaks off before its
    // end; gives the size of the file after mending.
    uint64_t sizeMended(bool writesAhead, bool complete) {
        auto journal = std::make_unique<JournalWriter>(files_, kPath, kPageSize);
        journal->begin(old_, writesAhead);
        const fakes::FileBytes before = files_.get(kPath);
        for (uint32_t page = 2; page < 12; ++page)
            journal->addPage(page, std::span(before).subspan(page * kPageSize, kPageSize),
                             std::vector<uint8_t>(kPageSize, 7));
        if (complete) journal->finish(size_ + 3 * kPageSize);
        journal.reset();
        files_.open(kPath)->resize(size_ + 3 * kPageSize);
        const auto file = files_.open(kPath);
        recoverFromJournal(files_, kPath, *file);
        EXPECT_FALSE(files_.exists(journalPath(kPath)));
        return file->size();
    }

    fakes::FaultyFileStore files_;
    uint64_t size_ = 0;
    FileIdentity old_{};
};

TEST_F(JournalTest, PagesWrittenAheadAreCutOff) {
    EXPECT_EQ(sizeMended(true, false), size_);
}

TEST_F(JournalTest, ACompleteJournalUndoes) {
    EXPECT_EQ(sizeMended(false, true), size_);
}

// What is left of an earlier transaction's journal, half overwritten by the next, says nothing.
TEST_F(JournalTest, ABrokenOneWithoutPagesWrittenAheadChangesNothing) {
    JournalWriter journal(files_, kPath, kPageSize);
    journal.begin(old_, false);
    const std::vector<uint8_t> page(kPageSize, 7);
    for (uint32_t number = 0; number < 70; ++number)  // more than waits in memory
        journal.addPage(2, page, page);
    files_.open(kPath)->resize(size_ + kPageSize);
    const auto file = files_.open(kPath);
    ASSERT_GT(files_.get(journalPath(kPath)).size(), 60 * kPageSize);
    EXPECT_FALSE(needsRecovery(files_, kPath, *file));
}

TEST_F(JournalTest, ATransactionThatReachedTheFileStands) {
    fakes::FileBytes bytes = files_.get(kPath);
    JournalWriter journal(files_, kPath, kPageSize);
    journal.begin(old_, false);
    const std::vector<uint8_t> changed(kPageSize, 7);
    const std::vector<uint8_t> added(kPageSize, 8);
    journal.addPage(5, std::span(bytes).subspan(5 * kPageSize, kPageSize), changed);
    const auto newPage = static_cast<uint32_t>(size_ / kPageSize);
    journal.addNewPage(newPage, added);
    journal.finish(size_ + kPageSize);
    const auto file = files_.open(kPath);
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
    file->write(5 * kPageSize, changed);
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
    file->write(size_, added);
    EXPECT_FALSE(needsRecovery(files_, kPath, *file));
    file->write(size_ + kPageSize - 1, std::vector<uint8_t>(1, 9));
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
}

}  // namespace

}  // namespace jet
