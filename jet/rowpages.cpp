#include "jet/rowpages.h"

#include <algorithm>
#include <vector>

#include "jet/pageallocator.h"
#include "jet/pager.h"
#include "jet/pageslots.h"

namespace jet {

namespace {

// A page with less room than this part of its size is left as it is: rows that were scattered over
// the last gaps of many old pages would make each of these a page to journal and to write.
constexpr uint32_t kWorthwhileRoomDivisor = 8;

uint32_t worthwhileRoom(const Format& format) {
    return format.pageSize / kWorthwhileRoomDivisor;
}

}  // namespace

uint32_t RowPages::newPage() {
    const uint32_t page = allocator_.allocate(role_);
    initDataPage(pager_.format(), pager_.edit(page, role_), owner_);
    addToMap(pager_, allocator_, owned_, page);
    return page;
}

// Makes current_ a page with room for `length` bytes, if the map names one.
bool RowPages::findPage(uint32_t length) {
    const Format& format = pager_.format();
    for (;;) {
        if (current_ != kNoPage) {
            const uint8_t* page = pager_.page(current_);
            if (hasRoom(format, page, length)) return true;
            if (PageSlots(format, page, current_).freeBytes() < worthwhileRoom(format))
                removeFromMap(pager_, withRoom_, current_);
            current_ = kNoPage;
        }
        const uint32_t page = withRoom_.next(searchFrom_);
        if (page == kNoPage) return false;
        searchFrom_ = page + 1;
        const uint8_t* bytes = pager_.page(page);
        if (bytes[0] != page::kTypeData || get32(bytes + page::kOwner) != owner_ || !owns(page))
            continue;
        checkSlots(format, bytes, page);
        if (PageSlots(format, bytes, page).freeBytes() < worthwhileRoom(format))
            removeFromMap(pager_, withRoom_, page);
        else
            current_ = page;
    }
}

RowId RowPages::insert(std::span<const uint8_t> row) {
    if (!findPage(static_cast<uint32_t>(row.size()))) {
        current_ = newPage();
        addToMap(pager_, allocator_, withRoom_, current_);
    }
    const uint32_t slot = insertRow(pager_.format(), pager_.edit(current_, role_), row);
    return makeRowId(current_, slot);
}

RowId RowPages::insertAlone(std::span<const uint8_t> row) {
    const uint32_t page = newPage();
    return makeRowId(page, insertRow(pager_.format(), pager_.edit(page, role_), row));
}

void RowPages::erase(std::span<const RowId> rows) {
    while (!rows.empty()) {
        const uint32_t page = rows.front().page();
        const auto end = std::find_if(rows.begin(), rows.end(),
                                      [page](RowId row) { return row.page() != page; });
        const auto count = static_cast<size_t>(end - rows.begin());
        if (owns(page)) eraseOnPage(page, rows.first(count));
        rows = rows.subspan(count);
    }
}

void RowPages::eraseOnPage(uint32_t page, std::span<const RowId> rows) {
    const Format& format = pager_.format();
    const uint8_t* bytes = pager_.page(page);
    if (bytes[0] != page::kTypeData || get32(bytes + page::kOwner) != owner_) return;
    checkSlots(format, bytes, page);
    const PageSlots slots(format, bytes, page);
    const auto isLive = [&slots](RowId row) {
        return row.slot() < slots.count() && slots.at(row.slot()).flags != slot::kDeleted;
    };
    std::vector<uint32_t> slotsToErase;
    for (const RowId row : rows)
        if (isLive(row)) slotsToErase.push_back(row.slot());
    if (slotsToErase.empty()) return;
    if (slotsToErase.size() == slots.liveCount()) {
        dropPage(page);
        return;
    }
    uint8_t* image = pager_.edit(page, role_);
    for (const uint32_t slot : slotsToErase)
        eraseRow(format, image, slot);
    if (PageSlots(format, image, page).freeBytes() >= worthwhileRoom(format)) {
        addToMap(pager_, allocator_, withRoom_, page);
        searchFrom_ = std::min(searchFrom_, page);
    }
}

void RowPages::dropPage(uint32_t page) {
    removeFromMap(pager_, withRoom_, page);
    removeFromMap(pager_, owned_, page);
    if (current_ == page) current_ = kNoPage;
    allocator_.release(page);
}

}  // namespace jet
