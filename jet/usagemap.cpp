#include "jet/usagemap.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "jet/bytes.h"
#include "jet/fault.h"
#include "jet/pageallocator.h"
#include "jet/pager.h"
#include "jet/pageslots.h"

namespace jet {

namespace {

// First byte of a map that names map pages; that of an inline map is 0.
constexpr uint8_t kReference = 1;

uint8_t maskOf(uint32_t bit) {
    return static_cast<uint8_t>(1u << (bit % 8));
}

// The map's row for changing, without its length.
uint8_t* editRow(Pager& pager, const UsageMap& map) {
    const MapRow row = readMapRow(pager, map.where());
    const uint32_t page = map.where().page();
    const auto offset = row.bytes - pager.page(page);
    return pager.edit(page, PageRole::Map) + offset;
}

void setReferenceBit(Pager& pager, PageAllocator& allocator, const UsageMap& map, uint32_t page) {
    const uint32_t perPage = pager.format().pagesPerMapPage();
    const MapRow row = readMapRow(pager, map.where());
    const uint32_t index = page / perPage;
    if (index >= row.pointerCount())
        throwDamaged(u"une table d'occupation est trop courte", map.where().page());
    uint32_t mapPage = row.pointer(index);
    if (mapPage == 0) {
        mapPage = allocator.allocateMapPage();
        put32(editRow(pager, map) + 1 + size_t{4} * index, mapPage);
    } else {
        mapPageBits(pager, mapPage);
    }
    const uint32_t bit = page % perPage;
    pager.edit(mapPage, PageRole::Map)[page::kMapBits + bit / 8] |= maskOf(bit);
}

std::vector<uint32_t> pagesOf(const UsageMap& map) {
    std::vector<uint32_t> pages;
    for (uint32_t page = map.next(0); page != kNoPage; page = map.next(page + 1))
        pages.push_back(page);
    return pages;
}

// Makes room for `page` in an inline map whose window ends before it or starts after it.
void widen(Pager& pager, PageAllocator& allocator, const UsageMap& map, uint32_t page) {
    const MapRow row = readMapRow(pager, map.where());
    std::vector<uint32_t> pages = pagesOf(map);
    const uint32_t lowest = pages.empty() ? page : std::min(page, pages.front());
    const uint32_t highest = pages.empty() ? page : std::max(page, pages.back());
    pages.push_back(page);
    const uint32_t first = lowest - lowest % 8;
    const uint32_t bitCount = row.bitCount();
    uint8_t* bytes = editRow(pager, map);
    std::memset(bytes + 1, 0, row.length - 1);
    if (highest - first < bitCount) {
        put32(bytes + 1, first);
        for (const uint32_t each : pages)
            bytes[MapRow::kBitsAt + (each - first) / 8] |= maskOf(each - first);
        return;
    }
    bytes[0] = kReference;
    for (const uint32_t each : pages)
        setReferenceBit(pager, allocator, map, each);
}

}  // namespace

uint32_t MapRow::pointer(uint32_t index) const {
    return get32(bytes + 1 + size_t{4} * index);
}

MapRow readMapRow(const Pager& pager, RowId where) {
    const PageSlots slots(pager.format(), pager.page(where.page()), where.page());
    const std::span<const uint8_t> row = slots.live(where.slot());
    if (row.size() < MapRow::kBitsAt || row[0] > kReference)
        throwDamaged(u"une table d'occupation des pages est illisible", where.page());
    const bool reference = row[0] == kReference;
    return {row.data(), static_cast<uint32_t>(row.size()), reference,
            reference ? 0 : get32(row.data() + 1)};
}

std::span<const uint8_t> mapPageBits(const Pager& pager, uint32_t number) {
    const uint8_t* bytes = pager.page(number);
    if (bytes[0] != page::kTypeMap) throwDamaged(u"une page d'occupation n'en est pas une", number);
    return {bytes + page::kMapBits, pager.format().pageSize - page::kMapBits};
}

uint32_t findBit(std::span<const uint8_t> bits, uint32_t from) {
    const auto count = static_cast<uint32_t>(bits.size() * 8);
    while (from < count) {
        if (from % 8 == 0 && count - from >= 64) {
            const uint64_t word = get64(bits.data() + from / 8);
            if (word != 0) return from + static_cast<uint32_t>(std::countr_zero(word));
            from += 64;
            continue;
        }
        if ((bits[from / 8] & maskOf(from)) != 0) return from;
        ++from;
    }
    return count;
}

uint32_t UsageMap::next(uint32_t from) const {
    const MapRow row = readMapRow(*pager_, where_);
    const uint32_t pageCount = pager_->pageCount();
    if (!row.reference) {
        const uint32_t start = from > row.first ? from - row.first : 0;
        const uint32_t bit = findBit({row.bits(), row.length - MapRow::kBitsAt}, start);
        if (bit >= row.bitCount()) return kNoPage;
        return uint64_t{row.first} + bit < pageCount ? row.first + bit : kNoPage;
    }
    const uint32_t perPage = pager_->format().pagesPerMapPage();
    for (uint32_t index = from / perPage; index < row.pointerCount(); ++index) {
        const uint64_t first = uint64_t{index} * perPage;
        if (first >= pageCount) break;
        if (row.pointer(index) == 0) continue;
        const std::span<const uint8_t> bits = mapPageBits(*pager_, row.pointer(index));
        const uint32_t bit = findBit(bits, from > first ? static_cast<uint32_t>(from - first) : 0);
        if (bit < perPage)
            return first + bit < pageCount ? static_cast<uint32_t>(first + bit) : kNoPage;
    }
    return kNoPage;
}

bool UsageMap::contains(uint32_t page) const {
    const MapRow row = readMapRow(*pager_, where_);
    if (!row.reference) {
        if (page < row.first || page - row.first >= row.bitCount()) return false;
        const uint32_t bit = page - row.first;
        return (row.bits()[bit / 8] & maskOf(bit)) != 0;
    }
    const uint32_t perPage = pager_->format().pagesPerMapPage();
    if (page / perPage >= row.pointerCount() || row.pointer(page / perPage) == 0) return false;
    const uint32_t bit = page % perPage;
    return (mapPageBits(*pager_, row.pointer(page / perPage))[bit / 8] & maskOf(bit)) != 0;
}

void addToMap(Pager& pager, PageAllocator& allocator, const UsageMap& map, uint32_t page) {
    const MapRow row = readMapRow(pager, map.where());
    if (row.reference) {
        setReferenceBit(pager, allocator, map, page);
    } else if (page >= row.first && page - row.first < row.bitCount()) {
        const uint32_t bit = page - row.first;
        editRow(pager, map)[MapRow::kBitsAt + bit / 8] |= maskOf(bit);
    } else {
        widen(pager, allocator, map, page);
    }
}

void removeFromMap(Pager& pager, const UsageMap& map, uint32_t page) {
    if (!map.contains(page)) return;
    const MapRow row = readMapRow(pager, map.where());
    if (!row.reference) {
        const uint32_t bit = page - row.first;
        editRow(pager, map)[MapRow::kBitsAt + bit / 8] &= static_cast<uint8_t>(~maskOf(bit));
        return;
    }
    const uint32_t perPage = pager.format().pagesPerMapPage();
    const uint32_t bit = page % perPage;
    uint8_t* bits = pager.edit(row.pointer(page / perPage), PageRole::Map) + page::kMapBits;
    bits[bit / 8] &= static_cast<uint8_t>(~maskOf(bit));
}

}  // namespace jet
