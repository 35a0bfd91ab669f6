#include "jet/textindex.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "jet/parallel.h"

namespace jet {
namespace {

constexpr size_t kFewestSlots = 64;

// At most three of four slots are taken.
size_t slotsFor(size_t rows) {
    return std::bit_ceil(std::max(kFewestSlots, rows + rows / 3 + 1));
}

// The library compares bytes of different containers one by one.
bool sameBytes(std::span<const uint8_t> a, std::span<const uint8_t> b) {
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size()) == 0);
}

}  // namespace

size_t TextIndex::bytesFor(size_t rows) {
    return (slotsFor(rows) + rows) * sizeof(uint32_t);
}

void TextIndex::update(const FoldedTexts& texts, const CacheLimits& limits) {
    const size_t known = next_.size();
    if (known == texts.count()) return;
    next_.resize(texts.count(), kNone);
    if (slotsFor(texts.count()) > slots_.size()) {
        grow(texts, limits);
        return;
    }
    for (size_t row = known; row < texts.count(); ++row)
        insert(static_cast<uint32_t>(row), TextFolder::hash(*order_, texts.text(row)), texts);
}

// Each part of the slots is filled by one processor. Equal texts begin at the same slot, so all of
// them find their place in that part or none does; these come last, so that each chain is in order.
void TextIndex::grow(const FoldedTexts& texts, const CacheLimits& limits) {
    slots_.assign(slotsFor(texts.count()), kNone);
    std::vector<uint64_t> hashes(texts.count());
    const size_t parts = limits.partsFor(texts.count());
    inParts(texts.count(), parts, [&](size_t, size_t first, size_t last) {
        for (size_t row = first; row < last; ++row)
            hashes[row] = TextFolder::hash(*order_, texts.text(row));
    });
    std::vector<std::vector<uint32_t>> left(parts);
    inParts(slots_.size(), parts, [&](size_t part, size_t firstSlot, size_t lastSlot) {
        left[part] = insertBetween(firstSlot, lastSlot, hashes, texts);
    });
    for (const std::vector<uint32_t>& rows : left)
        for (const uint32_t row : rows)
            insert(row, hashes[row], texts);
}

// Inserts the rows whose hash leads to slots from `firstSlot` to before `lastSlot`; gives those
// that found no place there. Some rows at a time, so that the places of all are on their way from
// memory before the first is looked at.
std::vector<uint32_t> TextIndex::insertBetween(size_t firstSlot, size_t lastSlot,
                                               std::span<const uint64_t> hashes,
                                               const FoldedTexts& texts) {
    constexpr size_t kAtOnce = 32;
    const size_t mask = slots_.size() - 1;
    std::vector<uint32_t> left;
    Scratch scratch;
    std::array<uint32_t, kAtOnce> rows{};
    for (size_t row = 0; row < hashes.size();) {
        size_t count = 0;
        for (; row < hashes.size() && count < kAtOnce; ++row) {
            const size_t slot = hashes[row] & mask;
            if (slot < firstSlot || slot >= lastSlot) continue;
            __builtin_prefetch(&slots_[slot], 1);
            rows[count++] = static_cast<uint32_t>(row);
        }
        for (const uint32_t each : std::span(rows).first(count)) {
            const size_t slot = hashes[each] & mask;
            if (!insertFrom(slot, lastSlot, each, hashes[each], texts, scratch))
                left.push_back(each);
        }
    }
    return left;
}

void TextIndex::insert(uint32_t row, uint64_t hash, const FoldedTexts& texts) {
    const size_t mask = slots_.size() - 1;
    if (!insertFrom(hash & mask, slots_.size(), row, hash, texts, scratch_))
        insertFrom(0, slots_.size(), row, hash, texts, scratch_);
}

// False when there is no place from `slot` to before `lastSlot`.
bool TextIndex::insertFrom(size_t slot, size_t lastSlot, uint32_t row, uint64_t hash,
                           const FoldedTexts& texts, Scratch& scratch) {
    if (texts.isNull(row)) return true;
    const uint32_t tag = tagOf(hash);
    for (; slot < lastSlot; ++slot) {
        uint32_t& place = slots_[slot];
        if (place != kNone) {
            const uint32_t other = place & rowMask();
            if (!hasTag(place, tag) || !sameTexts(row, other, texts, scratch)) continue;
            next_[row] = other;
        }
        place = tag | row;
        return true;
    }
    return false;
}

bool TextIndex::sameTexts(uint32_t a, uint32_t b, const FoldedTexts& texts,
                          Scratch& scratch) const {
    if (sameBytes(texts.text(a), texts.text(b))) return true;
    TextFolder::decode(texts.text(a), scratch.left);
    TextFolder::decode(texts.text(b), scratch.right);
    return order_->equal(scratch.left, scratch.right);
}

std::vector<uint32_t> TextIndex::rowsEqualTo(const HashedText& wanted, const TextFolder& folder,
                                             const FoldedTexts& texts) {
    std::vector<uint32_t> rows;
    if (slots_.empty()) return rows;
    const size_t mask = slots_.size() - 1;
    for (size_t slot = wanted.hash & mask; slots_[slot] != kNone; slot = (slot + 1) & mask) {
        if (!hasTag(slots_[slot], tagOf(wanted.hash))) continue;
        const uint32_t last = slots_[slot] & rowMask();
        // What lies anywhere in memory is on its way before it is needed.
        __builtin_prefetch(&next_[last]);
        folded_.clear();
        folder.fold(wanted.text, folded_);
        const std::span<const uint8_t> found = texts.text(last);
        if (!sameBytes(found, folded_)) {
            TextFolder::decode(found, scratch_.right);
            if (!order_->equal(wanted.text, scratch_.right)) continue;
        }
        for (uint32_t row = last; row != kNone; row = next_[row])
            rows.push_back(row);
        return rows;
    }
    return rows;
}

}  // namespace jet
