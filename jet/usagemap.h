// A set of pages, stored as a row: the pages that a table or a column owns, or those with room.
#pragma once

#include <cstdint>
#include <span>

#include "jet/pageimage.h"
#include "jet/rowid.h"

namespace jet {

class PageAllocator;
class Pager;

inline constexpr uint32_t kNoPage = 0xFFFFFFFF;

// The row of a map, told apart. docs/mdb-format.md has the two forms.
struct MapRow {
    const uint8_t* bytes;  // the whole row
    uint32_t length;
    bool reference;
    uint32_t first;  // inline: the page of the first bit

    uint32_t bitCount() const { return (length - kBitsAt) * 8; }  // inline
    uint32_t pointerCount() const { return (length - 1) / 4; }    // reference
    uint32_t pointer(uint32_t index) const;                       // reference; 0: absent
    const uint8_t* bits() const { return bytes + kBitsAt; }       // inline

    static constexpr uint32_t kBitsAt = 5;
};

// DatabaseCorrupt when there is no such map.
MapRow readMapRow(const Pager& pager, RowId where);
// The bitmap of the type 5 page `number`.
std::span<const uint8_t> mapPageBits(const Pager& pager, uint32_t number);
// The first set bit not below `from`; the number of bits when there is none.
uint32_t findBit(std::span<const uint8_t> bits, uint32_t from);

// A handle to the map that lies at `where`; nothing is cached, so it always tells the current
// state. All calls throw DatabaseCorrupt when the map contradicts itself.
class UsageMap {
  public:
    UsageMap(const Pager& pager, RowId where) : pager_(&pager), where_(where) {}

    RowId where() const { return where_; }
    // The first page of the set that is not below `from`; kNoPage when there is none.
    uint32_t next(uint32_t from) const;
    bool contains(uint32_t page) const;

  private:
    const Pager* pager_;
    RowId where_;
};

// Adds a page to the map, which may have to move its window or grow by map pages of its own.
void addToMap(Pager& pager, PageAllocator& allocator, const UsageMap& map, uint32_t page);
void removeFromMap(Pager& pager, const UsageMap& map, uint32_t page);

}  // namespace jet
