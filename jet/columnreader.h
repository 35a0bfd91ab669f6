// The values of rows as queries compare them, read straight from the pages into a buffer that is
// used again and again.
#pragma once

#include <string>

#include "jet/table.h"
#include "jet/textorder.h"

namespace jet {

class ColumnReader {
  public:
    // Both must outlive the reader.
    ColumnReader(const Table& table, const TextOrder& order) : table_(table), order_(order) {}

    const TextOrder& order() const { return order_; }

    // Number and Boolean columns (true is -1). False when null.
    bool number(RowView row, const Column& column, double& out) const;
    // Text columns. False when null.
    bool text(RowView row, const Column& column, std::u16string& out) const {
        return table_.text(row, column, out);
    }
    bool isNull(RowView row, const Column& column);

    // Negative, 0 or positive; Null before everything, columns of bytes all alike.
    int compare(RowView a, RowView b, const Column& column);

    // A number that is never larger for a smaller value: 0 for Null. When two are equal, compare()
    // decides.
    uint64_t sortPrefix(RowView row, const Column& column);

    // Appends bytes that are the same for equal values, and for these alone.
    void appendKey(RowView row, const Column& column, Bytes& key);

  private:
    const Table& table_;
    const TextOrder& order_;
    std::u16string left_;
    std::u16string right_;
    Bytes scratch_;
};

// A number whose order among unsigned numbers is the order of the values; never 0.
uint64_t orderedBits(double value);

}  // namespace jet
