// What a table's definition pages say: its columns, its usage maps, its row count.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/rowid.h"

namespace jet {

class Pager;

// The numbers of the file; others exist, which we neither read nor write.
enum class ColumnType : uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Binary = 9,
    Text = 10,
    Ole = 11,
    Memo = 12,
    Guid = 15,
    Decimal = 16,
};

// Whether the column's type is one of the above.
bool isKnown(ColumnType type);
// Bytes of a value of a type of one size; 0 for Binary, Text, Ole, Memo, Boolean, unknown ones.
uint32_t fixedSize(ColumnType type);

struct Column {
    std::u16string name;
    ColumnType type = ColumnType::Text;
    uint16_t number = 0;         // its bit in the null mask
    bool fixed = false;          // in the fixed area; the type alone does not tell
    uint16_t fixedOffset = 0;    // inside the fixed area, when fixed
    uint16_t variableIndex = 0;  // in the row's offset table, when not fixed
    uint16_t length = 0;         // bytes; 0 for Memo and Ole
    bool compressed = false;     // Text and Memo: stored compressed where possible
    bool autoNumber = false;
    uint8_t scale = 0;  // Decimal
    RowId ownedMap;     // Memo and Ole: the usage maps of the column's long values
    RowId freeMap;

    bool isText() const { return type == ColumnType::Text || type == ColumnType::Memo; }
    bool isLong() const { return type == ColumnType::Memo || type == ColumnType::Ole; }
    // Byte, Integer, Long, Currency, Single, Double, Date, Decimal.
    bool isNumber() const;
    // Largest number of characters of a Text column.
    uint32_t characterLimit(bool wide) const { return wide ? length / 2u : length; }
};

// A physical index; several of the user's may share one.
struct Index {
    RowId ownedMap;
    uint32_t root = 0;          // the topmost page of its tree
    bool ignoresNulls = false;  // rows without a value have no entry
};

struct TableDefinition {
    std::u16string name;
    uint32_t page = 0;            // its first definition page
    std::vector<uint32_t> pages;  // all of them
    std::vector<Column> columns;  // in the order of their numbers; deleted ones are left out
    uint16_t columnsEver = 0;     // deleted ones included
    uint16_t variableColumnsEver = 0;
    uint32_t indexCount = 0;  // physical ones
    std::vector<Index> indexes;
    RowId ownedMap;
    RowId freeMap;
    uint32_t rowCount = 0;
    uint32_t lastAutoNumber = 0;

    // The column of that name, case ignored; null when there is none.
    const Column* find(std::u16string_view columnName) const;
};

// Reads the definition that starts on `page`. DatabaseCorrupt when it contradicts itself.
TableDefinition readTableDefinition(const Pager& pager, uint32_t page, std::u16string_view name);

}  // namespace jet
