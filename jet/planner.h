// How a query is answered: from the columns in memory where they are, else from the pages. Both
// ways give the same rows in the same order.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "jet/query.h"
#include "jet/tablecache.h"

namespace jet {

class Planner {
  public:
    // All must outlive the planner.
    Planner(const Table& table, const TextOrder& textOrder, TableCache& cache)
        : table_(table), textOrder_(textOrder), cache_(cache) {}

    std::vector<RowId> rows(const Query& query);

    // May be called some time before rows(), and makes it faster, then.
    static void fetchAhead(const Query& query, const TableCache& cache);
    // Whether columns in memory can be of any use to the query.
    static bool wantsColumns(const Query& query);

  private:
    using RowNumbers = std::vector<uint32_t>;

    void loadColumns(const Query& query);
    std::optional<RowNumbers> fewRows(const Condition& condition);
    void keepMatching(RowNumbers& rows, const Condition& condition, const Condition* known);
    const CachedColumn* lookUpColumn(const Condition& condition);
    bool hasRoomToFind(const CachedColumn& column) const;
    const Condition* bestLookUp(const Condition& condition);
    std::optional<RowNumbers> searched(const Condition& condition);
    bool matches(const Condition& condition, uint32_t row);
    bool passes(const ColumnTest& test, uint32_t row);
    RowSet filter(const Condition& condition, const RowSet& rows);
    RowSet filterByAll(const std::vector<const Condition*>& conditions, const RowSet& rows);
    RowSet filterByAny(const std::vector<const Condition*>& conditions, const RowSet& rows);
    RowSet filterByTest(const ColumnTest& test, const RowSet& rows);
    int cost(const Condition& condition);

    std::vector<RowId> distinctByCode(const CachedColumn& column, const RowSet& rows) const;
    std::vector<RowId> ordered(const Query& query, const RowSet& rows);
    std::vector<RowId> ordered(const Query& query, RowNumbers rows);
    const Ranking* rankingFor(const Query& query, size_t count);
    const CachedColumn* valuesFor(const Query& query) const;
    std::vector<RowId> identities(std::span<const uint32_t> rows) const;

    const Table& table_;
    const TextOrder& textOrder_;
    TableCache& cache_;
};

}  // namespace jet
