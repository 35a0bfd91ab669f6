// The map of the file's free pages: row 0 of page 1, a set bit for a free page.
#pragma once

#include <cstdint>

#include "jet/format.h"
#include "jet/usagemap.h"

namespace jet {

class Pager;

class GlobalMap {
  public:
    explicit GlobalMap(Pager& pager) : pager_(pager), map_(pager, makeRowId(page::kGlobalMap, 0)) {}

    // The first free page in the file that is not below `from`; kNoPage when there is none.
    uint32_t nextFree(uint32_t from) const { return map_.next(from); }
    // Pages that the map does not cover count as used; it grows when it has to tell otherwise.
    void markUsed(uint32_t page);
    void markFree(uint32_t page);

  private:
    void write(uint32_t page, bool isFree);
    bool coversInline(uint32_t page);
    uint32_t roomToGrow() const;
    bool lengthenTo(uint32_t page);
    void convertToReference();
    void addMapPage(uint32_t index);
    uint8_t* editRow();

    Pager& pager_;
    UsageMap map_;
};

}  // namespace jet
