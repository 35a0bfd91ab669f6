// The pages of one table's rows, or of one column's long values: placing rows on them and removing
// them, and keeping their two usage maps. For one transaction.
#pragma once

#include <cstdint>
#include <span>

#include "jet/pageimage.h"
#include "jet/usagemap.h"

namespace jet {

class PageAllocator;
class Pager;

class RowPages {
  public:
    // `owner` stands in each page: the table's definition page or page::kLongValueOwner.
    RowPages(Pager& pager, PageAllocator& allocator, PageRole role, uint32_t owner, UsageMap owned,
             UsageMap withRoom)
        : pager_(pager),
          allocator_(allocator),
          role_(role),
          owner_(owner),
          owned_(owned),
          withRoom_(withRoom) {}

    // Puts the row on a page with room, or on a new one. The row must fit on an empty page.
    RowId insert(std::span<const uint8_t> row);
    // Puts the row on a new page that takes no other.
    RowId insertAlone(std::span<const uint8_t> row);
    bool owns(uint32_t page) const { return owned_.contains(page); }
    // Removes live rows, which must be sorted and different. A page without a live row is given
    // back unchanged. What is not there is passed over.
    void erase(std::span<const RowId> rows);

  private:
    uint32_t newPage();
    bool findPage(uint32_t length);
    void eraseOnPage(uint32_t page, std::span<const RowId> rows);
    void dropPage(uint32_t page);

    Pager& pager_;
    PageAllocator& allocator_;
    PageRole role_;
    uint32_t owner_;
    UsageMap owned_;
    UsageMap withRoom_;
    uint32_t current_ = kNoPage;  // the page that takes rows
    uint32_t searchFrom_ = 0;
};

}  // namespace jet
