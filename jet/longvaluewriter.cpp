#include "jet/longvaluewriter.h"

#include <algorithm>

#include "jet/pageslots.h"
#include "jet/storecontext.h"

namespace jet {

namespace {

constexpr uint32_t kNextPointerSize = 4;

void appendCell(Bytes& cell, uint32_t head, RowId where) {
    const size_t at = cell.size();
    cell.resize(at + kLongValueCellSize);
    put32(cell.data() + at, head);
    put32(cell.data() + at + 4, where.value);
}

}  // namespace

LongValueWriter::LongValueWriter(StoreContext& context, const Column& column)
    : context_(context),
      pages_(context.pager, context.allocator, PageRole::LongValues, page::kLongValueOwner,
             UsageMap(context.pager, column.ownedMap), UsageMap(context.pager, column.freeMap)) {}

void LongValueWriter::store(std::span<const uint8_t> bytes, Bytes& cell) {
    const uint32_t maxRow = context_.pager.format().row.maxLongValueRow;
    const auto length = static_cast<uint32_t>(bytes.size());
    if (length <= maxRow) {
        appendCell(cell, length | kSingleFlag, pages_.insert(bytes));
        return;
    }
    // From the last piece to the first, as each names the next.
    const uint32_t pieceSize = maxRow - kNextPointerSize;
    Bytes row;
    RowId next;
    for (uint32_t at = (length - 1) / pieceSize * pieceSize;; at -= pieceSize) {
        const std::span<const uint8_t> piece =
            bytes.subspan(at, std::min<size_t>(pieceSize, length - at));
        row.resize(kNextPointerSize);
        put32(row.data(), next.value);
        row.insert(row.end(), piece.begin(), piece.end());
        next = pages_.insertAlone(row);
        context_.pager.relieve();
        if (at == 0) break;
    }
    appendCell(cell, length, next);
}

void LongValueWriter::storeInline(std::span<const uint8_t> bytes, Bytes& cell) {
    appendCell(cell, static_cast<uint32_t>(bytes.size()) | kInlineFlag, RowId{});
    cell.insert(cell.end(), bytes.begin(), bytes.end());
}

void LongValueWriter::giveUp(Cell cell) {
    const LongValue value = parseLongValue(cell);
    if (value.kind == LongValueKind::Inline) return;
    const bool single = value.kind == LongValueKind::Single;
    const uint32_t head = single ? 0 : kNextPointerSize;
    uint32_t left = value.length;
    for (RowId at = value.where; left > 0;) {
        // A value that is not where the row says is left alone: its bytes may be another's. So is
        // what the last piece names.
        if (at.page() >= context_.pager.pageCount() || !pages_.owns(at.page())) return;
        const uint8_t* page = context_.pager.page(at.page());
        if (page[0] != page::kTypeData || get32(page + page::kOwner) != page::kLongValueOwner)
            return;
        const std::span<const uint8_t> row =
            PageSlots(context_.pager.format(), page, at.page()).live(at.slot());
        if (row.size() <= head) return;
        givenUp_.push_back(at);
        if (single) return;
        left -= std::min(left, static_cast<uint32_t>(row.size()) - head);
        at = RowId{get32(row.data())};
    }
}

void LongValueWriter::settle() {
    std::sort(givenUp_.begin(), givenUp_.end());
    givenUp_.erase(std::unique(givenUp_.begin(), givenUp_.end()), givenUp_.end());
    pages_.erase(givenUp_);
    givenUp_.clear();
}

}  // namespace jet
