#include "tests/jet/customtable.h"

#include <array>
#include <numeric>
#include <string_view>

#include "base/codepage.h"
#include "jet/bytes.h"
#include "jet/pageslots.h"
#include "jet/store.h"
#include "jet/table.h"
#include "tests/jet/storefixture.h"

namespace jet {

namespace {

using fakes::FileBytes;

// Where a table's pages are told, its long columns' in their order.
struct MapPlaces {
    RowId owned;
    RowId withRoom;
    std::vector<std::pair<RowId, RowId>> ofLongColumns;
};

void append16(FileBytes& bytes, uint32_t value) {
    bytes.resize(bytes.size() + 2);
    put16(bytes.data() + bytes.size() - 2, value);
}

void append32(FileBytes& bytes, uint32_t value) {
    bytes.resize(bytes.size() + 4);
    put32(bytes.data() + bytes.size() - 4, value);
}

void appendName(const Format& format, const std::u16string& name, FileBytes& bytes) {
    if (!format.wide) {
        const std::string narrow = base::CodePage::windows1252().encode(name).value();
        bytes.push_back(static_cast<uint8_t>(narrow.size()));
        bytes.insert(bytes.end(), narrow.begin(), narrow.end());
        return;
    }
    append16(bytes, static_cast<uint32_t>(2 * name.size()));
    for (const char16_t c : name)
        append16(bytes, c);
}

// Bytes of the fixed area that the column takes.
uint32_t fixedBytes(const CustomColumn& column) {
    if (!column.fixed) return 0;
    const uint32_t size = fixedSize(column.type);
    return size != 0 ? size : column.length;
}

bool isLong(const CustomColumn& column) {
    return column.type == ColumnType::Memo || column.type == ColumnType::Ole;
}

// The numbers that the next column gets.
struct Counters {
    uint32_t number = 0;
    uint32_t variable = 0;
    uint32_t fixedOffset = 0;
};

void appendDescriptor(const Format& format, const CustomColumn& column, const Counters& counters,
                      FileBytes& body) {
    const size_t at = body.size();
    body.resize(at + format.definition.columnSize);
    body[at] = static_cast<uint8_t>(column.type);
    if (format.wide) put32(&body[at + 1], 0x659);
    put16(&body[at + format.column.number], counters.number);
    put16(&body[at + format.column.variableIndex], counters.variable);
    if (column.type == ColumnType::Text || column.type == ColumnType::Memo) {
        put16(&body[at + (format.wide ? 11 : 9)], 0x409);
        if (!format.wide) put16(&body[at + 11], 0x4E4);
    }
    if (column.type == ColumnType::Decimal) {
        body[at + format.column.precision] = 28;
        body[at + format.column.scale] = column.scale;
    }
    body[at + format.column.flags] =
        static_cast<uint8_t>(2 | (column.fixed ? 1 : 0) | (column.autoNumber ? 4 : 0));
    if (format.wide) body[at + format.column.extendedFlags] = column.compressed ? 1 : 0;
    put16(&body[at + format.column.fixedOffset], column.fixed ? counters.fixedOffset : 0xBEEF);
    const uint32_t size = fixedSize(column.type);
    put16(&body[at + format.column.length], size != 0 ? size : column.length);
}

void appendIndexes(const Format& format, uint32_t count, FileBytes& body) {
    for (uint32_t index = 0; index < count; ++index) {
        const size_t at = body.size();
        body.resize(at + format.definition.indexSize, 0xFF);
        put16(&body[at + (format.wide ? 4 : 0)], 0);
        put32(&body[at + format.definition.indexOwnedMap], 0);
    }
    body.resize(body.size() + size_t{count} * format.definition.logicalIndexSize);
    for (uint32_t index = 0; index < count; ++index)
        appendName(format, u"Clé", body);
}

// Writes the definition; the front keeps what is not told here.
void writeDefinition(const Format& format, uint8_t* page, const std::vector<CustomColumn>& columns,
                     const MapPlaces& maps, uint32_t indexCount = 0) {
    const Format::Definition& at = format.definition;
    FileBytes body(size_t{indexCount} * at.indexCounterSize);
    FileBytes longColumns;
    Counters counters;
    size_t nextLong = 0;
    for (const CustomColumn& column : columns) {
        if (column.afterDeletedColumn) {
            ++counters.number;
            if (column.fixed)
                counters.fixedOffset += 4;
            else
                ++counters.variable;
        }
        appendDescriptor(format, column, counters, body);
        if (isLong(column)) {
            const auto& [owned, withRoom] = maps.ofLongColumns.at(nextLong++);
            append16(longColumns, counters.number);
            append32(longColumns, owned.value);
            append32(longColumns, withRoom.value);
        }
        counters.fixedOffset += fixedBytes(column);
        if (!column.fixed) ++counters.variable;
        ++counters.number;
    }
    for (const CustomColumn& column : columns)
        appendName(format, column.name, body);
    appendIndexes(format, indexCount, body);
    body.insert(body.end(), longColumns.begin(), longColumns.end());
    append16(body, 0xFFFF);

    page[0] = page::kTypeDefinition;
    page[1] = 1;
    std::fill(page + at.indexCounters, page + format.pageSize, uint8_t{0});
    std::copy(body.begin(), body.end(), page + at.indexCounters);
    const auto length = static_cast<uint32_t>(at.indexCounters + body.size());
    put16(page + 2, format.pageSize - length - 8);
    put32(page + 8, length);
    put16(page + at.columnsEver, counters.number);
    put16(page + at.variableColumnsEver, counters.variable);
    put16(page + at.columnCount, static_cast<uint32_t>(columns.size()));
    put32(page + at.logicalIndexCount, indexCount);
    put32(page + at.indexCount, indexCount);
    put32(page + at.ownedMap, maps.owned.value);
    put32(page + at.freeMap, maps.withRoom.value);
}

FileBytes wideFile(const std::vector<CustomColumn>& columns, uint32_t indexCount) {
    fakes::FaultyFileStore files;
    files.put(kPath, shippedFile());
    const TableDefinition shipped = Store::open(files, kPath)->table(kTable).definition();
    MapPlaces maps{shipped.ownedMap, shipped.freeMap, {}};
    for (const Column& donor : shipped.columns)
        if (donor.isLong()) maps.ofLongColumns.emplace_back(donor.ownedMap, donor.freeMap);
    FileBytes file = shippedFile();
    writeDefinition(jet4, file.data() + size_t{shipped.page} * jet4.pageSize, columns, maps,
                    indexCount);
    return file;
}

// The stream that masks page 0 from offset 0x18 on.
void maskHeader(uint8_t* header) {
    constexpr std::array<uint8_t, 4> kKey{0xC7, 0xDA, 0x39, 0x6B};
    std::array<uint8_t, 256> state;
    std::iota(state.begin(), state.end(), uint8_t{0});
    for (uint32_t i = 0, j = 0; i < 256; ++i) {
        j = (j + state[i] + kKey[i % 4]) % 256;
        std::swap(state[i], state[j]);
    }
    for (uint32_t i = 1, j = 0; i <= jet3.header.maskedLength; ++i) {
        j = (j + state[i % 256]) % 256;
        std::swap(state[i % 256], state[j]);
        header[0x18 + i - 1] ^= state[(state[i % 256] + state[j]) % 256];
    }
}

void writeHeader(uint8_t* page) {
    constexpr std::string_view kName("\0\1\0\0Standard Jet DB\0\0", 21);
    std::copy(kName.begin(), kName.end(), page);
    put16(page + 0x3A, 0x409);
    put16(page + 0x3C, 0x4E4);
    maskHeader(page);
}

// An inline map of these pages; for the global map, of all pages from `freeFrom` on.
FileBytes mapRow(const std::vector<uint32_t>& pages, uint32_t freeFrom = 1024) {
    FileBytes row(133);
    for (const uint32_t page : pages)
        row[5 + page / 8] |= static_cast<uint8_t>(1u << page % 8);
    for (uint32_t page = freeFrom; page < 1024; ++page)
        row[5 + page / 8] |= static_cast<uint8_t>(1u << page % 8);
    return row;
}

// A row of MSysObjects in the older version: columns Id, ParentId, Type, Flags, Name, LvProp.
FileBytes objectRow(uint32_t id, std::string_view name, uint32_t flags) {
    FileBytes row{6};
    append32(row, id);
    append32(row, 0x0F000001);
    append16(row, 1);
    append32(row, flags);
    const size_t start = row.size();
    row.insert(row.end(), name.begin(), name.end());
    const size_t end = row.size();
    for (const size_t byte : {end, end, start, size_t{2}, size_t{0x1F}})
        row.push_back(static_cast<uint8_t>(byte));
    return row;
}

FileBytes narrowFile(const std::vector<CustomColumn>& columns, uint32_t indexCount) {
    enum Page : uint32_t { Header, GlobalMap, ObjectsDefinition, Definition, Maps, Objects, Count };
    FileBytes file(Count * jet3.pageSize);
    const auto page = [&](uint32_t number) { return file.data() + number * jet3.pageSize; };
    writeHeader(page(Header));

    initDataPage(jet3, page(GlobalMap), 1);
    insertRow(jet3, page(GlobalMap), mapRow({}, Count));
    insertRow(jet3, page(GlobalMap), mapRow({}));

    constexpr uint32_t kMaps = 12;
    initDataPage(jet3, page(Maps), 0);
    for (uint32_t map = 0; map < kMaps; ++map)
        insertRow(jet3, page(Maps), map < 2 ? mapRow({Objects}) : mapRow({}));
    const auto map = [](uint32_t slot) { return makeRowId(Maps, slot); };

    writeDefinition(jet3, page(ObjectsDefinition),
                    {{u"Id", ColumnType::Long, 0, true},
                     {u"ParentId", ColumnType::Long, 0, true},
                     {u"Type", ColumnType::Integer, 0, true},
                     {u"Flags", ColumnType::Long, 0, true},
                     {u"Name", ColumnType::Text, 64},
                     {u"LvProp", ColumnType::Ole}},
                    {map(0), map(1), {{RowId{}, RowId{}}}});
    page(ObjectsDefinition)[jet3.definition.tableType] = 'S';
    put32(page(ObjectsDefinition) + jet3.definition.rowCount, 2);
    initDataPage(jet3, page(Objects), ObjectsDefinition);
    insertRow(jet3, page(Objects), objectRow(ObjectsDefinition, "MSysObjects", 0x80000000));
    insertRow(jet3, page(Objects), objectRow(Definition, "ListDonnees", 0));

    writeDefinition(jet3, page(Definition), columns,
                    {map(2),
                     map(3),
                     {{map(4), map(5)}, {map(6), map(7)}, {map(8), map(9)}, {map(10), map(11)}}},
                    indexCount);
    page(Definition)[jet3.definition.tableType] = 'N';
    return file;
}

}  // namespace

FileBytes fileWithColumns(const Format& format, const std::vector<CustomColumn>& columns,
                          uint32_t indexCount) {
    return format.wide ? wideFile(columns, indexCount) : narrowFile(columns, indexCount);
}

std::vector<CustomColumn> shippedColumns(const Format& format) {
    const uint16_t character = format.wide ? 2 : 1;
    return {
        {u"Nom", ColumnType::Memo, 0, false, true},
        {u"NomCompil", ColumnType::Memo, 0, false, true},
        {u"Fichier", ColumnType::Memo, 0, false, true},
        {u"FichierCompil", ColumnType::Memo, 0, false, true},
        {u"Taille", ColumnType::Double, 0, true},
        {u"Compilation", ColumnType::Text, static_cast<uint16_t>(255 * character), false, true},
        {u"Type", ColumnType::Text, static_cast<uint16_t>(50 * character), false, true},
    };
}

}  // namespace jet
