// A set of row numbers below a fixed count, one bit each. Words behind the last that is there have
// no members, so a set without any takes no memory and no time.
#pragma once

#include <algorithm>
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
    // Without members, and without room for them: for one that others are joined to at most.
    static RowSet none(size_t count) {
        RowSet set;
        set.count_ = count;
        return set;
    }

    // Numbers below this may be members.
    size_t limit() const { return count_; }
    size_t bytes() const { return words_.capacity() * sizeof(uint64_t); }

    // Raises the limit by one; the new number is a member.
    void pushMember() {
        words_.resize(count_ / kRowsOfWord + 1);
        add(count_++);
    }
    void add(size_t row) { words_[row / kRowsOfWord] |= bit(row); }
    void remove(size_t row) {
        if (contains(row)) words_[row / kRowsOfWord] &= ~bit(row);
    }
    bool contains(size_t row) const {
        const size_t word = row / kRowsOfWord;
        return word < words_.size() && (words_[word] & bit(row)) != 0;
    }

    bool isEmpty() const {
        for (size_t first = 0; first < words_.size(); first += kWordsAtOnce)
            if (!isEmpty(first, std::min(first + kWordsAtOnce, words_.size()))) return false;
        return true;
    }
    size_t size() const {
        size_t size = 0;
        for (size_t first = 0; first < words_.size(); first += kWordsAtOnce)
            size += ones(first, std::min(first + kWordsAtOnce, words_.size()));
        return size;
    }

    // The other set has the same limit.
    void keepOnly(const RowSet& other) {
        words_.resize(std::min(words_.size(), other.words_.size()));
        for (size_t i = 0; i < words_.size(); ++i)
            words_[i] &= other.words_[i];
    }
    void addAll(const RowSet& other) {
        words_.resize(std::max(words_.size(), other.words_.size()));
        for (size_t i = 0; i < other.words_.size(); ++i)
            words_[i] |= other.words_[i];
    }
    void removeAll(const RowSet& other) {
        const size_t common = std::min(words_.size(), other.words_.size());
        for (size_t i = 0; i < common; ++i)
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
        RowSet result = none(count_);
        result.words_.resize(words_.size());
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

    // The same; asks about the members alone, for a test that takes its time.
    template <typename Test>
    RowSet whereEach(Test&& test) const {
        RowSet result(count_);
        forEach([&](size_t row) {
            if (test(row)) result.add(row);
        });
        return result;
    }

  private:
    // The sum of a byte's ones, 8 at most in each word, fits into a byte.
    static constexpr size_t kWordsAtOnce = 31;

    // Both are of the words from `first` to before `last`, and loops that take several at a time:
    // one that ends at the first member would not, nor one of std::popcount, which calls a function
    // where the processor may have no instruction for it.
    bool isEmpty(size_t first, size_t last) const {
        uint64_t all = 0;
        for (size_t i = first; i < last; ++i)
            all |= words_[i];
        return all == 0;
    }
    size_t ones(size_t first, size_t last) const {
        uint64_t counts = 0;
        for (size_t i = first; i < last; ++i) {
            uint64_t word = words_[i];
            word -= word >> 1 & 0x5555555555555555;
            word = (word & 0x3333333333333333) + (word >> 2 & 0x3333333333333333);
            counts += (word + (word >> 4)) & 0x0F0F0F0F0F0F0F0F;
        }
        constexpr uint64_t kEvenBytes = 0x00FF00FF00FF00FF;
        return ((counts & kEvenBytes) + (counts >> 8 & kEvenBytes)) * 0x0001000100010001 >> 48;
    }
    static uint64_t bit(size_t row) { return uint64_t{1} << (row % kRowsOfWord); }

    size_t count_;
    std::vector<uint64_t> words_;
};

}  // namespace jet
