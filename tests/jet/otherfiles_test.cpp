// Catalogues made elsewhere: the older version of the format, other types, orders and lengths of
// columns, deleted columns, indexes.
#include <functional>
#include <limits>

#include "base/text.h"
#include "jet/bytes.h"
#include "tests/jet/customtable.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using base::ErrorNumber;
using fakes::FileBytes;

class OtherFilesTest : public StoreFixture {
  protected:
    void put(const Format& format, const std::vector<CustomColumn>& columns) {
        store_.reset();
        files_.put(kPath, fileWithColumns(format, columns));
        open();
        ASSERT_EQ(&store_->format(), &format);
        expectSound();
    }

    // Appends the rows, removes every third, appends those again: all must be there.
    void expectKept(const std::vector<Row>& rows) {
        appendRows(*store_, rows);
        EXPECT_EQ(contents(table()), lines(rows));
        expectSound();
        std::vector<RowId> removed;
        std::vector<Row> again;
        size_t number = 0;
        table().forEachRow([&](RowId id, RowView row) {
            if (number++ % 3 != 0) return;
            removed.push_back(id);
            again.push_back(readRow(table(), row));
        });
        removeRows(*store_, removed);
        EXPECT_EQ(table().rowCount(), rows.size() - removed.size());
        expectSound();
        appendRows(*store_, again);
        expectSound();
        open();
        EXPECT_EQ(contents(table()), lines(rows));
        EXPECT_EQ(table().rowCount(), rows.size());
    }
};

// Like makeRow(), in characters of the code page.
Row narrowRow(int number) {
    Row row = makeRow(number);
    for (Value& value : row)
        if (auto* text = std::get_if<std::u16string>(&value))
            for (char16_t& c : *text)
                if (c > 0xFF) c = u'œ';
    return row;
}

TEST_F(OtherFilesTest, AnAccess97CatalogueIsWrittenAndReadBack) {
    put(jet3, shippedColumns(jet3));
    std::vector<Row> rows;
    for (int number = 0; number < 60; ++number)
        rows.push_back(narrowRow(number));
    expectKept(rows);
}

TEST_F(OtherFilesTest, Access97RowsOfEveryLengthAroundTheirOffsetsBytes) {
    std::vector<CustomColumn> columns;
    for (int i = 0; i < 9; ++i)
        columns.push_back({u"T" + base::fromUtf8(std::to_string(i)), ColumnType::Text, 255});
    put(jet3, columns);
    std::vector<Row> rows;
    // Each row gives its length to the columns from the first, or from the last.
    for (size_t total = 0; total <= 1960; total += total % 256 > 225 || total % 256 < 8 ? 1 : 23) {
        Row row(columns.size(), std::u16string());
        size_t left = total;
        for (size_t i = 0; i < columns.size(); ++i) {
            const size_t length = std::min<size_t>(left, 255);
            row[total % 2 == 0 ? i : columns.size() - 1 - i] = std::u16string(length, u'é');
            left -= length;
        }
        rows.push_back(row);
    }
    expectKept(rows);
}

TEST_F(OtherFilesTest, Access97MemosOfEveryLengthAroundTheLimits) {
    put(jet3, {{u"M", ColumnType::Memo}, {u"N", ColumnType::Memo}});
    std::vector<Row> rows;
    for (const size_t length : {0u, 1u, 31u, 32u, 33u, 255u, 256u, 2031u, 2032u, 2033u, 2036u,
                                2037u, 4064u, 4065u, 9000u})
        rows.push_back({std::u16string(length, u'ÿ'), std::u16string(length / 2, u'€')});
    expectKept(rows);
}

TEST_F(OtherFilesTest, Access97RefusesACharacterOutsideItsCodePageAndKeepsTheFile) {
    put(jet3, shippedColumns(jet3));
    const FileBytes before = files_.get(kPath);
    store_->begin();
    try {
        table().append(makeRow(1));
        FAIL();
    } catch (const base::Error& error) {
        EXPECT_EQ(error.number(), ErrorNumber::NotSupported);
        EXPECT_NE(error.text().find(u"Access 97"), std::u16string::npos);
        EXPECT_NE(error.text().find(u"NomCompil"), std::u16string::npos);
    }
    table().append(narrowRow(2));
    store_->rollback();
    EXPECT_EQ(files_.get(kPath), before);
}

TEST_F(OtherFilesTest, Access97TextIsLimitedInCharacters) {
    put(jet3, {{u"T", ColumnType::Text, 5}});
    store_->begin();
    EXPECT_EQ(errorOf([&] { table().append(Row{std::u16string(u"sixièm")}); }),
              static_cast<int>(ErrorNumber::ValueTooLong));
    table().append(Row{std::u16string(u"cinqé")});
    store_->commit();
    EXPECT_EQ(contents(table()), lines({{std::u16string(u"cinqé")}}));
}

TEST_F(OtherFilesTest, ManyAccess97RowsOutgrowTheFirstMaps) {
    put(jet3, shippedColumns(jet3));
    std::vector<Row> rows;
    for (int number = 0; number < 1800; ++number)
        rows.push_back(narrowRow(number));
    appendRows(*store_, rows);
    EXPECT_GT(files_.get(kPath).size() / jet3.pageSize, 1100u);
    EXPECT_EQ(contents(table()), lines(rows));
    expectSound();
    removeRows(*store_, rowIds(table()));
    expectSound();
    EXPECT_TRUE(contents(table()).empty());
}

class OtherColumnsTest : public OtherFilesTest,
                         public testing::WithParamInterface<const Format*> {};

TEST_P(OtherColumnsTest, OtherOrdersTypesAndLengthsAndDeletedColumns) {
    const Format& format = *GetParam();
    const uint16_t character = format.wide ? 2 : 1;
    put(format, {
                    {u"Taille", ColumnType::Long, 0, true},
                    {u"Oui", ColumnType::Boolean, 0, true},
                    {u"TYPE", ColumnType::Text, character, false},
                    {u"Fichier", ColumnType::Text, static_cast<uint16_t>(120 * character), false,
                     true, false, 0, true},
                    {u"Octet", ColumnType::Byte, 0, true, false, false, 0, true},
                    {u"Entier", ColumnType::Integer, 0},
                    {u"Argent", ColumnType::Currency, 0, true},
                    {u"Simple", ColumnType::Single, 0, true},
                    {u"Date", ColumnType::Date, 0, true},
                    {u"Fixe", ColumnType::Text, static_cast<uint16_t>(6 * character), true},
                    {u"Nom", ColumnType::Memo, 0, false, false, false, 0, true},
                    {u"compilation", ColumnType::Text, static_cast<uint16_t>(30 * character)},
                });
    EXPECT_EQ(table().definition().columnsEver, 15u);
    std::vector<Row> rows;
    for (int64_t i = 0; i < 50; ++i) {
        const double real = static_cast<double>(i);
        Row row{i * 1000,
                i % 2 == 0,
                std::u16string(u"T"),
                std::u16string(static_cast<size_t>(i) * 2, u'é'),
                i,
                -i * 100,
                real * 1.25,
                real * 0.5,
                36526.0 + real * 0.25,
                std::u16string(u"fixé  "),
                std::u16string(static_cast<size_t>(i * 60), u'ü'),
                u"CD " + base::fromUtf8(std::to_string(i))};
        if (i % 7 == 3)
            for (const size_t null : {0u, 3u, 4u, 5u, 8u, 10u})
                row[null] = Null{};
        rows.push_back(row);
    }
    expectKept(rows);
}

TEST_P(OtherColumnsTest, NumbersAtTheEndsOfTheirTypes) {
    put(*GetParam(), {{u"Octet", ColumnType::Byte, 0, true},
                      {u"Entier", ColumnType::Integer, 0, true},
                      {u"Long", ColumnType::Long, 0, true},
                      {u"Double", ColumnType::Double, 0, true}});
    expectKept({{int64_t{0}, int64_t{-32768}, int64_t{std::numeric_limits<int32_t>::min()},
                 std::numeric_limits<double>::lowest()},
                {int64_t{255}, int64_t{32767}, int64_t{std::numeric_limits<int32_t>::max()},
                 std::numeric_limits<double>::max()}});
    store_->begin();
    for (const Row& row : {Row{int64_t{256}, int64_t{0}, int64_t{0}, 0.0},
                           Row{int64_t{0}, int64_t{32768}, int64_t{0}, 0.0},
                           Row{int64_t{0}, int64_t{0}, int64_t{2147483648}, 0.0}})
        EXPECT_EQ(errorOf([&] { table().append(row); }), static_cast<int>(ErrorNumber::Overflow));
}

TEST_P(OtherColumnsTest, AnIndexIsRefusedBeforeAByteChangesAndTheMessageSaysWhatToDo) {
    const Format& format = *GetParam();
    put(format, shippedColumns(format));
    appendRows(*store_, {narrowRow(1)});
    const size_t definitionAt = size_t{table().definition().page} * format.pageSize;
    store_.reset();
    FileBytes bytes = files_.get(kPath);
    const FileBytes indexed = fileWithColumns(format, shippedColumns(format), 1);
    std::copy_n(indexed.begin() + static_cast<ptrdiff_t>(definitionAt), format.pageSize,
                bytes.begin() + static_cast<ptrdiff_t>(definitionAt));
    put32(&bytes[definitionAt + format.definition.rowCount], 1);
    files_.put(kPath, bytes);
    open();
    EXPECT_EQ(contents(table()), lines({narrowRow(1)}));
    files_.failAt(~uint64_t{0}, fakes::Fault::None);
    store_->begin();
    const RowId row = rowIds(table()).front();
    for (const auto& change : {std::function<void()>([&] { table().append(narrowRow(2)); }),
                               std::function<void()>([&] { table().remove(row); })}) {
        try {
            change();
            ADD_FAILURE();
        } catch (const base::Error& error) {
            EXPECT_EQ(error.number(), ErrorNumber::NotSupported);
            EXPECT_NE(error.text().find(u"«\u00A0ListDonnees\u00A0»"), std::u16string::npos);
            EXPECT_NE(error.text().find(u"supprimez"), std::u16string::npos);
        }
    }
    store_->rollback();
    EXPECT_EQ(files_.operations(), 0u);
    EXPECT_EQ(files_.get(kPath), bytes);
}

// Rows that Access moved to other pages go with the places that they were moved to.
TEST(SampleWritingTest, RowsThatAccessMovedAreRemovedAndAppendedAnew) {
    for (const char* name : {"overflowTestV1997.mdb", "overflowTestV2000.mdb"}) {
        SCOPED_TRACE(name);
        const FileBytes bytes = sampleFile(name);
        if (bytes.empty()) GTEST_SKIP() << "no samples here";
        fakes::FaultyFileStore files;
        files.put(kPath, bytes);
        {
            const auto store = Store::open(files, kPath);
            Table& table = store->table(u"Table1");
            const std::vector<std::string> before = contents(table);
            store->begin();
            for (const RowId row : rowIds(table)) {
                const Row values = readRow(table, table.row(row));
                table.remove(row);
                table.append(values);
            }
            store->commit();
            EXPECT_EQ(contents(table), before);
        }
        EXPECT_THAT(faultsIn(files.get(kPath)), testing::IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(All, OtherColumnsTest, testing::Values(&jet3, &jet4),
                         [](const testing::TestParamInfo<const Format*>& format) {
                             return format.param->wide ? "Access2000" : "Access97";
                         });

}  // namespace

}  // namespace jet
