#include "jet/textindex.h"

#include <algorithm>
#include <bit>

namespace jet {
namespace {

constexpr size_t kFewestSlots = 64;

// At most three of four slots are taken.
size_t slotsFor(size_t rows) {
    return std::bit_ceil(std::max(kFewestSlots, rows + rows / 3 + 1));
}

uint32_t tagOf(uint64_t hash) {
    return static_cast<uint32_t>(hash >> 32);
}

}  // namespace

size_t TextIndex::bytesFor(size_t rows) {
    return slotsFor(rows) * sizeof(Slot) + rows * sizeof(uint32_t);
}

void TextIndex::update(const FoldedTexts& texts) {
    const size_t known = next_.size();
    if (known == texts.count()) return;
    next_.resize(texts.count(), kNone);
    if (slotsFor(used_ + texts.count() - known) > slots_.size()) {
        grow(texts);
        return;
    }
    for (size_t row = known; row < texts.count(); ++row)
        insert(static_cast<uint32_t>(row), texts);
}

void TextIndex::grow(const FoldedTexts& texts) {
    slots_.assign(slotsFor(texts.count()), Slot{});
    used_ = 0;
    for (size_t row = 0; row < texts.count(); ++row)
        insert(static_cast<uint32_t>(row), texts);
}

void TextIndex::insert(uint32_t row, const FoldedTexts& texts) {
    if (texts.isNull(row)) return;
    const uint64_t hash = TextFolder::hash(*order_, texts.text(row));
    const size_t mask = slots_.size() - 1;
    for (size_t slot = hash & mask;; slot = (slot + 1) & mask) {
        Slot& place = slots_[slot];
        if (place.row != kNone && (place.tag != tagOf(hash) || !sameTexts(row, place.row, texts)))
            continue;
        if (place.row == kNone) ++used_;
        next_[row] = place.row;
        place = {row, tagOf(hash)};
        return;
    }
}

bool TextIndex::sameTexts(uint32_t a, uint32_t b, const FoldedTexts& texts) {
    if (std::ranges::equal(texts.text(a), texts.text(b))) return true;
    TextFolder::decode(texts.text(a), left_);
    TextFolder::decode(texts.text(b), right_);
    return order_->equal(left_, right_);
}

std::vector<uint32_t> TextIndex::rowsEqualTo(std::u16string_view text, const FoldedTexts& texts) {
    std::vector<uint32_t> rows;
    if (slots_.empty()) return rows;
    const uint64_t hash = order_->hash(text);
    const size_t mask = slots_.size() - 1;
    for (size_t slot = hash & mask; slots_[slot].row != kNone; slot = (slot + 1) & mask) {
        if (slots_[slot].tag != tagOf(hash)) continue;
        TextFolder::decode(texts.text(slots_[slot].row), right_);
        if (!order_->equal(text, right_)) continue;
        for (uint32_t row = slots_[slot].row; row != kNone; row = next_[row])
            rows.push_back(row);
        return rows;
    }
    return rows;
}

}  // namespace jet
