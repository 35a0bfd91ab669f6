// The rows of one data-format page, by slot: a table's rows, pieces of long values, usage maps.
//
// Rows lie from the page's end downward in slot order, so a row ends where the one before it
// starts.
#pragma once

#include <cstdint>
#include <span>

#include "jet/bytes.h"
#include "jet/format.h"
#include "jet/rowid.h"

namespace jet {

// What a slot of a page holds.
struct SlotView {
    uint32_t flags;  // slot::kFlags bits
    uint32_t start;
    uint32_t length;
};

// Reading. Every call checks the page's own numbers first; DatabaseCorrupt when they are
// impossible.
class PageSlots {
  public:
    // `number` is for errors only.
    PageSlots(const Format& format, const uint8_t* page, uint32_t number);

    uint32_t count() const { return count_; }
    // `slot` below count().
    SlotView at(uint32_t slot) const;
    // The slot's bytes; nothing when there is no such slot or it is deleted.
    std::span<const uint8_t> live(uint32_t slot) const;
    // Bytes between the slot table and the lowest row.
    uint32_t freeBytes() const;
    // The number of slots that are not deleted.
    uint32_t liveCount() const;

  private:
    const Format& format_;
    const uint8_t* page_;
    uint32_t number_;
    uint32_t count_;
};

// Changing. The page must have passed checkSlots().
void initDataPage(const Format& format, uint8_t* page, uint32_t owner);
// DatabaseCorrupt unless every slot lies inside the page, in order.
void checkSlots(const Format& format, const uint8_t* page, uint32_t number);
// Whether a row of `length` bytes has room, deleted slots at the end of the table given up.
bool hasRoom(const Format& format, const uint8_t* page, uint32_t length);
// Adds a row, which has room; gives its slot. Deleted slots at the end of the table are used again.
uint32_t insertRow(const Format& format, uint8_t* page, std::span<const uint8_t> row);
// Marks the slot deleted and closes the gap that its bytes leave.
void eraseRow(const Format& format, uint8_t* page, uint32_t slot);
// Makes the row longer (zeros at its end; the bytes must be free on the page) or shorter.
void resizeRow(const Format& format, uint8_t* page, uint32_t slot, uint32_t newLength);

}  // namespace jet
