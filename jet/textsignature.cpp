#include "jet/textsignature.h"

#include <algorithm>
#include <array>
#include <bit>

#include "jet/parallel.h"

namespace jet {
namespace {

constexpr size_t kSequence = 3;  // bytes

}  // namespace

size_t TextSignature::slotOf(const uint8_t* bytes) {
    constexpr unsigned kSlotBits = 13;
    static_assert(kSlots == size_t{1} << kSlotBits);
    const uint32_t sequence = bytes[0] | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16;
    return sequence * 0x9E3779B1u >> (32 - kSlotBits);
}

void TextSignature::update(const FoldedTexts& texts, const CacheLimits& limits) {
    const size_t known = groups_.size() / kSlots;
    const size_t added = texts.count() / kRowsOfGroup - known;
    if (added == 0) return;
    groups_.reserve((known + added) * kSlots);
    groups_.resize((known + added) * kSlots);
    const size_t parts = std::min(added, limits.partsFor(added * kRowsOfGroup));
    inParts(added, parts, [&](size_t, size_t first, size_t last) {
        for (size_t group = known + first; group < known + last; ++group)
            sign(texts, group, std::span(groups_).subspan(group * kSlots, kSlots));
    });
}

// A block's slots are gathered in a place that fits into the nearest memory of the processor.
void TextSignature::sign(const FoldedTexts& texts, size_t group, std::span<uint64_t> blocksBySlot) {
    std::array<uint64_t, kSlots / 64> slots;
    for (size_t block = 0; block < kBlocksOfGroup; ++block) {
        const uint64_t thisBlock = uint64_t{1} << block;
        slots.fill(0);
        const size_t firstRow = group * kRowsOfGroup + block * kRowsOfBlock;
        for (size_t row = firstRow; row < firstRow + kRowsOfBlock; ++row) {
            const std::span<const uint8_t> text = texts.text(row);
            for (size_t at = 0; at + kSequence <= text.size(); ++at) {
                const size_t slot = slotOf(text.data() + at);
                slots[slot / 64] |= uint64_t{1} << slot % 64;
            }
        }
        for (size_t i = 0; i < slots.size(); ++i) {
            for (uint64_t word = slots[i]; word != 0; word &= word - 1)
                blocksBySlot[i * 64 + static_cast<size_t>(std::countr_zero(word))] |= thisBlock;
        }
    }
}

// Of a group: the blocks that have all sequences of `wanted`.
uint64_t TextSignature::blocksOf(size_t group, std::span<const uint8_t> wanted) const {
    uint64_t blocks = ~uint64_t{0};
    for (size_t at = 0; at + kSequence <= wanted.size() && blocks != 0; ++at)
        blocks &= groups_[group * kSlots + slotOf(wanted.data() + at)];
    return blocks;
}

std::vector<TextSignature::Run> TextSignature::candidates(std::span<const uint8_t> wanted,
                                                          size_t count) const {
    std::vector<Run> runs;
    const size_t known = groups_.size() / kSlots;
    for (size_t group = 0; group < known; ++group) {
        uint64_t blocks = blocksOf(group, wanted);
        while (blocks != 0) {
            const auto first = static_cast<size_t>(std::countr_zero(blocks));
            const auto length = static_cast<size_t>(std::countr_one(blocks >> first));
            const size_t row = group * kRowsOfGroup + first * kRowsOfBlock;
            runs.push_back({row, row + length * kRowsOfBlock});
            // Adding the lowest one carries through the whole run of ones.
            blocks &= blocks + (uint64_t{1} << first);
        }
    }
    for (size_t row = known * kRowsOfGroup; row < count; row += kRowsOfGroup)
        runs.push_back({row, std::min(row + kRowsOfGroup, count)});
    return runs;
}

}  // namespace jet
