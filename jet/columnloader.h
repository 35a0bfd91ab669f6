// Reads columns of a table into memory: all in one walk, and large tables in parts that several
// processors read at the same time.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "jet/cachedcolumn.h"
#include "jet/cachelimits.h"
#include "jet/foldedtexts.h"
#include "jet/rowid.h"
#include "jet/rowset.h"
#include "jet/table.h"

namespace jet {

class ColumnLoader {
  public:
    struct Rows {
        std::span<const RowId> ids;
        size_t sorted;       // so many of the first are in ascending order
        const RowSet& live;  // the others are gone; their values are Null
    };
    // One for each column asked for; null when there is no room for it.
    using Columns = std::vector<std::unique_ptr<CachedColumn>>;

    // All must outlive the loader, `table`, `folder` and the columns also what it gives.
    ColumnLoader(const Table& table, TextFolder& folder, const CacheLimits& limits, Rows rows)
        : table_(table), folder_(folder), limits_(limits), rows_(rows) {}

    // Loads columns of numbers, Booleans or texts into at most `room` bytes, the last given up
    // first. Errors as for reading rows.
    Columns load(std::span<const Column* const> columns, size_t room) const;

  private:
    Columns loadPart(std::span<const Column* const> columns, size_t room, TextFolder& folder,
                     size_t first, size_t last) const;

    const Table& table_;
    TextFolder& folder_;
    const CacheLimits& limits_;
    Rows rows_;
};

}  // namespace jet
