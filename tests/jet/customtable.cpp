#include "tests/jet/customtable.h"

#include "jet/bytes.h"
#include "jet/store.h"
#include "jet/table.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

void append16(fakes::FileBytes& bytes, uint32_t value) {
    bytes.resize(bytes.size() + 2);
    put16(bytes.data() + bytes.size() - 2, value);
}

void append32(fakes::FileBytes& bytes, uint32_t value) {
    bytes.resize(bytes.size() + 4);
    put32(bytes.data() + bytes.size() - 4, value);
}

TableDefinition shippedDefinition() {
    fakes::FaultyFileStore files;
    files.put(kPath, shippedFile());
    return Store::open(files, kPath)->table(kTable).definition();
}

// Bytes of the fixed area that the column takes.
uint32_t fixedBytes(const CustomColumn& column) {
    if (!column.fixed) return 0;
    const uint32_t size = fixedSize(column.type);
    return size != 0 ? size : column.length;
}

}  // namespace

uint32_t definitionPage() {
    return shippedDefinition().page;
}

fakes::FileBytes fileWithColumns(const std::vector<CustomColumn>& columns) {
    const TableDefinition shipped = shippedDefinition();
    fakes::FileBytes file = shippedFile();
    uint8_t* page = file.data() + size_t{shipped.page} * 4096;

    fakes::FileBytes body;
    fakes::FileBytes maps;
    uint32_t number = 0;
    uint32_t variable = 0;
    uint32_t fixedOffset = 0;
    size_t longColumns = 0;
    for (const CustomColumn& column : columns) {
        if (column.afterDeletedColumn) {
            ++number;
            if (column.fixed)
                fixedOffset += 4;
            else
                ++variable;
        }
        const size_t at = body.size();
        body.resize(at + 25);
        body[at] = static_cast<uint8_t>(column.type);
        put32(&body[at + 1], 0x659);
        put16(&body[at + 5], number);
        put16(&body[at + 7], variable);
        put16(&body[at + 9], number);
        if (column.type == ColumnType::Text || column.type == ColumnType::Memo)
            put16(&body[at + 11], 0x409);
        if (column.type == ColumnType::Decimal) {
            body[at + 11] = 28;
            body[at + 12] = column.scale;
        }
        body[at + 15] =
            static_cast<uint8_t>(2 | (column.fixed ? 1 : 0) | (column.autoNumber ? 4 : 0));
        body[at + 16] = column.compressed ? 1 : 0;
        put16(&body[at + 21], column.fixed ? fixedOffset : 0xBEEF);
        const uint32_t size = fixedSize(column.type);
        put16(&body[at + 23], size != 0 ? size : column.length);
        fixedOffset += fixedBytes(column);
        if (column.type == ColumnType::Memo || column.type == ColumnType::Ole) {
            size_t skip = longColumns++;
            for (const Column& donor : shipped.columns) {
                if (!donor.isLong() || skip-- != 0) continue;
                append16(maps, number);
                append32(maps, donor.ownedMap.value);
                append32(maps, donor.freeMap.value);
                break;
            }
        }
        if (!column.fixed) ++variable;
        ++number;
    }
    for (const CustomColumn& column : columns) {
        append16(body, static_cast<uint32_t>(2 * column.name.size()));
        for (const char16_t c : column.name)
            append16(body, c);
    }
    body.insert(body.end(), maps.begin(), maps.end());
    append16(body, 0xFFFF);

    std::fill(page + 63, page + 4096, uint8_t{0});
    std::copy(body.begin(), body.end(), page + 63);
    const auto length = static_cast<uint32_t>(63 + body.size());
    put16(page + 2, 4096 - length - 8);
    put32(page + 8, length);
    put16(page + 41, number);
    put16(page + 43, variable);
    put16(page + 45, static_cast<uint32_t>(columns.size()));
    return file;
}

}  // namespace jet
