// The stored bytes of one column of one row.
#pragma once

#include <cstdint>

#include "jet/bytes.h"
#include "jet/rowid.h"
#include "jet/tabledefinition.h"

namespace jet {

struct Cell {
    const uint8_t* bytes = nullptr;  // null: the value is null
    uint32_t length = 0;
};

// How the rows of a table are built; docs/mdb-format.md shows both.
struct RowShape {
    bool wide = true;
    bool hasVariableColumns = true;
};

[[noreturn]] void throwDamagedRow();
// Where a variable column of a Jet 3 row lies; `tail` is the offset of the null mask.
Cell findNarrowVariable(RowView row, uint32_t tail, uint32_t index);

// A Boolean is its null-mask bit: true gives a cell of no bytes, false a null one. The bytes of a
// fixed column are column.length many. DatabaseCorrupt when the row contradicts itself.
inline Cell findCell(const RowShape& shape, RowView row, const Column& column) {
    const uint32_t countWidth = shape.wide ? 2 : 1;
    if (row.length < countWidth) throwDamagedRow();
    const uint32_t count = shape.wide ? get16(row.bytes) : row.bytes[0];
    const uint32_t maskBytes = (count + 7) / 8;
    if (row.length < countWidth + maskBytes) throwDamagedRow();
    // Rows written before the column was added are shorter.
    if (column.number >= count) return {};
    const uint32_t tail = row.length - maskBytes;
    if ((row.bytes[tail + column.number / 8] >> (column.number % 8) & 1) == 0) return {};
    if (column.type == ColumnType::Boolean) return {row.bytes, 0};
    if (column.fixed) {
        const uint32_t start = countWidth + column.fixedOffset;
        if (start + column.length > tail) throwDamagedRow();
        return {row.bytes + start, column.length};
    }
    if (!shape.wide) return findNarrowVariable(row, tail, column.variableIndex);
    if (tail < 4) throwDamagedRow();
    const uint32_t variableCount = get16(row.bytes + tail - 2);
    if (column.variableIndex >= variableCount) return {};
    const uint32_t tableSize = 2 * (variableCount + 1);
    if (tail < 4 + tableSize) throwDamagedRow();
    const size_t entryAt = tail - 2 - 2 * (column.variableIndex + 1u);
    const uint8_t* entry = row.bytes + entryAt;
    const uint32_t start = get16(entry);
    const uint32_t end = get16(entry - 2);
    if (start > end || end > tail - 2 - tableSize) throwDamagedRow();
    return {row.bytes + start, end - start};
}

}  // namespace jet
