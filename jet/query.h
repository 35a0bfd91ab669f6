// A query looked up against its table, and its answer read straight from the pages: what is right
// for every table. Faster ways to the same answer stand beside it (see planner.h).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "jet/columnreader.h"
#include "jet/condition.h"
#include "jet/rowsort.h"
#include "jet/sqlast.h"
#include "jet/table.h"

namespace jet {

struct Query {
    using Columns = std::vector<const Column*>;

    // Shared with its recordsets. Null for all of the table's, but with DISTINCT these are listed.
    std::shared_ptr<const Columns> columns;
    bool distinct = false;
    std::optional<Condition> where;
    Columns tested;  // those that `where` asks about, each once
    std::vector<SortColumn> order;
};

// `definition` and `textOrder` must outlive the query. Throws base::Error, as bindCondition();
// NotSupported for an order by a column of bytes, or by one that a DISTINCT leaves out.
Query bindQuery(const SelectStatement& statement, const TableDefinition& definition,
                const TextOrder& textOrder);

// Tests rows, one after the other, straight from their pages.
class RowTester {
  public:
    // Both must outlive the tester.
    RowTester(const Table& table, const TextOrder& textOrder) : reader_(table, textOrder) {}
    bool matches(RowView row, const Condition& condition);
    bool passes(RowView row, const ColumnTest& test);

  private:
    ColumnReader reader_;
    std::u16string text_;
};

// The rows of the answer, in its order: rows equal in the order's columns, and all rows of a query
// without one, stand in the table's. Of the rows that DISTINCT finds equal the first one stays.
std::vector<RowId> rowsFromPages(const Query& query, const Table& table,
                                 const TextOrder& textOrder);

// The piece of it that leaves the first row of each group of equal ones, for other ways to find the
// rows; keeps their order.
void keepDistinct(std::vector<RowId>& rows, const Query& query, const Table& table,
                  const TextOrder& textOrder);

}  // namespace jet
