#include "jet/rowcursor.h"

#include "jet/fault.h"
#include "jet/pager.h"
#include "jet/rowlookup.h"

namespace jet {

RowCursor::RowCursor(const Pager& pager, const UsageMap& owned, uint32_t definitionPage,
                     uint32_t fromPage)
    : pager_(&pager), owned_(owned), definitionPage_(definitionPage), nextPageNumber_(fromPage) {}

bool RowCursor::nextPage() {
    const uint32_t number = owned_.next(nextPageNumber_);
    if (number == kNoPage) return false;
    nextPageNumber_ = number + 1;
    const Format& format = pager_->format();
    page_ = rowsPage(*pager_, number, definitionPage_);
    pageNumber_ = number;
    slots_ = page_ + format.dataPage.slots;
    slotCount_ = get16(page_ + format.dataPage.slotCount);
    slotsEnd_ = format.dataPage.slots + 2 * slotCount_;
    if (slotCount_ > page::kMaxSlots + 1 || slotsEnd_ > format.pageSize) damagedSlot();
    slot_ = 0;
    end_ = format.pageSize;
    return true;
}

void RowCursor::prefetchNextPage() const {
    constexpr uint32_t kCacheLine = 64;
    const uint32_t pageSize = pager_->format().pageSize;
    // An address behind the file does no harm here.
    for (uint32_t at = pageSize; at < 2 * pageSize; at += kCacheLine)
        __builtin_prefetch(page_ + at);
}

RowView RowCursor::followed() const {
    return followRow(*pager_, id(), definitionPage_);
}

void RowCursor::damagedSlot() const {
    throwDamaged(u"une page de données est incohérente", pageNumber_);
}

}  // namespace jet
