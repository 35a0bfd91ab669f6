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

    // Begins the journal of a transaction that makes the file longer by three pages and changes
    // page 5, and breaks off before its end, or at it; the file got longer already. Gives it
    // mended.
    fakes::FileBytes mended(bool complete) {
        auto journal = std::make_unique<JournalWriter>(files_, kPath, kPageSize);
        journal->begin(old_);
        journal->secureOldState();
        journal->addPage(5, changed_);
        if (complete) journal->finish(size_ + 3 * kPageSize);
        journal.reset();
        files_.open(kPath)->resize(size_ + kPageSize);
        recoverFromJournal(files_, kPath, *files_.open(kPath));
        EXPECT_FALSE(files_.exists(journalPath(kPath)));
        return files_.get(kPath);
    }

    const std::vector<uint8_t> changed_ = std::vector<uint8_t>(kPageSize, 7);
    fakes::FaultyFileStore files_;
    uint64_t size_ = 0;
    FileIdentity old_{};
};

TEST_F(JournalTest, PagesWrittenAheadAreCutOff) {
    const fakes::FileBytes before = files_.get(kPath);
    EXPECT_EQ(mended(false), before);
}

TEST_F(JournalTest, ACompleteJournalIsCarriedOut) {
    fakes::FileBytes after = files_.get(kPath);
    std::copy(changed_.begin(), changed_.end(), after.begin() + 5 * kPageSize);
    after.resize(size_ + 3 * kPageSize);
    EXPECT_EQ(mended(true), after);
}

TEST_F(JournalTest, OneThatIsTakenBackOrEndedSaysNothing) {
    for (const bool ended : {false, true}) {
        JournalWriter journal(files_, kPath, kPageSize);
        journal.begin(old_);
        journal.addPage(5, changed_);
        journal.finish(size_);
        ASSERT_TRUE(needsRecovery(files_, kPath, *files_.open(kPath)));
        if (ended)
            journal.end();
        else
            journal.unfinish();
        // Not even after the power was cut.
        for (uint32_t seed = 0; seed < 6; ++seed) {
            const auto after = files_.afterCrash(seed);
            EXPECT_FALSE(needsRecovery(*after, kPath, *after->open(kPath)));
        }
    }
}

TEST_F(JournalTest, OneThatIsTakenBackStillTellsTheOldSize) {
    {
        JournalWriter journal(files_, kPath, kPageSize);
        journal.begin(old_);
        journal.addPage(5, changed_);
        journal.finish(size_ + kPageSize);
        journal.unfinish();
    }
    const fakes::FileBytes before = files_.get(kPath);
    files_.open(kPath)->resize(size_ + kPageSize);
    recoverFromJournal(files_, kPath, *files_.open(kPath));
    EXPECT_EQ(files_.get(kPath), before);
}

// One that was never whole says nothing but the old size, and that of its own file alone.
TEST_F(JournalTest, ABrokenOneChangesNoFileOfItsSizeNorOneThatWentOn) {
    JournalWriter journal(files_, kPath, kPageSize);
    journal.begin(old_);
    for (uint32_t number = 0; number < 70; ++number)  // more than waits in memory
        journal.addPage(2, changed_);
    ASSERT_GT(files_.get(journalPath(kPath)).size(), 60 * kPageSize);
    const auto file = files_.open(kPath);
    EXPECT_FALSE(needsRecovery(files_, kPath, *file));
    file->resize(size_ + kPageSize);
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
    file->write(2 * kPageSize - 1, std::vector<uint8_t>(1, 0x55));  // the global map's last byte
    EXPECT_FALSE(needsRecovery(files_, kPath, *file));
}

TEST_F(JournalTest, AFileThatTheTransactionReachedNeedsNoMending) {
    JournalWriter journal(files_, kPath, kPageSize);
    journal.begin(old_);
    const std::vector<uint8_t> added(kPageSize, 8);
    journal.addPage(5, changed_);
    journal.addPage(static_cast<uint32_t>(size_ / kPageSize), added);
    journal.finish(size_ + 2 * kPageSize);
    const auto file = files_.open(kPath);
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
    file->write(5 * kPageSize, changed_);
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
    file->write(size_, added);
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
    file->resize(size_ + 2 * kPageSize);
    EXPECT_FALSE(needsRecovery(files_, kPath, *file));
    file->write(size_ + kPageSize - 1, std::vector<uint8_t>(1, 9));
    EXPECT_TRUE(needsRecovery(files_, kPath, *file));
}

TEST_F(JournalTest, OneSpoiledAnywhereSaysNothing) {
    {
        JournalWriter journal(files_, kPath, kPageSize);
        journal.begin(old_);
        journal.addPage(5, changed_);
        journal.finish(size_);
    }
    const auto file = files_.open(kPath);
    ASSERT_TRUE(needsRecovery(files_, kPath, *file));
    const fakes::FileBytes whole = files_.get(journalPath(kPath));
    for (size_t at = 0; at < whole.size(); at += at < 200 ? 1 : 61) {
        fakes::FileBytes spoiled = whole;
        spoiled[at] ^= 0x10;
        files_.put(journalPath(kPath), spoiled);
        EXPECT_FALSE(needsRecovery(files_, kPath, *file)) << at;
    }
}

// A killed process may leave what only the system knows; without the journal, losing the power then
// would harm the file.
TEST_F(JournalTest, MendingFlushesTheFileBeforeTheJournalGoes) {
    {
        JournalWriter journal(files_, kPath, kPageSize);
        journal.begin(old_);
        journal.addPage(5, changed_);
        journal.finish(size_);
    }
    files_.open(kPath)->write(5 * kPageSize, changed_);
    recoverFromJournal(files_, kPath, *files_.open(kPath));
    const fakes::FileBytes after = files_.get(kPath);
    for (uint32_t seed = 0; seed < 6; ++seed)
        EXPECT_EQ(files_.afterCrash(seed)->get(kPath), after);
}

}  // namespace

}  // namespace jet
