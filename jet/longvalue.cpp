#include "jet/longvalue.h"

#include <algorithm>
#include <cstddef>

#include "jet/fault.h"
#include "jet/pager.h"
#include "jet/pageslots.h"

namespace jet {

namespace {

constexpr uint32_t kLengthMask = 0x3FFFFFFF;
constexpr uint32_t kNextPointerSize = 4;

[[noreturn]] void damagedValue(uint32_t page) {
    throwDamaged(u"une valeur de type Mémo ou OLE est illisible", page);
}

}  // namespace

LongValue parseLongValue(Cell cell) {
    if (cell.length < kLongValueCellSize) throwDamagedRow();
    const uint32_t head = get32(cell.bytes);
    LongValue value{LongValueKind::Inline, head & kLengthMask, RowId{get32(cell.bytes + 4)}, {}};
    if (value.length == 0) return value;
    if ((head & kInlineFlag) != 0) {
        if (value.length > cell.length - kLongValueCellSize) throwDamagedRow();
        value.inlineBytes = {cell.bytes + kLongValueCellSize, value.length};
    } else {
        value.kind = (head & kSingleFlag) != 0 ? LongValueKind::Single : LongValueKind::Chain;
    }
    return value;
}

std::span<const uint8_t> longValueRow(const Pager& pager, RowId where) {
    const uint8_t* page = pager.page(where.page());
    if (page[0] != page::kTypeData || get32(page + page::kOwner) != page::kLongValueOwner)
        damagedValue(where.page());
    const std::span<const uint8_t> row =
        PageSlots(pager.format(), page, where.page()).live(where.slot());
    if (row.empty()) damagedValue(where.page());
    return row;
}

std::span<const uint8_t> readLongValue(const Pager& pager, const LongValue& value, Bytes& scratch) {
    if (value.kind == LongValueKind::Inline) return value.inlineBytes;
    if (value.kind == LongValueKind::Single) {
        const std::span<const uint8_t> row = longValueRow(pager, value.where);
        if (row.size() < value.length) damagedValue(value.where.page());
        return row.first(value.length);
    }
    // A value cannot be longer than its file, which bounds a chain that bites its tail.
    if (value.length > uint64_t{pager.pageCount()} * pager.format().pageSize)
        damagedValue(value.where.page());
    scratch.clear();
    for (RowId at = value.where; scratch.size() < value.length;) {
        if (at.value == 0) damagedValue(value.where.page());
        const std::span<const uint8_t> row = longValueRow(pager, at);
        if (row.size() <= kNextPointerSize) damagedValue(at.page());
        const size_t wanted = value.length - scratch.size();
        const std::span<const uint8_t> piece = row.subspan(kNextPointerSize);
        scratch.insert(scratch.end(), piece.begin(),
                       piece.begin() + static_cast<ptrdiff_t>(std::min(wanted, piece.size())));
        at = RowId{get32(row.data())};
    }
    return scratch;
}

}  // namespace jet
