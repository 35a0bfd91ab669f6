// Files of Access itself are read as mdbtools reads them, and mdbtools reads what we write.
#include "tests/jet/mdbtools.h"

#include <algorithm>

#include "base/text.h"
#include "jet/format.h"
#include "tests/jet/customtable.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using fakes::FaultyFileStore;
using fakes::FileBytes;

class MdbtoolsTest : public StoreFixture {
  protected:
    void SetUp() override {
        if (!hasMdbtools()) GTEST_SKIP() << "mdbtools is not installed";
        StoreFixture::SetUp();
    }

    void expectSame() {
        const FileBytes bytes = files_.get(kPath);
        expectSameAsMdbtools(table(), mdbExport(bytes, "ListDonnees"), store_->format().wide);
        EXPECT_EQ(mdbCount(bytes, "ListDonnees"), std::to_string(table().rowCount()));
    }
};

class SampleTest : public testing::TestWithParam<const char*> {};

TEST_P(SampleTest, IsReadAsMdbtoolsReadsIt) {
    const FileBytes bytes = sampleFile(std::string(GetParam()) + ".mdb");
    if (bytes.empty() || !hasMdbtools()) GTEST_SKIP() << "no sample or no mdbtools here";
    FaultyFileStore files;
    files.put(kPath, bytes);
    const auto store = Store::open(files, kPath);
    const std::vector<std::string> tables = mdbTables(bytes);
    EXPECT_FALSE(tables.empty());
    for (const std::string& name : tables) {
        SCOPED_TRACE(name);
        Table& table = store->table(base::fromUtf8(name));
        EXPECT_EQ(mdbCount(bytes, name), std::to_string(table.rowCount()));
        EXPECT_EQ(rowIds(table).size(), table.rowCount());
        expectSameAsMdbtools(table, mdbExport(bytes, name), store->format().wide);
    }
}

INSTANTIATE_TEST_SUITE_P(All, SampleTest,
                         testing::Values("indexTestV2000", "overflowTestV2000",
                                         "testUnicodeCompV2003", "overflowTestV1997",
                                         "testIndexCodesV1997", "testV1997"));

TEST_F(MdbtoolsTest, ReadsWhatWeAppended) {
    appendRows(*store_, makeRows(0, 100));
    expectSame();
}

TEST_F(MdbtoolsTest, ReadsWhatIsLeftAfterRemoving) {
    appendRows(*store_, makeRows(0, 100));
    std::vector<RowId> rows = rowIds(table());
    rows.resize(55);
    removeRows(*store_, rows);
    expectSame();
    appendRows(*store_, makeRows(200, 80));
    expectSame();
    removeRows(*store_, rowIds(table()));
    expectSame();
}

TEST_F(MdbtoolsTest, FindsTheSchemaAsItWas) {
    const std::string schema = mdbSchema(files_.get(kPath));
    EXPECT_THAT(schema, testing::ContainsRegex("\\[Compilation\\][[:space:]]+Text \\(255\\)"));
    appendRows(*store_, makeRows(0, 300));
    removeRows(*store_, rowIds(table()));
    appendRows(*store_, makeRows(0, 20));
    EXPECT_EQ(mdbSchema(files_.get(kPath)), schema);
}

TEST_F(MdbtoolsTest, ReadsTextOfEveryLengthAroundTheLimits) {
    std::vector<Row> rows;
    for (const size_t length :
         {0u,    1u,    2u,    3u,    31u,   32u,   33u,   62u,   63u,   64u,  1023u,
          1024u, 1025u, 2037u, 2038u, 2039u, 4074u, 4075u, 4077u, 8145u, 9000u}) {
        for (const char16_t c : {u'é', u'Ω'}) {
            Row row = makeRow(1);
            row[0] = std::u16string(length, c);
            row[3] = std::u16string(length, c) + u"x";
            rows.push_back(row);
        }
    }
    appendRows(*store_, rows);
    EXPECT_EQ(contents(table()), lines(rows));
    expectSame();
    expectSound();
}

TEST_F(MdbtoolsTest, ReadsEveryColumnTypeThatWeWrite) {
    store_.reset();
    files_.put(kPath, fileWithColumns(
                          jet4, {
                                    {u"Oui", ColumnType::Boolean, 0, true},
                                    {u"Octet", ColumnType::Byte, 0, true},
                                    {u"Entier", ColumnType::Integer, 0, true},
                                    {u"Long", ColumnType::Long, 0, true},
                                    {u"Argent", ColumnType::Currency, 0, true},
                                    {u"Simple", ColumnType::Single, 0, true},
                                    {u"Double", ColumnType::Double, 0, true},
                                    {u"Date", ColumnType::Date, 0, true},
                                    {u"Texte", ColumnType::Text, 40, false, true},
                                    {u"Brut", ColumnType::Text, 40},
                                    {u"Mémo", ColumnType::Memo},
                                    {u"Décimal", ColumnType::Decimal, 0, true, false, false, 3},
                                    {u"Variable", ColumnType::Long, 0, false},
                                }));
    open();
    std::vector<Row> rows;
    for (int i = 0; i < 40; ++i) {
        const int64_t n = i * 7 - 40;
        const double real = i * 7 - 40;
        const std::u16string text = base::fromUtf8("né " + std::to_string(n));
        Row row{i % 2 == 0,
                int64_t{i},
                n * 100,
                n * 1000000,
                real * 1.25,
                real * 0.5,
                real / 3.0,
                36526.0 + i * 0.25,
                text,
                text + u"Ω",
                std::u16string(static_cast<size_t>(i * 5), u'm'),
                real * 1.125,
                n};
        if (i % 8 == 7)
            for (size_t k = 1; k < row.size(); ++k)
                row[k] = Null{};
        rows.push_back(row);
    }
    appendRows(*store_, rows);
    expectSame();
    expectSound();
    EXPECT_EQ(contents(table()).size(), 40u);
    removeRows(*store_, {rowIds(table())[3], rowIds(table())[17]});
    expectSame();
    expectSound();
}

TEST_F(MdbtoolsTest, ReadsAnAccess97CatalogueThatWeWrote) {
    store_.reset();
    files_.put(kPath, fileWithColumns(jet3, shippedColumns(jet3)));
    open();
    EXPECT_EQ(mdbTables(files_.get(kPath)), std::vector<std::string>{"ListDonnees"});
    std::vector<Row> rows;
    for (size_t i = 0; i < 60; ++i) {
        const std::u16string text(i * 37, u'é');
        rows.push_back({text, text + u"œ", std::u16string(u"E:\\€"),
                        i % 5 == 0 ? Value(Null{}) : Value(std::u16string(i * 150, u'ÿ')),
                        static_cast<double>(i) * 1e7, std::u16string(i * 4, u'c'),
                        std::u16string(u"MP3")});
    }
    appendRows(*store_, rows);
    expectSame();
    std::vector<RowId> removed = rowIds(table());
    removed.resize(25);
    removeRows(*store_, removed);
    expectSame();
    appendRows(*store_, rows);
    expectSame();
    expectSound();
}

TEST_F(MdbtoolsTest, ReadsAccess97RowsOfEveryLength) {
    store_.reset();
    std::vector<CustomColumn> columns{{u"N", ColumnType::Long, 0, true}};
    for (const char16_t* name : {u"A", u"B", u"C", u"D", u"E", u"F", u"G", u"H"})
        columns.push_back({name, ColumnType::Text, 255});
    files_.put(kPath, fileWithColumns(jet3, columns));
    open();
    std::vector<Row> rows;
    for (size_t total = 0; total <= 1960; total += 7) {
        Row row(columns.size(), std::u16string());
        row[0] = static_cast<int64_t>(total);
        size_t left = total;
        for (size_t i = 1; i < columns.size(); ++i) {
            const size_t length = std::min<size_t>(left, total % 2 == 0 ? 255 : 245);
            row[i] = std::u16string(length, static_cast<char16_t>(u'a' + i));
            left -= length;
        }
        rows.push_back(row);
    }
    appendRows(*store_, rows);
    expectSame();
}

// A file that a crash left is accepted even before it is mended, and shows no row that never was.
TEST_F(MdbtoolsTest, AcceptsTheFileAtEveryCutOfACommit) {
    appendRows(*store_, makeRows(0, 40));
    store_.reset();
    const FileBytes before = files_.get(kPath);
    const auto run = [&](FaultyFileStore& files, uint64_t operation) {
        files.put(kPath, before);
        const auto store = Store::open(files, kPath, {.spillBytes = 24576});
        files.failAt(operation, fakes::Fault::CutBefore);
        try {
            store->begin();
            const std::vector<RowId> rows = rowIds(store->table(kTable));
            for (size_t i = 0; i < rows.size(); ++i)
                if (i % 3 != 0) store->table(kTable).remove(rows[i]);
            for (const Row& row : makeRows(100, 30))
                store->table(kTable).append(row);
            store->commit();
        } catch (const base::Error&) {
        }
    };
    FaultyFileStore whole;
    run(whole, ~uint64_t{0});
    std::vector<std::vector<std::string>> known = mdbExport(before, "ListDonnees").rows;
    const MdbExport after = mdbExport(whole.get(kPath), "ListDonnees");
    known.insert(known.end(), after.rows.begin(), after.rows.end());
    for (uint64_t operation = 0; operation < whole.operations(); ++operation) {
        SCOPED_TRACE(testing::Message() << "operation " << operation);
        FaultyFileStore files;
        run(files, operation);
        const MdbExport exported = mdbExport(files.get(kPath), "ListDonnees");
        EXPECT_TRUE(exported.accepted) << exported.complaint;
        for (const std::vector<std::string>& row : exported.rows)
            EXPECT_NE(std::find(known.begin(), known.end(), row), known.end());
    }
}

}  // namespace

}  // namespace jet
