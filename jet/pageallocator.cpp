#include "jet/pageallocator.h"

#include "jet/pager.h"

namespace jet {

namespace {

// Page 0, the global map and the catalogue's definition have fixed places.
constexpr uint32_t kFirstFreeable = 3;

}  // namespace

uint32_t PageAllocator::allocate(PageRole role) {
    if (!recycled_.empty()) {
        const uint32_t page = recycled_.back();
        recycled_.pop_back();
        pager_.takeFree(page, role);
        return page;
    }
    if (searchFrom_ != kNoPage) {
        const uint32_t page = global_.nextFree(std::max(searchFrom_, kFirstFreeable));
        if (page != kNoPage && page < pager_.oldPageCount()) {
            searchFrom_ = page + 1;
            global_.markUsed(page);
            pager_.takeFree(page, role);
            return page;
        }
        searchFrom_ = kNoPage;
    }
    const uint32_t page = pager_.extend(role);
    global_.markUsed(page);
    return page;
}

uint32_t PageAllocator::allocateMapPage() {
    const uint32_t page = allocate(PageRole::Map);
    uint8_t* bytes = pager_.edit(page, PageRole::Map);
    bytes[0] = page::kTypeMap;
    bytes[1] = 1;
    return page;
}

void PageAllocator::release(uint32_t page) {
    const bool reusable = pager_.isNew(page);
    pager_.discard(page);
    (reusable ? recycled_ : released_).push_back(page);
}

void PageAllocator::settleReleases() {
    for (const uint32_t page : released_)
        global_.markFree(page);
    for (const uint32_t page : recycled_)
        global_.markFree(page);
    released_.clear();
    recycled_.clear();
}

void PageAllocator::endTransaction() {
    searchFrom_ = 0;
    recycled_.clear();
    released_.clear();
}

}  // namespace jet
