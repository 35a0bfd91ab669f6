// Whatever the bytes of a file, reading it ends, in values or in an error.
#include <random>

#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using fakes::FaultyFileStore;
using fakes::FileBytes;

FileBytes filledFile() {
    FaultyFileStore files;
    files.put(kPath, shippedFile());
    const auto store = Store::open(files, kPath);
    appendRows(*store, makeRows(0, 40));
    std::vector<RowId> rows = rowIds(store->table(kTable));
    rows.resize(7);
    removeRows(*store, rows);
    return files.get(kPath);
}

// Reads all tables that a user can name, and tries to change one of them.
void exercise(const FileBytes& bytes, const std::vector<std::u16string>& tables) {
    FaultyFileStore files;
    files.setCapacity(bytes.size() + (size_t{1} << 20));
    files.put(kPath, bytes);
    try {
        const auto store = Store::open(files, kPath);
        for (const std::u16string& name : tables) {
            try {
                Table& table = store->table(name);
                contents(table);
                store->begin();
                const std::vector<RowId> rows = rowIds(table);
                for (size_t i = 0; i < rows.size() && i < 10; ++i)
                    table.remove(rows[i]);
                table.append(Row(table.definition().columns.size(), Null{}));
                store->commit();
            } catch (const base::Error&) {
                store->rollback();
            }
        }
    } catch (const base::Error&) {
    }
}

void exerciseWithFlips(const FileBytes& bytes, const std::vector<std::u16string>& tables,
                       int rounds) {
    std::mt19937 random(1);
    for (int round = 0; round < rounds; ++round) {
        FileBytes spoiled = bytes;
        const size_t flips = 1 + random() % 40;
        for (size_t flip = 0; flip < flips; ++flip) {
            // Most structure lies at the start of a page; the map of page 1 and definitions first.
            const size_t page = random() % (spoiled.size() / 2048) * 2048;
            const size_t offset = random() % 3 == 0 ? random() % 2048 : random() % 80;
            spoiled[page + offset] = static_cast<uint8_t>(random());
        }
        exercise(spoiled, tables);
    }
}

TEST(CorruptionTest, FlippedBytesOfACatalogueAreErrorsOrValues) {
    exerciseWithFlips(filledFile(), {u"ListDonnees", u"MSysObjects"}, 150);
}

TEST(CorruptionTest, FlippedBytesOfOtherFilesAreErrorsOrValues) {
    for (const char* name : {"testV1997.mdb", "overflowTestV2000.mdb", "overflowTestV1997.mdb"}) {
        const FileBytes bytes = sampleFile(name);
        if (bytes.empty()) GTEST_SKIP() << "no samples here";
        exerciseWithFlips(bytes, {u"Table1", u"Table2", u"MSysObjects"}, 25);
    }
}

TEST(CorruptionTest, TruncatedFilesAreErrorsOrValues) {
    const FileBytes bytes = filledFile();
    for (size_t size = 0; size < bytes.size(); size += 4096) {
        exercise(FileBytes(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(size)),
                 {u"ListDonnees"});
        exercise(FileBytes(bytes.begin(), bytes.begin() + static_cast<ptrdiff_t>(size + 1000)),
                 {u"ListDonnees"});
    }
}

// What a transaction cut short at `operation` leaves.
std::unique_ptr<FaultyFileStore> cutShort(const FileBytes& bytes, uint64_t operation) {
    FaultyFileStore files;
    files.put(kPath, bytes);
    const auto store = Store::open(files, kPath, {.spillBytes = 16384});
    files.failAt(operation, fakes::Fault::Cut);
    EXPECT_THROW(appendRows(*store, makeRows(100, 60)), base::Error);
    return files.afterCrash({});
}

TEST(CorruptionTest, SpoiledJournalsAreErrorsOrValues) {
    const FileBytes bytes = filledFile();
    FaultyFileStore whole;
    whole.put(kPath, bytes);
    {
        const auto store = Store::open(whole, kPath, {.spillBytes = 16384});
        whole.failAt(~uint64_t{0}, fakes::Fault::None);
        appendRows(*store, makeRows(100, 60));
    }
    const std::u16string journal = std::u16string(kPath) + u"-journal";
    std::mt19937 random(2);
    // A journal of the old size alone, and a complete one.
    for (const uint64_t operation : {uint64_t{6}, whole.operations() - 6}) {
        const auto crashed = cutShort(bytes, operation);
        ASSERT_TRUE(crashed->exists(journal));
        for (int round = 0; round < 40; ++round) {
            const auto again = crashed->afterCrash({});
            FileBytes spoiled = again->get(journal);
            const size_t reach = round % 2 == 0 ? size_t{56} : spoiled.size();
            spoiled[random() % reach] = static_cast<uint8_t>(random());
            if (round % 5 == 0) spoiled.resize(random() % spoiled.size());
            again->put(journal, spoiled);
            try {
                contentsOf(*again);
            } catch (const base::Error&) {
            }
        }
    }
}

}  // namespace

}  // namespace jet
