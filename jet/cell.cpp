#include "jet/cell.h"

#include "jet/fault.h"

namespace jet {

void throwDamagedRow() {
    throwDamaged(u"un enregistrement est incohérent");
}

Cell findNarrowVariable(RowView row, uint32_t tail, uint32_t index) {
    if (tail < 2) throwDamagedRow();
    const uint32_t variableCount = row.bytes[tail - 1];
    if (index >= variableCount) return {};
    // Offsets are bytes; the jump bytes behind them tell from which entry on 256 is to be added.
    uint32_t jumps = (row.length - 1) / 256;
    if (tail < 1 + jumps + variableCount + 1) throwDamagedRow();
    const uint32_t firstEntry = tail - 2 - jumps;
    if ((firstEntry - variableCount) / 256 < jumps) --jumps;
    const auto offsetOf = [&](uint32_t entry) {
        uint32_t offset = row.bytes[firstEntry - entry];
        for (uint32_t jump = 0; jump < jumps; ++jump)
            if (row.bytes[tail - 2 - jump] <= entry) offset += 256;
        return offset;
    };
    const uint32_t start = offsetOf(index);
    const uint32_t end = offsetOf(index + 1);
    if (start > end || end > firstEntry - variableCount) throwDamagedRow();
    return {row.bytes + start, end - start};
}

}  // namespace jet
