#include "jet/store.h"

#include <chrono>
#include <limits>
#include <thread>

#include "jet/journal.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using base::ErrorNumber;

class StoreTest : public StoreFixture {
  protected:
    // What another thread flushes fails.
    void failInTheBackground() {
        files_.onFlush([here = std::this_thread::get_id()] {
            if (std::this_thread::get_id() != here)
                throw base::Error(ErrorNumber::DeviceIo, u"Panne simulée.");
        });
    }
};

constexpr int code(ErrorNumber number) {
    return static_cast<int>(number);
}

std::vector<RowId> everySecond(const std::vector<RowId>& rows) {
    std::vector<RowId> chosen;
    for (size_t i = 0; i < rows.size(); i += 2)
        chosen.push_back(rows[i]);
    return chosen;
}

TEST_F(StoreTest, TheShippedFileIsSoundAndEmpty) {
    expectSound();
    EXPECT_FALSE(store_->readOnly());
    EXPECT_EQ(table().rowCount(), 0u);
    EXPECT_TRUE(contents(table()).empty());
}

TEST_F(StoreTest, TablesAreFoundWhateverTheCase) {
    EXPECT_TRUE(store_->hasTable(u"listDONNEES"));
    EXPECT_FALSE(store_->hasTable(u"List"));
    EXPECT_EQ(&store_->table(u"LISTDONNEES"), &store_->table(u"listdonnees"));
    EXPECT_EQ(store_->table(u"LISTDONNEES").definition().name, u"ListDonnees");
    EXPECT_EQ(errorOf([&] { store_->table(u"Autre"); }), code(ErrorNumber::TableNotFound));
}

TEST_F(StoreTest, CommittedRowsAreReadBackAndStayAfterReopening) {
    const std::vector<Row> rows = makeRows(0, 100);
    appendRows(*store_, rows);
    EXPECT_EQ(contents(table()), lines(rows));
    EXPECT_EQ(table().rowCount(), 100u);
    expectSound();
    open();
    EXPECT_EQ(contents(table()), lines(rows));
    EXPECT_EQ(table().rowCount(), 100u);
}

TEST_F(StoreTest, RowsOfTheRunningTransactionAreSeenAtOnce) {
    store_->begin();
    const RowId first = table().append(makeRow(1));
    table().append(makeRow(2));
    EXPECT_EQ(table().rowCount(), 2u);
    EXPECT_EQ(contents(table()), lines(makeRows(1, 2)));
    table().remove(first);
    EXPECT_FALSE(table().isLive(first));
    EXPECT_EQ(table().rowCount(), 1u);
    EXPECT_EQ(contents(table()), lines(makeRows(2, 1)));
    store_->commit();
    expectSound();
}

TEST_F(StoreTest, RemovingFreesTheRowsAndTheirLongValues) {
    appendRows(*store_, makeRows(0, 60));
    removeRows(*store_, everySecond(rowIds(table())));
    EXPECT_EQ(table().rowCount(), 30u);
    expectSound();
    removeRows(*store_, rowIds(table()));
    EXPECT_EQ(table().rowCount(), 0u);
    EXPECT_TRUE(contents(table()).empty());
    expectSound();
}

TEST_F(StoreTest, RowsAddedAndRemovedInOneTransactionLeaveNothing) {
    appendRows(*store_, makeRows(0, 20));
    store_->begin();
    std::vector<RowId> added;
    for (const Row& row : makeRows(100, 40))
        added.push_back(table().append(row));
    for (const RowId row : added)
        table().remove(row);
    store_->commit();
    EXPECT_EQ(contents(table()), lines(makeRows(0, 20)));
    expectSound();
}

TEST_F(StoreTest, RollingBackBringsTheOldStateBack) {
    appendRows(*store_, makeRows(0, 40));
    const fakes::FileBytes before = files_.get(kPath);
    store_->begin();
    for (const RowId row : everySecond(rowIds(table())))
        table().remove(row);
    for (const Row& row : makeRows(100, 200))
        table().append(row);
    store_->rollback();
    EXPECT_FALSE(store_->inTransaction());
    EXPECT_EQ(files_.get(kPath), before);
    EXPECT_EQ(contents(table()), lines(makeRows(0, 40)));
    EXPECT_EQ(table().rowCount(), 40u);
}

TEST_F(StoreTest, RollingBackAfterSpillingCutsTheFileToItsOldSize) {
    open({.spillBytes = 16384});
    const fakes::FileBytes before = files_.get(kPath);
    store_->begin();
    for (const Row& row : makeRows(0, 200))
        table().append(row);
    EXPECT_GT(files_.get(kPath).size(), before.size() + 65536);
    EXPECT_EQ(contents(table()), lines(makeRows(0, 200)));
    store_->rollback();
    EXPECT_EQ(files_.get(kPath), before);
    store_.reset();
    EXPECT_FALSE(files_.exists(u"C:\\Brivantole\\Brivantole.mdb-journal"));
}

TEST_F(StoreTest, ClosingRollsBack) {
    const fakes::FileBytes before = files_.get(kPath);
    store_->begin();
    table().append(makeRow(1));
    store_.reset();
    EXPECT_EQ(files_.get(kPath), before);
}

TEST_F(StoreTest, NoJournalIsLeftByClosing) {
    appendRows(*store_, makeRows(0, 10));
    store_.reset();
    EXPECT_FALSE(files_.exists(u"C:\\Brivantole\\Brivantole.mdb-journal"));
}

// A backup of the folder, taken while the program runs, must not undo what its file shows.
TEST_F(StoreTest, TheJournalOfACommittedTransactionSaysNothing) {
    appendRows(*store_, makeRows(0, 10));
    store_->finishWriting();
    const auto copy = files_.afterCrash({});
    ASSERT_TRUE(copy->exists(journalPath(kPath)));
    appendRows(*store_, makeRows(10, 10));
    const fakes::FileBytes later = files_.get(kPath);
    copy->put(kPath, later);
    EXPECT_EQ(contentsOf(*copy), lines(makeRows(0, 20)));
    EXPECT_EQ(copy->get(kPath), later);
}

// Creating the journal apart, a transaction waits for the medium once; the file is flushed later,
// and then the journal's end.
TEST_F(StoreTest, ACommitWaitsForTheJournalAlone) {
    appendRows(*store_, makeRows(0, 10));
    store_->finishWriting();
    const uint64_t before = files_.flushes();
    appendRows(*store_, makeRows(10, 10));
    store_->finishWriting();
    EXPECT_EQ(files_.flushes(), before + 3);

    failInTheBackground();
    appendRows(*store_, makeRows(20, 10));
    EXPECT_EQ(errorOf([&] { store_->finishWriting(); }), code(ErrorNumber::DeviceIo));
    EXPECT_EQ(contents(table()), lines(makeRows(0, 30)));
    EXPECT_EQ(errorOf([&] { store_->begin(); }), code(ErrorNumber::NotWritable));
    store_.reset();
    // The medium has it nevertheless.
    for (uint32_t seed = 0; seed < 20; ++seed)
        EXPECT_EQ(contentsOf(*files_.afterCrash(seed)), lines(makeRows(0, 30)));
    files_.onFlush({});
    open();
    appendRows(*store_, makeRows(30, 10));
    EXPECT_EQ(contents(table()), lines(makeRows(0, 40)));
    expectSound();
}

TEST_F(StoreTest, TheNextCommitWritesNothingBeforeTheLastOneIsInTheFile) {
    appendRows(*store_, makeRows(0, 10));
    store_->finishWriting();
    const std::thread::id here = std::this_thread::get_id();
    bool held = false;
    bool overtaken = false;
    files_.failAt(~uint64_t{0}, fakes::Fault::None);
    files_.onFlush([&] {
        if (std::this_thread::get_id() == here || held) return;
        held = true;
        // Nobody else may write meanwhile, and so the patience is always used up.
        const uint64_t before = files_.operations();
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(200);
        while (!overtaken && std::chrono::steady_clock::now() < end)
            overtaken = files_.operations() != before;
    });
    appendRows(*store_, makeRows(10, 10));
    appendRows(*store_, makeRows(20, 10));
    store_->finishWriting();
    EXPECT_TRUE(held);
    EXPECT_FALSE(overtaken);
}

TEST_F(StoreTest, ATransactionDoesNotBeginOnceTheLastOneIsKnownNotToReachTheFile) {
    failInTheBackground();
    appendRows(*store_, makeRows(0, 10));
    int error = 0;
    constexpr int kPatience = 10'000'000;
    for (int tries = 0; error == 0 && tries < kPatience; ++tries) {
        error = errorOf([&] { store_->begin(); });
        store_->rollback();
    }
    EXPECT_EQ(error, code(ErrorNumber::DeviceIo));
    EXPECT_EQ(errorOf([&] { store_->begin(); }), code(ErrorNumber::NotWritable));
}

TEST_F(StoreTest, ChangesAreCounted) {
    uint64_t last = store_->changeCount();
    const auto grown = [&] {
        const uint64_t before = last;
        last = store_->changeCount();
        return last > before;
    };
    store_->begin();
    const RowId row = table().append(makeRow(1));
    EXPECT_TRUE(grown());
    table().remove(row);
    EXPECT_TRUE(grown());
    store_->rollback();
    EXPECT_TRUE(grown());
}

TEST_F(StoreTest, ChangesNeedATransactionAndThereIsOneAtATime) {
    EXPECT_EQ(errorOf([&] { table().append(makeRow(1)); }), code(ErrorNumber::InvalidOperation));
    EXPECT_EQ(errorOf([&] { store_->commit(); }), code(ErrorNumber::InvalidOperation));
    store_->rollback();
    store_->begin();
    EXPECT_EQ(errorOf([&] { store_->begin(); }), code(ErrorNumber::InvalidOperation));
}

TEST_F(StoreTest, ARefusedRowLeavesTheTransactionAsItWas) {
    store_->begin();
    table().append(makeRow(1));
    Row tooLong = makeRow(2);
    tooLong[6] = std::u16string(51, u'x');
    try {
        table().append(tooLong);
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::ValueTooLong);
        EXPECT_NE(error.text().find(u"Type"), std::u16string::npos);
        EXPECT_NE(error.text().find(u"50"), std::u16string::npos);
    }
    table().append(makeRow(3));
    store_->commit();
    EXPECT_EQ(contents(table()), lines({makeRow(1), makeRow(3)}));
    expectSound();
}

TEST_F(StoreTest, ARowHasNothingOfTheOneAddedBeforeIt) {
    const Row full = makeRow(1);
    const Row empty(full.size(), Value(Null{}));
    appendRows(*store_, {empty});
    const RowId first = rowIds(table()).front();
    appendRows(*store_, {full, empty});
    const auto bytesOf = [this](RowId row) {
        const RowView view = table().row(row);
        return std::vector<uint8_t>(view.bytes, view.bytes + view.length);
    };
    EXPECT_EQ(bytesOf(rowIds(table()).back()), bytesOf(first));
}

TEST_F(StoreTest, AReadOnlyFileIsReadAndRefusesTransactions) {
    appendRows(*store_, makeRows(0, 3));
    store_.reset();
    files_.setReadOnly(true);
    open();
    EXPECT_TRUE(store_->readOnly());
    EXPECT_EQ(contents(table()), lines(makeRows(0, 3)));
    EXPECT_EQ(errorOf([&] { store_->begin(); }), code(ErrorNumber::NotWritable));
}

TEST_F(StoreTest, AFileInUseIsRefused) {
    EXPECT_EQ(errorOf([&] { Store::open(files_, kPath); }), code(ErrorNumber::FileInUse));
}

TEST_F(StoreTest, AnErrorWhileOpeningNamesTheFile) {
    files_.put(u"D:\\x.mdb", fakes::FileBytes(4096 * 3));
    try {
        Store::open(files_, u"D:\\x.mdb");
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.place(), u"D:\\x.mdb");
    }
}

TEST_F(StoreTest, AFullDiskRollsBackAndTheNextTransactionWorks) {
    open({.spillBytes = 16384});
    appendRows(*store_, makeRows(0, 10));
    const fakes::FileBytes before = files_.get(kPath);
    files_.setCapacity(before.size() + 100000);
    store_->begin();
    EXPECT_EQ(errorOf([&] {
                  for (const Row& row : makeRows(10, 1000))
                      table().append(row);
              }),
              code(ErrorNumber::DiskFull));
    EXPECT_EQ(errorOf([&] { table().append(makeRow(1)); }), code(ErrorNumber::InvalidOperation));
    EXPECT_EQ(errorOf([&] { store_->commit(); }), code(ErrorNumber::InvalidOperation));
    EXPECT_EQ(files_.get(kPath), before);
    EXPECT_EQ(contents(table()), lines(makeRows(0, 10)));
    appendRows(*store_, makeRows(10, 10));
    EXPECT_EQ(contents(table()), lines(makeRows(0, 20)));
    expectSound();
}

TEST_F(StoreTest, RescanningOneMediumAHundredTimesDoesNotDoubleTheFile) {
    appendRows(*store_, makeRows(1000, 15));
    appendRows(*store_, makeRows(0, 60));
    const uint64_t once = files_.get(kPath).size();
    for (int round = 0; round < 100; ++round) {
        std::vector<RowId> old;
        table().forEachRow([&](RowId id, RowView row) {
            double size = 0;
            table().number(row, *table().definition().find(u"Taille"), size);
            if (size < 1000 * 1000.5) old.push_back(id);
        });
        ASSERT_EQ(old.size(), 60u);
        store_->begin();
        for (const RowId row : old)
            table().remove(row);
        for (const Row& row : makeRows(0, 60))
            table().append(row);
        store_->commit();
    }
    EXPECT_LT(files_.get(kPath).size(), 2 * once);
    EXPECT_EQ(table().rowCount(), 75u);
    expectSound();
}

TEST_F(StoreTest, RewritingSingleRowsHundredsOfTimesDoesNotFillPagesWithDeadSlots) {
    appendRows(*store_, makeRows(0, 30));
    const uint64_t once = files_.get(kPath).size();
    for (int round = 0; round < 700; ++round) {
        const std::vector<RowId> rows = rowIds(table());
        const RowId row = rows[static_cast<size_t>(round) % rows.size()];
        const Row values = readRow(table(), table().row(row));
        store_->begin();
        table().remove(row);
        table().append(values);
        store_->commit();
    }
    EXPECT_LT(files_.get(kPath).size(), 2 * once);
    EXPECT_EQ(contents(table()), lines(makeRows(0, 30)));
    expectSound();
}

TEST_F(StoreTest, ManyRowsOutgrowTheFirstMaps) {
    for (int round = 0; round < 3; ++round)
        appendRows(*store_, makeRows(round * 1500, 1500));
    EXPECT_GT(files_.get(kPath).size() / 4096, 1200u);
    EXPECT_EQ(contents(table()), lines(makeRows(0, 4500)));
    expectSound();
    removeRows(*store_, everySecond(rowIds(table())));
    expectSound();
    appendRows(*store_, makeRows(20000, 100));
    EXPECT_EQ(table().rowCount(), 2350u);
    expectSound();
}

}  // namespace

}  // namespace jet
