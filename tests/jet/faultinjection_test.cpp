// Every single write, flush, resize, creation and removal goes wrong once: whatever happens, the
// next opening finds exactly the state before the transaction or exactly the state after it.
#include <functional>

#include "jet/journal.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using fakes::Fault;
using fakes::FaultyFileStore;
using fakes::FileBytes;

// New pages are written a few at a time, each write being one that may go wrong.
constexpr StoreOptions kSmallSpill{.spillBytes = 8192};
constexpr uint64_t kCapacity = uint64_t{1} << 20;

struct Scenario {
    const char* name;
    std::function<void(Table&)> change;  // inside a transaction, on 40 rows
    bool keep = true;                    // commit it
    // The first of its opening, or one after another, whose journal may come back.
    bool first = true;
};

void removeWhere(Table& table, const std::function<bool(size_t)>& chosen) {
    const std::vector<RowId> rows = rowIds(table);
    for (size_t i = 0; i < rows.size(); ++i)
        if (chosen(i)) table.remove(rows[i]);
}

void appendAll(Table& table, int first, int count) {
    for (const Row& row : makeRows(first, count))
        table.append(row);
}

// As a copy run remembers the tracks that it has kept.
void appendMarkers(Table& table) {
    for (int number = 0; number < 120; ++number) {
        Row row(7, Null{});
        row[0] = std::u16string(200, u'Ω');
        row[4] = static_cast<double>(number);
        row[6] = std::u16string(u"T");
        table.append(row);
    }
}

void replaceAll(Table& table) {
    removeWhere(table, [](size_t) { return true; });
    appendAll(table, 0, 35);
}

// Frees whole pages, which what comes next takes and writes early, and makes the file longer.
void changeEarlier(Table& table) {
    removeWhere(table, [](size_t i) { return i < 12; });
    appendAll(table, 301, 9);
}

const Scenario kScenarios[] = {
    {"Add", [](Table& table) { appendAll(table, 100, 35); }},
    {"Replace", replaceAll},
    {"AddAfterAnother", [](Table& table) { appendAll(table, 101, 9); }, true, false},
    {"AddMuchAfterAnother", [](Table& table) { appendAll(table, 100, 35); }, true, false},
    {"ReplaceAfterAnother", replaceAll, true, false},
    {"RemoveSomeAfterAnother",
     [](Table& table) { removeWhere(table, [](size_t i) { return i % 4 != 1; }); }, true, false},
    {"RemoveAll", [](Table& table) { removeWhere(table, [](size_t) { return true; }); }},
    {"RemoveSome", [](Table& table) { removeWhere(table, [](size_t i) { return i % 4 != 1; }); }},
    {"AddAndRemoveInTurns",
     [](Table& table) {
         for (int round = 0; round < 5; ++round) {
             removeWhere(table, [round](size_t i) { return i % 9 == static_cast<size_t>(round); });
             appendAll(table, 200 + 10 * round, 10);
         }
     }},
    {"MarkersTakenBack", appendMarkers, false},
    {"MarkersRemovedAmongNewRows",
     [](Table& table) {
         appendAll(table, 100, 10);
         appendMarkers(table);
         appendAll(table, 110, 10);
         std::vector<RowId> markers;
         table.forEachRow([&](RowId id, RowView row) {
             std::u16string type;
             if (table.text(row, table.definition().columns[6], type) && type == u"T")
                 markers.push_back(id);
         });
         for (const RowId row : markers)
             table.remove(row);
     }},
};

class FaultInjectionTest : public testing::TestWithParam<Scenario> {
  protected:
    // A file with freed pages inside, so that new pages come from there as well as from the end.
    void SetUp() override {
        FaultyFileStore files(kCapacity);
        files.put(kPath, shippedFile());
        {
            const auto store = Store::open(files, kPath);
            appendRows(*store, makeRows(500, 30));
            appendRows(*store, makeRows(0, 40));
            std::vector<RowId> first = rowIds(store->table(kTable));
            first.resize(30);
            removeRows(*store, first);
        }
        before_ = files.get(kPath);
        if (!GetParam().first) {
            const auto store = Store::open(files, kPath);
            changeEarlier(*store);
        }
        beforeRows_ = contentsOf(files);
        ASSERT_EQ(beforeRows_.size(), GetParam().first ? 40u : 37u);
        files.put(kPath, before_);
        operations_ = 0;
        run(files);
        operations_ = files.operations();
        afterRows_ = contentsOf(files);
        ASSERT_EQ(afterRows_ != beforeRows_, GetParam().keep);
        ASSERT_GT(operations_, 8u);
    }

    static void changeEarlier(Store& store) {
        store.begin();
        jet::changeEarlier(store.table(kTable));
        store.commit();
        store.finishWriting();
    }

    static std::unique_ptr<Store> openStore(FaultyFileStore& files) {
        std::unique_ptr<Store> store = Store::open(files, kPath, kSmallSpill);
        if (!GetParam().first) changeEarlier(*store);
        return store;
    }

    // The rest of a transaction that has begun.
    static void change(Store& store) {
        GetParam().change(store.table(kTable));
        if (GetParam().keep)
            store.commit();
        else
            store.rollback();
    }

    // Opens the file, changes it; gives whether the commit came back without an error.
    bool run(FaultyFileStore& files, uint64_t failingOperation = ~uint64_t{0},
             Fault fault = Fault::None, uint64_t cutOperation = ~uint64_t{0}) const {
        const std::unique_ptr<Store> store = openStore(files);
        files.failAt(failingOperation, fault);
        files.cutAt(cutOperation);
        try {
            store->begin();
            change(*store);
            return true;
        } catch (const base::Error&) {
            return false;
        }
    }

    // Opens what a crash left; it must hold the old rows, or the new ones.
    void expectOldOrNew(FaultyFileStore& files, bool committed, uint64_t operation) const {
        SCOPED_TRACE(testing::Message() << "operation " << operation);
        const std::vector<std::string> rows = contentsOf(files);
        EXPECT_EQ(rows, committed || rows != beforeRows_ ? afterRows_ : beforeRows_);
        EXPECT_THAT(faultsIn(files.get(kPath)), testing::IsEmpty());
        EXPECT_FALSE(files.exists(journalPath(kPath)));
    }

    FileBytes before_;
    std::vector<std::string> beforeRows_;
    std::vector<std::string> afterRows_;
    uint64_t operations_ = 0;
};

TEST_P(FaultInjectionTest, AKilledProcessLeavesTheOldStateOrTheNew) {
    for (uint64_t operation = 0; operation < operations_; ++operation) {
        FaultyFileStore files(kCapacity);
        files.put(kPath, before_);
        const bool committed = run(files, operation, Fault::Cut);
        expectOldOrNew(*files.afterCrash({}), committed, operation);
    }
}

TEST_P(FaultInjectionTest, APowerCutThatLosesOrTearsUnflushedWritesDoesSo) {
    for (uint64_t operation = 0; operation < operations_; ++operation) {
        FaultyFileStore files(kCapacity);
        files.put(kPath, before_);
        const bool committed = run(files, operation, Fault::Cut);
        for (uint32_t seed = 0; seed < 6; ++seed)
            expectOldOrNew(*files.afterCrash(seed), committed, operation);
    }
}

TEST_P(FaultInjectionTest, AnOperationThatFailsOnceRollsBackAndTheStoreGoesOn) {
    for (const Fault fault : {Fault::Fail, Fault::FailHalfDone}) {
        for (uint64_t operation = 0; operation < operations_; ++operation) {
            SCOPED_TRACE(testing::Message() << "operation " << operation);
            FaultyFileStore files(kCapacity);
            files.put(kPath, before_);
            {
                const auto store = openStore(files);
                files.failAt(operation, fault);
                bool committed = false;
                try {
                    store->begin();
                    change(*store);
                    committed = true;
                } catch (const base::Error&) {
                    store->rollback();
                }
                EXPECT_EQ(contents(store->table(kTable)), committed ? afterRows_ : beforeRows_);
                if (!committed) {
                    store->begin();
                    change(*store);
                }
                EXPECT_EQ(contents(store->table(kTable)), afterRows_);
            }
            expectOldOrNew(files, true, operation);
        }
    }
}

// What fails before the commit is through is taken back: a cut on that way leaves either state,
// too.
TEST_P(FaultInjectionTest, TakingAFailedTransactionBackMayBeCutShort) {
    constexpr uint64_t kSteps = 7;  // of taking back, at most
    for (uint64_t operation = 0; operation < operations_; ++operation) {
        for (uint64_t step = 1; step <= kSteps; ++step) {
            SCOPED_TRACE(testing::Message() << "step " << step);
            FaultyFileStore files(kCapacity);
            files.put(kPath, before_);
            const bool committed = run(files, operation, Fault::Fail, operation + step);
            expectOldOrNew(*files.afterCrash({}), committed, operation);
            expectOldOrNew(*files.afterCrash(static_cast<uint32_t>(step)), committed, operation);
        }
    }
}

TEST_P(FaultInjectionTest, MendingMayItselfBeCutShort) {
    for (uint64_t operation = 0; operation < operations_; operation += 3) {
        FaultyFileStore files(kCapacity);
        files.put(kPath, before_);
        run(files, operation, Fault::Cut);
        const auto crashed = files.afterCrash({});
        for (uint64_t mending = 0;; ++mending) {
            const auto again = crashed->afterCrash({});
            again->failAt(mending, Fault::Cut);
            try {
                Store::open(*again, kPath);
                expectOldOrNew(*again, false, operation);
                break;
            } catch (const base::Error&) {
                expectOldOrNew(*again->afterCrash(static_cast<uint32_t>(mending)), false,
                               operation);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, FaultInjectionTest, testing::ValuesIn(kScenarios),
                         [](const testing::TestParamInfo<Scenario>& scenario) {
                             return scenario.param.name;
                         });

}  // namespace

}  // namespace jet
