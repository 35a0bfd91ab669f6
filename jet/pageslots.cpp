#include "jet/pageslots.h"

#include <cstring>

#include "jet/fault.h"

namespace jet {

namespace {

uint32_t slotStart(const Format& format, const uint8_t* page, uint32_t slot) {
    return get16(page + format.dataPage.slots + size_t{2} * slot) & slot::kOffset;
}

uint32_t slotEnd(const Format& format, const uint8_t* page, uint32_t slot) {
    return slot == 0 ? format.pageSize : slotStart(format, page, slot - 1);
}

uint32_t slotCount(const Format& format, const uint8_t* page) {
    return get16(page + format.dataPage.slotCount);
}

// Where the lowest of the first `count` rows starts.
uint32_t lowestStart(const Format& format, const uint8_t* page, uint32_t count) {
    return slotEnd(format, page, count);
}

// The slot count without the deleted, empty ones at the end.
uint32_t trimmedCount(const Format& format, const uint8_t* page) {
    uint32_t count = slotCount(format, page);
    while (count > 0) {
        const uint32_t entry = get16(page + format.dataPage.slots + size_t{2} * (count - 1));
        if ((entry & slot::kFlags) != slot::kDeleted) break;
        if ((entry & slot::kOffset) != slotEnd(format, page, count - 1)) break;
        --count;
    }
    return count;
}

void setCounts(const Format& format, uint8_t* page, uint32_t count) {
    put16(page + format.dataPage.slotCount, count);
    put16(page + page::kFreeBytes,
          lowestStart(format, page, count) - (format.dataPage.slots + 2 * count));
}

// Moves the rows' bytes below `end` by `distance` (up when positive), and with them the starts of
// `slot` and the later ones.
void moveRows(const Format& format, uint8_t* page, uint32_t slot, uint32_t end, int distance) {
    const uint32_t count = slotCount(format, page);
    const uint32_t from = lowestStart(format, page, count);
    std::memmove(page + static_cast<int>(from) + distance, page + from, end - from);
    for (uint32_t later = slot; later < count; ++later) {
        uint8_t* entry = page + format.dataPage.slots + size_t{2} * later;
        put16(entry, static_cast<uint32_t>(get16(entry) + distance));
    }
}

[[noreturn]] void damagedPage(uint32_t number) {
    throwDamaged(u"une page de données est incohérente", number);
}

}  // namespace

PageSlots::PageSlots(const Format& format, const uint8_t* page, uint32_t number)
    : format_(format), page_(page), number_(number), count_(slotCount(format, page)) {
    if (page[0] != page::kTypeData || format.dataPage.slots + 2 * count_ > format.pageSize)
        damagedPage(number);
}

SlotView PageSlots::at(uint32_t slot) const {
    const uint32_t entry = get16(page_ + format_.dataPage.slots + size_t{2} * slot);
    const uint32_t start = entry & slot::kOffset;
    const uint32_t end = slotEnd(format_, page_, slot);
    if (start < format_.dataPage.slots + 2 * count_ || start > end || end > format_.pageSize)
        damagedPage(number_);
    return {entry & slot::kFlags, start, end - start};
}

std::span<const uint8_t> PageSlots::live(uint32_t slot) const {
    if (slot >= count_) return {};
    const SlotView view = at(slot);
    if (view.flags == slot::kDeleted) return {};
    return {page_ + view.start, view.length};
}

uint32_t PageSlots::freeBytes() const {
    return lowestStart(format_, page_, count_) - (format_.dataPage.slots + 2 * count_);
}

uint32_t PageSlots::liveCount() const {
    uint32_t live = 0;
    for (uint32_t slot = 0; slot < count_; ++slot)
        if (at(slot).flags != slot::kDeleted) ++live;
    return live;
}

void initDataPage(const Format& format, uint8_t* page, uint32_t owner) {
    std::memset(page, 0, format.pageSize);
    page[0] = page::kTypeData;
    page[1] = 1;
    put32(page + page::kOwner, owner);
    setCounts(format, page, 0);
}

void checkSlots(const Format& format, const uint8_t* page, uint32_t number) {
    const PageSlots slots(format, page, number);
    for (uint32_t slot = 0; slot < slots.count(); ++slot)
        slots.at(slot);
}

bool hasRoom(const Format& format, const uint8_t* page, uint32_t length) {
    const uint32_t count = trimmedCount(format, page);
    return count < page::kMaxSlots &&
           length + 2 <= lowestStart(format, page, count) - (format.dataPage.slots + 2 * count);
}

uint32_t insertRow(const Format& format, uint8_t* page, std::span<const uint8_t> row) {
    const uint32_t slot = trimmedCount(format, page);
    const auto start = static_cast<uint32_t>(lowestStart(format, page, slot) - row.size());
    std::memcpy(page + start, row.data(), row.size());
    put16(page + format.dataPage.slots + size_t{2} * slot, start);
    setCounts(format, page, slot + 1);
    return slot;
}

void eraseRow(const Format& format, uint8_t* page, uint32_t slot) {
    const uint32_t lowest = lowestStart(format, page, slotCount(format, page));
    const uint32_t length = slotEnd(format, page, slot) - slotStart(format, page, slot);
    moveRows(format, page, slot, slotStart(format, page, slot), static_cast<int>(length));
    std::memset(page + lowest, 0, length);
    uint8_t* entry = page + format.dataPage.slots + size_t{2} * slot;
    put16(entry, (get16(entry) & slot::kOffset) | slot::kDeleted);
    setCounts(format, page, slotCount(format, page));
}

void resizeRow(const Format& format, uint8_t* page, uint32_t slot, uint32_t newLength) {
    const uint32_t start = slotStart(format, page, slot);
    const uint32_t length = slotEnd(format, page, slot) - start;
    const uint32_t lowest = lowestStart(format, page, slotCount(format, page));
    const uint32_t kept = newLength < length ? newLength : length;
    // The row's kept bytes move with the later rows, so that what changes is at its end.
    moveRows(format, page, slot, start + kept,
             static_cast<int>(length) - static_cast<int>(newLength));
    if (newLength > length)
        std::memset(page + slotStart(format, page, slot) + length, 0, newLength - length);
    else
        std::memset(page + lowest, 0, length - newLength);
    setCounts(format, page, slotCount(format, page));
}

}  // namespace jet
