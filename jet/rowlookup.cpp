#include "jet/rowlookup.h"

#include "jet/fault.h"
#include "jet/pager.h"
#include "jet/pageslots.h"

namespace jet {

namespace {

// A pointer may lead to a pointer when the row had to move again.
constexpr int kMaxHops = 16;

struct FoundSlot {
    RowId id;
    const uint8_t* page;
    SlotView slot;
};

FoundSlot slotAt(const Pager& pager, RowId row, uint32_t definitionPage) {
    const uint8_t* page = rowsPage(pager, row.page(), definitionPage);
    const PageSlots slots(pager.format(), page, row.page());
    if (row.slot() >= slots.count()) return {row, page, {slot::kDeleted, 0, 0}};
    return {row, page, slots.at(row.slot())};
}

[[noreturn]] void brokenPointer(RowId row) {
    throwDamaged(u"un enregistrement renvoie à une place où il n'est pas", row.page());
}

// `row` names a pointer slot or a row; gives the slot that holds the row.
FoundSlot follow(const Pager& pager, RowId row, uint32_t definitionPage) {
    FoundSlot found = slotAt(pager, row, definitionPage);
    for (int hop = 0; (found.slot.flags & slot::kPointer) != 0; ++hop) {
        if (found.slot.flags == slot::kDeleted || found.slot.length < 4 || hop == kMaxHops)
            brokenPointer(row);
        found = slotAt(pager, RowId{get32(found.page + found.slot.start)}, definitionPage);
    }
    if (found.id != row && found.slot.flags != slot::kOverflow) brokenPointer(row);
    return found;
}

}  // namespace

const uint8_t* rowsPage(const Pager& pager, uint32_t number, uint32_t definitionPage) {
    const uint8_t* page = pager.page(number);
    if (page[0] != page::kTypeData || get32(page + page::kOwner) != definitionPage)
        throwDamaged(u"une page de données n'appartient pas à sa table", number);
    return page;
}

RowView findRow(const Pager& pager, RowId row, uint32_t definitionPage) {
    const uint32_t flags = slotAt(pager, row, definitionPage).slot.flags;
    if (flags == slot::kDeleted || flags == slot::kOverflow) return {};
    return followRow(pager, row, definitionPage);
}

RowView followRow(const Pager& pager, RowId row, uint32_t definitionPage) {
    const FoundSlot found = follow(pager, row, definitionPage);
    return {found.page + found.slot.start, found.slot.length};
}

RowId rowTarget(const Pager& pager, RowId row, uint32_t definitionPage) {
    return follow(pager, row, definitionPage).id;
}

}  // namespace jet
