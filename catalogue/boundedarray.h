// Arrays with fixed bounds whose indices are checked: an index from a settings file or a control
// that lies outside is an error to report, never a stray access.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace catalogue {

// `index` as a position; SubscriptOutOfRange unless it lies in 0 .. highest.
size_t checkedIndex(int64_t index, int64_t highest);

// The indices 0 .. Highest.
template <typename T, int Highest>
class BoundedArray {
  public:
    T& operator()(int64_t index) { return values_[checkedIndex(index, Highest)]; }
    const T& operator()(int64_t index) const { return values_[checkedIndex(index, Highest)]; }
    bool operator==(const BoundedArray&) const = default;

  private:
    std::vector<T> values_ = std::vector<T>(Highest + 1);
};

// The rows 0 .. HighestRow, the columns 0 and 1.
template <typename T, int HighestRow>
class BoundedTable {
  public:
    T& operator()(int64_t row, int64_t column) { return values_[position(row, column)]; }
    const T& operator()(int64_t row, int64_t column) const {
        return values_[position(row, column)];
    }
    bool operator==(const BoundedTable&) const = default;

  private:
    static size_t position(int64_t row, int64_t column) {
        return checkedIndex(row, HighestRow) * 2 + checkedIndex(column, 1);
    }
    std::vector<T> values_ = std::vector<T>((HighestRow + 1) * 2);
};

}  // namespace catalogue
