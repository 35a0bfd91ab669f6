#include "jet/tablecache.h"

#include <algorithm>

namespace jet {
namespace {

// Small tables may take this in all; the bound per row is meant for large ones.
constexpr size_t kFewestRows = 4096;
// After so many rows the size of a column is foreseen, and from then on watched.
constexpr size_t kSampleRows = 4096;

}  // namespace

TableCache::TableCache(const Table& table, const TextOrder& order, const CacheLimits& limits)
    : table_(table), limits_(limits), folder_(order), slots_(table.definition().columns.size()) {
    ids_.reserve(table.rowCount());
    table.forEachRow([this](RowId id, RowView) { ids_.push_back(id); });
    std::ranges::sort(ids_);
    firstCount_ = ids_.size();
    for (size_t row = 0; row < ids_.size(); ++row)
        live_.pushMember();
}

TableCache::Slot& TableCache::slot(const Column& column) {
    return slots_[static_cast<size_t>(&column - table_.definition().columns.data())];
}

CachedColumn* TableCache::column(const Column& column) {
    Slot& place = slot(column);
    if (place.column || place.refused) return place.column.get();
    if (column.isText() || isComparedAsNumber(column)) {
        auto loaded = std::make_unique<CachedColumn>(column, folder_, limits_.dictionaryTexts);
        if (load(*loaded)) {
            place.column = std::move(loaded);
            return place.column.get();
        }
    }
    place.refused = true;
    return nullptr;
}

bool TableCache::load(CachedColumn& column) const {
    RowCursor cursor = table_.rows();
    bool atRow = cursor.next();
    for (size_t row = 0; row < ids_.size(); ++row) {
        if (row == kSampleRows) column.expect(ids_.size());
        if (row % kSampleRows == 0 && !hasRoomFor(column.bytes())) return false;
        if (!live_.contains(row)) {
            if (!column.appendNull()) return false;
            continue;
        }
        // The first rows are in the order of their identities, which is mostly that of the pages.
        const RowId id = ids_[row];
        while (row < firstCount_ && atRow && cursor.id() < id)
            atRow = cursor.next();
        const bool met = row < firstCount_ && atRow && cursor.id() == id;
        if (!column.append(table_, met ? cursor.row() : table_.row(id))) return false;
    }
    return hasRoomFor(column.bytes());
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
    const Slot& place = slot(column);
    const bool fresh = place.column && place.ranking.rows().size() == ids_.size();
    return fresh ? &place.ranking : nullptr;
}

size_t TableCache::bytes() const {
    size_t bytes = ids_.capacity() * sizeof(RowId) + live_.bytes();
    for (const Slot& place : slots_)
        if (place.column) bytes += place.column->bytes() + place.ranking.bytes();
    return bytes;
}

bool TableCache::hasRoomFor(size_t bytes) const {
    return this->bytes() + bytes <= limits_.bytesPerRow * std::max(ids_.size(), kFewestRows);
}

void TableCache::rowAdded(RowId id) {
    laterRows_.insert_or_assign(id.value, static_cast<uint32_t>(ids_.size()));
    ids_.push_back(id);
    live_.pushMember();
    for (Slot& place : slots_) {
        if (place.column && !place.column->append(table_, table_.row(id))) place = Slot{};
    }
}

void TableCache::rowRemoved(RowId id) {
    const std::optional<size_t> row = numberOf(id);
    if (!row) return;
    live_.remove(*row);
    laterRows_.erase(id.value);
    ++removedCount_;
}

// A row that was removed and one added later may bear the same identity.
std::optional<size_t> TableCache::numberOf(RowId id) const {
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
