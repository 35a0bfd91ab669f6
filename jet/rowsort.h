// Putting rows in order by values read from their pages.
#pragma once

#include <span>
#include <vector>

#include "jet/table.h"
#include "jet/textorder.h"

namespace jet {

struct SortColumn {
    const Column* column = nullptr;
    bool descending = false;
};

// Sorts rows, which are given in ascending order, by the columns of `order`: Null first (last when
// descending), and rows that are equal in all of them still in ascending order.
void sortRows(std::vector<RowId>& rows, std::span<const SortColumn> order, const Table& table,
              const TextOrder& textOrder);

}  // namespace jet
