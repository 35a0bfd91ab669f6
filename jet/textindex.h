// Finds the rows of a text column that hold a given text: a hash table of chains of rows.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "jet/cachelimits.h"
#include "jet/foldedtexts.h"
#include "jet/textorder.h"

namespace jet {

class TextIndex {
  public:
    // `order` must outlive the index.
    explicit TextIndex(const TextOrder& order) : order_(&order) {}

    // Takes in the rows behind those that it knows. `texts` is always the same column. Several
    // processors share the work where `limits` let them.
    void update(const FoldedTexts& texts, const CacheLimits& limits);

    // Where a search for a text of this hash begins; null for one in an empty index. It is
    // somewhere in memory: who has it fetched some time before the search makes that faster.
    const void* firstPlace(uint64_t hash) const {
        return slots_.empty() ? nullptr : &slots_[hash & rowMask()];
    }
    // The rows that it knows whose text equals `wanted`, in descending order. `folder` is the one
    // of the texts.
    std::vector<uint32_t> rowsEqualTo(const HashedText& wanted, const TextFolder& folder,
                                      const FoldedTexts& texts);

    size_t bytes() const { return (slots_.capacity() + next_.capacity()) * sizeof(uint32_t); }
    // What it takes for that many rows.
    static size_t bytesFor(size_t rows);

  private:
    static constexpr uint32_t kNone = UINT32_MAX;

    // Room for two texts that are compared.
    struct Scratch {
        std::u16string left;
        std::u16string right;
    };

    void grow(const FoldedTexts& texts, const CacheLimits& limits);
    std::vector<uint32_t> insertBetween(size_t firstSlot, size_t lastSlot,
                                        std::span<const uint64_t> hashes, const FoldedTexts& texts);
    void insert(uint32_t row, uint64_t hash, const FoldedTexts& texts);
    bool insertFrom(size_t slot, size_t lastSlot, uint32_t row, uint64_t hash,
                    const FoldedTexts& texts, Scratch& scratch);
    bool sameTexts(uint32_t a, uint32_t b, const FoldedTexts& texts, Scratch& scratch) const;

    // Rows are fewer than slots, so as many bits as tell the slots apart hold a row.
    uint32_t rowMask() const { return static_cast<uint32_t>(slots_.size() - 1); }
    uint32_t tagOf(uint64_t hash) const { return static_cast<uint32_t>(hash >> 32) & ~rowMask(); }
    bool hasTag(uint32_t slot, uint32_t tag) const { return ((slot ^ tag) & ~rowMask()) == 0; }

    const TextOrder* order_;
    // The last row of a chain of equal texts, or kNone; in the bits above it those of their hash,
    // which spare looking at most of the texts that differ. No more, for each search begins
    // anywhere among them, and the less memory that is, the sooner it is there.
    std::vector<uint32_t> slots_;
    std::vector<uint32_t> next_;  // by row: the one before it in its chain, or kNone
    Scratch scratch_;
    std::vector<uint8_t> folded_;  // room for the text that is looked for
};

}  // namespace jet
