#include "jet/rowbuilder.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "jet/bytes.h"

namespace jet {

namespace {

constexpr uint8_t kUnusedJump = 0xFF;

uint32_t fixedLength(const TableDefinition& definition) {
    uint32_t length = 0;
    for (const Column& column : definition.columns)
        if (column.fixed && column.type != ColumnType::Boolean)
            length = std::max<uint32_t>(length, column.fixedOffset + uint32_t{column.length});
    return length;
}

// Jet 3 offsets are bytes: one jump byte for each further 256 bytes of the row, itself included.
uint32_t jumpCount(uint32_t lengthWithoutJumps) {
    uint32_t jumps = (lengthWithoutJumps - 1) / 256;
    while ((lengthWithoutJumps + jumps - 1) / 256 > jumps)
        ++jumps;
    return jumps;
}

void copyCell(const Bytes& cell, uint8_t* to) {
    if (!cell.empty()) std::memcpy(to, cell.data(), cell.size());
}

}  // namespace

RowBuilder::RowBuilder(const Format& format, const TableDefinition& definition)
    : format_(format),
      definition_(definition),
      fixedEnd_(format.row.countWidth + fixedLength(definition)),
      maskLength_((definition.columnsEver + 7u) / 8),
      cellOf_(definition.variableColumnsEver, definition.columns.size()),
      offsets_(definition.variableColumnsEver + 1u) {
    for (size_t i = 0; i < definition.columns.size(); ++i)
        if (!definition.columns[i].fixed) cellOf_[definition.columns[i].variableIndex] = i;
}

uint32_t RowBuilder::lengthWithoutJumps(uint32_t variableBytes) const {
    const uint32_t length = fixedEnd_ + maskLength_;
    if (cellOf_.empty()) return length;
    // An offset for each variable column and one for the end, and the number of columns.
    return length + variableBytes +
           format_.row.countWidth * static_cast<uint32_t>(cellOf_.size() + 2);
}

uint32_t RowBuilder::length(uint32_t variableBytes) const {
    const uint32_t length = lengthWithoutJumps(variableBytes);
    return format_.wide || cellOf_.empty() ? length : length + jumpCount(length);
}

void RowBuilder::build(const RowCells& cells, Bytes& out) {
    uint32_t variableBytes = 0;
    for (const size_t cell : cellOf_)
        if (cell < cells.bytes.size() && cells.isSet[cell])
            variableBytes += static_cast<uint32_t>(cells.bytes[cell].size());
    out.resize(length(variableBytes));
    uint8_t* const row = out.data();
    copyFixedCells(cells, row);
    if (!cellOf_.empty()) {
        uint8_t* const end = row + copyVariableCells(cells, row);
        if (format_.wide)
            putWideOffsets(end);
        else
            putNarrowOffsets(jumpCount(lengthWithoutJumps(variableBytes)), end);
    }
    uint8_t* const mask = row + out.size() - maskLength_;
    std::memset(mask, 0, maskLength_);
    for (size_t i = 0; i < definition_.columns.size(); ++i) {
        const uint32_t number = definition_.columns[i].number;
        if (cells.isSet[i]) mask[number / 8] |= static_cast<uint8_t>(1u << (number % 8));
    }
}

void RowBuilder::copyFixedCells(const RowCells& cells, uint8_t* row) const {
    std::memset(row, 0, fixedEnd_);
    if (format_.wide)
        put16(row, definition_.columnsEver);
    else
        row[0] = static_cast<uint8_t>(definition_.columnsEver);
    for (size_t i = 0; i < definition_.columns.size(); ++i) {
        const Column& column = definition_.columns[i];
        if (column.fixed && column.type != ColumnType::Boolean && cells.isSet[i])
            copyCell(cells.bytes[i], row + format_.row.countWidth + column.fixedOffset);
    }
}

// Gives where they end.
uint32_t RowBuilder::copyVariableCells(const RowCells& cells, uint8_t* row) {
    uint32_t at = fixedEnd_;
    for (size_t i = 0; i < cellOf_.size(); ++i) {
        const size_t cell = cellOf_[i];
        offsets_[i] = at;
        if (cell == cells.bytes.size() || !cells.isSet[cell]) continue;
        copyCell(cells.bytes[cell], row + at);
        at += static_cast<uint32_t>(cells.bytes[cell].size());
    }
    offsets_.back() = at;
    return at;
}

void RowBuilder::putWideOffsets(uint8_t* at) const {
    for (auto offset = offsets_.rbegin(); offset != offsets_.rend(); ++offset, at += 2)
        put16(at, *offset);
    put16(at, static_cast<uint32_t>(cellOf_.size()));
}

void RowBuilder::putNarrowOffsets(uint32_t jumps, uint8_t* at) const {
    for (auto offset = offsets_.rbegin(); offset != offsets_.rend(); ++offset)
        *at++ = static_cast<uint8_t>(*offset);
    for (uint32_t jump = jumps; jump > 0; --jump) {
        const auto past = std::find_if(offsets_.begin(), offsets_.end(),
                                       [jump](uint32_t offset) { return offset >= jump * 256; });
        *at++ =
            past == offsets_.end() ? kUnusedJump : static_cast<uint8_t>(past - offsets_.begin());
    }
    *at = static_cast<uint8_t>(cellOf_.size());
}

}  // namespace jet
