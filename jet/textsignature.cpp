#include "jet/textsignature.h"

#include <algorithm>
#include <array>
#include <bit>

#include "jet/parallel.h"

namespace jet {
namespace {

constexpr size_t kShort = 3;  // bytes of a sequence
constexpr size_t kLong = 4;

// As many words of a slot as are in one line of the processor's caches.
constexpr size_t kGroupsAtOnce = 8;

template <unsigned kBits>
size_t hashOf(uint32_t sequence) {
    return sequence * 0x9E3779B1u >> (32 - kBits);
}

// Calls visit(slot) for the sequences of `bytes`, the long ones first, as few texts have those,
// until it gives false.
template <size_t kSlots, typename Visitor>
void forEachSlot(std::span<const uint8_t> bytes, Visitor&& visit) {
    constexpr unsigned kBits = std::countr_zero(kSlots);
    const auto shortAt = [&bytes](size_t at) {
        return bytes[at] | uint32_t{bytes[at + 1]} << 8 | uint32_t{bytes[at + 2]} << 16;
    };
    for (size_t at = 0; at + kLong <= bytes.size(); ++at)
        if (!visit(hashOf<kBits>(shortAt(at) | uint32_t{bytes[at + kShort]} << 24))) return;
    for (size_t at = 0; at + kShort <= bytes.size(); ++at)
        if (!visit(hashOf<kBits>(shortAt(at)))) return;
}

}  // namespace

size_t TextSignature::bytes() const {
    size_t bytes = 0;
    for (const Part& part : parts_)
        bytes += part.words.capacity() * sizeof(uint64_t);
    return bytes;
}

void TextSignature::update(const FoldedTexts& texts, const CacheLimits& limits) {
    if (texts.count() < kRowsOfGroup) return;
    const size_t wanted = texts.count() / kRowsOfBlock;
    while (blocks_ < wanted) {
        const size_t start = blocks_ / kBlocksOfPart * kBlocksOfPart;
        const Blocks added{blocks_, std::min(wanted, start + kBlocksOfPart)};
        Part& part = widened(start / kBlocksOfPart, groupsFor(added.last - start));
        const size_t firstGroup = (added.first - start) / kBlocksOfGroup;
        const size_t groups = part.groups - firstGroup;
        const size_t rows = (added.last - added.first) * kRowsOfBlock;
        inParts(groups, std::min(groups, limits.partsFor(rows)),
                [&](size_t, size_t from, size_t to) {
                    const size_t first = start + (firstGroup + from) * kBlocksOfGroup;
                    const size_t last = start + (firstGroup + to) * kBlocksOfGroup;
                    sign(texts, {std::max(added.first, first), std::min(added.last, last)}, part,
                         firstGroup + from);
                });
        blocks_ = added.last;
    }
}

// The part of that number, with room for so many groups.
TextSignature::Part& TextSignature::widened(size_t part, size_t groups) {
    if (part == parts_.size()) return parts_.emplace_back(groups);
    Part& known = parts_[part];
    if (known.groups == groups) return known;
    Part wide(groups);
    for (size_t slot = 0; slot < kSlots; ++slot)
        std::copy_n(known.slot(slot), known.groups, wide.slot(slot));
    return known = std::move(wide);
}

// Signs `blocks`, the first of which is in that group of the part. Some groups at a time, as the
// words of a slot are neighbours in memory.
void TextSignature::sign(const FoldedTexts& texts, Blocks blocks, Part& part, size_t firstGroup) {
    std::vector<uint64_t> blocksBySlot;
    while (blocks.first < blocks.last) {
        const size_t left = groupsFor(blocks.last) - blocks.first / kBlocksOfGroup;
        blocksBySlot.assign(std::min(left, kGroupsAtOnce) * kSlots, 0);
        size_t groups = 0;
        for (; groups < kGroupsAtOnce && blocks.first < blocks.last; ++groups) {
            const size_t end = (blocks.first / kBlocksOfGroup + 1) * kBlocksOfGroup;
            const Blocks ofGroup{blocks.first, std::min(end, blocks.last)};
            sign(texts, ofGroup, std::span(blocksBySlot).subspan(groups * kSlots, kSlots));
            blocks.first = ofGroup.last;
        }
        for (size_t slot = 0; slot < kSlots; ++slot)
            for (size_t group = 0; group < groups; ++group)
                part.slot(slot)[firstGroup + group] |= blocksBySlot[group * kSlots + slot];
        firstGroup += groups;
    }
}

// Signs blocks of one group. A block's slots are gathered in a place that fits into the nearest
// memory of the processor.
void TextSignature::sign(const FoldedTexts& texts, Blocks blocks,
                         std::span<uint64_t> blocksBySlot) {
    std::array<uint64_t, kSlots / 64> slots;
    for (size_t block = blocks.first; block < blocks.last; ++block) {
        const uint64_t thisBlock = uint64_t{1} << block % kBlocksOfGroup;
        slots.fill(0);
        for (size_t row = block * kRowsOfBlock; row < (block + 1) * kRowsOfBlock; ++row) {
            forEachSlot<kSlots>(texts.text(row), [&slots](size_t slot) {
                slots[slot / 64] |= uint64_t{1} << slot % 64;
                return true;
            });
        }
        for (size_t i = 0; i < slots.size(); ++i) {
            for (uint64_t word = slots[i]; word != 0; word &= word - 1)
                blocksBySlot[i * 64 + static_cast<size_t>(std::countr_zero(word))] |= thisBlock;
        }
    }
}

std::vector<TextSignature::Run> TextSignature::candidates(std::span<const uint8_t> wanted,
                                                          size_t count) const {
    std::vector<Run> runs;
    size_t block = 0;
    for (const Part& part : parts_) {
        // Memory may have run out before all blocks of a part were signed.
        const size_t known = std::min(blocks_ - block, kBlocksOfPart);
        const size_t groups = groupsFor(known);
        std::array<uint64_t, kGroupsOfPart> blocks;
        blocks.fill(~uint64_t{0});
        if (known % kBlocksOfGroup != 0)
            blocks[groups - 1] = (uint64_t{1} << known % kBlocksOfGroup) - 1;
        forEachSlot<kSlots>(wanted, [&](size_t slot) {
            const uint64_t* const words = part.slot(slot);
            uint64_t left = 0;
            for (size_t group = 0; group < groups; ++group)
                left |= blocks[group] &= words[group];
            return left != 0;
        });
        for (size_t group = 0; group < groups; ++group)
            addRuns(blocks[group], block * kRowsOfBlock + group * kRowsOfGroup, runs);
        block += known;
    }
    for (size_t row = blocks_ * kRowsOfBlock; row < count;) {
        const size_t end = std::min((row / kRowsOfGroup + 1) * kRowsOfGroup, count);
        runs.push_back({row, end});
        row = end;
    }
    return runs;
}

void TextSignature::addRuns(uint64_t blocks, size_t firstRow, std::vector<Run>& runs) {
    while (blocks != 0) {
        const auto first = static_cast<size_t>(std::countr_zero(blocks));
        const auto length = static_cast<size_t>(std::countr_one(blocks >> first));
        const size_t row = firstRow + first * kRowsOfBlock;
        runs.push_back({row, row + length * kRowsOfBlock});
        // Adding the lowest one carries through the whole run of ones.
        blocks &= blocks + (uint64_t{1} << first);
    }
}

}  // namespace jet
