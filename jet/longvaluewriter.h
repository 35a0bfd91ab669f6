// Storing the long values of one column, and giving up those of removed rows.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/longvalue.h"
#include "jet/rowpages.h"
#include "jet/value.h"

namespace jet {

struct StoreContext;

class LongValueWriter {
  public:
    LongValueWriter(StoreContext& context, const Column& column);

    // Stores `bytes` out of the row and appends the cell that leads there to `cell`.
    void store(std::span<const uint8_t> bytes, Bytes& cell);
    // Appends the cell of a value that stays in its row.
    static void storeInline(std::span<const uint8_t> bytes, Bytes& cell);

    // Notes that the value of `cell`, which is not null, is no longer named by its row. It is not
    // removed before the late stage: until then a row on disk may name it.
    void giveUp(Cell cell);
    // Removes what was given up. For the late stage of a commit.
    void settle();

  private:
    StoreContext& context_;
    RowPages pages_;
    std::vector<RowId> givenUp_;
};

}  // namespace jet
