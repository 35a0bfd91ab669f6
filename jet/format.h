// Every offset and size of the file format, per version; docs/mdb-format.md tells what they mean.
#pragma once

#include <cstdint>

namespace jet {

// Offsets count from the start of their page, record or row unless a comment says otherwise.
struct Format {
    bool
        wide;  // Jet 4: 16-bit row offsets and UTF-16 text; Jet 3: 8-bit offsets and code-page text
    uint32_t pageSize;
    uint64_t maxFileSize;

    struct Header {  // page 0
        uint32_t maskedLength;
        uint32_t passwordLength;
    } header;

    struct DataPage {  // also long-value pages and pages of usage-map rows
        uint32_t slotCount;
        uint32_t slots;
    } dataPage;

    struct Row {
        uint32_t countWidth;       // bytes of the column count in front
        uint32_t maxLength;        // longest row that we write
        uint32_t maxInlineValue;   // longest long value kept in its row, in stored bytes
        uint32_t maxLongValueRow;  // longest row of a long-value page
    } row;

    struct Definition {  // counted over the joined definition pages
        uint32_t rowCount;
        uint32_t lastAutoNumber;
        uint32_t tableType;
        uint32_t columnsEver;
        uint32_t variableColumnsEver;
        uint32_t columnCount;
        uint32_t logicalIndexCount;
        uint32_t indexCount;
        uint32_t ownedMap;
        uint32_t freeMap;
        uint32_t indexCounters;
        uint32_t indexCounterSize;
        uint32_t columnSize;
        uint32_t indexSize;
        uint32_t indexOwnedMap;  // inside an index, as the next two
        uint32_t indexRoot;
        uint32_t indexFlags;
        uint32_t logicalIndexSize;
    } definition;

    struct Column {  // inside a column's descriptor
        uint32_t number;
        uint32_t variableIndex;
        uint32_t precision;
        uint32_t scale;
        uint32_t flags;
        uint32_t extendedFlags;  // 0: there are none
        uint32_t fixedOffset;
        uint32_t length;
    } column;

    struct IndexPage {
        uint32_t previous;
        uint32_t next;
        uint32_t tail;  // of a node: the child behind those of the entries
        uint32_t prefixLength;
        uint32_t entryEnds;  // bitmap: an entry ends before that byte of the entries
        uint32_t entries;
    } indexPage;

    // Pages that one type 5 map page can name.
    uint32_t pagesPerMapPage() const { return (pageSize - 4) * 8; }
    uint32_t maxPages() const { return static_cast<uint32_t>(maxFileSize / pageSize); }
};

inline constexpr Format jet3{
    .wide = false,
    .pageSize = 2048,
    .maxFileSize = 0x40000000,
    .header = {.maskedLength = 126, .passwordLength = 20},
    .dataPage = {.slotCount = 8, .slots = 10},
    .row = {.countWidth = 1, .maxLength = 2012, .maxInlineValue = 32, .maxLongValueRow = 2036},
    .definition = {.rowCount = 12,
                   .lastAutoNumber = 16,
                   .tableType = 20,
                   .columnsEver = 21,
                   .variableColumnsEver = 23,
                   .columnCount = 25,
                   .logicalIndexCount = 27,
                   .indexCount = 31,
                   .ownedMap = 35,
                   .freeMap = 39,
                   .indexCounters = 43,
                   .indexCounterSize = 8,
                   .columnSize = 18,
                   .indexSize = 39,
                   .indexOwnedMap = 30,
                   .indexRoot = 34,
                   .indexFlags = 38,
                   .logicalIndexSize = 20},
    .column = {.number = 1,
               .variableIndex = 3,
               .precision = 7,
               .scale = 8,
               .flags = 13,
               .extendedFlags = 0,
               .fixedOffset = 14,
               .length = 16},
    .indexPage = {.previous = 8,
                  .next = 12,
                  .tail = 16,
                  .prefixLength = 20,
                  .entryEnds = 22,
                  .entries = 248},
};

inline constexpr Format jet4{
    .wide = true,
    .pageSize = 4096,
    .maxFileSize = 0x80000000,
    .header = {.maskedLength = 128, .passwordLength = 40},
    .dataPage = {.slotCount = 12, .slots = 14},
    .row = {.countWidth = 2, .maxLength = 4060, .maxInlineValue = 64, .maxLongValueRow = 4076},
    .definition = {.rowCount = 16,
                   .lastAutoNumber = 20,
                   .tableType = 40,
                   .columnsEver = 41,
                   .variableColumnsEver = 43,
                   .columnCount = 45,
                   .logicalIndexCount = 47,
                   .indexCount = 51,
                   .ownedMap = 55,
                   .freeMap = 59,
                   .indexCounters = 63,
                   .indexCounterSize = 12,
                   .columnSize = 25,
                   .indexSize = 52,
                   .indexOwnedMap = 34,
                   .indexRoot = 38,
                   .indexFlags = 46,
                   .logicalIndexSize = 28},
    .column = {.number = 5,
               .variableIndex = 7,
               .precision = 11,
               .scale = 12,
               .flags = 15,
               .extendedFlags = 16,
               .fixedOffset = 21,
               .length = 23},
    .indexPage = {.previous = 12,
                  .next = 16,
                  .tail = 20,
                  .prefixLength = 24,
                  .entryEnds = 27,
                  .entries = 480},
};

// The same in both versions.
namespace page {
inline constexpr uint32_t kFreeBytes = 2;  // u16 of data pages
inline constexpr uint32_t kOwner = 4;  // u32: definition page, kLongValueOwner, or 0 on map pages
inline constexpr uint8_t kTypeData = 1;
inline constexpr uint8_t kTypeDefinition = 2;
inline constexpr uint8_t kTypeIndexNode = 3;
inline constexpr uint8_t kTypeIndexLeaf = 4;
inline constexpr uint8_t kTypeMap = 5;
inline constexpr uint32_t kLongValueOwner = 0x4C41564C;  // "LVAL"
inline constexpr uint32_t kMapBits = 4;                  // first bitmap byte of a type 5 page
inline constexpr uint32_t kGlobalMap = 1;                // fixed places
inline constexpr uint32_t kCatalogDefinition = 2;
inline constexpr uint32_t kMaxSlots = 255;
}  // namespace page

namespace slot {
inline constexpr uint32_t kOffset = 0x1FFF;
inline constexpr uint32_t kFlags = 0xC000;
inline constexpr uint32_t kDeleted = 0xC000;
inline constexpr uint32_t kPointer = 0x4000;   // alone: the slot holds a pointer to its row
inline constexpr uint32_t kOverflow = 0x8000;  // alone: a row that such a pointer leads to
}  // namespace slot

}  // namespace jet
