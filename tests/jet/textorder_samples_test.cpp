// The text order against the keys that Access itself stored in the indexes of real files.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "jet/store.h"
#include "jet/table.h"
#include "jet/textorder.h"
#include "tests/fakes/memoryfilestore.h"
#include "tests/fakes/projectfiles.h"
#include "tests/jet/indexentries.h"

namespace jet {
namespace {

constexpr size_t kIndexedCharacters = 255;
constexpr uint8_t kAscendingValue = 0x7F;
constexpr uint8_t kDescendingValue = 0x80;
constexpr uint8_t kAscendingNull = 0x00;
constexpr uint8_t kDescendingNull = 0xFF;
constexpr uint32_t kSignBit = 0x80000000;
constexpr uint8_t kUnknownPrimary = 0xF0;

struct Sample {
    const char* name;
    std::vector<std::u16string> tables;
    size_t leastEntries;
};

void PrintTo(const Sample& sample, std::ostream* stream) {
    *stream << sample.name;
}

class TextOrderSamples : public testing::TestWithParam<Sample> {
  protected:
    static bool isIndexable(const Column& column) {
        return column.isText() || column.type == ColumnType::Long;
    }

    // Nothing for Null.
    Bytes ascendingKey(const Table& table, RowView row, const Column& column) const {
        Bytes key;
        if (column.isText()) {
            std::u16string text;
            if (table.text(row, column, text))
                order_->appendKey(text.substr(0, kIndexedCharacters), key);
            return key;
        }
        double number = 0;
        if (!table.number(row, column, number)) return key;
        const auto value = static_cast<uint32_t>(static_cast<int64_t>(number)) ^ kSignBit;
        for (unsigned shift = 32; shift > 0;) {
            shift -= 8;
            key.push_back(static_cast<uint8_t>(value >> shift));
        }
        return key;
    }

    // What an entry holds for the column.
    Bytes keyOf(const Table& table, RowView row, const Column& column, bool ascending) const {
        Bytes key = ascendingKey(table, row, column);
        if (key.empty()) return {ascending ? kAscendingNull : kDescendingNull};
        if (!ascending) {
            for (uint8_t& byte : key)
                byte = static_cast<uint8_t>(~byte);
            if (column.isText() && format_->wide) key.push_back(0);
        }
        key.insert(key.begin(), ascending ? kAscendingValue : kDescendingValue);
        return key;
    }

    // Whether all characters of the text are such as the order knows.
    bool isKnown(const Table& table, RowView row, const Column& column) const {
        std::u16string text;
        if (!column.isText() || !table.text(row, column, text)) return true;
        return std::ranges::all_of(
            text, [this](char16_t c) { return order_->weight(c).primary[0] != kUnknownPrimary; });
    }

    // Checks the indexes over texts and long numbers; gives the number of entries.
    size_t check(const Bytes& file, const Table& table) const {
        size_t checked = 0;
        for (const IndexEntries& index : readIndexes(file, *format_, table.definition().page)) {
            std::vector<const Column*> columns;
            for (const auto& [number, ascending] : index.columns) {
                for (const Column& column : table.definition().columns)
                    if (column.number == number && isIndexable(column)) columns.push_back(&column);
            }
            if (columns.size() != index.columns.size()) continue;
            for (const IndexEntries::Entry& entry : index.entries) {
                const RowView row = table.row(entry.row);
                const auto known = [&](const Column* column) {
                    return isKnown(table, row, *column);
                };
                if (!std::ranges::all_of(columns, known)) continue;
                Bytes expected;
                for (size_t i = 0; i < columns.size(); ++i) {
                    const Bytes key = keyOf(table, row, *columns[i], index.columns[i].ascending);
                    expected.insert(expected.end(), key.begin(), key.end());
                }
                EXPECT_EQ(entry.key, expected) << "row " << entry.row.value;
                ++checked;
            }
        }
        return checked;
    }

    const Format* format_ = nullptr;
    const TextOrder* order_ = nullptr;
};

TEST_P(TextOrderSamples, BuildsTheStoredKeys) {
    const std::string bytes = fakes::bytesOf(
        fakes::projectPath(std::string("../shared/data/samples/") + GetParam().name));
    if (bytes.empty()) GTEST_SKIP() << "the sample files are not here";
    const Bytes file(bytes.begin(), bytes.end());
    fakes::MemoryFileStore files;
    files.add(u"sample.mdb", bytes);
    const std::unique_ptr<Store> store = Store::open(files, u"sample.mdb");
    format_ = &store->format();
    order_ = format_->wide ? &TextOrder::general4() : &TextOrder::general3();
    size_t checked = 0;
    for (const std::u16string& table : GetParam().tables)
        checked += check(file, store->table(table));
    EXPECT_GE(checked, GetParam().leastEntries);
}

INSTANTIATE_TEST_SUITE_P(
    Files, TextOrderSamples,
    testing::Values(
        Sample{"indexTestV2000.mdb", {u"MSysObjects", u"Table1", u"Table2", u"Table3"}, 90},
        Sample{"testUnicodeCompV2003.mdb", {u"MSysObjects", u"Table"}, 60},
        Sample{"overflowTestV2000.mdb", {u"MSysObjects", u"Table1"}, 35},
        Sample{"testV1997.mdb", {u"MSysObjects", u"Table1"}, 45},
        Sample{
            "testIndexCodesV1997.mdb",
            {u"MSysObjects",  u"Table1",  u"Table1_desc", u"Table2",  u"Table2_desc", u"Table3",
             u"Table3_desc",  u"Table4",  u"Table4_desc", u"Table5",  u"Table5_desc", u"Table6",
             u"Table6_desc",  u"Table8",  u"Table8_desc", u"Table9",  u"Table9_desc", u"Table10",
             u"Table10_desc", u"Table11", u"Table12",     u"Table13", u"Table14",     u"Table15"},
            2200}));

}  // namespace
}  // namespace jet
