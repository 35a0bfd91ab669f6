// The columns of a table that queries asked about, kept in memory within a bound, and kept right
// while rows are added and removed. Whoever owns a cache tells it of every change of the table, or
// throws it away.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "jet/cachedcolumn.h"
#include "jet/cachelimits.h"
#include "jet/ranking.h"
#include "jet/rowid.h"
#include "jet/rowset.h"
#include "jet/table.h"

namespace jet {

class TableCache {
  public:
    // Walks the table once for its rows. Both references must outlive the cache.
    TableCache(const Table& table, const TextOrder& order, const CacheLimits& limits);

    // By row number: the identities of the rows, removed ones included.
    const std::vector<RowId>& ids() const { return ids_; }
    // The rows that are not removed.
    const RowSet& live() const { return live_; }

    // The column, loaded when it is not yet; null when it is of bytes or would take too much.
    CachedColumn* column(const Column& column) {
        const Slot& place = slots_[this->place(column)];
        const bool ready = place.column && place.column->count() == ids_.size();
        return ready ? place.column.get() : broughtUpToDate(column);
    }
    // The column as far as it is loaded, maybe without the last rows; null when it is not.
    const CachedColumn* loaded(const Column& column) const {
        return slots_[place(column)].column.get();
    }
    // Loads those of the columns that are not there yet, in one walk: faster than one by one.
    void load(std::span<const Column* const> columns);
    // Whether column() would have to load it first.
    bool isMissing(const Column& column) const {
        const Slot& place = slots_[this->place(column)];
        return !place.column && !place.refused;
    }
    // Its order, brought up to date; null when the column is not there or it would take too much.
    const Ranking* ranking(const Column& column);
    // The same, but null as well when it would have to be made or brought up to date.
    const Ranking* freshRanking(const Column& column);
    // The bytes that are left within the bound.
    size_t room() const;
    // Whether so many bytes more are within the bound.
    bool hasRoomFor(size_t bytes) const;

    // The columns take it in when they are asked for the next time.
    void rowAdded(RowId id);
    void rowRemoved(RowId id);
    // So many rows were added and removed that a fresh cache would be better.
    bool isWorn() const;

  private:
    struct Slot {
        std::unique_ptr<CachedColumn> column;
        Ranking ranking;
        bool refused = false;
    };

    size_t place(const Column& column) const { return static_cast<size_t>(&column - firstColumn_); }
    CachedColumn* broughtUpToDate(const Column& column);
    bool catchUp(CachedColumn& column) const;
    Slot& slot(const Column& column) { return slots_[place(column)]; }
    std::optional<size_t> numberOf(RowId id);
    size_t bytes() const;

    const Table& table_;
    const Column* firstColumn_;  // of the table's definition
    CacheLimits limits_;
    TextFolder folder_;
    std::vector<RowId> ids_;
    RowSet live_;
    // The rows of the first walk, in ascending order of their identities; the others, as far as
    // rows were removed since, by identity.
    size_t firstCount_ = 0;
    std::unordered_map<uint32_t, uint32_t> laterRows_;
    size_t indexedCount_ = 0;  // rows, those of the first walk among them
    size_t removedCount_ = 0;
    std::vector<Slot> slots_;  // by place of the column in the table's definition
};

}  // namespace jet
