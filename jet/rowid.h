// Where a row is: its page and its slot on that page. Every pointer of the format has this form,
// whether it names a table's row, a piece of a long value or a usage map.
#pragma once

#include <compare>
#include <cstdint>

namespace jet {

struct RowId {
    uint32_t value = 0;  // page << 8 | slot; 0 points nowhere

    uint32_t page() const { return value >> 8; }
    uint32_t slot() const { return value & 0xFF; }
    // The 0 that the compiler compares orderings with is taken for a pointer.
    auto operator<=>(const RowId&) const = default;  // NOLINT(modernize-use-nullptr)
};

inline RowId makeRowId(uint32_t page, uint32_t slot) {
    return RowId{page << 8 | slot};
}

// A row's bytes inside its page. Valid until the next write to the store.
struct RowView {
    const uint8_t* bytes = nullptr;
    uint32_t length = 0;
};

}  // namespace jet
