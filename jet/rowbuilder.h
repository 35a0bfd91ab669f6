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

// Builds the rows of one table; what is the same for all of them is worked out once.
class RowBuilder {
  public:
    // Both must outlive the builder.
    RowBuilder(const Format& format, const TableDefinition& definition);

    // Bytes of a row whose variable cells have `variableBytes` of them.
    uint32_t length(uint32_t variableBytes) const;
    // Replaces `out` by the row, of length() bytes.
    void build(const RowCells& cells, Bytes& out);

  private:
    uint32_t lengthWithoutJumps(uint32_t variableBytes) const;
    void copyFixedCells(const RowCells& cells, uint8_t* row) const;
    uint32_t copyVariableCells(const RowCells& cells, uint8_t* row);
    void putWideOffsets(uint8_t* at) const;
    void putNarrowOffsets(uint32_t jumps, uint8_t* at) const;

    const Format& format_;
    const TableDefinition& definition_;
    uint32_t fixedEnd_;              // where the variable cells begin
    uint32_t maskLength_;            // bytes of the null mask at the row's end
    std::vector<size_t> cellOf_;     // by variable column: its cell; behind all: deleted
    std::vector<uint32_t> offsets_;  // of the last row: where each of them begins, and the end
};

}  // namespace jet
