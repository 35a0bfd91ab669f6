// Changes of a file that is damaged where opening it does not look.
#include "jet/longvalue.h"
#include "tests/jet/spoiledfile.h"

namespace jet {

namespace {

class SpoiledChangeTest : public testing::Test {
  protected:
    // What is spoiled from now on is not seen.
    Store& open() {
        files_.put(kPath, file_.bytes());
        store_ = Store::open(files_, kPath);
        return *store_;
    }

    // The last piece of a row's chain.
    RowId lastPiece(size_t row) {
        RowId piece{get32(file_.cell(row, kFichierCompil) + 4)};
        while (const uint32_t next = get32(file_.rowBytes(piece)))
            piece = RowId{next};
        return piece;
    }

    SpoiledFile file_;
    fakes::FaultyFileStore files_;
    std::unique_ptr<Store> store_;
};

TEST_F(SpoiledChangeTest, RemovingARowLeavesAloneWhatItsLastPieceNames) {
    const RowId others{get32(file_.cell(kChainedRow + 10, kFichierCompil) + 4)};
    put32(file_.rowBytes(lastPiece(kChainedRow)), others.value);
    Store& store = open();
    EXPECT_EQ(contents(store.table(kTable)), lines(makeRows(0, 40)));
    removeRows(store, {file_.row(kChainedRow)});
    std::vector<Row> rows = makeRows(0, 40);
    rows.erase(rows.begin() + kChainedRow);
    EXPECT_EQ(contents(store.table(kTable)), lines(rows));
    store_.reset();
    EXPECT_THAT(faultsIn(files_.get(kPath)), testing::IsEmpty());
}

TEST_F(SpoiledChangeTest, RemovingARowStopsWhereItsChainEndsEarly) {
    put32(file_.rowBytes(RowId{get32(file_.cell(kChainedRow, kFichierCompil) + 4)}), 0);
    Store& store = open();
    removeRows(store, {file_.row(kChainedRow)});
    EXPECT_EQ(store.table(kTable).rowCount(), 39u);
}

class SpoiledGlobalMapTest : public SpoiledChangeTest {
  protected:
    void SetUp() override { put16(file_.slotEntry(makeRowId(page::kGlobalMap, 1)), 4095); }

    // `change` must fail as a damaged file does and leave the rows as they were.
    template <typename Change>
    void expectRefused(Change&& change) {
        Store& store = open();
        EXPECT_EQ(errorOf([&] { change(store); }),
                  static_cast<int>(base::ErrorNumber::DatabaseCorrupt));
        if (store.inTransaction()) store.rollback();
        EXPECT_EQ(contents(store.table(kTable)), lines(makeRows(0, 40)));
        store_.reset();
        EXPECT_EQ(files_.get(kPath), file_.bytes());
    }
};

TEST_F(SpoiledGlobalMapTest, WhoseRowsAreOutOfOrderIsNotLengthened) {
    expectRefused([](Store& store) { appendRows(store, makeRows(100, 1500)); });
}

TEST_F(SpoiledGlobalMapTest, WhoseRowsAreOutOfOrderIsNotTurnedIntoOneOfReferences) {
    // It tells of no page before its first, which are the ones that become free.
    put32(file_.rowBytes(makeRowId(page::kGlobalMap, 0)) + 1, file_.pageCount());
    expectRefused([this](Store& store) {
        removeRows(store, {file_.row(kChainedRow), file_.row(kChainedRow + 10)});
    });
}

}  // namespace

}  // namespace jet
