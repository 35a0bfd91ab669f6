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

}  // namespace

size_t TextIndex::bytesFor(size_t rows) {
    return (slotsFor(rows) + rows) * sizeof(uint32_t);
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
    slots_.assign(slotsFor(texts.count()), kNone);
    used_ = 0;
    for (size_t row = 0; row < texts.count(); ++row)
        insert(static_cast<uint32_t>(row), texts);
}

void TextIndex::insert(uint32_t row, const FoldedTexts& texts) {
    if (texts.isNull(row)) return;
    TextFolder::decode(texts.text(row), left_);
    const size_t mask = slots_.size() - 1;
    for (size_t slot = order_->hash(left_) & mask;; slot = (slot + 1) & mask) {
        const uint32_t head = slots_[slot];
        if (head != kNone && !sameTexts(row, head, texts)) continue;
        if (head == kNone) ++used_;
        next_[row] = head;
        slots_[slot] = row;
        return;
    }
}

// left_ holds the text of `a`.
bool TextIndex::sameTexts(uint32_t a, uint32_t b, const FoldedTexts& texts) {
    if (std::ranges::equal(texts.text(a), texts.text(b))) return true;
    TextFolder::decode(texts.text(b), right_);
    return order_->equal(left_, right_);
}

std::vector<uint32_t> TextIndex::rowsEqualTo(std::u16string_view text, const FoldedTexts& texts) {
    std::vector<uint32_t> rows;
    if (slots_.empty()) return rows;
    const size_t mask = slots_.size() - 1;
    for (size_t slot = order_->hash(text) & mask; slots_[slot] != kNone; slot = (slot + 1) & mask) {
        TextFolder::decode(texts.text(slots_[slot]), right_);
        if (!order_->equal(text, right_)) continue;
        for (uint32_t row = slots_[slot]; row != kNone; row = next_[row])
            rows.push_back(row);
        return rows;
    }
    return rows;
}

}  // namespace jet
