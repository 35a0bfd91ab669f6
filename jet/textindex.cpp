#include "jet/textindex.h"

#include <algorithm>
#include <array>
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
    insertFrom(known, texts);
}

void TextIndex::grow(const FoldedTexts& texts) {
    slots_.assign(slotsFor(texts.count()), Slot{});
    used_ = 0;
    insertFrom(0, texts);
}

// Some rows at a time, so that the places of all are on their way from memory before the first is
// looked at.
void TextIndex::insertFrom(size_t first, const FoldedTexts& texts) {
    constexpr size_t kAtOnce = 32;
    std::array<uint64_t, kAtOnce> hashes{};
    const size_t mask = slots_.size() - 1;
    for (size_t row = first; row < texts.count(); row += kAtOnce) {
        const size_t count = std::min(kAtOnce, texts.count() - row);
        for (size_t i = 0; i < count; ++i) {
            hashes[i] = TextFolder::hash(*order_, texts.text(row + i));
            __builtin_prefetch(&slots_[hashes[i] & mask], 1);
        }
        for (size_t i = 0; i < count; ++i)
            insert(static_cast<uint32_t>(row + i), hashes[i], texts);
    }
}

void TextIndex::insert(uint32_t row, uint64_t hash, const FoldedTexts& texts) {
    if (texts.isNull(row)) return;
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

std::vector<uint32_t> TextIndex::rowsEqualTo(std::u16string_view text,
                                             std::span<const uint8_t> folded,
                                             const FoldedTexts& texts) {
    std::vector<uint32_t> rows;
    if (slots_.empty()) return rows;
    const uint64_t hash = order_->hash(text);
    const size_t mask = slots_.size() - 1;
    for (size_t slot = hash & mask; slots_[slot].row != kNone; slot = (slot + 1) & mask) {
        if (slots_[slot].tag != tagOf(hash)) continue;
        const std::span<const uint8_t> found = texts.text(slots_[slot].row);
        if (!std::ranges::equal(found, folded)) {
            TextFolder::decode(found, right_);
            if (!order_->equal(text, right_)) continue;
        }
        for (uint32_t row = slots_[slot].row; row != kNone; row = next_[row])
            rows.push_back(row);
        return rows;
    }
    return rows;
}

}  // namespace jet
