// All rows of a cached column in the order of its values, kept so that any answer can be put in
// that order without comparing values again.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "jet/cachedcolumn.h"
#include "jet/rowid.h"

namespace jet {

// Puts rows of `column` into that order, those with equal values into that of their identities,
// which `ids` holds by row number.
void sortByValue(std::vector<uint32_t>& rows, const CachedColumn& column,
                 std::span<const RowId> ids);

class Ranking {
  public:
    // Takes in the rows of `column` behind those that it knows; `ids` are the identities of all.
    // Rows with equal values stand in the order of their identities.
    void update(const CachedColumn& column, std::span<const RowId> ids);

    // Row numbers in order.
    const std::vector<uint32_t>& rows() const { return rows_; }
    // By row number: its place in rows().
    const std::vector<uint32_t>& places() const { return places_; }

    size_t bytes() const { return bytesFor(rows_.capacity()); }
    // What it takes for that many rows.
    static size_t bytesFor(size_t rows) { return 2 * rows * sizeof(uint32_t); }

  private:
    void insert(std::span<const uint32_t> added, const CachedColumn& column,
                std::span<const RowId> ids);

    std::vector<uint32_t> rows_;
    std::vector<uint32_t> places_;
};

}  // namespace jet
