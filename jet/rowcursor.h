// The rows of a table, one after the other, straight from the pages.
#pragma once

#include <cstdint>

#include "jet/bytes.h"
#include "jet/format.h"
#include "jet/rowid.h"
#include "jet/usagemap.h"

namespace jet {

class Pager;

class RowCursor {
  public:
    // From the first row that is not before page `fromPage`.
    RowCursor(const Pager& pager, const UsageMap& owned, uint32_t definitionPage,
              uint32_t fromPage);

    // Steps to the next live row; false after the last.
    bool next() {
        for (;;) {
            while (slot_ < slotCount_) {
                const uint32_t entry = get16(slots_ + size_t{2} * slot_);
                const uint32_t start = entry & slot::kOffset;
                const uint32_t end = end_;
                if (start > end || start < slotsEnd_) damagedSlot();
                end_ = start;
                ++slot_;
                if ((entry & slot::kFlags) == 0) [[likely]] {
                    row_ = {page_ + start, end - start};
                    return true;
                }
                if ((entry & slot::kFlags) == slot::kPointer) {
                    row_ = followed();
                    return true;
                }
            }
            if (!nextPage()) return false;
        }
    }

    RowId id() const { return makeRowId(pageNumber_, slot_ - 1); }
    RowView row() const { return row_; }
    // Has the page behind the present one, where its rows mostly go on, brought from memory: for
    // walks that look into every row. Rows lie from the end of a page to its beginning, which
    // processors do not foresee.
    void prefetchNextPage() const;

  private:
    bool nextPage();
    RowView followed() const;
    [[noreturn]] void damagedSlot() const;

    const Pager* pager_;
    UsageMap owned_;
    uint32_t definitionPage_;
    uint32_t nextPageNumber_;
    uint32_t pageNumber_ = 0;
    const uint8_t* page_ = nullptr;
    const uint8_t* slots_ = nullptr;
    uint32_t slotCount_ = 0;
    uint32_t slot_ = 0;
    uint32_t slotsEnd_ = 0;
    uint32_t end_ = 0;
    RowView row_;
};

}  // namespace jet
