// Putting the bytes of a row together from those of its cells.
#pragma once

#include <cstdint>
#include <vector>

#include "jet/format.h"
#include "jet/tabledefinition.h"
#include "jet/value.h"

namespace jet {

// The cell of each column of a row, in the order of definition.columns.
struct RowCells {
    std::vector<Bytes> bytes;
    std::vector<bool> isSet;  // false: null; for a Boolean its value
};

// Bytes of a row apart from its variable cells, for `variableBytes` of those.
uint32_t rowLength(const Format& format, const TableDefinition& definition, uint32_t variableBytes);

// Replaces `out` by the row, of rowLength() bytes.
void buildRow(const Format& format, const TableDefinition& definition, const RowCells& cells,
              Bytes& out);

}  // namespace jet
