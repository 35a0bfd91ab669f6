#include "jet/textsignature.h"

#include <algorithm>
#include <array>
#include <bit>

#include "jet/parallel.h"

namespace jet {
namespace {

constexpr size_t kShort = 3;  // bytes of a sequence
constexpr size_t kLong = 4;

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

size_t TextSignature::groups() const {
    return parts_.empty() ? 0 : (parts_.size() - 1) * kGroupsOfPart + parts_.back().groups;
}

void TextSignature::update(const FoldedTexts& texts, const CacheLimits& limits) {
    const size_t wanted = texts.count() / kRowsOfGroup;
    for (size_t known = groups(); known < wanted; known = groups()) {
        const size_t kept = known % kGroupsOfPart;
        const size_t first = known - kept;
        Part part(std::min(wanted - first, kGroupsOfPart));
        for (size_t slot = 0; kept != 0 && slot < kSlots; ++slot)
            std::copy_n(parts_.back().slot(slot), kept, part.words.data() + slot * part.groups);
        const size_t added = part.groups - kept;
        const size_t shares = std::min(added, limits.partsFor(added * kRowsOfGroup));
        inParts(added, shares, [&](size_t, size_t from, size_t to) {
            std::vector<uint64_t> blocksBySlot(kSlots);
            for (size_t group = kept + from; group < kept + to; ++group) {
                std::ranges::fill(blocksBySlot, 0);
                sign(texts, first + group, blocksBySlot);
                for (size_t slot = 0; slot < kSlots; ++slot)
                    part.words[slot * part.groups + group] = blocksBySlot[slot];
            }
        });
        if (kept != 0) parts_.pop_back();
        parts_.push_back(std::move(part));
    }
}

// A block's slots are gathered in a place that fits into the nearest memory of the processor.
void TextSignature::sign(const FoldedTexts& texts, size_t group, std::span<uint64_t> blocksBySlot) {
    std::array<uint64_t, kSlots / 64> slots;
    for (size_t block = 0; block < kBlocksOfGroup; ++block) {
        const uint64_t thisBlock = uint64_t{1} << block;
        slots.fill(0);
        const size_t firstRow = group * kRowsOfGroup + block * kRowsOfBlock;
        for (size_t row = firstRow; row < firstRow + kRowsOfBlock; ++row) {
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
    size_t row = 0;
    for (const Part& part : parts_) {
        std::array<uint64_t, kGroupsOfPart> blocks;
        blocks.fill(~uint64_t{0});
        forEachSlot<kSlots>(wanted, [&](size_t slot) {
            const uint64_t* const words = part.slot(slot);
            uint64_t left = 0;
            for (size_t group = 0; group < part.groups; ++group)
                left |= blocks[group] &= words[group];
            return left != 0;
        });
        for (size_t group = 0; group < part.groups; ++group, row += kRowsOfGroup)
            addRuns(blocks[group], row, runs);
    }
    for (; row < count; row += kRowsOfGroup)
        runs.push_back({row, std::min(row + kRowsOfGroup, count)});
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
