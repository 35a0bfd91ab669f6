// A set of row numbers below a fixed count, one bit each.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace jet {

class RowSet {
  public:
    // Rows from one multiple of this to the next may be added while others add to other ones.
    static constexpr size_t kRowsOfWord = 64;

    explicit RowSet(size_t count = 0)
        : count_(count), words_((count + kRowsOfWord - 1) / kRowsOfWord) {}

    // Numbers below this may be members.
    size_t limit() const { return count_; }
    size_t bytes() const { return words_.capacity() * sizeof(uint64_t); }

    // Raises the limit by one; the new number is a member.
    void pushMember() {
        if (count_ % kRowsOfWord == 0) words_.push_back(0);
        add(count_++);
    }
    void add(size_t row) { words_[row / kRowsOfWord] |= bit(row); }
    void remove(size_t row) { words_[row / kRowsOfWord] &= ~bit(row); }
    bool contains(size_t row) const { return (words_[row / kRowsOfWord] & bit(row)) != 0; }

    size_t size() const {
        size_t size = 0;
        for (const uint64_t word : words_)
            size += ones(word);
        return size;
    }

    // The other set has the same limit.
    void keepOnly(const RowSet& other) {
        for (size_t i = 0; i < words_.size(); ++i)
            words_[i] &= other.words_[i];
    }
    void addAll(const RowSet& other) {
        for (size_t i = 0; i < words_.size(); ++i)
            words_[i] |= other.words_[i];
    }
    void removeAll(const RowSet& other) {
        for (size_t i = 0; i < words_.size(); ++i)
            words_[i] &= ~other.words_[i];
    }

    // visit(row) for each member, in ascending order.
    template <typename Visitor>
    void forEach(Visitor&& visit) const {
        for (size_t i = 0; i < words_.size(); ++i) {
            for (uint64_t word = words_[i]; word != 0; word &= word - 1)
                visit(i * kRowsOfWord + static_cast<size_t>(std::countr_zero(word)));
        }
    }

    // The members that `test(row)` is true for. Asks about other rows of the same 64 too, as a
    // loop without branches is faster than one that looks at each member alone.
    template <typename Test>
    RowSet where(Test&& test) const {
        RowSet result(count_);
        for (size_t i = 0; i < words_.size(); ++i) {
            if (words_[i] == 0) continue;
            const size_t first = i * kRowsOfWord;
            const size_t end = first + kRowsOfWord < count_ ? first + kRowsOfWord : count_;
            uint64_t word = 0;
            for (size_t row = first; row < end; ++row)
                word |= static_cast<uint64_t>(test(row) ? 1 : 0) << (row - first);
            result.words_[i] = word & words_[i];
        }
        return result;
    }

  private:
    // As std::popcount, which calls a function where the processor may have no instruction for it.
    static size_t ones(uint64_t word) {
        word -= word >> 1 & 0x5555555555555555;
        word = (word & 0x3333333333333333) + (word >> 2 & 0x3333333333333333);
        word = (word + (word >> 4)) & 0x0F0F0F0F0F0F0F0F;
        return word * 0x0101010101010101 >> 56;
    }
    static uint64_t bit(size_t row) { return uint64_t{1} << (row % kRowsOfWord); }

    size_t count_;
    std::vector<uint64_t> words_;
};

}  // namespace jet
