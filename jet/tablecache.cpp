#include "jet/tablecache.h"

#include <algorithm>

#include "jet/columnloader.h"

namespace jet {
namespace {

// Small tables may take this in all; the bound per row is meant for large ones.
constexpr size_t kFewestRows = 4096;

}  // namespace

TableCache::TableCache(const Table& table, const TextOrder& order, const CacheLimits& limits)
    : table_(table),
      firstColumn_(table.definition().columns.data()),
      limits_(limits),
      folder_(order),
      slots_(table.definition().columns.size()) {
    ids_.reserve(table.rowCount());
    // Rows in file order: in ascending order of their identities.
    table.forEachRow([this](RowId id, RowView) { ids_.push_back(id); });
    firstCount_ = indexedCount_ = ids_.size();
    for (size_t row = 0; row < ids_.size(); ++row)
        live_.pushMember();
}

CachedColumn* TableCache::broughtUpToDate(const Column& column) {
    if (isMissing(column)) {
        const Column* const wanted = &column;
        load({&wanted, 1});
    }
    Slot& place = slot(column);
    if (place.column && place.column->count() < ids_.size() && !catchUp(*place.column))
        place = Slot{};
    return place.column.get();
}

// Appends the rows that were added since; false when there is no room for them. Who adds many rows
// does not wait for columns that nobody may ask about any more.
bool TableCache::catchUp(CachedColumn& column) const {
    for (size_t row = column.count(); row < ids_.size(); ++row) {
        const bool done = live_.contains(row) ? column.append(table_, table_.row(ids_[row]))
                                              : column.appendNull();
        if (!done) return false;
    }
    return true;
}

void TableCache::load(std::span<const Column* const> columns) {
    std::vector<const Column*> wanted;
    for (const Column* column : columns) {
        if (!isMissing(*column)) continue;
        if (column->isText() || isComparedAsNumber(*column))
            wanted.push_back(column);
        else
            slot(*column).refused = true;
    }
    if (wanted.empty()) return;
    ColumnLoader::Columns loaded =
        ColumnLoader(table_, folder_, limits_, {ids_, firstCount_, live_}).load(wanted, room());
    for (size_t i = 0; i < wanted.size(); ++i) {
        Slot& place = slot(*wanted[i]);
        place.column = std::move(loaded[i]);
        place.refused = !place.column;
    }
}

const Ranking* TableCache::ranking(const Column& column) {
    const CachedColumn* values = this->column(column);
    if (!values) return nullptr;
    Ranking& ranking = slot(column).ranking;
    if (ranking.rows().empty() && !hasRoomFor(Ranking::bytesFor(ids_.size()))) return nullptr;
    ranking.update(*values, ids_);
    return &ranking;
}

const Ranking* TableCache::freshRanking(const Column& column) {
    const Slot& place = slots_[this->place(column)];
    const bool fresh = place.column && place.ranking.rows().size() == ids_.size();
    return fresh ? &place.ranking : nullptr;
}

size_t TableCache::bytes() const {
    size_t bytes = ids_.capacity() * sizeof(RowId) + live_.bytes();
    for (const Slot& place : slots_)
        if (place.column) bytes += place.column->bytes() + place.ranking.bytes();
    return bytes;
}

size_t TableCache::room() const {
    const size_t bound = limits_.bytesPerRow * std::max(ids_.size(), kFewestRows);
    return bound - std::min(bound, bytes());
}

bool TableCache::hasRoomFor(size_t bytes) const {
    return bytes <= room();
}

void TableCache::rowAdded(RowId id) {
    ids_.push_back(id);
    live_.pushMember();
}

void TableCache::rowRemoved(RowId id) {
    const std::optional<size_t> row = numberOf(id);
    if (!row) return;
    live_.remove(*row);
    laterRows_.erase(id.value);
    ++removedCount_;
}

// A row that was removed and one added later may bear the same identity.
std::optional<size_t> TableCache::numberOf(RowId id) {
    for (; indexedCount_ < ids_.size(); ++indexedCount_)
        laterRows_.insert_or_assign(ids_[indexedCount_].value,
                                    static_cast<uint32_t>(indexedCount_));
    const auto later = laterRows_.find(id.value);
    if (later != laterRows_.end()) return later->second;
    const auto end = ids_.begin() + static_cast<std::ptrdiff_t>(firstCount_);
    const auto found = std::lower_bound(ids_.begin(), end, id);
    if (found == end || *found != id) return std::nullopt;
    return static_cast<size_t>(found - ids_.begin());
}

bool TableCache::isWorn() const {
    const size_t changes = removedCount_ + ids_.size() - firstCount_;
    return changes > std::max(kFewestRows, firstCount_ / 2);
}

}  // namespace jet
