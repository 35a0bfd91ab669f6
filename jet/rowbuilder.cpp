#include "jet/rowbuilder.h"

#include <algorithm>
#include <cstddef>

#include "jet/bytes.h"

namespace jet {

namespace {

constexpr uint8_t kUnusedJump = 0xFF;

uint32_t maskLength(const TableDefinition& definition) {
    return (definition.columnsEver + 7u) / 8;
}

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

uint32_t lengthWithoutJumps(const Format& format, const TableDefinition& definition,
                            uint32_t variableBytes) {
    uint32_t length = format.row.countWidth + fixedLength(definition) + maskLength(definition);
    if (definition.variableColumnsEver != 0)
        length += variableBytes + format.row.countWidth * (definition.variableColumnsEver + 2u);
    return length;
}

// Appends the variable cells; gives where each variable column starts, and the end of the last.
std::vector<uint32_t> appendVariableCells(const TableDefinition& definition, const RowCells& cells,
                                          Bytes& out) {
    std::vector<size_t> cellOf(definition.variableColumnsEver, cells.bytes.size());
    for (size_t i = 0; i < definition.columns.size(); ++i)
        if (!definition.columns[i].fixed) cellOf[definition.columns[i].variableIndex] = i;
    std::vector<uint32_t> offsets;
    for (const size_t cell : cellOf) {
        offsets.push_back(static_cast<uint32_t>(out.size()));
        if (cell < cells.bytes.size() && cells.isSet[cell])
            out.insert(out.end(), cells.bytes[cell].begin(), cells.bytes[cell].end());
    }
    offsets.push_back(static_cast<uint32_t>(out.size()));
    return offsets;
}

void appendWideOffsets(const std::vector<uint32_t>& offsets, Bytes& out) {
    size_t at = out.size();
    out.resize(at + 2 * (offsets.size() + 1));
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset, at += 2)
        put16(out.data() + at, *offset);
    put16(out.data() + at, static_cast<uint32_t>(offsets.size() - 1));
}

void appendNarrowOffsets(const std::vector<uint32_t>& offsets, uint32_t jumps, Bytes& out) {
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset)
        out.push_back(static_cast<uint8_t>(*offset));
    for (uint32_t jump = jumps; jump > 0; --jump) {
        const auto past = std::find_if(offsets.begin(), offsets.end(),
                                       [jump](uint32_t offset) { return offset >= jump * 256; });
        out.push_back(past == offsets.end() ? kUnusedJump
                                            : static_cast<uint8_t>(past - offsets.begin()));
    }
    out.push_back(static_cast<uint8_t>(offsets.size() - 1));
}

void appendMask(const TableDefinition& definition, const RowCells& cells, Bytes& out) {
    const size_t at = out.size();
    out.resize(at + maskLength(definition));
    for (size_t i = 0; i < definition.columns.size(); ++i) {
        const uint32_t number = definition.columns[i].number;
        if (cells.isSet[i]) out[at + number / 8] |= static_cast<uint8_t>(1u << (number % 8));
    }
}

}  // namespace

uint32_t rowLength(const Format& format, const TableDefinition& definition,
                   uint32_t variableBytes) {
    const uint32_t length = lengthWithoutJumps(format, definition, variableBytes);
    return format.wide || definition.variableColumnsEver == 0 ? length : length + jumpCount(length);
}

void buildRow(const Format& format, const TableDefinition& definition, const RowCells& cells,
              Bytes& out) {
    out.assign(format.row.countWidth + fixedLength(definition), 0);
    out[0] = static_cast<uint8_t>(definition.columnsEver);
    for (size_t i = 0; i < definition.columns.size(); ++i) {
        const Column& column = definition.columns[i];
        if (!column.fixed || column.type == ColumnType::Boolean || !cells.isSet[i]) continue;
        std::copy(cells.bytes[i].begin(), cells.bytes[i].end(),
                  out.begin() + static_cast<ptrdiff_t>(format.row.countWidth) + column.fixedOffset);
    }
    if (definition.variableColumnsEver != 0) {
        const size_t fixedEnd = out.size();
        const std::vector<uint32_t> offsets = appendVariableCells(definition, cells, out);
        if (format.wide)
            appendWideOffsets(offsets, out);
        else
            appendNarrowOffsets(
                offsets,
                jumpCount(lengthWithoutJumps(format, definition,
                                             static_cast<uint32_t>(out.size() - fixedEnd))),
                out);
    }
    appendMask(definition, cells, out);
}

}  // namespace jet
