// Tells which blocks of rows cannot hold a searched text: for each block it knows, by hash, the
// sequences of three and of four bytes that its texts have.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "jet/cachelimits.h"
#include "jet/foldedtexts.h"

namespace jet {

class TextSignature {
  public:
    static constexpr size_t kRowsOfBlock = 64;
    static constexpr size_t kBlocksOfGroup = 64;  // a bit for each in one word
    static constexpr size_t kRowsOfGroup = kBlocksOfGroup * kRowsOfBlock;

    // Rows `first` to `last`, that one excluded.
    struct Run {
        size_t first;
        size_t last;
    };

    // Takes in the whole blocks of rows behind those that it knows, as soon as there is a group of
    // rows. `texts` is always the same column; its texts never change, and rows only come behind.
    // Several processors share the work where `limits` let them.
    void update(const FoldedTexts& texts, const CacheLimits& limits);

    // All rows below `count` that may hold `wanted`, those that it does not know among them, in
    // ascending order. A run begins at a multiple of kRowsOfBlock and stays within a group.
    std::vector<Run> candidates(std::span<const uint8_t> wanted, size_t count) const;

    size_t bytes() const;
    // What it takes for that many rows.
    static size_t bytesFor(size_t rows) {
        return rows < kRowsOfGroup ? 0 : groupsFor(rows / kRowsOfBlock) * kSlots * sizeof(uint64_t);
    }

  private:
    static constexpr size_t kSlots = 16384;
    static constexpr size_t kGroupsOfPart = 32;
    static constexpr size_t kBlocksOfPart = kGroupsOfPart * kBlocksOfGroup;

    // Blocks `first` to `last`, that one excluded, of the whole column.
    struct Blocks {
        size_t first;
        size_t last;
    };

    // Up to kGroupsOfPart groups. For each slot, one behind the other, the words of all of them:
    // the blocks that have a sequence of that hash. So a search reads few places of memory.
    struct Part {
        explicit Part(size_t groupCount) : groups(groupCount), words(groupCount * kSlots) {}
        const uint64_t* slot(size_t number) const { return words.data() + number * groups; }
        uint64_t* slot(size_t number) { return words.data() + number * groups; }

        size_t groups;
        std::vector<uint64_t> words;
    };

    // Room for so many blocks.
    static constexpr size_t groupsFor(size_t blocks) {
        return (blocks + kBlocksOfGroup - 1) / kBlocksOfGroup;
    }
    Part& widened(size_t part, size_t groups);
    static void sign(const FoldedTexts& texts, Blocks blocks, Part& part, size_t firstGroup);
    static void sign(const FoldedTexts& texts, Blocks blocks, std::span<uint64_t> blocksBySlot);
    static void addRuns(uint64_t blocks, size_t firstRow, std::vector<Run>& runs);

    std::vector<Part> parts_;  // full but for the last
    size_t blocks_ = 0;        // that it knows
};

}  // namespace jet
