// A set of pages, stored as a row: the pages that a table or a column owns, or those with room.
#pragma once

#include <cstdint>

#include "jet/rowid.h"

namespace jet {

class PageAllocator;
class Pager;

inline constexpr uint32_t kNoPage = 0xFFFFFFFF;

// A handle to the map that lies at `where`; nothing is cached, so it always tells the current
// state. All calls throw DatabaseCorrupt when the map contradicts itself.
class UsageMap {
  public:
    UsageMap(const Pager& pager, RowId where) : pager_(&pager), where_(where) {}

    // The first page of the set that is not below `from`; kNoPage when there is none.
    uint32_t next(uint32_t from) const;
    bool contains(uint32_t page) const;

  private:
    const Pager* pager_;
    RowId where_;
};

}  // namespace jet
