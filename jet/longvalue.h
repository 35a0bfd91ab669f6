// Long values (Memo, Ole): a 12-byte cell in the row that holds the value or tells where it is.
#pragma once

#include <cstdint>
#include <span>

#include "jet/cell.h"
#include "jet/rowid.h"
#include "jet/value.h"

namespace jet {

class Pager;

enum class LongValueKind : uint8_t { Inline, Single, Chain };

struct LongValue {
    LongValueKind kind;
    uint32_t length;  // stored bytes
    RowId where;      // Single, Chain: its (first) row
    std::span<const uint8_t> inlineBytes;
};

inline constexpr uint32_t kLongValueCellSize = 12;
inline constexpr uint32_t kInlineFlag = 0x80000000;
inline constexpr uint32_t kSingleFlag = 0x40000000;

// Tells a cell, which is not null, apart.
LongValue parseLongValue(Cell cell);

// The value's stored bytes: in place when they lie in one piece, else put together in `scratch`.
std::span<const uint8_t> readLongValue(const Pager& pager, const LongValue& value, Bytes& scratch);

// One row of a long-value page. DatabaseCorrupt when it is not there.
std::span<const uint8_t> longValueRow(const Pager& pager, RowId where);

}  // namespace jet
