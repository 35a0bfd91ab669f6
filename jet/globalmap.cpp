#include "jet/globalmap.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "jet/bytes.h"
#include "jet/fault.h"
#include "jet/pager.h"
#include "jet/pageslots.h"

namespace jet {

namespace {

constexpr uint32_t kGrowth = 4;  // bytes by which Access itself lengthens the row at a time

uint8_t maskOf(uint32_t bit) {
    return static_cast<uint8_t>(1u << (bit % 8));
}

void setBits(uint8_t* bits, uint32_t from, uint32_t to) {
    for (; from < to && from % 8 != 0; ++from)
        bits[from / 8] |= maskOf(from);
    if (from >= to) return;
    std::memset(bits + from / 8, 0xFF, to / 8 - from / 8);
    for (uint32_t bit = to - to % 8; bit < to; ++bit)
        bits[bit / 8] |= maskOf(bit);
}

}  // namespace

uint8_t* GlobalMap::editRow() {
    const auto offset = readMapRow(pager_, map_.where()).bytes - pager_.page(page::kGlobalMap);
    return pager_.edit(page::kGlobalMap, PageRole::GlobalMap) + offset;
}

// The bytes that the map's row can be lengthened by; DatabaseCorrupt when the rows of its page are
// not where a change of one could leave the others whole.
uint32_t GlobalMap::roomToGrow() const {
    const uint8_t* bytes = pager_.page(page::kGlobalMap);
    checkSlots(pager_.format(), bytes, page::kGlobalMap);
    return PageSlots(pager_.format(), bytes, page::kGlobalMap).freeBytes();
}

// Adds bits, as Access does, until the inline row covers `page`; false when page 1 has no room.
bool GlobalMap::lengthenTo(uint32_t page) {
    const MapRow row = readMapRow(pager_, map_.where());
    if (page < row.first) return false;
    const uint32_t oldBits = row.bitCount();
    uint32_t added = (page - row.first - oldBits) / 8 + 1;
    added = (added + kGrowth - 1) / kGrowth * kGrowth;
    if (added > roomToGrow()) return false;
    const uint32_t untold = std::max(row.first + oldBits, pager_.pageCount()) - row.first;
    resizeRow(pager_.format(), pager_.edit(page::kGlobalMap, PageRole::GlobalMap),
              map_.where().slot(), row.length + added);
    // Pages past the end count as free; those that the map did not tell of may be in use.
    setBits(editRow() + MapRow::kBitsAt, untold, oldBits + added * 8);
    return true;
}

// A type 5 page for the pages from index * pagesPerMapPage() on: free are those past the end.
void GlobalMap::addMapPage(uint32_t index) {
    const uint32_t perPage = pager_.format().pagesPerMapPage();
    const uint32_t mapPage = pager_.extend(PageRole::GlobalMap);
    uint8_t* bytes = pager_.edit(mapPage, PageRole::GlobalMap);
    bytes[0] = page::kTypeMap;
    bytes[1] = 1;
    const uint64_t first = uint64_t{index} * perPage;
    const uint64_t used = pager_.pageCount() > first ? pager_.pageCount() - first : 0;
    setBits(bytes + page::kMapBits, static_cast<uint32_t>(std::min<uint64_t>(used, perPage)),
            perPage);
    put32(editRow() + 1 + size_t{4} * index, mapPage);
    if (mapPage / perPage != index) markUsed(mapPage);
}

void GlobalMap::convertToReference() {
    std::vector<uint32_t> freePages;
    for (uint32_t page = map_.next(0); page != kNoPage; page = map_.next(page + 1))
        freePages.push_back(page);
    const Format& format = pager_.format();
    const uint32_t perPage = format.pagesPerMapPage();
    const uint32_t length = 1 + 4 * ((format.maxPages() + perPage - 1) / perPage);
    if (length > readMapRow(pager_, map_.where()).length + roomToGrow())
        throwDamaged(u"la table des pages libres est trop courte", page::kGlobalMap);
    resizeRow(format, pager_.edit(page::kGlobalMap, PageRole::GlobalMap), map_.where().slot(),
              length);
    uint8_t* bytes = editRow();
    std::memset(bytes, 0, length);
    bytes[0] = 1;
    const uint32_t pageCount = pager_.pageCount();
    for (uint32_t index = 0; index * perPage < pageCount; ++index)
        addMapPage(index);
    for (const uint32_t page : freePages)
        markFree(page);
}

// Whether the map is, or can be made, an inline one that covers `page`.
bool GlobalMap::coversInline(uint32_t page) {
    const MapRow row = readMapRow(pager_, map_.where());
    if (row.reference || page < row.first) return false;
    return page - row.first < row.bitCount() || lengthenTo(page);
}

void GlobalMap::write(uint32_t page, bool isFree) {
    uint8_t* bits = nullptr;
    uint32_t bit = page;
    if (coversInline(page)) {
        bit -= readMapRow(pager_, map_.where()).first;
        bits = editRow() + MapRow::kBitsAt;
    } else {
        if (!readMapRow(pager_, map_.where()).reference) convertToReference();
        const uint32_t perPage = pager_.format().pagesPerMapPage();
        const uint32_t index = page / perPage;
        if (index >= readMapRow(pager_, map_.where()).pointerCount())
            throwDamaged(u"la table des pages libres est trop courte", page::kGlobalMap);
        if (readMapRow(pager_, map_.where()).pointer(index) == 0) addMapPage(index);
        const uint32_t mapPage = readMapRow(pager_, map_.where()).pointer(index);
        mapPageBits(pager_, mapPage);
        bits = pager_.edit(mapPage, PageRole::GlobalMap) + page::kMapBits;
        bit %= perPage;
    }
    if (isFree)
        bits[bit / 8] |= maskOf(bit);
    else
        bits[bit / 8] &= static_cast<uint8_t>(~maskOf(bit));
}

void GlobalMap::markUsed(uint32_t page) {
    const MapRow row = readMapRow(pager_, map_.where());
    if (!row.reference && page < row.first) return;
    write(page, false);
}

void GlobalMap::markFree(uint32_t page) {
    write(page, true);
}

}  // namespace jet
